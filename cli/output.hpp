// Standard output through one fixed buffer.
#ifndef VARNEL_CLI_OUTPUT_HPP
#define VARNEL_CLI_OUTPUT_HPP

#include <array>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace varnel::cli {

/**
 * Bytes on their way to a file descriptor. After a failed write everything further is dropped and
 * error() says why; nothing is thrown and nothing allocated.
 */
class output {
public:
  static constexpr std::size_t SIZE = std::size_t{1} << 16;

  explicit output(int descriptor) : descriptor_(descriptor) {}
  output(const output &) = delete;
  output &operator=(const output &) = delete;

  /** From now on nothing is written to the descriptor: what is flushed is added to a text. */
  void gather(std::string *into) { gathered_ = into; }

  void put(std::string_view bytes) {
    if (bytes.size() > SIZE - used_) {
      put_long(bytes);
      return;
    }
    std::memcpy(buffer_.data() + used_, bytes.data(), bytes.size());
    used_ += bytes.size();
  }

  void put(char byte) { put(std::string_view(&byte, 1)); }

  /**
   * A place for up to `size` bytes (no more than SIZE) that commit() then counts as written. Bytes of
   * the place beyond those committed may be scribbled on.
   */
  char *room(std::size_t size) {
    if (size > SIZE - used_) {
      flush();
    }
    return buffer_.data() + used_;
  }
  void commit(const char *end) { used_ = static_cast<std::size_t>(end - buffer_.data()); }

  /** Writes what is buffered; false once a write has failed. */
  bool flush();

  /** The errno of the write that failed, or 0. */
  int error() const { return error_; }

private:
  void put_long(std::string_view bytes);

  int descriptor_;
  std::string *gathered_ = nullptr;
  int error_ = 0;
  std::size_t used_ = 0;
  std::array<char, SIZE> buffer_ = {};
};

} // namespace varnel::cli

#endif
