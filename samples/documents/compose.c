#include <stdio.h>

#include <Varnel/documents.h>

int main(void) {
  varnel_compose_fields fields = {0};
  varnel_zone zone;
  varnel_compose_error error;

  fields.layout = VARNEL_LAYOUT_TD3;
  fields.document_code = "P";
  fields.issuing_state = "UTO";
  fields.document_number = "L898902C3";
  fields.nationality = "UTO";
  fields.birth_date = "1974-08-12";
  fields.sex = "F";
  fields.expiry_date = "2032-04-15";
  fields.primary_identifier = "Müller-O'Connor";
  fields.secondary_identifier = "Þóra Jörg";

  if (varnel_compose(&fields, NULL, &zone, &error) != ERR_OK) {
    return 1;
  }
  for (int i = 0; i < zone.line_count; ++i) {
    puts(zone.lines[i]);
  }

  fields.primary_identifier = "名前"; // no letter of a zone stands for these
  if (varnel_compose(&fields, NULL, &zone, &error) == ERR_INVALID_FORMAT &&
      error.field == VARNEL_PRIMARY_IDENTIFIER && error.reason == VARNEL_COMPOSE_BAD_CHARACTER) {
    printf("primaryIdentifier: character %d\n", (int)error.position + 1);
  }
  return 0;
}
