#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "jetfile/reader.h"

namespace jetfile {

// Where the bytes of a database come from.
class ByteSource {
  public:
    ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;
    virtual ~ByteSource() = default;

    virtual std::uint64_t Size() const = 0;

    // Fills `bytes` with up to `count` bytes from `offset` on; returns how many there were.
    virtual std::size_t Read(std::uint64_t offset, std::uint8_t* bytes, std::size_t count) = 0;
};

// A file, opened shared and read-only. Throws jet::Error: 3024 missing, 3051 cannot be opened or read.
class FileSource : public ByteSource {
  public:
    explicit FileSource(const std::string& path);

    std::uint64_t Size() const override { return size_; }
    std::size_t Read(std::uint64_t offset, std::uint8_t* bytes, std::size_t count) override;

  private:
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Closer> file_;
    std::uint64_t size_ = 0;
};

// An image in memory.
class MemorySource : public ByteSource {
  public:
    explicit MemorySource(Blob image) : image_(std::move(image)) {}

    std::uint64_t Size() const override { return image_.size(); }
    std::size_t Read(std::uint64_t offset, std::uint8_t* bytes, std::size_t count) override;

  private:
    Blob image_;
};

}  // namespace jetfile
