#include "support/jet_files.h"

#include <bit>

#include "support/jet_image.h"

namespace {

using namespace support;
using jetfile::FileKind;

const ImageColumn kId = {.name = "id", .type = 4, .fixed = true, .length = 4};

std::string Contents(JetImage& image) {
    const Blob bytes = image.Bytes();
    return {bytes.begin(), bytes.end()};
}

Blob StoredText(FileKind kind, const std::string& ascii) {
    return kind == FileKind::Jet3 ? BytesOf(ascii) : Utf16(std::u16string(ascii.begin(), ascii.end()));
}

ImageField InlineMemo(const Blob& text) {
    constexpr std::uint32_t kInline = 0x80000000;
    return Joined({Bytes32(text.size() | kInline), Bytes32(0), Bytes32(0), text});
}

Blob RealBytes(double value) {
    return Bytes64(std::bit_cast<std::uint64_t>(value));
}

// Type number, length and two values of every type that both formats have.
struct TypeCase {
    ImageColumn column;
    ImageField first, second;
};

std::vector<TypeCase> TypeCases(FileKind kind) {
    const Blob guid = {0x33, 0x22, 0x11, 0x00, 0x55, 0x44, 0x77, 0x66, 8, 9, 10, 11, 12, 13, 14, 15};
    const Blob decimal = Joined({{0x80}, Bytes32(0), Bytes32(0), Bytes32(0), Bytes32(150)});
    const auto single = [](float value) { return Bytes32(std::bit_cast<std::uint32_t>(value)); };
    const auto text = [&](const char* ascii) { return StoredText(kind, ascii); };
    const std::uint16_t width = kind == FileKind::Jet3 ? 1 : 2;
    return {
        {{.name = "yes no", .type = 1, .fixed = true, .length = 1}, Blob{1}, std::nullopt},
        {{.name = "byte", .type = 2, .fixed = true, .length = 1}, Blob{255}, Blob{0}},
        {{.name = "integer", .type = 3, .fixed = true, .length = 2}, Bytes16(0x8000), Bytes16(7)},
        {{.name = "long", .type = 4, .fixed = true, .length = 4}, Bytes32(0x80000000), Bytes32(65535)},
        {{.name = "currency", .type = 5, .fixed = true, .length = 8}, Bytes64(12345), Bytes64(-1)},
        {{.name = "single", .type = 6, .fixed = true, .length = 4}, single(0.1F), single(-3e38F)},
        {{.name = "double", .type = 7, .fixed = true, .length = 8}, RealBytes(0.1), RealBytes(-1e300)},
        {{.name = "date", .type = 8, .fixed = true, .length = 8}, RealBytes(36526.75), RealBytes(-1.25)},
        {{.name = "binary", .type = 9, .length = 20}, Blob{0, 1, 0}, Blob{255}},
        {{.name = "text", .type = 10, .length = static_cast<std::uint16_t>(50 * width)},
         text("007"),
         text("")},
        {{.name = "memo", .type = 12}, InlineMemo(text("it's 'so' \"here\"")), InlineMemo(text("1e5"))},
        {{.name = "ole", .type = 11}, InlineMemo({0, 0, 255}), InlineMemo({1})},
        {{.name = "guid", .type = 15, .length = 16}, guid, Blob(16, 0)},
        {{.name = "decimal", .type = 16, .fixed = true, .length = 17, .precision = 18, .scale = 2},
         decimal,
         Blob(17, 0)},
    };
}

}  // namespace

std::string support::SmallJetFile(FileKind kind, const std::string& edition) {
    const std::uint16_t width = kind == FileKind::Jet3 ? 1 : 2;
    const ImageColumn name = {.name = "name", .type = 10, .length = static_cast<std::uint16_t>(40 * width)};
    const ImageColumn notes = {.name = "notes", .type = 12};
    std::vector<ImageRow> rows, texts;
    for (std::uint32_t id = 0; id < 300; ++id)
        rows.push_back({Bytes32(id), StoredText(kind, edition + std::to_string(id))});
    for (std::uint32_t id = 0; id < 40; ++id)
        texts.push_back({Bytes32(id), InlineMemo(StoredText(kind, std::string(100, 'a') + edition))});
    JetImage image(kind);
    image.AddTable("parameters", {kId, name}, rows, {{.name = "key", .columns = {0}, .flags = 9, .kind = 1}});
    image.AddTable("empty", {kId, name}, {});
    image.AddTable("texts", {kId, notes}, texts);
    return Contents(image);
}

std::string support::JetFileOfAllTypes(FileKind kind) {
    std::vector<ImageColumn> columns;
    ImageRow first, second;
    for (const TypeCase& type : TypeCases(kind)) {
        columns.push_back(type.column);
        first.push_back(type.first);
        second.push_back(type.second);
    }
    JetImage image(kind);
    image.AddTable("types", columns, {first, second, ImageRow(columns.size())});
    return Contents(image);
}
