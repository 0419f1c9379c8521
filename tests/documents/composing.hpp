// What the tests of composing share: a document to vary, and its zone as text.
#ifndef VARNEL_TESTS_DOCUMENTS_COMPOSING_HPP
#define VARNEL_TESTS_DOCUMENTS_COMPOSING_HPP

#include <Varnel/documents/compose.h>

#include <ostream>
#include <string>
#include <vector>

namespace composing {

inline varnel_compose_fields document(int layout) {
  varnel_compose_fields fields = {};
  fields.layout = layout;
  const bool is_visa = layout == VARNEL_LAYOUT_MRV_A || layout == VARNEL_LAYOUT_MRV_B;
  fields.document_code = layout == VARNEL_LAYOUT_TD3 ? "P" : is_visa ? "V" : "I";
  fields.issuing_state = "UTO";
  fields.document_number = "D23145890";
  fields.nationality = "UTO";
  fields.birth_date = "1974-08-12";
  fields.sex = "F";
  fields.expiry_date = "2012-04-15";
  fields.primary_identifier = "Eriksson";
  fields.secondary_identifier = "Anna Maria";
  return fields;
}

struct refusal {
  int field;
  int reason;
  size_t position;
  size_t offset;

  bool operator==(const refusal &other) const {
    return field == other.field && reason == other.reason && position == other.position &&
           offset == other.offset;
  }
};

inline std::ostream &operator<<(std::ostream &out, const refusal &r) {
  return out << "{field " << r.field << ", reason " << r.reason << ", position " << r.position << ", offset "
             << r.offset << "}";
}

constexpr refusal NO_REFUSAL = {VARNEL_FIELD_NONE, VARNEL_COMPOSE_NO_REASON, 0, 0};

// NO_REFUSAL where the fields can be composed.
inline refusal refusal_of(const varnel_compose_fields &fields, const char *language = nullptr) {
  const varnel_compose_options options = {language};
  varnel_zone zone = {};
  varnel_compose_error error = {};
  return varnel_compose(&fields, &options, &zone, &error) == ERR_INVALID_FORMAT
             ? refusal{error.field, error.reason, error.position, error.offset}
             : NO_REFUSAL;
}

using lines = std::vector<std::string>;

// No lines where the fields cannot be composed.
inline lines compose(const varnel_compose_fields &fields, const char *language = nullptr) {
  const varnel_compose_options options = {language};
  varnel_zone zone = {};
  if (varnel_compose(&fields, &options, &zone, nullptr) != ERR_OK) {
    return {};
  }
  return lines(zone.lines, zone.lines + zone.line_count);
}

// The whole field of names; "refused" where there is none.
inline std::string name_field(int layout, const std::string &primary, const std::string &secondary,
                              const char *language = nullptr) {
  varnel_compose_fields fields = document(layout);
  fields.primary_identifier = primary.c_str();
  fields.secondary_identifier = secondary.c_str();
  const lines zone = compose(fields, language);
  if (zone.empty()) {
    return "refused";
  }
  return layout == VARNEL_LAYOUT_TD1 ? zone[2] : zone[0].substr(5);
}

inline std::string without_fillers(const std::string &text) {
  return text.substr(0, text.find_last_not_of('<') + 1);
}

// The names without the fillers after them; "refused" where there are none.
inline std::string names(const std::string &primary, const std::string &secondary = "",
                         const char *language = nullptr) {
  return without_fillers(name_field(VARNEL_LAYOUT_TD3, primary, secondary, language));
}

} // namespace composing

#endif
