#include "crew.hpp"

#include <algorithm>
#include <utility>

namespace varnel::cli {

void chunk::add(const document &from, bool over_long) {
  if (is_empty()) {
    first_number_ = from.number;
    file_ = from.file;
  }
  documents_.push_back({from.line, static_cast<std::uint32_t>(from.text.size()), over_long});
  text_ += from.text;
}

void chunk::clear() {
  text_.clear();
  documents_.clear();
  answers.used = 0;
  remarks.clear();
  refused = 0;
}

void chunk::read_all(const read_function &read, output &out) {
  const output::keeping into(out, answers);
  document from = {{}, first_number_, file_, 0, {}};
  const char *text = text_.data();
  for (const entry &each : documents_) {
    from.text = std::string_view(text, each.size);
    from.line = each.line;
    std::string said;
    refused += read(from, each.over_long, said) ? 1 : 0;
    if (!said.empty()) {
      remarks.push_back({into.size(), std::move(said)});
    }
    text += each.size;
    ++from.number;
  }
}

crew::crew(unsigned threads, const maker &make) : own_(make) {
  for (std::size_t i = 0; i < threads * CHUNKS_EACH; ++i) {
    spare_.push_back(std::make_unique<chunk>());
  }
  for (unsigned i = 1; i < threads; ++i) {
    threads_.emplace_back([this, make] { work(make); });
  }
}

crew::~crew() {
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    closed_ = true;
  }
  came_.notify_all();
  for (std::thread &each : threads_) {
    each.join();
  }
}

std::unique_ptr<chunk> crew::empty_chunk() {
  if (spare_.empty()) {
    return nullptr;
  }
  std::unique_ptr<chunk> next = std::move(spare_.back());
  spare_.pop_back();
  return next;
}

void crew::give_back(std::unique_ptr<chunk> used) {
  used->clear();
  spare_.push_back(std::move(used));
}

void crew::submit(std::unique_ptr<chunk> filled) {
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    tasks_.push_back({std::move(filled), false, false});
  }
  came_.notify_one();
}

std::unique_ptr<chunk> crew::take() {
  std::unique_lock<std::mutex> lock(mutex_);
  if (tasks_.empty()) {
    return nullptr;
  }
  while (!tasks_.front().done) {
    if (!read_next(own_, lock)) {
      done_.wait(lock);
    }
  }
  std::unique_ptr<chunk> first = std::move(tasks_.front().work);
  tasks_.pop_front();
  return first;
}

void crew::work(const maker &make) {
  reader own(make);
  std::unique_lock<std::mutex> lock(mutex_);
  for (bool has_read = true; has_read || !closed_;) {
    if (!has_read) {
      came_.wait(lock);
    }
    has_read = read_next(own, lock);
  }
}

// Reads the first chunk that nobody has begun; false when there is none.
bool crew::read_next(reader &own, std::unique_lock<std::mutex> &lock) {
  const auto next = std::find_if(tasks_.begin(), tasks_.end(), [](const task &each) { return !each.begun; });
  if (next == tasks_.end()) {
    return false;
  }
  task &taken = *next; // stays where it is while others come and go
  taken.begun = true;
  lock.unlock();
  taken.work->read_all(own.read, own.out);
  lock.lock();
  taken.done = true;
  done_.notify_one();
  return true;
}

} // namespace varnel::cli
