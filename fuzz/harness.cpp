#include "harness.hpp"

#include <climits>
#include <cstdio>
#include <cstring>

#if defined(__SANITIZE_ADDRESS__)
#define FUZZ_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define FUZZ_ADDRESS_SANITIZER 1
#endif
#endif

namespace fuzz {

// ---- saying what differed -------------------------------------------------------------------------

std::string shown(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c >= ' ' && c <= '~' && c != '"' && c != '\\') {
      quoted += c;
      continue;
    }
    char escape[5];
    std::snprintf(escape, sizeof escape, "\\x%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
    quoted += escape;
  }
  return quoted + "\" (" + std::to_string(text.size()) + ")";
}

std::string shown(long long number) { return std::to_string(number); }

std::string shown(const DATETIME &date) {
  return shown(std::vector<int>{date.year, date.month, date.day, date.hr, date.min, date.sec});
}

std::string shown(const std::vector<int> &numbers) {
  std::string list = "[";
  for (const int number : numbers) {
    list += (list.size() > 1 ? " " : "") + std::to_string(number);
  }
  return list + "]";
}

std::string shown(const place &where) {
  return (where.is_null ? "null" : "at " + std::to_string(where.at)) + ", length " +
         std::to_string(where.length);
}

void equal(const char *what, const DATETIME &library, const DATETIME &expected) {
  const auto members = [](const DATETIME &d) {
    return std::vector<int>{d.year, d.month, d.day, d.hr, d.min, d.sec};
  };
  equal(what, members(library), members(expected));
}

// ---- behaviours -----------------------------------------------------------------------------------

namespace {
behaviour *first_behaviour = nullptr;
} // namespace

behaviour::behaviour(const char *name) : name_(name), next_(first_behaviour) { first_behaviour = this; }

const behaviour *behaviour::first() { return first_behaviour; }

// ---- decoding an input ----------------------------------------------------------------------------

uint64_t input::bytes(int count) {
  uint64_t value = 0;
  for (int i = 0; i < count && left_ > 0; ++i) {
    value = value << 8 | *at_++;
    --left_;
  }
  return value;
}

unsigned input::byte() { return static_cast<unsigned>(bytes(1)); }

int input::number(int low, int high) {
  const uint64_t range = static_cast<uint64_t>(static_cast<int64_t>(high) - low) + 1;
  return static_cast<int>(low + static_cast<int64_t>(bytes(range > 256 ? 2 : 1) % range));
}

int input::any_int() {
  static const int EXTREMES[] = {INT_MIN, INT_MIN + 1, INT_MAX, INT_MAX - 1, -1, 0, 1, 100};
  const unsigned kind = byte();
  if (kind < 128) {
    return static_cast<int>(kind) - 16;
  }
  if (kind < 160) {
    return EXTREMES[kind % 8];
  }
  if (kind < 208) {
    return static_cast<int>(bytes(2));
  }
  return static_cast<int>(static_cast<uint32_t>(bytes(4)));
}

uint64_t input::any_uint64() {
  const int size = number(0, 8);
  return size == 0 ? ~uint64_t{0} - byte() : bytes(size);
}

std::string input::text(int max) {
  size_t length = static_cast<size_t>(number(0, max));
  length = length < left_ ? length : left_;
  std::string taken(reinterpret_cast<const char *>(at_), length);
  at_ += length;
  left_ -= length;
  return taken;
}

std::string input::rest() {
  std::string taken(reinterpret_cast<const char *>(at_), left_);
  at_ += left_;
  left_ = 0;
  return taken;
}

// ---- lent memory ----------------------------------------------------------------------------------

size_t memory::guard_size() {
#ifdef FUZZ_ADDRESS_SANITIZER
  return 0;
#else
  return 32;
#endif
}

namespace {
constexpr unsigned char GUARD = 0x5C;
}

memory::memory(int size, unsigned char fill)
    : size_(size), block_(new char[static_cast<size_t>(size) + 2 * guard_size()]) {
  std::memset(block_.get(), GUARD, static_cast<size_t>(size) + 2 * guard_size());
  std::memset(data(), fill, static_cast<size_t>(size));
}

memory::memory(std::string_view text) : memory(static_cast<int>(text.size())) {
  text.copy(data(), text.size());
}

