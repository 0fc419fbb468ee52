// Any bytes as a database file: an error or rows, in bounded time and memory.
#include <cstddef>
#include <cstdint>
#include <memory>

#include "jet/error.h"
#include "jetfile/byte_source.h"
#include "jetfile/reader.h"

namespace {

constexpr std::size_t kVersionAt = 0x14;

// A file that ends inside a page is refused at once, which would keep the fuzzer from everything behind.
jetfile::Blob WholePages(const std::uint8_t* data, std::size_t size) {
    jetfile::Blob image(data, data + size);
    const std::size_t pageSize = size > kVersionAt && data[kVersionAt] == 0 ? 2048 : 4096;
    image.resize((size + pageSize - 1) / pageSize * pageSize);
    return image;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const jetfile::Reader reader(std::make_unique<jetfile::MemorySource>(WholePages(data, size)), "");
        for (const jet::Table& table : reader.Tables()) {
            reader.ReadRows(table.name, [](jetfile::Row&&) { return true; });
        }
    } catch (const jet::Error&) {
        // What a damaged file is to give.
    }
    return 0;
}
