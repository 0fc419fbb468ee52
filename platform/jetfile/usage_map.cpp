#include "jetfile/usage_map.h"

#include "jetfile/data_page.h"

namespace jetfile {
namespace {

constexpr std::uint8_t kInlineMap = 0;
constexpr std::uint8_t kPagedMap = 1;
constexpr std::uint8_t kMapPageType = 5;
constexpr std::size_t kMapPageBitmapAt = 4;

// Appends the pages whose bits are set; the first bit stands for page `first`.
void AppendBitmap(ByteView bitmap, std::uint64_t first, std::uint32_t pageCount,
                  std::vector<std::uint32_t>& pages) {
    for (std::size_t i = 0; i < bitmap.Size(); ++i) {
        const std::uint8_t bits = bitmap.U8(i);
        for (unsigned bit = 0; bits >> bit != 0; ++bit) {
            if ((bits >> bit & 1) == 0) continue;
            const std::uint64_t page = first + 8 * i + bit;
            if (page >= pageCount) ThrowDamaged("a usage map names a page beyond the end of the file");
            pages.push_back(static_cast<std::uint32_t>(page));
        }
    }
}

// A large table's map lies on pages of its own, each for a fixed range of the file; 0 stands for an empty
// range.
void AppendPagedMap(const DatabaseFile& file, ByteView mapPages, std::vector<std::uint32_t>& pages) {
    const std::uint64_t range = (file.layout.pageSize - kMapPageBitmapAt) * 8;
    for (std::size_t i = 0; i + 4 <= mapPages.Size(); i += 4) {
        const std::uint32_t number = mapPages.U32(i);
        if (number == 0) continue;
        const Page page = file.pages.Get(number);
        if (page.bytes.U8(0) != kMapPageType) ThrowDamaged("a usage map leads to a page of another kind");
        AppendBitmap(page.bytes.From(kMapPageBitmapAt), i / 4 * range, file.pages.Count(), pages);
    }
}

}  // namespace

std::vector<std::uint32_t> MappedPages(const DatabaseFile& file, std::uint32_t pointer) {
    const RowPointer at(pointer);
    const DataPage page(file, at.page);
    const ByteView map = page.Row(at.row).bytes;
    std::vector<std::uint32_t> pages;
    switch (map.U8(0)) {
        case kInlineMap:
            AppendBitmap(map.From(5), map.U32(1), file.pages.Count(), pages);
            break;
        case kPagedMap:
            AppendPagedMap(file, map.From(1), pages);
            break;
        default:
            ThrowDamaged("a usage map of an unknown kind");
    }
    return pages;
}

}  // namespace jetfile
