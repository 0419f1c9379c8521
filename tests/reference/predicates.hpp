/**
 * @file predicates.hpp
 * @brief Every character test of the library beside its plain reading.
 */
#pragma once

#include "reference.hpp"

namespace reference {

struct predicate {
  const char *name;
  _t_predicate_func library;
  _t_predicate_func plain;
};

#define VARNEL_PREDICATE(name)                                                                               \
  { #name, ::name, reference::name }
constexpr predicate PREDICATES[] = {
    VARNEL_PREDICATE(pattern_is_atoi_valid),
    VARNEL_PREDICATE(pattern_isNotDigit),
    VARNEL_PREDICATE(pattern_isCityChar),
    VARNEL_PREDICATE(pattern_isClearCityChar),
    VARNEL_PREDICATE(pattern_isNotClearCityChar),
    VARNEL_PREDICATE(pattern_isNameChar),
    VARNEL_PREDICATE(pattern_isAddressChar),
    VARNEL_PREDICATE(pattern_isAddressChar2),
    VARNEL_PREDICATE(pattern_isClearAddressChar),
    VARNEL_PREDICATE(pattern_isClearAddressChar2),
    VARNEL_PREDICATE(pattern_isNotClearAddressChar),
    VARNEL_PREDICATE(pattern_isNotClearAddressChar2),
    VARNEL_PREDICATE(pattern_isClearPostalCode),
    VARNEL_PREDICATE(pattern_isLicenseNumber),
    VARNEL_PREDICATE(pattern_is_w),
    VARNEL_PREDICATE(pattern_is_not_w),
    VARNEL_PREDICATE(pattern_is_ws),
    VARNEL_PREDICATE(pattern_valid_symbols),
    VARNEL_PREDICATE(pattern_not_valid_symbols),
    VARNEL_PREDICATE(patter_trim_space),
    VARNEL_PREDICATE(patter_trim_address),
    VARNEL_PREDICATE(MRZ_common_pattern_valid_mrz),
    VARNEL_PREDICATE(MRZ_common_pattern_valid_mrz_date),
    VARNEL_PREDICATE(MRZ_common_pattern_valid_mrz_name),
    VARNEL_PREDICATE(MRZ_common_pattern_valid_mrz_cc),
};
#undef VARNEL_PREDICATE

} // namespace reference
