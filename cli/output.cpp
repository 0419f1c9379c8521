#include "output.hpp"

#include "platform.hpp"

#include <algorithm>

namespace varnel::cli {

bool output::flush() {
  if (!keeps_) {
    write(buffer_.view());
    buffer_.used = 0;
  }
  return error_ == 0;
}

void output::write(std::string_view bytes) {
  if (error_ == 0) {
    error_ = write_all(descriptor_, bytes);
  }
}

void output::make_room(std::size_t size) {
  flush();
  if (keeps_) {
    buffer_.room.resize(std::max(2 * buffer_.room.size(), buffer_.used + size));
  }
}

void output::write_through(std::string_view bytes) {
  flush();
  write(bytes);
}

// What the buffer could not hold is not copied to it first.
void output::put_long(std::string_view bytes) {
  make_room(bytes.size());
  if (bytes.size() > left()) {
    write(bytes);
  } else {
    put(bytes);
  }
}

} // namespace varnel::cli
