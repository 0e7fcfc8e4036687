// Where the bytes of a document come from.
#ifndef STEPRT_PLATFORM_EXPAT_BYTE_SOURCE_H
#define STEPRT_PLATFORM_EXPAT_BYTE_SOURCE_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "platform/input_file.h"

namespace steprt {

class ByteSource {
 public:
  virtual ~ByteSource() = default;

  // Copies the next bytes, as many as there are and fit, and returns their count. Returns 0 at the end.
  virtual std::size_t Fill(char* buffer, std::size_t size) = 0;

  // Whether the source ended because a read failed.
  virtual bool HasFailed() const { return false; }
};

class MemoryBytes final : public ByteSource {
 public:
  explicit MemoryBytes(std::string_view bytes) : bytes_(bytes) {}

  std::size_t Fill(char* buffer, std::size_t size) override {
    const std::size_t count = bytes_.copy(buffer, size);
    bytes_.remove_prefix(count);
    return count;
  }

 private:
  std::string_view bytes_;
};

class FileBytes final : public ByteSource {
 public:
  explicit FileBytes(InputFile* file) : file_(file) {}

  std::size_t Fill(char* buffer, std::size_t size) override {
    std::size_t filled = 0;
    while (filled < size && file_->Peek() != InputFile::kEnd) {
      const char* const cursor = file_->Cursor();
      const std::size_t count = std::min(size - filled, static_cast<std::size_t>(file_->Limit() - cursor));
      std::memcpy(buffer + filled, cursor, count);
      file_->MoveTo(cursor + count);
      filled += count;
    }
    return filled;
  }
  bool HasFailed() const override { return file_->HasFailed(); }

 private:
  InputFile* const file_;
};

}  // namespace steprt

#endif
