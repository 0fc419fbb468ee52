#include <iconv.h>

#include <cerrno>
#include <memory>

#include "jetfile/code_page.h"
#include "jetfile/text.h"

namespace jetfile {
namespace {

// An open converter to UTF-8.
class Converter {
  public:
    explicit Converter(std::uint16_t codePage) : codePage_(codePage) {
        handle_ = iconv_open("UTF-8", ("CP" + std::to_string(codePage)).c_str());
        if (reinterpret_cast<std::intptr_t>(handle_) == -1) ThrowDamaged("text in an unknown code page");
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() { iconv_close(handle_); }

    std::uint16_t CodePage() const { return codePage_; }

    void Append(ByteView text, std::string& utf8) {
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        char* from = const_cast<char*>(reinterpret_cast<const char*>(text.Data()));
        std::size_t left = text.Size();
        while (left > 0) {
            const bool wholly = AppendPiece(&from, &left, utf8);
            if (wholly || left == 0) continue;
            const auto odd = static_cast<std::uint8_t>(*from);
            AppendUtf8(codePage_ == kWesternEurope ? odd : kReplacementCharacter, utf8);
            ++from;
            --left;
        }
    }

  private:
    // Converts until the text ends, the buffer is full or a sequence is wrong; false for the last.
    bool AppendPiece(char** from, std::size_t* left, std::string& utf8) {
        char buffer[4096];
        char* to = buffer;
        std::size_t room = sizeof(buffer);
        const bool failed = iconv(handle_, from, left, &to, &room) == static_cast<std::size_t>(-1);
        const bool full = failed && errno == E2BIG;
        utf8.append(buffer, to);
        return !failed || full;
    }

    std::uint16_t codePage_;
    iconv_t handle_;
};

}  // namespace

void AppendCodePageText(std::uint16_t codePage, ByteView text, std::string& utf8) {
    // Nearly all texts of a file have one code page; opening a converter for each would cost more than the
    // text.
    thread_local std::unique_ptr<Converter> converter;
    if (!converter || converter->CodePage() != codePage) {
        converter.reset();
        converter = std::make_unique<Converter>(codePage);
    }
    converter->Append(text, utf8);
}

}  // namespace jetfile
