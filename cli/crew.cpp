#include "crew.hpp"

#include <algorithm>
#include <utility>

namespace varnel::cli {

void chunk::add(const document &from, bool over_long) {
  documents_.push_back(
      {text_.size(), from.text.size(), from.title.size(), from.number, from.line, from.file, over_long});
  text_ += from.text;
  text_ += from.title;
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
  std::string said;
  for (const entry &each : documents_) {
    const std::string_view text = std::string_view(text_).substr(each.begin);
    const document from = {text.substr(0, each.text_size), each.number, each.file, each.line,
                           text.substr(each.text_size, each.title_size)};
    said.clear();
    refused += read(from, each.over_long, said) ? 1 : 0;
    if (!said.empty()) {
      remarks.push_back({into.size(), said});
    }
  }
}

crew::crew(unsigned threads, maker make) : make_(std::move(make)) {
  for (std::size_t i = 0; i < threads * CHUNKS_EACH; ++i) {
    spare_.push_back(std::make_unique<chunk>());
  }
  for (unsigned i = 0; i < threads; ++i) {
    threads_.emplace_back([this] { work(); });
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
  done_.wait(lock, [this] { return tasks_.front().done; });
  std::unique_ptr<chunk> first = std::move(tasks_.front().work);
  tasks_.pop_front();
  return first;
}

void crew::work() {
  output out(-1);
  const chunk::read_function read = make_(out);
  const auto waits = [](const task &each) { return !each.begun; };
  std::unique_lock<std::mutex> lock(mutex_);
  while (true) {
    const auto next = std::find_if(tasks_.begin(), tasks_.end(), waits);
    if (next == tasks_.end()) {
      if (closed_) {
        return;
      }
      came_.wait(lock);
      continue;
    }
    next->begun = true;
    task &taken = *next; // stays where it is while others come and go
    lock.unlock();
    taken.work->read_all(read, out);
    lock.lock();
    taken.done = true;
    done_.notify_one();
  }
}

} // namespace varnel::cli
