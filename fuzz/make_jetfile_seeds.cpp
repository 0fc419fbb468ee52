// Writes the seeds of jetfile_fuzzer: small files of both formats that use every structure the reader knows.
#include <cstdio>
#include <fstream>
#include <string>

#include "support/jet_image.h"

namespace {

using jetfile::FileKind;
using support::Blob;
using support::Bytes16;
using support::Bytes32;
using support::Bytes64;
using support::BytesOf;
using support::ImageColumn;
using support::ImageRow;
using support::JetImage;
using support::Joined;

Blob LongHead(std::uint32_t length, std::uint32_t pointer) {
    return Joined({Bytes32(length), Bytes32(pointer), Bytes32(0)});
}

const ImageColumn kId = {.name = "id", .type = 4, .fixed = true, .length = 4};

void AddEveryType(JetImage& image) {
    const std::vector<ImageColumn> columns = {
        kId,
        {.name = "yes", .type = 1, .fixed = true},
        {.name = "byte", .type = 2, .length = 1},
        {.name = "date", .type = 8, .fixed = true, .length = 8},
        {.name = "binary", .type = 9, .length = 20},
        {.name = "text", .type = 10, .length = 100, .codePage = 932},
        {.name = "guid", .type = 15, .length = 16},
        {.name = "decimal", .type = 16, .length = 17, .precision = 18, .scale = 2},
        {.name = "odd", .type = 17, .fixed = true, .length = 2}};
    const ImageRow row = {Bytes32(1),    Blob(),
                          Blob{200},     Bytes64(0x40E0000000000000),
                          Blob{1, 2, 3}, Blob{0xFF, 0xFE, 'a', 0, 0x12, 0x34, 0, 'b'},
                          Blob(16, 7),   Joined({{0x80}, Bytes32(0), Bytes32(0), Bytes32(1), Bytes32(5)}),
                          Bytes16(1)};
    image.AddTable("types", columns, {row, ImageRow(columns.size())},
                   {{"PrimaryKey", {0, -6}, 9, 1}, {"relation", {0}, 0, 2}});
}

void AddLongValues(JetImage& image) {
    const Blob end = Joined({Bytes32(0), BytesOf("rest of it")});
    const std::uint32_t last = image.AddRowPage(JetImage::kLongValues, {{end}});
    const Blob start = Joined({Bytes32(last << 8), BytesOf("begin,")});
    const std::uint32_t first = image.AddRowPage(JetImage::kLongValues, {{start}, {BytesOf("alone!")}});
    const std::vector<ImageColumn> columns = {kId, {.name = "memo", .type = 12}, {.name = "ole", .type = 11}};
    image.AddTable("long", columns,
                   {{Bytes32(1), LongHead(16, first << 8), LongHead(0x40000000 | 6, first << 8 | 1)},
                    {Bytes32(2), Joined({LongHead(0x80000000 | 4, 0), BytesOf("here")}), std::nullopt}});
}

void AddMovedRows(JetImage& image) {
    const std::uint32_t rows = image.NextPage() + 1;
    image.AddTableOfSlots("moved", {kId},
                          {{Bytes32(rows << 8 | 2), 0x4000},
                           {image.EncodeRow({kId}, {Bytes32(1)}), 0x8000},
                           {image.EncodeRow({kId}, {Bytes32(2)}), 0x8000}});
}

void AddRowsElsewhere(JetImage& image) {
    AddLongValues(image);
    AddMovedRows(image);
}

void AddQuery(JetImage& image) {
    const std::vector<ImageColumn> columns = {{.name = "ObjectId", .type = 4, .fixed = true, .length = 4},
                                              {.name = "Attribute", .type = 2, .fixed = true, .length = 1},
                                              {.name = "Order", .type = 9, .length = 255},
                                              {.name = "Name1", .type = 10, .length = 255},
                                              {.name = "Name2", .type = 10, .length = 255},
                                              {.name = "Expression", .type = 12},
                                              {.name = "Flag", .type = 3, .fixed = true, .length = 2}};
    const auto part = [](std::uint8_t attribute, const Blob& name, const Blob& second, std::uint16_t flag) {
        return ImageRow{Bytes32(0x80000001),
                        Blob{attribute},
                        Blob{1},
                        name,
                        second,
                        Joined({LongHead(0x80000000 | 2, 0), {'a', 0}}),
                        Bytes16(flag)};
    };
    image.AddTable("MSysQueries", columns,
                   {part(5, {'a', 0}, {}, 0), part(5, {'b', 0}, {}, 0), part(6, {}, {}, 0),
                    part(7, {'a', 0}, {'b', 0}, 1), part(8, {}, {}, 0), part(11, {'D', 0}, {}, 0)});
    image.AddObject("query", 5, 0x80000001, 0);
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: make_jetfile_seeds <folder>\n");
        return 2;
    }
    struct Seed {
        const char* name;
        void (*add)(JetImage&);
    };
    for (const Seed& seed :
         {Seed{"types", AddEveryType}, Seed{"rows", AddRowsElsewhere}, Seed{"query", AddQuery}}) {
        for (const FileKind kind : {FileKind::Jet3, FileKind::Jet4}) {
            JetImage image(kind);
            seed.add(image);
            const Blob bytes = image.Bytes();
            std::ofstream file(
                std::string(arguments[1]) + "/" + seed.name + (kind == FileKind::Jet3 ? ".jet3" : ".jet4"),
                std::ios::binary);
            file.write(reinterpret_cast<const char*>(bytes.data()),
                       static_cast<std::streamsize>(bytes.size()));
        }
    }
    return 0;
}
