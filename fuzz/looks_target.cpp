// Looks at a document, any bytes each: an input is the level of repair, then texts, each ended by a NUL.
#include "harness.hpp"

#include <Varnel/documents/looks.h>

#include <cstring>

namespace {

using fuzz::equal;
using fuzz::holds;

fuzz::behaviour voted("a zone is voted");
fuzz::behaviour witnessed("a look shows the zone");
fuzz::behaviour differing("looks differ");
fuzz::behaviour none("no look shows a zone");

bool has_finding(const varnel_inspection &inspection, int code) {
  for (int i = 0; i < inspection.finding_count; ++i) {
    if (inspection.findings[i].code == code) {
      return true;
    }
  }
  return false;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 1) {
    return 0;
  }
  const varnel_inspect_options options = {2026, 11, 21, data[0] % 3};
  varnel_looks looks;
  std::memset(&looks, 0, sizeof looks);
  const char *text = reinterpret_cast<const char *>(data) + 1;
  const char *end = reinterpret_cast<const char *>(data) + size;
  while (text < end) {
    const void *nul = std::memchr(text, 0, static_cast<size_t>(end - text));
    const char *stop = nul != nullptr ? static_cast<const char *>(nul) : end;
    const int before = looks.count;
    const int added = varnel_looks_add(&looks, text, static_cast<size_t>(stop - text), &options);
    holds(added == ERR_OK || added == ERR_INVALID_FORMAT || stop - text > VARNEL_TEXT_MAX,
          "a text is a look or has no zone");
    holds(looks.count <= VARNEL_LOOKS && looks.count >= before, "looks stay, up to eight");
    text = stop + 1;
  }
  varnel_inspection inspection;
  std::memset(&inspection, 0x5A, sizeof inspection);
  equal("a record is inspected", varnel_looks_inspect(&looks, &options, &inspection), ERR_OK);
  varnel_inspection again;
  std::memset(&again, 0xA5, sizeof again);
  varnel_looks_inspect(&looks, &options, &again);
  holds(std::memcmp(&again, &inspection, sizeof again) == 0, "a second inspection is the same");
  const bool is_voted = inspection.verdict == VARNEL_VERDICT_VOTED;
  holds(!is_voted || (inspection.source_count == 0 && inspection.change_count == 0),
        "what is voted stands nowhere");
  holds(!is_voted || inspection.finding_count == 0, "what is voted has no finding");
  holds((inspection.verdict == VARNEL_VERDICT_REFUSED) == (looks.count == 0), "only no look is a refusal");
  voted.seen(is_voted);
  witnessed.seen(inspection.source_count > 0 && looks.count > 1);
  differing.seen(has_finding(inspection, VARNEL_FINDING_LOOKS_DIFFER));
  none.seen(looks.count == 0);
  return 0;
}
