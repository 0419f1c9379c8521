#include <iostream>

#include <Varnel/documents.hpp>

int main() {
  const std::string_view text =
      "@\n\x1E\rANSI 636000100001DL00310117DLDAQT64235789\nDCSHOLLOWAY\nDACMARGUERITE\n"
      "DADANNE,LOUISE\nDBD06062019\nDBB06-06-1986\nDBA12102027\nDBC2\nDAJVA\nDCGUSA\nDDK1\r";
  char buffer[VARNEL_BARCODE_BUFFER_SIZE(4096)];

  const auto licence = varnel::read_barcode(text, buffer, sizeof buffer);
  if (!licence || !licence->ok()) {
    return 1; // not a licence's barcode
  }
  std::cout << licence->value("firstName") << ' ' << licence->value("lastName") << ", born "
            << licence->value("birthDate") << '\n';
  for (const varnel_barcode_finding &finding : licence->findings()) {
    std::cout << varnel::barcode_finding_name(finding.code) << " at byte " << finding.offset << '\n';
  }
  return 0;
}