bool memory::intact() const {
  const std::string_view block(block_.get(), static_cast<size_t>(size_) + 2 * guard_size());
  const std::string guard(guard_size(), static_cast<char>(GUARD));
  return block.substr(0, guard.size()) == guard && block.substr(block.size() - guard.size()) == guard;
}

bool is_inside(const STRING &view, const memory &source) {
  if (view.str == nullptr) {
    return view.len == 0;
  }
  const uintptr_t first = reinterpret_cast<uintptr_t>(source.data());
  const uintptr_t at = reinterpret_cast<uintptr_t>(view.str);
  const uintptr_t size = static_cast<uintptr_t>(source.size());
  return view.len >= 0 && at >= first && at - first <= size &&
         static_cast<uintptr_t>(view.len) <= size - (at - first);
}

// ---- records --------------------------------------------------------------------------------------

record::record(int buffer_size, unsigned char junk) : buffer_(buffer_size, junk), result_(new PARSE_RESULT) {
  std::memset(result_.get(), junk, sizeof(PARSE_RESULT));
}

void check_invariants(const record &checked) {
  const PARSE_RESULT &result = *checked.result();
  holds(result.buffer == checked.buffer() && result.buffer_size == checked.buffer_size(),
        "the record keeps the buffer it was lent");
  holds(result.data_size >= 0 && result.data_size <= result.buffer_size, "0 <= data_size <= buffer_size");
  for (const FIELD &slot : result.fields) {
    const STRING &value = slot.value;
    if (value.str == nullptr) {
      equal("the length of an empty slot", value.len, 0);
      continue;
    }
    const place where = place_of(value, result.buffer);
    holds(value.len >= 1 && where.at >= 0 && where.at + value.len <= result.data_size,
          "every filled slot lies inside buffer[0 .. data_size)");
  }
  holds(checked.lent().intact(), "nothing is written outside the record's buffer");
}

void check_same(const record &library, const record &expected) {
  equal("data_size", library.result()->data_size, expected.result()->data_size);
  equal("parser_type", static_cast<int>(library.result()->parser_type),
        static_cast<int>(expected.result()->parser_type));
  equal("parser", static_cast<int>(library.result()->parser), static_cast<int>(expected.result()->parser));
  for (int field = 0; field < FIELD_COUNT; ++field) {
    const place ours = place_of(library.result()->fields[field].value, library.buffer());
    const place plain = place_of(expected.result()->fields[field].value, expected.buffer());
    if (!(ours == plain)) {
      equal(("slot " + std::to_string(field)).c_str(), ours, plain);
    }
  }
  equal("the buffer's bytes", library.lent().text(), expected.lent().text());
}

int slot_number(const FIELD *slot, const record &owner) {
  return slot == nullptr ? -1 : static_cast<int>(slot - owner.result()->fields);
}

// ---- predicates -----------------------------------------------------------------------------------

namespace {

std::vector<int> notes;

template <int (*Predicate)(int)> int noting(int c) {
  notes.push_back(c);
  return Predicate(c);
}

// Any non-zero answer is a yes, also a negative one.
int negative_yes(int c) { return c < 'K' ? -2 : 0; }

constexpr _t_predicate_func PREDICATES[] = {
    noting<MRZ_common_pattern_valid_mrz>,
    noting<MRZ_common_pattern_valid_mrz_name>,
    noting<pattern_isNotDigit>,
    noting<pattern_isClearPostalCode>,
    noting<pattern_is_w>,
    noting<pattern_is_not_w>,
    noting<pattern_not_valid_symbols>,
    noting<patter_trim_space>,
    noting<patter_trim_address>,
    noting<MRZ_common_pattern_valid_mrz_date>,
    noting<negative_yes>,
};

} // namespace

int predicate_count() { return static_cast<int>(sizeof PREDICATES / sizeof *PREDICATES); }

_t_predicate_func noting_predicate(int index) { return PREDICATES[index]; }

_t_predicate_func any_predicate(input &in) {
  const int index = in.number(-1, predicate_count() - 1);
  return index < 0 ? nullptr : noting_predicate(index);
}

std::vector<int> take_notes() {
  std::vector<int> taken;
  taken.swap(notes);
  return taken;
}

} // namespace fuzz
