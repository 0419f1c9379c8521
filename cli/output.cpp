#include "output.hpp"

#include "platform.hpp"

namespace varnel::cli {

bool output::flush() {
  if (gathered_ != nullptr) {
    gathered_->append(buffer_.data(), used_);
  } else if (error_ == 0) {
    error_ = write_all(descriptor_, std::string_view(buffer_.data(), used_));
  }
  used_ = 0;
  return error_ == 0;
}

void output::put_long(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t count = bytes.size() < SIZE - used_ ? bytes.size() : SIZE - used_;
    std::memcpy(buffer_.data() + used_, bytes.data(), count);
    used_ += count;
    bytes.remove_prefix(count);
    if (used_ == SIZE) {
      flush();
    }
  }
}

} // namespace varnel::cli
