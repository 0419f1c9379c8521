// An inspection as JSON: the form that every language and the command share.
#include <Varnel/documents/inspect.h>

#include <string.h>

#include "../view.hpp"
#include "json_writer.hpp"
#include "layouts.hpp"
#include "names.hpp"
#include "states.hpp"

using namespace documents;

namespace {

template <const auto &Names> constexpr name_lengths LENGTHS{Names};

template <const auto &Names> char *put_name(char *at, int number) {
  return put_text(at, Names[number], LENGTHS<Names>.of[number]);
}

// As a string; null for 0, which has no name.
template <const auto &Names> char *put_name_or_null(char *at, int number) {
  return number != 0 ? put(put_name<Names>(put(at, '"'), number), '"') : put(at, "null");
}

// A comma before every entry of an array or object but the first.
char *put_comma(char *at, int entry) { return entry > 0 ? put(at, ',') : at; }

VARNEL_INLINE char *put_place(char *at, int line, int column) {
  at = put_number(put(at, "\"line\":"), static_cast<unsigned>(line));
  return put_number(put(at, ",\"column\":"), static_cast<unsigned>(column));
}

VARNEL_INLINE char *put_source(char *at, varnel_source source) {
  at = put_number(put(at, "{\"start\":"), source.start);
  at = put_number(put(at, ",\"end\":"), source.end);
  return put(at, '}');
}

char *put_heading(char *at, const varnel_inspection &inspection) {
  at = put(at, "{\"version\":1,\"date\":\"");
  at = put_four_digits(at, static_cast<unsigned>(inspection.year));
  at = put_two_digits(put(at, '-'), inspection.month);
  at = put_two_digits(put(at, '-'), inspection.day);
  at = put_name<REPAIR_NAMES>(put(at, "\",\"repair\":\""), inspection.repair);
  at = put_name<VERDICT_NAMES>(put(at, "\",\"verdict\":\""), inspection.verdict);
  at = put_name_or_null<KIND_NAMES>(put(at, "\",\"kind\":"), inspection.layout);
  return put_name_or_null<LAYOUT_NAMES>(put(at, ",\"layout\":"), inspection.layout);
}

char *put_zone(char *at, const layout &form, const varnel_inspection &inspection) {
  at = put(at, ",\"zone\":[");
  for (int i = 0; i < inspection.line_count; ++i) {
    at = put_string(put_comma(at, i), inspection.zone[i], form.width);
  }
  at = put(at, "],\"source\":[");
  for (int i = 0; i < inspection.source_count; ++i) {
    at = put_source(put_comma(at, i), inspection.source[i]);
  }
  return put(at, ']');
}

char *put_state(char *at, const varnel_inspected_field &field) {
  const state found = find_state(field.value, field.value_length);
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
char *put_additions(char *at, const layout &form, const varnel_inspected_field &field) {
  switch (form.find(field.field)->kind) {
  case field_kind::state:
    return put_state(at, field);
  case field_kind::names:
    return put_boolean(put(at, ",\"truncated\":"), field.truncated);
  case field_kind::birth_date:
  case field_kind::expiry_date:
    return put_date(at, field);
  case field_kind::code:
    return put_string_or_null(put(at, ",\"meaning\":"), varnel_document_code_meaning(form.id, field.value));
  default:
    return at;
  }
}

char *put_field(char *at, const layout &form, const varnel_inspected_field &field) {
  at = put_name<FIELD_NAMES>(put(at, '"'), field.field);
  at = put_text(put(at, "\":{\"text\":\""), field.text, field.text_length);
  at = put(at, "\",\"value\":");
  at = field.has_value ? put_string(at, field.value, field.value_length) : put(at, "null");
  at = put_place(put(at, ','), field.line, field.column);
  at = put_source(put(at, ",\"source\":"), field.source);
  at = put_name<STATUS_NAMES>(put(at, ",\"status\":\""), field.status);
  at = put_name<PROOF_NAMES>(put(at, "\",\"proof\":\""), field.proof);
  return put(put_additions(put(at, '"'), form, field), '}');
}

char *put_check(char *at, const varnel_check &check) {
  at = put_name<FIELD_NAMES>(put(at, '"'), check.field);
  at = put_place(put(at, "\":{"), check.line, check.column);
  at = put(put(at, ",\"found\":\""), check.found);
  at = put(put(at, "\",\"expected\":\""), check.expected);
  at = put_boolean(put(at, "\",\"holds\":"), check.holds);
  at = put_name_or_null<RULE_NAMES>(put(at, ",\"rule\":"), check.rule);
  return put(at, '}');
}

char *put_change(char *at, const varnel_change &change) {
  at = put_place(put(at, '{'), change.line, change.column);
  at = put_escaped_string(put(at, ",\"from\":"), change.from);
  at = put_escaped_string(put(at, ",\"to\":"), change.to);
  at = put_name<CHANGE_NAMES>(put(at, ",\"reason\":\""), change.reason);
  return put(at, "\"}");
}

char *put_finding(char *at, const varnel_finding &finding) {
  at = put_name<FINDING_NAMES>(put(at, "{\"code\":\""), finding.code);
  at = put_name_or_null<FIELD_NAMES>(put(at, "\",\"field\":"), finding.field);
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
  at = put_name<LAYOUT_NAMES>(put(at, "{\"layout\":\""), form.id);
  at = put(at, "\",\"lines\":[");
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
  at = inspection.chip_access[0] != '\0'
           ? put_string(at, inspection.chip_access, strlen(inspection.chip_access))
           : put(at, "null");
  return put(at, '}');
}

// A piece for each entry of an array or object.
template <class Entry, class Put>
char *put_entries(json_writer &json, char *at, const Entry *entries, int count, Put put_entry) {
  for (int i = 0; i < count; ++i) {
    at = put_entry(put_comma(json.next(at), i), entries[i]);
  }
  return json.next(at);
}

char *put_inspection(json_writer &json, const varnel_inspection &inspection) {
  const layout &form = LAYOUTS[inspection.layout]; // an empty one for a refusal, which has no fields
  char *at = put_zone(put_heading(json.begin(), inspection), form, inspection);
  at = put_entries(
      json, put(at, ",\"fields\":{"), inspection.fields, inspection.field_count,
      [&](char *entry, const varnel_inspected_field &field) { return put_field(entry, form, field); });
  at = put_entries(json, put(at, "},\"checks\":{"), inspection.checks, inspection.check_count, put_check);
  at = put_entries(json, put(at, "},\"changes\":["), inspection.changes, inspection.change_count, put_change);
  at = put_entries(json, put(at, "],\"findings\":["), inspection.findings, inspection.finding_count,
                   put_finding);
  at =
      put_entries(json, put(at, "],\"notices\":["), inspection.notices, inspection.notice_count, put_finding);
  return put_end(at, inspection);
}

} // namespace

int varnel_inspection_json(const varnel_inspection *inspection, char *out, size_t size) {
  if (inspection == nullptr || (out == nullptr && size > 0)) {
    return ERR_INVALID_ARGS;
  }
  json_writer json(out, size);
  return json.finish(put_inspection(json, *inspection));
}
