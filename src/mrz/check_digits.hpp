// Check digits of ICAO Doc 9303-3, section 4.9: what a sum's characters weigh, by position modulo 3.
#ifndef VARNEL_SRC_MRZ_CHECK_DIGITS_HPP
#define VARNEL_SRC_MRZ_CHECK_DIGITS_HPP

constexpr int CHECK_WEIGHTS[3] = {7, 3, 1};

#endif
