#include "support/jet_image.h"

#include <algorithm>
#include <array>
#include <bit>

namespace support {
namespace {

constexpr std::uint8_t kBoolean = 1;
constexpr double kCreationDate = 38143.5;

Blob LittleEndian(std::uint64_t number, std::size_t size) {
    Blob bytes;
    for (std::size_t i = 0; i < size; ++i)
        bytes.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
    return bytes;
}

void Append(Blob& to, const Blob& bytes) {
    to.insert(to.end(), bytes.begin(), bytes.end());
}

// The bit of a number within its byte of a bitmap.
std::uint8_t Bit(std::size_t number) {
    return static_cast<std::uint8_t>(1u << (number % 8));
}

// The mask over the header, as every file of these formats carries it.
Blob HeaderMask(std::size_t size) {
    const std::array<std::uint8_t, 4> key = {0xC7, 0xDA, 0x39, 0x6B};
    std::array<unsigned, 256> state;
    for (unsigned i = 0; i < 256; ++i)
        state[i] = i;
    for (unsigned i = 0, j = 0; i < 256; ++i) {
        j = (j + state[i] + key[i % 4]) % 256;
        std::swap(state[i], state[j]);
    }
    Blob mask;
    for (unsigned n = 1, j = 0; n <= size; ++n) {
        j = (j + state[n % 256]) % 256;
        std::swap(state[n % 256], state[j]);
        mask.push_back(static_cast<std::uint8_t>(state[(state[n % 256] + state[j]) % 256]));
    }
    return mask;
}

}  // namespace

Blob Bytes16(std::uint64_t number) {
    return LittleEndian(number, 2);
}

Blob Bytes32(std::uint64_t number) {
    return LittleEndian(number, 4);
}

Blob Bytes64(std::uint64_t number) {
    return LittleEndian(number, 8);
}

Blob BytesOf(const std::string& text) {
    return {text.begin(), text.end()};
}

Blob Joined(const std::vector<Blob>& parts) {
    Blob whole;
    for (const Blob& part : parts)
        Append(whole, part);
    return whole;
}

Blob Utf16(const std::u16string& text) {
    Blob bytes;
    for (const char16_t unit : text)
        Append(bytes, Bytes16(unit));
    return bytes;
}

void Patch(Blob& image, std::size_t at, const Blob& bytes) {
    std::copy(bytes.begin(), bytes.end(), image.begin() + static_cast<std::ptrdiff_t>(at));
}

// Pages 0 to 2 are the header, the global map and the catalogue's definition.
JetImage::JetImage(jetfile::FileKind kind) : kind_(kind), pageSize_(Jet3() ? 2048 : 4096) {
    for (std::uint8_t type = 0; type <= 2; ++type)
        NewPage(type);
}

std::uint32_t JetImage::NewPage(std::uint8_t type) {
    pages_.emplace_back(pageSize_);
    pages_.back()[0] = type;
    pages_.back()[1] = 1;
    return NextPage() - 1;
}

std::uint32_t JetImage::AddTable(const std::string& name, const std::vector<ImageColumn>& columns,
                                 const std::vector<ImageRow>& rows, const std::vector<ImageIndex>& indexes) {
    std::vector<ImageSlot> slots;
    for (const ImageRow& row : rows)
        slots.push_back({EncodeRow(columns, row)});
    return AddTableOfSlots(name, columns, slots, indexes);
}

std::uint32_t JetImage::AddTableOfSlots(const std::string& name, const std::vector<ImageColumn>& columns,
                                        const std::vector<ImageSlot>& slots,
                                        const std::vector<ImageIndex>& indexes) {
    const std::uint32_t page = NewPage(2);
    WriteDefinition(page, columns, indexes, AddUsageMap(AddRowPages(page, slots)));
    AddObject(name, 1, page, 0);
    return page;
}

void JetImage::AddObject(const std::string& name, int type, std::uint32_t id, std::uint32_t flags) {
    objects_.push_back({name, type, id, flags});
}

std::uint32_t JetImage::AddRowPage(std::uint32_t owner, const std::vector<ImageSlot>& slots) {
    const std::uint32_t number = NewPage(1);
    Blob& page = Page(number);
    Patch(page, 4, Bytes32(owner));
    Patch(page, Jet3() ? 8 : 12, Bytes16(slots.size()));
    std::size_t end = pageSize_;
    std::size_t directory = Jet3() ? 10 : 14;
    for (const ImageSlot& slot : slots) {
        end -= slot.bytes.size();
        Patch(page, end, slot.bytes);
        Patch(page, directory, Bytes16(end | slot.flags));
        directory += 2;
    }
    return number;
}

std::vector<std::uint32_t> JetImage::AddRowPages(std::uint32_t owner, const std::vector<ImageSlot>& slots) {
    std::vector<std::uint32_t> pages;
    std::vector<ImageSlot> pending;
    std::size_t used = 0;
    for (const ImageSlot& slot : slots) {
        if (used + slot.bytes.size() + 2 > pageSize_ - 14) {
            pages.push_back(AddRowPage(owner, pending));
            pending.clear();
            used = 0;
        }
        pending.push_back(slot);
        used += slot.bytes.size() + 2;
    }
    if (!pending.empty()) pages.push_back(AddRowPage(owner, pending));
    return pages;
}

std::uint32_t JetImage::AddUsageMap(const std::vector<std::uint32_t>& pages) {
    Blob map(Jet3() ? 5 + 128 : 5 + 64);
    const std::uint32_t first = pages.empty() ? 0 : pages.front();
    Patch(map, 1, Bytes32(first));
    for (const std::uint32_t page : pages)
        map[5 + (page - first) / 8] |= Bit(page - first);
    return AddRowPage(1, {{map}}) << 8;
}

Blob JetImage::EncodeName(const std::string& name) const {
    if (Jet3()) return Joined({{static_cast<std::uint8_t>(name.size())}, BytesOf(name)});
    const Blob units = Utf16(std::u16string(name.begin(), name.end()));
    return Joined({Bytes16(units.size()), units});
}

Blob JetImage::ColumnEntries(const std::vector<ImageColumn>& columns) const {
    Blob entries;
    std::uint16_t fixedOffset = 0;
    std::uint16_t variableIndex = 0;
    for (std::uint16_t number = 0; number < columns.size(); ++number) {
        const ImageColumn& column = columns[number];
        Blob entry(Jet3() ? 18 : 25);
        entry[0] = column.type;
        Patch(entry, Jet3() ? 1 : 5, Bytes16(number));
        Patch(entry, Jet3() ? 3 : 7, Bytes16(variableIndex));
        Patch(entry, 11, {column.precision, column.scale});
        if (Jet3() && column.precision == 0) Patch(entry, 11, Bytes16(column.codePage));
        entry[Jet3() ? 13 : 15] = column.fixed ? 3 : 2;
        Patch(entry, Jet3() ? 14 : 21, Bytes16(column.fixed ? fixedOffset : 24832));
        Patch(entry, Jet3() ? 16 : 23, Bytes16(column.length));
        if (column.fixed) fixedOffset = static_cast<std::uint16_t>(fixedOffset + column.length);
        if (!column.fixed) ++variableIndex;
        Append(entries, entry);
    }
    for (const ImageColumn& column : columns)
        Append(entries, EncodeName(column.name));
    return entries;
}

Blob JetImage::IndexEntries(const std::vector<ImageIndex>& indexes) const {
    Blob entries;
    for (const ImageIndex& index : indexes) {
        Blob real(Jet3() ? 39 : 52);
        for (std::size_t i = 0; i < 10; ++i) {
            const bool used = i < index.columns.size();
            const int column = used ? index.columns[i] : 0xFFFF;
            const std::uint8_t ascending = used && column >= 0;
            const auto number = static_cast<std::uint64_t>(column < 0 ? -1 - column : column);
            Patch(real, (Jet3() ? 0 : 4) + 3 * i, Joined({Bytes16(number), {ascending}}));
        }
        real[Jet3() ? 38 : 46] = index.flags;
        Append(entries, real);
    }
    for (std::size_t i = 0; i < indexes.size(); ++i) {
        Blob logical(Jet3() ? 20 : 28);
        Patch(logical, Jet3() ? 4 : 8, Bytes32(i));
        logical[Jet3() ? 19 : 23] = indexes[i].kind;
        Append(entries, logical);
    }
    for (const ImageIndex& index : indexes)
        Append(entries, EncodeName(index.name));
    return entries;
}

// A definition longer than its page continues on new pages.
void JetImage::WriteDefinition(std::uint32_t page, const std::vector<ImageColumn>& columns,
                               const std::vector<ImageIndex>& indexes, std::uint32_t usageMap) {
    Blob whole((Jet3() ? 43 : 63) + indexes.size() * (Jet3() ? 8 : 12));
    const std::size_t shift = Jet3() ? 0 : 20;
    const auto variable = std::count_if(columns.begin(), columns.end(), [](auto& c) { return !c.fixed; });
    Patch(whole, 23 + shift, Bytes16(static_cast<std::uint64_t>(variable)));
    Patch(whole, 25 + shift, Bytes16(columns.size()));
    Patch(whole, 27 + shift, Bytes32(indexes.size()));
    Patch(whole, 31 + shift, Bytes32(indexes.size()));
    Patch(whole, 35 + shift, Bytes32(usageMap));
    Append(whole, ColumnEntries(columns));
    Append(whole, IndexEntries(indexes));

    Blob content(whole.begin() + 8, whole.end());
    std::uint32_t current = page;
    while (true) {
        const std::size_t count = std::min(content.size(), pageSize_ - 8);
        Patch(Page(current), 8, Blob(content.begin(), content.begin() + static_cast<std::ptrdiff_t>(count)));
        content.erase(content.begin(), content.begin() + static_cast<std::ptrdiff_t>(count));
        if (content.empty()) return;
        const std::uint32_t next = NewPage(2);
        Patch(Page(current), 4, Bytes32(next));
        current = next;
    }
}

Blob JetImage::EncodeRow(const std::vector<ImageColumn>& columns, const ImageRow& row) const {
    Blob bytes = LittleEndian(row.size(), Jet3() ? 1 : 2);
    Blob mask((row.size() + 7) / 8);
    std::vector<std::size_t> offsets;
    for (const bool fixed : {true, false}) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (row[i]) mask[i / 8] |= Bit(i);
            if (columns[i].fixed != fixed) continue;
            if (!fixed) offsets.push_back(bytes.size());
            const bool stored = row[i] && columns[i].type != kBoolean;
            if (stored) Append(bytes, *row[i]);
            if (fixed && !stored) bytes.resize(bytes.size() + columns[i].length);
        }
    }
    offsets.push_back(bytes.size());
    std::reverse(offsets.begin(), offsets.end());
    for (const std::size_t offset : offsets)
        Append(bytes, LittleEndian(offset, Jet3() ? 1 : 2));
    Append(bytes, LittleEndian(offsets.size() - 1, Jet3() ? 1 : 2));
    Append(bytes, mask);
    return bytes;
}

