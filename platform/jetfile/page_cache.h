#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "jetfile/byte_source.h"
#include "jetfile/bytes.h"

namespace jetfile {

// A page, kept alive by whoever holds it.
struct Page {
    std::shared_ptr<const Blob> block;
    ByteView bytes;
};

// The pages of a file, read in blocks of several pages, of which a bounded number stays in memory.
class PageCache {
  public:
    // Throws 3049 when the file ends inside a page.
    PageCache(std::unique_ptr<ByteSource> source, std::size_t pageSize);

    // Throws 3049 for a page beyond the end of the file.
    Page Get(std::uint32_t number) const;

    std::uint32_t Count() const { return count_; }
    std::uint64_t FileSize() const { return source_->Size(); }

  private:
    struct Slot {
        std::uint64_t block = 0;
        std::shared_ptr<const Blob> bytes;
    };
    std::shared_ptr<const Blob> ReadBlock(std::uint64_t block) const;

    std::unique_ptr<ByteSource> source_;
    std::size_t pageSize_;
    std::uint32_t count_;
    mutable std::vector<Slot> slots_;
};

}  // namespace jetfile
