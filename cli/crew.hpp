// Several threads that read documents, for --jobs: documents go in by chunks, answers come out in the same
// order.
#ifndef VARNEL_CLI_CREW_HPP
#define VARNEL_CLI_CREW_HPP

#include "documents.hpp"

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace varnel::cli {

/** Documents that one thread reads together, and what came of them. */
class chunk {
public:
  /** With this much text a chunk is full. */
  static constexpr std::size_t FULL = std::size_t{1} << 13;

  /** Says what is reported of the document at the end of its answer; nothing when it is empty. */
  struct remark {
    std::size_t end; /**< of the answer, in answers */
    std::string text;
  };

  /** What is done with one document: writes its answer, and returns whether it was refused, and a remark. */
  using read_function = std::function<bool(const document &from, bool over_long, std::string &remark)>;

  /** Adds the next document, in the order of their numbers, and of the same input; its title is not kept. */
  void add(const document &from, bool over_long);
  bool is_empty() const { return documents_.empty(); }
  bool is_full() const { return text_.size() >= FULL || documents_.size() >= FULL / 16; }
  void clear();

  /** Reads all documents in order, each by `read`, whose answers go to `out`, which keeps them in answers. */
  void read_all(const read_function &read, output &out);

  output::kept answers;
  std::vector<remark> remarks;
  std::uint64_t refused = 0;

private:
  // Few bytes, as one thread writes them and another reads them.
  struct entry {
    std::uint64_t line;
    std::uint32_t size; // of its text, which is no longer than document_reader::LONGEST
    bool over_long;
  };

  std::uint64_t first_number_ = 0;
  std::string_view file_;
  std::string text_; // of one document after the other
  std::vector<entry> documents_;
};

/** Whoever calls is one of them: what it would wait for, it reads itself where no other has begun. */
class crew {
public:
  /** Makes what one thread reads with: its answers go to the output that it is given. */
  using maker = std::function<chunk::read_function(output &out)>;

  /** No more than this many chunks are held for each thread, read or not. */
  static constexpr std::size_t CHUNKS_EACH = 4;

  /** @param threads two or more, the caller's among them */
  crew(unsigned threads, const maker &make);
  ~crew();
  crew(const crew &) = delete;
  crew &operator=(const crew &) = delete;

  /** A chunk to be filled, or null when so many are under way that one has to be taken first. */
  std::unique_ptr<chunk> empty_chunk();

  void submit(std::unique_ptr<chunk> filled);

  /** The chunk that was submitted first, read; null when none is under way. */
  std::unique_ptr<chunk> take();

  void give_back(std::unique_ptr<chunk> used);

private:
  struct task {
    std::unique_ptr<chunk> work;
    bool begun = false;
    bool done = false;
  };

  // What one thread reads with.
  struct reader {
    explicit reader(const maker &make) : read(make(out)) {}

    output out = output(-1);
    chunk::read_function read;
  };

  void work(const maker &make);
  bool read_next(reader &own, std::unique_lock<std::mutex> &lock);

  std::mutex mutex_;
  std::condition_variable came_;
  std::condition_variable done_;
  std::deque<task> tasks_; // in the order of the input; a deque keeps them where they are
  std::vector<std::unique_ptr<chunk>> spare_;
  bool closed_ = false;
  reader own_; // the caller's
  std::vector<std::thread> threads_;
};

} // namespace varnel::cli

#endif