void JetImage::WriteCatalogue() {
    const std::vector<ImageColumn> columns = {{.name = "Id", .type = 4, .fixed = true, .length = 4},
                                              {.name = "Name", .type = 10, .length = 128},
                                              {.name = "Type", .type = 3, .fixed = true, .length = 2},
                                              {.name = "Flags", .type = 4, .fixed = true, .length = 4}};
    std::vector<ImageSlot> slots;
    for (const Object& object : objects_) {
        const Blob name =
            Jet3() ? BytesOf(object.name) : Utf16(std::u16string(object.name.begin(), object.name.end()));
        const auto type = static_cast<std::uint64_t>(object.type);
        slots.push_back(
            {EncodeRow(columns, {Bytes32(object.id), name, Bytes16(type), Bytes32(object.flags)})});
    }
    WriteDefinition(2, columns, {}, AddUsageMap(AddRowPages(2, slots)));
}

void JetImage::WriteHeader(const Blob& password) {
    Blob& header = Page(0);
    Patch(header, 0, BytesOf(std::string("\x00\x01\x00\x00Standard Jet DB", 19)));
    header[0x14] = Jet3() ? 0 : 1;
    Patch(header, 0x3C, Bytes16(1252));
    Patch(header, 0x42, password);
    if (!Jet3()) {
        Patch(header, 0x72, Bytes64(std::bit_cast<std::uint64_t>(kCreationDate)));
        const Blob day = Bytes32(static_cast<std::uint64_t>(kCreationDate));
        for (std::size_t i = 0; i < 40; ++i)
            header[0x42 + i] ^= day[i % 4];
    }
    const Blob mask = HeaderMask(Jet3() ? 126 : 128);
    for (std::size_t i = 0; i < mask.size(); ++i)
        header[0x18 + i] ^= mask[i];
}

Blob JetImage::Bytes(const Blob& password) {
    WriteCatalogue();
    WriteHeader(password);
    return Joined(pages_);
}

}  // namespace support
