// What the fuzz targets share: decoding an input, lending guarded memory, and saying what differed.
//
// A target is one LLVMFuzzerTestOneInput(). A property that does not hold is thrown as a `difference`:
// under libFuzzer nobody catches it, so its text is printed and the input kept; the replay catches it and
// names the file.
#ifndef VARNEL_FUZZ_HARNESS_HPP
#define VARNEL_FUZZ_HARNESS_HPP

#include <Varnel/Varnel.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace fuzz {

// ---- saying what differed -------------------------------------------------------------------------

struct difference : std::runtime_error {
  using std::runtime_error::runtime_error;
};

std::string shown(std::string_view text); // quoted, unprintable bytes as \xNN
std::string shown(long long number);
inline std::string shown(const std::string &text) { return shown(std::string_view(text)); }
inline std::string shown(int number) { return shown(static_cast<long long>(number)); }
inline std::string shown(bool answer) { return answer ? "yes" : "no"; }
std::string shown(const DATETIME &date);
std::string shown(const std::vector<int> &numbers);

// Throws unless the property holds.
inline void holds(bool property, const char *what) {
  if (!property) {
    throw difference(std::string("does not hold: ") + what);
  }
}

// Throws unless the library's answer is the expected one.
template <class T> void equal(const char *what, const T &library, const T &expected) {
  if (!(library == expected)) {
    throw difference(std::string(what) + ": library " + shown(library) + ", expected " + shown(expected));
  }
}

inline void equal(const char *what, int library, int expected) { equal<int>(what, library, expected); }

void equal(const char *what, const DATETIME &library, const DATETIME &expected);

// ---- behaviours that the committed inputs must reach ----------------------------------------------

// Something a target wants to see happen, such as an accepted card. The replay fails when a behaviour was
// never seen: inputs that reach nothing prove nothing.
class behaviour {
public:
  explicit behaviour(const char *name);
  behaviour(const behaviour &) = delete;
  behaviour &operator=(const behaviour &) = delete;
  void seen(bool happened = true) { count_ += happened ? 1 : 0; }

  const char *name() const { return name_; }
  long count() const { return count_; }
  const behaviour *next() const { return next_; }
  static const behaviour *first();

private:
  const char *name_;
  long count_ = 0;
  const behaviour *next_;
};

// ---- decoding an input ----------------------------------------------------------------------------

// Hands out an input piece by piece. What is asked for after the end is 0 or empty.
class input {
public:
  input(const uint8_t *data, size_t size) : at_(data), left_(size) {}

  bool empty() const { return left_ == 0; }
  bool flag() { return (byte() & 1) != 0; }
  unsigned byte();
  int number(int low, int high); // low to high, from one byte, or two where the range needs them
  int any_int();                 // small, extreme or any: all of them often
  uint64_t any_uint64();
  std::string text(int max); // a length byte, then so many bytes or what is left
  std::string rest();

private:
  uint64_t bytes(int count);

  const uint8_t *at_;
  size_t left_;
};

// ---- lent memory ----------------------------------------------------------------------------------

// A block of exactly the size that is lent. Under AddressSanitizer the block ends where the heap block
// ends; elsewhere guard bytes stand on both sides, and intact() tells whether they were left alone.
class memory {
public:
  explicit memory(int size, unsigned char fill = JUNK);
  explicit memory(std::string_view text);

  char *data() { return block_.get() + guard_size(); }
  const char *data() const { return block_.get() + guard_size(); }
  int size() const { return size_; }
  std::string_view text() const { return {data(), static_cast<size_t>(size_)}; }
  bool intact() const;

  static constexpr unsigned char JUNK = 0xA5;

private:
  static size_t guard_size();

  int size_;
  std::unique_ptr<char[]> block_;
};

// ---- views ----------------------------------------------------------------------------------------

// Where a view lies in a text: what can be compared between two copies of the same text.
struct place {
  bool is_null;
  long long at;
  int length;

  bool operator==(const place &other) const {
    return is_null == other.is_null && at == other.at && length == other.length;
  }
};

std::string shown(const place &where);

inline place place_of(const STRING &view, const char *base) {
  return view.str == nullptr ? place{true, 0, view.len} : place{false, view.str - base, view.len};
}

// Whether a view is empty or lies in `source` whole; also an empty view points nowhere else.
bool is_inside(const STRING &view, const memory &source);

inline std::string_view text_of(const STRING &view) {
  return view.str != nullptr && view.len > 0 ? std::string_view(view.str, static_cast<size_t>(view.len))
                                             : std::string_view();
}

// ---- records --------------------------------------------------------------------------------------

// A record and its buffer, each in its own block and full of junk until it is initialised.
class record {
public:
  explicit record(int buffer_size, unsigned char junk = memory::JUNK);

  PARSE_RESULT *result() { return result_.get(); }
  const PARSE_RESULT *result() const { return result_.get(); }
  char *buffer() { return buffer_.data(); }
  const char *buffer() const { return buffer_.data(); }
  int buffer_size() const { return buffer_.size(); }
  const memory &lent() const { return buffer_; }

private:
  memory buffer_;
  std::unique_ptr<PARSE_RESULT> result_;
};

// The invariants of an initialised record: the used size within the buffer's, filled slots inside the
// used part, empty slots {null, 0}, and nothing written outside the buffer.
void check_invariants(const record &checked);

// Both records say the same: slots at the same places, and the same bytes in the whole buffer.
void check_same(const record &library, const record &expected);

// Which slot a slot writer returned; -1 for null.
int slot_number(const FIELD *slot, const record &owner);

// ---- predicates -----------------------------------------------------------------------------------

// The character classes, as functions that note what they were asked, in order.
int predicate_count();
_t_predicate_func noting_predicate(int index);
_t_predicate_func any_predicate(input &in); // or none
std::vector<int> take_notes();

// ---- the library beside its plain reading ---------------------------------------------------------

// A function's name, the library's function and the plain one.
#define FUZZ_BOTH(function) #function, ::function, reference::function

// Asks both the same, and expects the same answer and the same questions to predicates. Gives the answer.
template <class Library, class Plain, class... Arguments>
auto same(const char *name, Library library, Plain plain, Arguments... arguments) {
  const auto answer = library(arguments...);
  const std::vector<int> asked = take_notes();
  equal(name, answer, plain(arguments...));
  equal("what the predicates were asked", asked, take_notes());
  return answer;
}

} // namespace fuzz

#endif
