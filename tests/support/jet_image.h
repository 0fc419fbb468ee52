#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "jetfile/reader.h"

// Builds small Jet 3 and Jet 4 files in memory, page by page, so that a test can say what is in each byte.
namespace support {

using jetfile::Blob;

// A column as its definition stores it; `type` is the stored type number.
struct ImageColumn {
    std::string name;
    std::uint8_t type = 10;
    bool fixed = false;
    std::uint16_t length = 0;
    std::uint8_t precision = 0;
    std::uint8_t scale = 0;
    std::uint16_t codePage = 1252;
};

// An index over columns by number; a negative one, -1 - number, sorts descending.
struct ImageIndex {
    std::string name;
    std::vector<int> columns;
    std::uint8_t flags = 0;  // 1 unique, 2 ignore Nulls, 8 required
    std::uint8_t kind = 0;   // 0 plain, 1 primary, 2 foreign
};

// The stored bytes of a field; nothing for Null. For Yes/No any bytes mean True.
using ImageField = std::optional<Blob>;
using ImageRow = std::vector<ImageField>;

// A slot of a page of rows; flags 0x8000 deleted, 0x4000 moved.
struct ImageSlot {
    Blob bytes;
    std::uint16_t flags = 0;
};

class JetImage {
  public:
    explicit JetImage(jetfile::FileKind kind);

    // A user table with one row per entry; returns its definition page.
    std::uint32_t AddTable(const std::string& name, const std::vector<ImageColumn>& columns,
                           const std::vector<ImageRow>& rows, const std::vector<ImageIndex>& indexes = {});

    // The same with rows that the test laid out itself; a row too many for a page begins the next.
    std::uint32_t AddTableOfSlots(const std::string& name, const std::vector<ImageColumn>& columns,
                                  const std::vector<ImageSlot>& slots,
                                  const std::vector<ImageIndex>& indexes = {});

    // A page of rows that belongs to the table with this definition page, or to long values (kLongValues).
    static constexpr std::uint32_t kLongValues = 0x4C41564C;
    std::uint32_t AddRowPage(std::uint32_t owner, const std::vector<ImageSlot>& slots);

    // An entry of the catalogue for something else than a user table.
    void AddObject(const std::string& name, int type, std::uint32_t id, std::uint32_t flags);

    Blob EncodeRow(const std::vector<ImageColumn>& columns, const ImageRow& row) const;
    Blob EncodeName(const std::string& name) const;

    std::uint32_t NewPage(std::uint8_t type);
    Blob& Page(std::uint32_t number) { return pages_[number]; }
    std::uint32_t NextPage() const { return static_cast<std::uint32_t>(pages_.size()); }

    // The whole file. `password` is what the header stores: narrow bytes in Jet 3, UTF-16 in Jet 4.
    Blob Bytes(const Blob& password = {});

  private:
    struct Object {
        std::string name;
        int type;
        std::uint32_t id;
        std::uint32_t flags;
    };
    bool Jet3() const { return kind_ == jetfile::FileKind::Jet3; }
    std::vector<std::uint32_t> AddRowPages(std::uint32_t owner, const std::vector<ImageSlot>& slots);
    std::uint32_t AddUsageMap(const std::vector<std::uint32_t>& pages);
    void WriteDefinition(std::uint32_t page, const std::vector<ImageColumn>& columns,
                         const std::vector<ImageIndex>& indexes, std::uint32_t usageMap);
    Blob ColumnEntries(const std::vector<ImageColumn>& columns) const;
    Blob IndexEntries(const std::vector<ImageIndex>& indexes) const;
    void WriteCatalogue();
    void WriteHeader(const Blob& password);

    jetfile::FileKind kind_;
    std::size_t pageSize_;
    std::vector<Blob> pages_;
    std::vector<Object> objects_;
};

// Little-endian bytes of a number, for fields and patches.
Blob Bytes16(std::uint64_t number);
Blob Bytes32(std::uint64_t number);
Blob Bytes64(std::uint64_t number);
Blob BytesOf(const std::string& text);
Blob Joined(const std::vector<Blob>& parts);
Blob Utf16(const std::u16string& text);

// Overwrites bytes at an offset.
void Patch(Blob& image, std::size_t at, const Blob& bytes);

}  // namespace support
