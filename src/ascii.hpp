// Character classes of ASCII, the same in every locale: values outside 0 to 127 belong to none.
#ifndef VARNEL_SRC_ASCII_HPP
#define VARNEL_SRC_ASCII_HPP

namespace ascii {

constexpr bool is_digit(int c) { return c >= '0' && c <= '9'; }
constexpr bool is_upper(int c) { return c >= 'A' && c <= 'Z'; }
constexpr bool is_lower(int c) { return c >= 'a' && c <= 'z'; }
constexpr bool is_alpha(int c) { return is_upper(c) || is_lower(c); }
constexpr bool is_alnum(int c) { return is_alpha(c) || is_digit(c); }
constexpr bool is_space(int c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
constexpr int to_upper(int c) { return is_lower(c) ? c - 'a' + 'A' : c; }

} // namespace ascii

#endif
