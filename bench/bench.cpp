// The costs of reading a document, each beside the floor and the plain baseline of the same run.
//
// Names are STEP/TEXT: a step of the chain, and the text it is given. bench/run turns them into ratios.
#include <Varnel/Varnel.hpp>

#include <benchmark/benchmark.h>
#include <reference.hpp>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#ifdef VARNEL_BENCH_DOCUMENTS
#include <Varnel/documents/barcode.h>
#endif
#ifdef VARNEL_BENCH_FACADE
#include "facade.h"
#endif
#ifdef VARNEL_BENCH_DOCUMENTS
#include <Varnel/documents.h>
#endif

namespace {

constexpr CONTEXT REFERENCE = {{2018, 2, 15, 0, 0, 0}};

struct sample {
  std::string name;
  std::string text;
};

std::string read_vector(const std::string &name) {
  const std::string path = VARNEL_VECTORS_DIR "/" + name + ".mrz";
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    std::fprintf(stderr, "bench: cannot read %s\n", path.c_str());
    std::exit(2);
  }
  return {std::istreambuf_iterator<char>(file), {}};
}

// As a hasty reader gives it: lowercase letters, spaces between the characters here and there, CR LF.
std::string with_noise(const std::string &text) {
  std::string noisy;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    noisy += c >= 'A' && c <= 'Z' && i % 3 == 0 ? static_cast<char>(c - 'A' + 'a') : c;
    if (c == '\n') {
      noisy.insert(noisy.size() - 1, "\r");
    } else if (i % 7 == 0) {
      noisy += ' ';
    }
  }
  return noisy;
}

std::vector<sample> layouts() {
  return {{"TD1", read_vector("td1/specimen")},
          {"TD2", read_vector("td2/specimen")},
          {"TD3", read_vector("td3/specimen")},
          {"MRV-A", read_vector("mrv-a/specimen")},
          {"MRV-B", read_vector("mrv-b/specimen")}};
}

// A record, its buffer and the values, as a caller keeps them.
struct workspace {
  PARSE_RESULT record;
  char buffer[VARNEL_BUFFER_SIZE];
  char zone[VARNEL_EXAMINED_MAX + 1];
  int zone_length = 0;
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];

  int read(const std::string &text) {
    const int length = varnel_utf16_length(text.data(), text.size());
    return varnel_parse_mrz(text.data(), length, &record, buffer, sizeof buffer);
  }
};

