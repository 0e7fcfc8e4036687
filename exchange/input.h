// The bytes of a file.
#ifndef STEPRT_EXCHANGE_INPUT_H
#define STEPRT_EXCHANGE_INPUT_H

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace exchange {

// A regular file is mapped where the system can do so, any other one is read to its end. A mapped file must not become
// shorter meanwhile.
class Input {
 public:
  // Null if the file cannot be read; `reason` is then the system's text.
  static std::unique_ptr<Input> Open(const std::string& path, std::string& reason);
  // Takes bytes from memory; `name` is printed in reports.
  static std::unique_ptr<Input> FromText(std::string name, std::string text);

  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;
  ~Input();

  const std::string& Name() const { return name_; }
  // A NUL that does not count follows the last byte.
  std::string_view Bytes() const { return bytes_; }
  // Lets the system take back the memory of all mapped bytes before `offset`. They are read again when they are used.
  void Release(std::size_t offset) const;

 private:
  Input() = default;
  bool Map(int file, std::size_t size);

  std::string name_;
  std::string text_;  // if the file is not mapped
  std::string_view bytes_;
  void* mapping_ = nullptr;
  std::size_t mappingSize_ = 0;
};

}  // namespace exchange

#endif
