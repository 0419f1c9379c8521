// Standard output through one buffer; or answers that wait for their turn.
#ifndef VARNEL_CLI_OUTPUT_HPP
#define VARNEL_CLI_OUTPUT_HPP

#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

namespace varnel::cli {

/**
 * Bytes on their way to a file descriptor. After a failed write everything further is dropped and
 * error() says why; nothing is thrown and nothing allocated.
 */
class output {
public:
  static constexpr std::size_t SIZE = std::size_t{1} << 16;

  /** Bytes that are written to no descriptor, and the room for them, which grows when it has to. */
  struct kept {
    std::vector<char> room = std::vector<char>(SIZE);
    std::size_t used = 0;

    std::string_view view() const { return {room.data(), used}; }
  };

  explicit output(int descriptor) : descriptor_(descriptor) {}
  output(const output &) = delete;
  output &operator=(const output &) = delete;

  /** What is put while it lives is added to `into`. */
  class keeping {
  public:
    keeping(output &out, kept &into) : out_(out), into_(into) { exchange(true); }
    ~keeping() { exchange(false); }
    keeping(const keeping &) = delete;
    keeping &operator=(const keeping &) = delete;

    /** How many bytes are kept by now. */
    std::size_t size() const { return out_.buffer_.used; }

  private:
    void exchange(bool keeps) {
      std::swap(out_.buffer_, into_);
      out_.keeps_ = keeps;
    }

    output &out_;
    kept &into_;
  };

  void put(std::string_view bytes) {
    if (bytes.size() > left()) {
      put_long(bytes);
      return;
    }
    std::memcpy(buffer_.room.data() + buffer_.used, bytes.data(), bytes.size());
    buffer_.used += bytes.size();
  }

  void put(char byte) { put(std::string_view(&byte, 1)); }

  /** Writes what is buffered and then these bytes, which are not copied. Not while answers are kept. */
  void write_through(std::string_view bytes);

  /**
   * A place for up to `size` bytes (no more than SIZE) that commit() then counts as written. Bytes of
   * the place beyond those committed may be scribbled on.
   */
  char *room(std::size_t size) {
    if (size > left()) {
      make_room(size);
    }
    return buffer_.room.data() + buffer_.used;
  }
  void commit(const char *end) { buffer_.used = static_cast<std::size_t>(end - buffer_.room.data()); }

  /** Writes what is buffered, unless it is kept; false once a write has failed. */
  bool flush();

  /** The errno of the write that failed, or 0. */
  int error() const { return error_; }

private:
  std::size_t left() const { return buffer_.room.size() - buffer_.used; }
  void make_room(std::size_t size);
  void put_long(std::string_view bytes);
  void write(std::string_view bytes);

  int descriptor_;
  int error_ = 0;
  bool keeps_ = false;
  kept buffer_;
};

} // namespace varnel::cli

#endif
