#include "jetfile/field_value.h"

#include <algorithm>
#include <array>

#include "jetfile/long_value.h"
#include "jetfile/text.h"

namespace jetfile {
namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";
constexpr std::size_t kDecimalGroups = 4;
constexpr std::uint8_t kNegativeBit = 0x80;

std::string DecodeText(const DatabaseFile& file, const StoredColumn& column, ByteView bytes) {
    return file.header.kind == FileKind::Jet3 ? DecodeCodePageField(column.codePage, bytes)
                                              : DecodeUnicodeField(bytes);
}

// The first three groups are stored as little-endian numbers, the rest byte by byte.
std::string FormatGuid(ByteView bytes) {
    constexpr std::array<std::size_t, 16> kOrder = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
    std::string guid = "{";
    for (std::size_t i = 0; i < kOrder.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) guid += '-';
        const std::uint8_t byte = bytes.U8(kOrder[i]);
        guid += kHexDigits[byte >> 4];
        guid += kHexDigits[byte & 0xF];
    }
    return guid + "}";
}

// Divides a number of four 32-bit groups, most significant first, by ten; returns the remainder.
char TakeLastDigit(std::array<std::uint32_t, kDecimalGroups>& groups) {
    std::uint64_t remainder = 0;
    for (std::uint32_t& group : groups) {
        const std::uint64_t dividend = remainder << 32 | group;
        group = static_cast<std::uint32_t>(dividend / 10);
        remainder = dividend % 10;
    }
    return static_cast<char>('0' + remainder);
}

std::string FormatDecimal(ByteView bytes, int scale) {
    std::array<std::uint32_t, kDecimalGroups> groups;
    for (std::size_t i = 0; i < groups.size(); ++i)
        groups[i] = bytes.U32(1 + 4 * i);
    const auto isZero = [](std::uint32_t group) { return group == 0; };
    const bool zero = std::all_of(groups.begin(), groups.end(), isZero);
    std::string backwards;
    for (int digits = 0; digits <= scale || !std::all_of(groups.begin(), groups.end(), isZero); ++digits) {
        if (digits == scale && scale > 0) backwards += '.';
        backwards += TakeLastDigit(groups);
    }
    if (!zero && (bytes.U8(0) & kNegativeBit) != 0) backwards += '-';
    return {backwards.rbegin(), backwards.rend()};
}

std::string DecodeMemo(const DatabaseFile& file, const StoredColumn& column, ByteView bytes,
                       ReadBudget& budget) {
    const Blob text = ReadLongValue(file, bytes, budget);
    return DecodeText(file, column, {text.data(), text.size()});
}

Value DecodeNumber(jet::Type type, ByteView bytes) {
    switch (type) {
        case jet::Type::Byte:
            return std::int64_t{bytes.U8(0)};
        case jet::Type::Integer:
            return std::int64_t{static_cast<std::int16_t>(bytes.U16(0))};
        case jet::Type::Long:
            return std::int64_t{static_cast<std::int32_t>(bytes.U32(0))};
        case jet::Type::Currency:
            return static_cast<std::int64_t>(bytes.U64(0));
        case jet::Type::Single:
            return static_cast<double>(bytes.F32(0));
        default:
            return bytes.F64(0);
    }
}

}  // namespace

Value DecodeField(const DatabaseFile& file, const StoredColumn& column, ByteView bytes, ReadBudget& budget) {
    switch (column.column.type) {
        case jet::Type::Binary:
            return Blob(bytes.begin(), bytes.end());
        case jet::Type::LongBinary:
            return ReadLongValue(file, bytes, budget);
        case jet::Type::Text:
            return DecodeText(file, column, bytes);
        case jet::Type::Memo:
            return DecodeMemo(file, column, bytes, budget);
        case jet::Type::Guid:
            return FormatGuid(bytes);
        case jet::Type::Decimal:
            return FormatDecimal(bytes, column.column.scale);
        default:
            return DecodeNumber(column.column.type, bytes);
    }
}

}  // namespace jetfile
