#pragma once

#include <cstddef>

#include "jetfile/reader.h"

namespace jetfile {

// Sizes and offsets in which the two file formats differ.
struct Layout {
    FileKind kind;
    std::size_t pageSize;

    // Page 0.
    std::size_t maskedHeaderSize;
    std::size_t passwordSize;

    // Data pages.
    std::size_t rowCountAt;
    std::size_t rowDirectoryAt;

    // Rows: width of the column count at their start.
    std::size_t rowHeadSize;

    // Table definitions.
    std::size_t variableColumnCountAt;
    std::size_t columnCountAt;
    std::size_t logicalIndexCountAt;
    std::size_t realIndexCountAt;
    std::size_t ownedPagesAt;
    std::size_t realIndexHeadsAt;
    std::size_t realIndexHeadSize;

    // Column entries; codePageAt is 0 where text carries no code page.
    std::size_t columnEntrySize;
    std::size_t columnNumberAt;
    std::size_t variableIndexAt;
    std::size_t codePageAt;
    std::size_t precisionAt;
    std::size_t columnFlagsAt;
    std::size_t fixedOffsetAt;
    std::size_t columnLengthAt;
    std::size_t bytesPerCharacter;

    // Index entries.
    std::size_t realIndexSize;
    std::size_t realIndexColumnsAt;
    std::size_t realIndexFlagsAt;
    std::size_t logicalIndexSize;
    std::size_t logicalRealIndexAt;
    std::size_t logicalKindAt;
};

// The layout of a Jet 3 or Jet 4 file.
const Layout& LayoutOf(FileKind kind);

}  // namespace jetfile
