#include "jetfile/layout.h"

namespace jetfile {
namespace {

constexpr Layout kJet3 = {
    .kind = FileKind::Jet3,
    .pageSize = 2048,
    .maskedHeaderSize = 126,
    .passwordSize = 20,
    .rowCountAt = 8,
    .rowDirectoryAt = 10,
    .rowHeadSize = 1,
    .variableColumnCountAt = 23,
    .columnCountAt = 25,
    .logicalIndexCountAt = 27,
    .realIndexCountAt = 31,
    .ownedPagesAt = 35,
    .realIndexHeadsAt = 43,
    .realIndexHeadSize = 8,
    .columnEntrySize = 18,
    .columnNumberAt = 1,
    .variableIndexAt = 3,
    .codePageAt = 11,
    .precisionAt = 11,
    .columnFlagsAt = 13,
    .fixedOffsetAt = 14,
    .columnLengthAt = 16,
    .bytesPerCharacter = 1,
    .realIndexSize = 39,
    .realIndexColumnsAt = 0,
    .realIndexFlagsAt = 38,
    .logicalIndexSize = 20,
    .logicalRealIndexAt = 4,
    .logicalKindAt = 19,
};

constexpr Layout kJet4 = {
    .kind = FileKind::Jet4,
    .pageSize = 4096,
    .maskedHeaderSize = 128,
    .passwordSize = 40,
    .rowCountAt = 12,
    .rowDirectoryAt = 14,
    .rowHeadSize = 2,
    .variableColumnCountAt = 43,
    .columnCountAt = 45,
    .logicalIndexCountAt = 47,
    .realIndexCountAt = 51,
    .ownedPagesAt = 55,
    .realIndexHeadsAt = 63,
    .realIndexHeadSize = 12,
    .columnEntrySize = 25,
    .columnNumberAt = 5,
    .variableIndexAt = 7,
    .codePageAt = 0,
    .precisionAt = 11,
    .columnFlagsAt = 15,
    .fixedOffsetAt = 21,
    .columnLengthAt = 23,
    .bytesPerCharacter = 2,
    .realIndexSize = 52,
    .realIndexColumnsAt = 4,
    .realIndexFlagsAt = 46,
    .logicalIndexSize = 28,
    .logicalRealIndexAt = 8,
    .logicalKindAt = 23,
};

}  // namespace

const Layout& LayoutOf(FileKind kind) {
    return kind == FileKind::Jet3 ? kJet3 : kJet4;
}

}  // namespace jetfile
