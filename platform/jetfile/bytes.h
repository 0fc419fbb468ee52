#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>

// Checked access to the bytes of a file. Nothing in the reader touches file bytes in any other way, so a
// wrong length or offset in a file can only end in jet::Error 3049.
namespace jetfile {

// Throws jet::Error 3049; `what` names the damaged structure.
[[noreturn]] void ThrowDamaged(const std::string& what);

// A view of bytes that somebody else owns; all numbers are little-endian.
class ByteView {
  public:
    ByteView() = default;
    ByteView(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    const std::uint8_t* Data() const { return data_; }
    std::size_t Size() const { return size_; }
    const std::uint8_t* begin() const { return data_; }
    const std::uint8_t* end() const { return data_ + size_; }

    // `count` bytes from `at`.
    ByteView Sub(std::size_t at, std::size_t count) const {
        Require(at, count);
        return {data_ + at, count};
    }
    // All bytes from `at` to the end.
    ByteView From(std::size_t at) const {
        Require(at, 0);
        return {data_ + at, size_ - at};
    }

    std::uint8_t U8(std::size_t at) const { return static_cast<std::uint8_t>(Unsigned<1>(at)); }
    std::uint16_t U16(std::size_t at) const { return static_cast<std::uint16_t>(Unsigned<2>(at)); }
    std::uint32_t U32(std::size_t at) const { return static_cast<std::uint32_t>(Unsigned<4>(at)); }
    std::uint64_t U64(std::size_t at) const { return Unsigned<8>(at); }
    float F32(std::size_t at) const { return std::bit_cast<float>(U32(at)); }
    double F64(std::size_t at) const { return std::bit_cast<double>(U64(at)); }

  private:
    void Require(std::size_t at, std::size_t count) const {
        if (at > size_ || count > size_ - at) ThrowDamaged("a length or offset points outside its structure");
    }
    template <std::size_t kBytes>
    std::uint64_t Unsigned(std::size_t at) const {
        Require(at, kBytes);
        std::uint64_t number = 0;
        for (std::size_t i = 0; i < kBytes; ++i)
            number |= std::uint64_t{data_[at + i]} << (8 * i);
        return number;
    }

    const std::uint8_t* data_ = nullptr;
    std::size_t size_ = 0;
};

// Reads a view from its start onwards.
class ByteCursor {
  public:
    explicit ByteCursor(ByteView bytes) : bytes_(bytes) {}

    ByteView Take(std::size_t count) {
        const ByteView taken = bytes_.Sub(at_, count);
        at_ += count;
        return taken;
    }
    std::uint8_t U8() { return Take(1).U8(0); }
    std::uint16_t U16() { return Take(2).U16(0); }

  private:
    ByteView bytes_;
    std::size_t at_ = 0;
};

// How many bytes one operation may still collect by following pointers. In a sound file every stored byte
// belongs to one value, so an operation never collects more bytes than the file has; pointers that lead to
// the same bytes again and again do.
class ReadBudget {
  public:
    explicit ReadBudget(std::uint64_t bytes) : left_(bytes) {}
    void Spend(std::uint64_t bytes) {
        if (bytes > left_) ThrowDamaged("pointers lead to the same bytes again and again");
        left_ -= bytes;
    }

  private:
    std::uint64_t left_;
};

}  // namespace jetfile
