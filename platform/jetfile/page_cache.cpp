#include "jetfile/page_cache.h"

#include <algorithm>

namespace jetfile {
namespace {

constexpr std::size_t kBlockSize = 32 * 1024;
constexpr std::size_t kSlots = 512;

std::uint32_t PageCount(std::uint64_t fileSize, std::size_t pageSize) {
    if (fileSize % pageSize != 0) ThrowDamaged("the file ends inside a page");
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(fileSize / pageSize, UINT32_MAX));
}

}  // namespace

PageCache::PageCache(std::unique_ptr<ByteSource> source, std::size_t pageSize)
    : source_(std::move(source)),
      pageSize_(pageSize),
      count_(PageCount(source_->Size(), pageSize)),
      slots_(std::min<std::size_t>(kSlots, static_cast<std::size_t>(source_->Size() / kBlockSize + 1))) {}

Page PageCache::Get(std::uint32_t number) const {
    if (number >= count_) ThrowDamaged("a page number beyond the end of the file");
    const std::uint64_t offset = std::uint64_t{number} * pageSize_;
    const std::uint64_t block = offset / kBlockSize;
    Slot& slot = slots_[static_cast<std::size_t>(block % slots_.size())];
    if (!slot.bytes || slot.block != block) slot = {block, ReadBlock(block)};
    const ByteView whole(slot.bytes->data(), slot.bytes->size());
    return {slot.bytes, whole.Sub(static_cast<std::size_t>(offset % kBlockSize), pageSize_)};
}

std::shared_ptr<const Blob> PageCache::ReadBlock(std::uint64_t block) const {
    const std::uint64_t offset = block * kBlockSize;
    const std::uint64_t size = std::min<std::uint64_t>(kBlockSize, source_->Size() - offset);
    auto bytes = std::make_shared<Blob>(static_cast<std::size_t>(size));
    if (source_->Read(offset, bytes->data(), bytes->size()) != bytes->size()) {
        ThrowDamaged("the file ended while it was being read");
    }
    return bytes;
}

}  // namespace jetfile
