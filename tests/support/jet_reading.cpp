#include "support/jet_reading.h"

#include <gtest/gtest.h>

#include "jet/error.h"
#include "jetfile/byte_source.h"
#include "support/temporary_directory.h"

namespace support {

jetfile::Reader OpenImage(jetfile::Blob image, const std::string& password) {
    return jetfile::Reader(std::make_unique<jetfile::MemorySource>(std::move(image)), password);
}

jetfile::Blob SampleImage(const std::string& sample) {
    const std::string bytes = ReadFile(std::filesystem::path(KALO_SAMPLE_DIR) / sample);
    return {bytes.begin(), bytes.end()};
}

std::vector<jetfile::Row> RowsOf(const jetfile::Reader& reader, const std::string& table) {
    std::vector<jetfile::Row> rows;
    reader.ReadRows(table, [&](jetfile::Row&& row) {
        rows.push_back(std::move(row));
        return true;
    });
    return rows;
}

jet::Table TableOf(const jetfile::Reader& reader, const std::string& table) {
    for (const jet::Table& candidate : reader.Tables()) {
        if (candidate.name == table) return candidate;
    }
    ADD_FAILURE() << "no table " << table;
    return {};
}

int ErrorOfReadingAll(jetfile::Blob image, const std::string& password) {
    try {
        const jetfile::Reader reader = OpenImage(std::move(image), password);
        for (const jet::Table& table : reader.Tables()) {
            reader.ReadRows(table.name, [](jetfile::Row&&) { return true; });
        }
        return 0;
    } catch (const jet::Error& error) {
        return error.Number();
    }
}

}  // namespace support
