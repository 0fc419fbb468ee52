#pragma once

#include <cstdint>

#include "jetfile/database_file.h"

namespace jetfile {

// The owner that pages of long values name in place of a table: the letters LVAL.
constexpr std::uint32_t kLongValueOwner = 0x4C41564C;

// One slot of a data page's row directory.
struct StoredRow {
    ByteView bytes;
    bool deleted = false;  // also set on a moved row's own slot
    bool moved = false;    // the bytes are a pointer to the row
};

// A page of rows: those of a table, pieces of long values, or usage maps.
class DataPage {
  public:
    // Throws 3049 when the page is of another kind or its row directory does not fit.
    DataPage(const DatabaseFile& file, std::uint32_t number);

    // True when the page holds rows of some kind at all.
    static bool IsDataPage(const DatabaseFile& file, std::uint32_t number);

    std::uint32_t Owner() const;
    std::size_t RowCount() const { return rowCount_; }
    StoredRow Row(std::size_t index) const;

  private:
    std::size_t DirectoryEntry(std::size_t index) const;

    const Layout& layout_;
    Page page_;
    std::size_t rowCount_;
};

// Where a pointer leads: the row's number in its low byte, the page above.
struct RowPointer {
    explicit RowPointer(std::uint32_t pointer) : page(pointer >> 8), row(pointer & 0xFF) {}
    std::uint32_t page;
    std::uint32_t row;
};

}  // namespace jetfile