// Runs `step` on a workspace that has read the text.
template <class Step> void add(const std::string &name, const std::string &text, Step step) {
  benchmark::RegisterBenchmark(name.c_str(), [text, step](benchmark::State &state) {
    const auto space = std::make_unique<workspace>();
    space->read(text);
    normalize_mrz(text.data(), static_cast<int>(text.size()), space->zone, sizeof space->zone,
                  &space->zone_length);
    for (auto _ : state) {
      step(*space, text);
      benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
  });
}

// The least that can be done: the record's slots and buffer zeroed, the text copied once.
void floor_of_work(workspace &space, const std::string &text) {
  std::memset(space.record.fields, 0, sizeof space.record.fields);
  benchmark::ClobberMemory();
  std::memset(space.buffer, 0, sizeof space.buffer);
  std::memcpy(space.zone, text.data(), text.size());
  benchmark::DoNotOptimize(space);
}

void chain(workspace &space, const std::string &text) {
  benchmark::DoNotOptimize(space.read(text));
  varnel_export(&space.record, space.pairs);
  benchmark::DoNotOptimize(space.pairs);
}

void chain_cpp(workspace &, const std::string &text) {
  std::size_t length = 0;
  if (const auto document = varnel::parse_mrz(text)) {
    for (const auto [key, value] : *document) {
      length += value.size();
    }
  }
  benchmark::DoNotOptimize(length);
}

void baseline(workspace &space, const std::string &text) {
  const int length = reference::varnel_utf16_length(text.data(), text.size());
  benchmark::DoNotOptimize(
      reference::parse_mrz(text.data(), length, &space.record, space.buffer, sizeof space.buffer));
  benchmark::DoNotOptimize(reference::export_values(&space.record));
}

void normalise(workspace &space, const std::string &text) {
  normalize_mrz(text.data(), static_cast<int>(text.size()), space.zone, sizeof space.zone,
                &space.zone_length);
}

void export_values(workspace &space, const std::string &) {
  varnel_export(&space.record, space.pairs);
  benchmark::DoNotOptimize(space.pairs);
}

using parser = int (*)(const char *, int, PARSE_RESULT *, const CONTEXT *);

void add_parser(const std::string &layout, const std::string &text, parser parse) {
  add("layout parser/" + layout, text, [parse](workspace &space, const std::string &) {
    space.record.data_size = 0; // written over and over, at the same place
    benchmark::DoNotOptimize(parse(space.zone, space.zone_length, &space.record, &REFERENCE));
  });
}

void add_utilities() {
  const std::string field = "ERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<";
  const auto view = [](const std::string &text) {
    return STRING{text.data(), static_cast<int>(text.size())};
  };
  add("utils_strcheck_f", field, [view](workspace &, const std::string &text) {
    const STRING source = view(text);
    benchmark::DoNotOptimize(utils_strcheck_f(&source, MRZ_common_pattern_valid_mrz_name));
  });
  add("utils_strtrim", field, [view](workspace &, const std::string &text) {
    STRING source = view(text);
    utils_strtrim(&source, "<");
    benchmark::DoNotOptimize(source);
  });
  add("utils_write_field", field, [view](workspace &space, const std::string &text) {
    const STRING source = view(text);
    space.record.data_size = 0;
    benchmark::DoNotOptimize(utils_write_field(&space.record, FIELD_FULL_NAME, &source, "<", " ", ' '));
  });
  add("MRZ_common_extract_name", field, [view](workspace &, const std::string &text) {
    const STRING source = view(text);
    STRING full_name;
    STRING last_name;
    STRING first_name;
    STRING middle_name;
    MRZ_common_extract_name(&source, &full_name, &last_name, &first_name, &middle_name);
    benchmark::DoNotOptimize(middle_name);
  });
  add("MRZ_common_calc_control_sum", field, [](workspace &, const std::string &text) {
    benchmark::DoNotOptimize(
        MRZ_common_calc_control_sum(text.data(), static_cast<int>(text.size()), nullptr));
  });
}

#ifdef VARNEL_BENCH_DOCUMENTS
constexpr varnel_inspect_options TODAY = {2026, 11, 21, VARNEL_REPAIR_OFF};
constexpr varnel_inspect_options REPAIRED_TODAY = {2026, 11, 21, VARNEL_REPAIR_DIGITS};

void add_inspecting(const std::string &name, const std::string &text, const varnel_inspect_options &options) {
  add(name, text, [&options](workspace &, const std::string &copy) {
    varnel_inspection inspection;
    benchmark::DoNotOptimize(varnel_inspect(copy.data(), copy.size(), &options, &inspection));
    benchmark::DoNotOptimize(inspection);
  });
}

// A zone inspected, without and with repair, and what was found written as JSON.
void add_inspection(const sample &each) {
  add_inspecting("inspect/" + each.name, each.text, TODAY);
  add_inspecting("inspect with repair/" + each.name, each.text, REPAIRED_TODAY);
  varnel_inspection inspection;
  varnel_inspect(each.text.data(), each.text.size(), &TODAY, &inspection);
  add("inspection as JSON/" + each.name, each.text, [inspection](workspace &, const std::string &) {
    char json[4096];
    benchmark::DoNotOptimize(varnel_inspection_json(&inspection, json, sizeof json));
    benchmark::DoNotOptimize(json);
  });
}

// 64 KiB of text, the last lines of it a zone.
std::string page_of(const std::string &line, const std::string &zone) {
  std::string page;
  while (page.size() + line.size() + zone.size() <= VARNEL_TEXT_MAX) {
    page += line;
  }
  page += zone;
  page.resize(VARNEL_TEXT_MAX, ' ');
  return page;
}

void add_page(const std::string &name, const std::string &line) {
  // Fillers of the names and letters among digits were misread.
  const std::string zone = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<ssccees\n"
                           "L898902C36UT074O8122F12O4159ZE184226B<<<<<10\n";
  add_inspecting("page of 64 KiB, inspect/" + name, page_of(line, ""), TODAY);
  add_inspecting("page of 64 KiB, inspect with repair/" + name, page_of(line, ""), REPAIRED_TODAY);
  add_inspecting("page of 64 KiB, a zone repaired/" + name, page_of(line, zone), REPAIRED_TODAY);
}

void add_inspections(const std::vector<sample> &layouts) {
  for (const sample &each : layouts) {
    add_inspection(each);
  }
  add_page("English", "The holder of this document, born in 1974, may pass freely (see note 3) & so on.\n");
  add_page("capitals", "REPUBLIC OF UTOPIA PASSPORT NO 12345678 DATE OF ISSUE 20101231\n");
  add_page("Greek", "Ο κάτοχος του παρόντος εγγράφου, που γεννήθηκε το 1974, μπορεί να περάσει ελεύθερα.\n");
}

// A licence of the usual length: a header, 22 elements and a jurisdiction's subfile.
void add_licence() {
  const std::string licence =
      "@\n\x1E\rANSI 636000100002DL00410217ZV02580008DLDAQT64235789\nDCSHOLLOWAY\nDDEN\nDACMARGUERITE\nDDFN\n"
      "DADANNE,LOUISE\nDDGN\nDCAD\nDCBK\nDCDPH\nDBD06062019\nDBB06061986\nDBA12102027\nDBC2\nDAU068 in\n"
      "DAYBRO\nDAG12 ELM CT\nDAIFAIRFAX\nDAJVA\nDAK220300000  \nDCF2424244747474786\nDCGUSA\rZVZVA01\r";
  add("barcode/licence", licence, [](workspace &space, const std::string &text) {
    varnel_barcode_info info;
    benchmark::DoNotOptimize(
        varnel_barcode(text.data(), text.size(), &space.record, space.buffer, sizeof space.buffer, &info));
    varnel_export(&space.record, space.pairs);
    benchmark::DoNotOptimize(space.pairs);
  });
}

// The specimens' values composed to the specimens' zones; and a passport whose names are in national letters.
varnel_compose_fields values_of(int layout) {
  varnel_compose_fields fields = {};
  fields.layout = layout;
  fields.document_code = layout == VARNEL_LAYOUT_TD3 ? "P" : layout < VARNEL_LAYOUT_TD3 ? "I" : "V";
  fields.issuing_state = fields.nationality = "UTO";
  fields.document_number = "L898902C3";
  fields.birth_date = "1974-08-12";
  fields.sex = "F";
  fields.expiry_date = "2012-04-15";
  fields.primary_identifier = "Eriksson";
  fields.secondary_identifier = "Anna Maria";
  return fields;
}

void add_compose(const std::string &name, const varnel_compose_fields &fields) {
  add("compose/" + name, "", [fields](workspace &, const std::string &) {
    varnel_zone zone;
    benchmark::DoNotOptimize(varnel_compose(&fields, nullptr, &zone, nullptr));
    benchmark::DoNotOptimize(zone);
  });
}

void add_compositions(const std::vector<sample> &layouts) {
  for (std::size_t i = 0; i < layouts.size(); ++i) {
    add_compose(layouts[i].name, values_of(VARNEL_LAYOUT_TD1 + static_cast<int>(i)));
  }
  varnel_compose_fields national = values_of(VARNEL_LAYOUT_TD3);
  national.primary_identifier = "Шевченко-Müllerström";
  national.secondary_identifier = "Þóra Łucja Jörg";
  add_compose("national letters", national);
}
#endif

} // namespace

