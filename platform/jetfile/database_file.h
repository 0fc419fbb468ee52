#pragma once

#include <cstdint>
#include <memory>

#include "jetfile/header.h"
#include "jetfile/layout.h"
#include "jetfile/page_cache.h"

namespace jetfile {

// An open file: its pages, its layout, and what its header says. The parts of the reader share it.
struct DatabaseFile {
    // Checks header and password; throws 3343, 3031, 3049.
    DatabaseFile(std::unique_ptr<ByteSource> source, const std::string& password);

    const Header header;
    const Layout& layout;
    const PageCache pages;

    // A name as table and index definitions hold it.
    std::string DecodeName(ByteView bytes) const;
};

}  // namespace jetfile
