// An inspection as JSON: the form that every language and the command share.
#include <Varnel/documents/inspect.h>

#include <string.h>

#include "json_writer.hpp"
#include "layouts.hpp"
#include "names.hpp"
#include "states.hpp"

using namespace documents;

namespace {

void write_source(json_writer &json, varnel_source source) {
  json.raw("{\"start\":");
  json.number(source.start);
  json.raw(",\"end\":");
  json.number(source.end);
  json.raw("}");
}

void write_zone(json_writer &json, const varnel_inspection &inspection) {
  json.raw(",\"zone\":[");
  for (int i = 0; i < inspection.line_count; ++i) {
    if (i > 0) {
      json.raw(",");
    }
    json.array(inspection.zone[i]);
  }
  json.raw("],\"source\":[");
  for (int i = 0; i < inspection.source_count; ++i) {
    if (i > 0) {
      json.raw(",");
    }
    write_source(json, inspection.source[i]);
  }
  json.raw("]");
}

void write_state(json_writer &json, const char *value) {
  const state found = find_state(value, value != nullptr ? static_cast<int>(strlen(value)) : 0);
  json.raw(",\"name\":");
  json.escaped_string(found.name);
  json.raw(",\"alpha2\":");
  json.string(found.alpha2[0] != '\0' ? found.alpha2 : nullptr);
}

// What a field has beyond what every field has.
void write_additions(json_writer &json, const varnel_inspection &inspection,
                     const varnel_inspected_field &field) {
  const char *value = field.has_value ? field.value : nullptr;
  switch (LAYOUTS[inspection.layout].find(field.field)->kind) {
  case field_kind::state:
    write_state(json, value);
    break;
  case field_kind::names:
    json.raw(",\"truncated\":");
    json.boolean(field.truncated);
    break;
  case field_kind::birth_date:
  case field_kind::expiry_date:
    json.raw(",\"year\":");
    json.number_or_null(field.year, value == nullptr);
    json.raw(",\"month\":");
    json.number_or_null(field.month, field.month == 0);
    json.raw(",\"day\":");
    json.number_or_null(field.day, field.day == 0);
    break;
  case field_kind::code:
    json.raw(",\"meaning\":");
    json.string(varnel_document_code_meaning(inspection.layout, value));
    break;
  default:
    break;
  }
}

void write_field(json_writer &json, const varnel_inspection &inspection,
                 const varnel_inspected_field &field) {
  json.array(FIELD_NAMES[field.field]);
  json.raw(":{\"text\":");
  json.array(field.text);
  json.raw(",\"value\":");
  if (field.has_value) {
    json.array(field.value);
  } else {
    json.raw("null");
  }
  json.raw(",\"line\":");
  json.number(field.line);
  json.raw(",\"column\":");
  json.number(field.column);
  json.raw(",\"source\":");
  write_source(json, field.source);
  json.raw(",\"status\":");
  json.array(STATUS_NAMES[field.status]);
  json.raw(",\"proof\":");
  json.array(PROOF_NAMES[field.proof]);
  write_additions(json, inspection, field);
  json.raw("}");
}

void write_fields(json_writer &json, const varnel_inspection &inspection) {
  json.raw(",\"fields\":{");
  for (int i = 0; i < inspection.field_count; ++i) {
    if (i > 0) {
      json.raw(",");
    }
    write_field(json, inspection, inspection.fields[i]);
  }
  json.raw("}");
}

void write_checks(json_writer &json, const varnel_inspection &inspection) {
  json.raw(",\"checks\":{");
  for (int i = 0; i < inspection.check_count; ++i) {
    const varnel_check &check = inspection.checks[i];
    if (i > 0) {
      json.raw(",");
    }
    json.array(FIELD_NAMES[check.field]);
    json.raw(":{\"line\":");
    json.number(check.line);
    json.raw(",\"column\":");
    json.number(check.column);
    json.raw(",\"found\":\"");
    json.character(check.found);
    json.raw("\",\"expected\":\"");
    json.character(check.expected);
    json.raw("\",\"holds\":");
    json.boolean(check.holds);
    json.raw(",\"rule\":");
    json.string(varnel_rule_name(check.rule));
    json.raw("}");
  }
  json.raw("}");
}

void write_changes(json_writer &json, const varnel_inspection &inspection) {
  json.raw(",\"changes\":[");
  for (int i = 0; i < inspection.change_count; ++i) {
    const varnel_change &change = inspection.changes[i];
    if (i > 0) {
      json.raw(",");
    }
    json.raw("{\"line\":");
    json.number(change.line);
    json.raw(",\"column\":");
    json.number(change.column);
    json.raw(",\"from\":");
    json.escaped_string(change.from);
    json.raw(",\"to\":");
    json.escaped_string(change.to);
    json.raw(",\"reason\":");
    json.array(CHANGE_NAMES[change.reason]);
    json.raw("}");
  }
  json.raw("]");
}

void write_findings(json_writer &json, const varnel_finding *findings, int count) {
  json.raw("[");
  for (int i = 0; i < count; ++i) {
    const varnel_finding &finding = findings[i];
    if (i > 0) {
      json.raw(",");
    }
    json.raw("{\"code\":");
    json.array(FINDING_NAMES[finding.code]);
    json.raw(",\"field\":");
    json.string(varnel_field_name(finding.field));
    json.raw(",\"line\":");
    json.number_or_null(finding.line, finding.line < 0);
    json.raw(",\"column\":");
    json.number_or_null(finding.column, finding.column < 0);
    json.raw("}");
  }
  json.raw("]");
}

void write_nearest(json_writer &json, const varnel_inspection &inspection) {
  json.raw(",\"nearest\":");
  if (inspection.nearest_layout == VARNEL_LAYOUT_NONE) {
    json.raw("null");
    return;
  }
  const layout &form = LAYOUTS[inspection.nearest_layout];
  json.raw("{\"layout\":");
  json.string(varnel_layout_name(form.id));
  json.raw(",\"lines\":[");
  for (int i = 0; i < form.lines; ++i) {
    if (i > 0) {
      json.raw(",");
    }
    json.raw("{\"expected\":");
    json.number(form.width);
    json.raw(",\"found\":");
    json.number(inspection.nearest[i]);
    json.raw("}");
  }
  json.raw("]}");
}

void write_inspection(json_writer &json, const varnel_inspection &inspection) {
  json.raw("{\"version\":1,\"date\":\"");
  json.padded(inspection.year, 4);
  json.raw("-");
  json.padded(inspection.month, 2);
  json.raw("-");
  json.padded(inspection.day, 2);
  json.raw("\",\"repair\":");
  json.array(REPAIR_NAMES[inspection.repair]);
  json.raw(",\"verdict\":");
  json.array(VERDICT_NAMES[inspection.verdict]);
  json.raw(",\"kind\":");
  json.string(varnel_kind_name(inspection.layout));
  json.raw(",\"layout\":");
  json.string(varnel_layout_name(inspection.layout));
  write_zone(json, inspection);
  write_fields(json, inspection);
  write_checks(json, inspection);
  write_changes(json, inspection);
  json.raw(",\"findings\":");
  write_findings(json, inspection.findings, inspection.finding_count);
  json.raw(",\"notices\":");
  write_findings(json, inspection.notices, inspection.notice_count);
  write_nearest(json, inspection);
  json.raw(",\"expired\":");
  if (inspection.expired < 0) {
    json.raw("null");
  } else {
    json.boolean(inspection.expired != 0);
  }
  json.raw(",\"chipAccess\":");
  json.string(inspection.chip_access[0] != '\0' ? inspection.chip_access : nullptr);
  json.raw("}");
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
