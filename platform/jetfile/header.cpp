#include "jetfile/header.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "jet/error.h"
#include "jetfile/bytes.h"
#include "jetfile/code_page.h"
#include "jetfile/layout.h"
#include "jetfile/text.h"

namespace jetfile {
namespace {

constexpr std::string_view kSignature("\x00\x01\x00\x00Standard Jet DB\x00", 20);
constexpr std::size_t kVersionAt = 0x14;
constexpr std::size_t kMaskedAt = 0x18;
constexpr std::size_t kCodePageAt = 0x3C;
constexpr std::size_t kKeyAt = 0x3E;
constexpr std::size_t kPasswordAt = 0x42;
constexpr std::size_t kCreationDateAt = 0x72;
constexpr std::size_t kHeaderSize = 0x98;
constexpr std::array<std::uint8_t, 4> kMaskKey = {0xC7, 0xDA, 0x39, 0x6B};

using HeaderBytes = std::array<std::uint8_t, kHeaderSize>;

// Takes off the fixed mask over the header: an RC4 stream of a key that is the same for all files.
void Unmask(HeaderBytes& bytes, std::size_t maskedSize) {
    std::array<std::uint8_t, 256> state;
    std::iota(state.begin(), state.end(), std::uint8_t{0});
    std::uint8_t j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = static_cast<std::uint8_t>(j + state[i] + kMaskKey[i % kMaskKey.size()]);
        std::swap(state[i], state[j]);
    }
    j = 0;
    for (std::size_t n = 0; n < maskedSize; ++n) {
        const auto i = static_cast<std::uint8_t>(n + 1);
        j = static_cast<std::uint8_t>(j + state[i]);
        std::swap(state[i], state[j]);
        bytes[kMaskedAt + n] ^= state[static_cast<std::uint8_t>(state[i] + state[j])];
    }
}

FileKind KindOf(const HeaderBytes& bytes) {
    if (!std::equal(kSignature.begin(), kSignature.end(), bytes.begin(),
                    [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; })) {
        return FileKind::Other;
    }
    switch (bytes[kVersionAt]) {
        case 0:
            return FileKind::Jet3;
        case 1:
            return FileKind::Jet4;
        default:
            return FileKind::Other;
    }
}

std::string AnsiPassword(ByteView bytes, std::uint16_t codePage) {
    const auto* end = std::find(bytes.begin(), bytes.end(), 0);
    return DecodeCodePageField(codePage, bytes.Sub(0, static_cast<std::size_t>(end - bytes.begin())));
}

// The characters of a Jet 4 password are masked once more, with the day on which the file was made.
std::string UnicodePassword(ByteView bytes, double creationDate) {
    const bool sound = std::abs(creationDate) < 0x7FFFFFFF;
    const auto day = static_cast<std::uint32_t>(sound ? static_cast<std::int32_t>(creationDate) : 0);
    Blob units;
    for (std::size_t at = 0; at < bytes.Size(); at += 2) {
        const auto unit = static_cast<std::uint16_t>(bytes.U16(at) ^ (at % 4 == 0 ? day : day >> 16));
        if (unit == 0) break;
        units.push_back(static_cast<std::uint8_t>(unit));
        units.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    std::string utf8;
    AppendUtf16({units.data(), units.size()}, utf8);
    return utf8;
}

}  // namespace

FileKind ProbeSource(ByteSource& source) {
    HeaderBytes bytes = {};
    return source.Read(0, bytes.data(), bytes.size()) == bytes.size() ? KindOf(bytes) : FileKind::Other;
}

Header ReadHeader(ByteSource& source) {
    HeaderBytes bytes = {};
    Header header;
    if (source.Read(0, bytes.data(), bytes.size()) != bytes.size()) return header;
    header.kind = KindOf(bytes);
    if (header.kind == FileKind::Other) return header;

    const Layout& layout = LayoutOf(header.kind);
    Unmask(bytes, layout.maskedHeaderSize);
    const ByteView view(bytes.data(), bytes.size());
    const std::uint16_t codePage = view.U16(kCodePageAt);
    header.codePage = codePage != 0 ? codePage : kWesternEurope;
    header.encoded = view.U32(kKeyAt) != 0;
    const ByteView password = view.Sub(kPasswordAt, layout.passwordSize);
    header.password = header.kind == FileKind::Jet3 ? AnsiPassword(password, header.codePage)
                                                    : UnicodePassword(password, view.F64(kCreationDateAt));
    return header;
}

void CheckAccess(const Header& header, const std::string& password) {
    if (header.kind == FileKind::Other) throw jet::Error(3343, "Unrecognized database format.");
    if (header.encoded) throw jet::Error(3343, "Unrecognized database format: the file is encoded.");
    if (!header.password.empty() && header.password != password)
        throw jet::Error(3031, "Not a valid password.");
}

}  // namespace jetfile