int main(int argc, char **argv) {
  for (const sample &each : layouts()) {
    add("floor/" + each.name, each.text, floor_of_work);
    add("chain, C/" + each.name, each.text, chain);
    add("chain, C++/" + each.name, each.text, chain_cpp);
#ifdef VARNEL_BENCH_FACADE
    add("chain, Objective-C/" + each.name, each.text, [](workspace &, const std::string &text) {
      benchmark::DoNotOptimize(facade_values(text.data(), text.size()));
    });
#endif
    add("baseline/" + each.name, each.text, baseline);
    add("chain, C, noisy text/" + each.name, with_noise(each.text), chain);
    add("normalise/" + each.name, each.text, normalise);
    add("normalise, noisy text/" + each.name, with_noise(each.text), normalise);
    add("export/" + each.name, each.text, export_values);
  }
  const std::vector<sample> texts = layouts();
  add_parser("TD1", texts[0].text, MRZ_td1_parse);
  add_parser("TD2", texts[1].text, MRZ_td2_parse);
  add_parser("TD3", texts[2].text, MRZ_passport_parse);
  add_parser("MRV-A", texts[3].text, MRZ_visa_parse);
  add_parser("MRV-B", texts[4].text, MRZ_visa_parse);

  // Refused by all four, as late as can be: the layout fits and the last field that is read is wrong.
  add("floor/refused, TD3", texts[2].text, floor_of_work);
  std::string refused = texts[2].text;
  refused[0] = 'X';
  add("chain, C/refused, code", refused, chain);
  refused = texts[2].text;
  refused[45 + 12] = '1'; // the nationality
  add("chain, C/refused, field", refused, chain);

  // Text of growing length, refused by its length: the cost of looking at it.
  for (const int length : {32, 64, 128, 256, 384, 512, 640, 768, 896, 1023, 2048, 4096}) {
    add("length/" + std::to_string(length), std::string(static_cast<std::size_t>(length), '<'), chain);
  }
  add_utilities();
#ifdef VARNEL_BENCH_DOCUMENTS
  add_inspections(texts);
  add_licence();
  add_compositions(texts);
#endif

  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 2;
  }
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
