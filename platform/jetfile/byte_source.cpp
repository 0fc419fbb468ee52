#include "jetfile/byte_source.h"

#include <algorithm>
#include <cerrno>

#include "jet/error.h"

namespace jetfile {
namespace {

[[noreturn]] void ThrowUnreadable(const std::string& path) {
    throw jet::Error(3051, "Cannot open or read the file '" + path + "'.");
}

}  // namespace

FileSource::FileSource(const std::string& path) : file_(std::fopen(path.c_str(), "rb")) {
    if (!file_) {
        if (errno == ENOENT || errno == ENOTDIR)
            throw jet::Error(3024, "Could not find file '" + path + "'.");
        ThrowUnreadable(path);
    }
    std::setvbuf(file_.get(), nullptr, _IONBF, 0);
    // Databases of these formats end at 2 GB, so a long holds every offset. A folder opens on some systems,
    // but has no byte to read.
    const long size = std::fseek(file_.get(), 0, SEEK_END) == 0 ? std::ftell(file_.get()) : -1;
    std::uint8_t first = 0;
    if (size < 0 || (size > 0 && Read(0, &first, 1) != 1)) ThrowUnreadable(path);
    size_ = static_cast<std::uint64_t>(size);
}

std::size_t FileSource::Read(std::uint64_t offset, std::uint8_t* bytes, std::size_t count) {
    if (std::fseek(file_.get(), static_cast<long>(offset), SEEK_SET) != 0) return 0;
    return std::fread(bytes, 1, count, file_.get());
}

std::size_t MemorySource::Read(std::uint64_t offset, std::uint8_t* bytes, std::size_t count) {
    if (offset >= image_.size()) return 0;
    const std::size_t available = std::min(count, image_.size() - static_cast<std::size_t>(offset));
    std::copy_n(image_.data() + offset, available, bytes);
    return available;
}

}  // namespace jetfile
