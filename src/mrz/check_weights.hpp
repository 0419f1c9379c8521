// The weights of a check-digit sum, ICAO Doc 9303: by position modulo 3.
#ifndef VARNEL_SRC_MRZ_CHECK_WEIGHTS_HPP
#define VARNEL_SRC_MRZ_CHECK_WEIGHTS_HPP

constexpr int CHECK_WEIGHTS[3] = {7, 3, 1};

#endif
