#include <iostream>

#include <Varnel/documents.hpp>

int main() {
  varnel_compose_fields fields = {};
  fields.layout = VARNEL_LAYOUT_TD1;
  fields.document_code = "I";
  fields.issuing_state = "UTO";
  fields.document_number = "D2314589A77"; // more than nine characters
  fields.nationality = "UTO";
  fields.birth_date = "1984-05-XX"; // the day is not known
  fields.sex = "X";
  fields.expiry_date = "2031-05-10";
  fields.primary_identifier = "Гнатюк";
  fields.secondary_identifier = "Юлія";

  const varnel::composition zone = varnel::compose(fields, "uk");
  if (!zone) {
    std::cerr << varnel::field_name(zone.error().field) << ": "
              << varnel::compose_reason_name(zone.error().reason) << '\n';
    return 1;
  }
  for (std::size_t i = 0; i < zone.lines(); ++i) {
    std::cout << zone.line(i) << '\n';
  }
  return 0;
}
