#include "advice.hpp"

#include <algorithm>
#include <cstring>
#include <memory>

namespace varnel::cli {

namespace {

bool is_accepted(std::string_view text) {
  PARSE_RESULT record;
  char buffer[VARNEL_BUFFER_SIZE];
  const int length = varnel_utf16_length(text.data(), text.size());
  return varnel_parse_mrz(text.data(), length, &record, buffer, sizeof buffer) == ERR_OK;
}

int accepted_documents(std::string_view text, split how) {
  const auto reader = std::make_unique<document_reader>(how);
  reader->open([&text](char *into, std::size_t room) {
    const std::size_t count = std::min(text.size(), room);
    std::memcpy(into, text.data(), count);
    text.remove_prefix(count);
    return static_cast<std::ptrdiff_t>(count);
  });
  int accepted = 0;
  for (document_text document; reader->next(document);) {
    accepted += is_accepted(document.text) ? 1 : 0;
  }
  return accepted;
}

} // namespace

std::string advice(std::string_view text, split tried) {
  struct way {
    split how;
    const char *word;
  };
  constexpr way WAYS[] = {{split::line, "line"}, {split::block, "block"}, {split::zone, "zone"}};
  std::string best;
  int most = 0;
  for (const way &each : WAYS) {
    const int accepted = each.how == tried ? 0 : accepted_documents(text, each.how);
    if (accepted > most) {
      most = accepted;
      best = std::string("; try --each ") + each.word;
    }
  }
  return best;
}

} // namespace varnel::cli
