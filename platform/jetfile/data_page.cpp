#include "jetfile/data_page.h"

namespace jetfile {
namespace {

constexpr std::uint8_t kDataPageType = 1;
constexpr std::size_t kOwnerAt = 4;
constexpr std::size_t kOffsetMask = 0x1FFF;
constexpr std::size_t kDeletedBit = 0x8000;
constexpr std::size_t kMovedBit = 0x4000;

}  // namespace

bool DataPage::IsDataPage(const DatabaseFile& file, std::uint32_t number) {
    return file.pages.Get(number).bytes.U8(0) == kDataPageType;
}

DataPage::DataPage(const DatabaseFile& file, std::uint32_t number)
    : layout_(file.layout), page_(file.pages.Get(number)), rowCount_(page_.bytes.U16(layout_.rowCountAt)) {
    if (page_.bytes.U8(0) != kDataPageType) ThrowDamaged("a row pointer leads to a page without rows");
    if (layout_.rowDirectoryAt + 2 * rowCount_ > layout_.pageSize) ThrowDamaged("too many rows on a page");
}

std::uint32_t DataPage::Owner() const {
    return page_.bytes.U32(kOwnerAt);
}

std::size_t DataPage::DirectoryEntry(std::size_t index) const {
    return page_.bytes.U16(layout_.rowDirectoryAt + 2 * index);
}

// Rows are stored from the end of the page towards its directory, in the order of the directory.
StoredRow DataPage::Row(std::size_t index) const {
    if (index >= rowCount_) ThrowDamaged("a row pointer beyond the rows of its page");
    const std::size_t entry = DirectoryEntry(index);
    const std::size_t start = entry & kOffsetMask;
    const std::size_t end = index == 0 ? layout_.pageSize : DirectoryEntry(index - 1) & kOffsetMask;
    if (start > end || start < layout_.rowDirectoryAt + 2 * rowCount_) ThrowDamaged("rows of a page overlap");
    return {page_.bytes.Sub(start, end - start), (entry & kDeletedBit) != 0, (entry & kMovedBit) != 0};
}

}  // namespace jetfile
