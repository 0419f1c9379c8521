// An inspection as JSON: the form that every language and the command share.
#include <Varnel/documents/inspect.h>

#include <string.h>

#include "json_writer.hpp"
#include "layouts.hpp"
#include "names.hpp"
#include "states.hpp"

using namespace documents;

namespace {

constexpr name_lengths FIELD_NAME_LENGTHS{FIELD_NAMES};
constexpr name_lengths FINDING_NAME_LENGTHS{FINDING_NAMES};
constexpr name_lengths STATUS_NAME_LENGTHS{STATUS_NAMES};
constexpr name_lengths PROOF_NAME_LENGTHS{PROOF_NAMES};

char *put_field_name(char *at, int field) {
  return put_string(at, FIELD_NAMES[field], FIELD_NAME_LENGTHS.of[field]);
}

// A comma before every entry of an array or object but the first.
char *put_comma(char *at, int entry) { return entry > 0 ? put(at, ',') : at; }

char *put_place(char *at, int line, int column) {
  at = put_number(put(at, "\"line\":"), static_cast<unsigned>(line));
  return put_number(put(at, ",\"column\":"), static_cast<unsigned>(column));
}

char *put_source(char *at, varnel_source source) {
  at = put_number(put(at, "{\"start\":"), source.start);
  at = put_number(put(at, ",\"end\":"), source.end);
  return put(at, '}');
}

char *put_heading(char *at, const varnel_inspection &inspection) {
  at = put(at, "{\"version\":1,\"date\":\"");
  at = put_four_digits(at, static_cast<unsigned>(inspection.year));
  at = put_two_digits(put(at, '-'), inspection.month);
  at = put_two_digits(put(at, '-'), inspection.day);
  at = put_string(put(at, "\",\"repair\":"), REPAIR_NAMES[inspection.repair]);
  at = put_string(put(at, ",\"verdict\":"), VERDICT_NAMES[inspection.verdict]);
  at = put_string_or_null(put(at, ",\"kind\":"), varnel_kind_name(inspection.layout));
  return put_string_or_null(put(at, ",\"layout\":"), varnel_layout_name(inspection.layout));
}

char *put_zone(char *at, const varnel_inspection &inspection) {
  at = put(at, ",\"zone\":[");
  for (int i = 0; i < inspection.line_count; ++i) {
    at = put_string(put_comma(at, i), inspection.zone[i]);
  }
  at = put(at, "],\"source\":[");
  for (int i = 0; i < inspection.source_count; ++i) {
    at = put_source(put_comma(at, i), inspection.source[i]);
  }
  return put(at, ']');
}

char *put_state(char *at, const char *value) {
  const state found = find_state(value, value != nullptr ? static_cast<int>(strlen(value)) : 0);
  at = put(at, ",\"name\":");
  at = found.name != nullptr ? put_escaped_string(at, found.name) : put(at, "null");
  return put_string_or_null(put(at, ",\"alpha2\":"), found.alpha2[0] != '\0' ? found.alpha2 : nullptr);
}

char *put_date(char *at, const varnel_inspected_field &field) {
  at = put_number_or_null(put(at, ",\"year\":"), field.year, !field.has_value);
  at = put_number_or_null(put(at, ",\"month\":"), field.month, field.month == 0);
  return put_number_or_null(put(at, ",\"day\":"), field.day, field.day == 0);
}

// What a field has beyond what every field has.
char *put_additions(char *at, const varnel_inspection &inspection, const varnel_inspected_field &field) {
  const char *value = field.has_value ? field.value : nullptr;
  switch (LAYOUTS[inspection.layout].find(field.field)->kind) {
  case field_kind::state:
    return put_state(at, value);
  case field_kind::names:
    return put_boolean(put(at, ",\"truncated\":"), field.truncated);
  case field_kind::birth_date:
  case field_kind::expiry_date:
    return put_date(at, field);
  case field_kind::code:
    return put_string_or_null(put(at, ",\"meaning\":"),
                              varnel_document_code_meaning(inspection.layout, value));
  default:
    return at;
  }
}

char *put_field(char *at, const varnel_inspection &inspection, const varnel_inspected_field &field) {
  at = put_field_name(at, field.field);
  at = put_string(put(at, ":{\"text\":"), field.text);
  at = put(at, ",\"value\":");
  at = field.has_value ? put_string(at, field.value) : put(at, "null");
  at = put_place(put(at, ','), field.line, field.column);
  at = put_source(put(at, ",\"source\":"), field.source);
  at = put_string(put(at, ",\"status\":"), STATUS_NAMES[field.status], STATUS_NAME_LENGTHS.of[field.status]);
  at = put_string(put(at, ",\"proof\":"), PROOF_NAMES[field.proof], PROOF_NAME_LENGTHS.of[field.proof]);
  return put(put_additions(at, inspection, field), '}');
}

char *put_check(char *at, const varnel_check &check) {
  at = put_place(put(put_field_name(at, check.field), ":{"), check.line, check.column);
  at = put(put(at, ",\"found\":\""), check.found);
  at = put(put(at, "\",\"expected\":\""), check.expected);
  at = put_boolean(put(at, "\",\"holds\":"), check.holds);
  at = put_string_or_null(put(at, ",\"rule\":"), varnel_rule_name(check.rule));
  return put(at, '}');
}

char *put_change(char *at, const varnel_change &change) {
  at = put_place(put(at, '{'), change.line, change.column);
  at = put_escaped_string(put(at, ",\"from\":"), change.from);
  at = put_escaped_string(put(at, ",\"to\":"), change.to);
  at = put_string(put(at, ",\"reason\":"), CHANGE_NAMES[change.reason]);
  return put(at, '}');
}

char *put_finding(char *at, const varnel_finding &finding) {
  at = put(at, "{\"code\":");
  at = put_string(at, FINDING_NAMES[finding.code], FINDING_NAME_LENGTHS.of[finding.code]);
  at = put_string_or_null(put(at, ",\"field\":"), varnel_field_name(finding.field));
  at = put_number_or_null(put(at, ",\"line\":"), finding.line, finding.line < 0);
  at = put_number_or_null(put(at, ",\"column\":"), finding.column, finding.column < 0);
  return put(at, '}');
}

char *put_nearest(char *at, const varnel_inspection &inspection) {
  at = put(at, ",\"nearest\":");
  if (inspection.nearest_layout == VARNEL_LAYOUT_NONE) {
    return put(at, "null");
  }
  const layout &form = LAYOUTS[inspection.nearest_layout];
  at = put_string(put(at, "{\"layout\":"), LAYOUT_NAMES[form.id]);
  at = put(at, ",\"lines\":[");
  for (int i = 0; i < form.lines; ++i) {
    at = put_number(put(put_comma(at, i), "{\"expected\":"), form.width);
    at = put_number(put(at, ",\"found\":"), inspection.nearest[i]);
    at = put(at, '}');
  }
  return put(at, "]}");
}

char *put_end(char *at, const varnel_inspection &inspection) {
  at = put_nearest(put(at, ']'), inspection);
  at = put(at, ",\"expired\":");
  at = inspection.expired < 0 ? put(at, "null") : put_boolean(at, inspection.expired != 0);
  at = put(at, ",\"chipAccess\":");
  at = inspection.chip_access[0] != '\0' ? put_string(at, inspection.chip_access) : put(at, "null");
  return put(at, '}');
}

// A piece for each entry of an array or object.
template <class Entry, class Put>
void write_entries(json_writer &json, const Entry *entries, int count, Put put_entry) {
  for (int i = 0; i < count; ++i) {
    json.take(put_entry(put_comma(json.begin(), i), entries[i]));
  }
}

void write_inspection(json_writer &json, const varnel_inspection &inspection) {
  json.take(put(put_zone(put_heading(json.begin(), inspection), inspection), ",\"fields\":{"));
  write_entries(
      json, inspection.fields, inspection.field_count,
      [&](char *at, const varnel_inspected_field &field) { return put_field(at, inspection, field); });
  json.take(put(json.begin(), "},\"checks\":{"));
  write_entries(json, inspection.checks, inspection.check_count, put_check);
  json.take(put(json.begin(), "},\"changes\":["));
  write_entries(json, inspection.changes, inspection.change_count, put_change);
  json.take(put(json.begin(), "],\"findings\":["));
  write_entries(json, inspection.findings, inspection.finding_count, put_finding);
  json.take(put(json.begin(), "],\"notices\":["));
  write_entries(json, inspection.notices, inspection.notice_count, put_finding);
  json.take(put_end(json.begin(), inspection));
}

} // namespace

int varnel_inspection_json(const varnel_inspection *inspection, char *out, size_t size) {
  if (inspection == nullptr || (out == nullptr && size > 0)) {
    return ERR_INVALID_ARGS;
  }
  json_writer json(out, size);
  write_inspection(json, *inspection);
  return json.finish();
}
