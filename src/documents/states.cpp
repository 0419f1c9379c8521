#include "states.hpp"

#include <stddef.h>

#include "../ascii.hpp"

// Each code with its code of two letters and its name.

// ISO 3166-1: the short names in English, without articles.
#define ISO_STATES(X)                                                                                        \
  X("ABW", "AW", "Aruba")                                                                                    \
  X("AFG", "AF", "Afghanistan")                                                                              \
  X("AGO", "AO", "Angola")                                                                                   \
  X("AIA", "AI", "Anguilla")                                                                                 \
  X("ALA", "AX", "Åland Islands")                                                                            \
  X("ALB", "AL", "Albania")                                                                                  \
  X("AND", "AD", "Andorra")                                                                                  \
  X("ARE", "AE", "United Arab Emirates")                                                                     \
  X("ARG", "AR", "Argentina")                                                                                \
  X("ARM", "AM", "Armenia")                                                                                  \
  X("ASM", "AS", "American Samoa")                                                                           \
  X("ATA", "AQ", "Antarctica")                                                                               \
  X("ATF", "TF", "French Southern Territories")                                                              \
  X("ATG", "AG", "Antigua and Barbuda")                                                                      \
  X("AUS", "AU", "Australia")                                                                                \
  X("AUT", "AT", "Austria")                                                                                  \
  X("AZE", "AZ", "Azerbaijan")                                                                               \
  X("BDI", "BI", "Burundi")                                                                                  \
  X("BEL", "BE", "Belgium")                                                                                  \
  X("BEN", "BJ", "Benin")                                                                                    \
  X("BES", "BQ", "Bonaire, Sint Eustatius and Saba")                                                         \
  X("BFA", "BF", "Burkina Faso")                                                                             \
  X("BGD", "BD", "Bangladesh")                                                                               \
  X("BGR", "BG", "Bulgaria")                                                                                 \
  X("BHR", "BH", "Bahrain")                                                                                  \
  X("BHS", "BS", "Bahamas")                                                                                  \
  X("BIH", "BA", "Bosnia and Herzegovina")                                                                   \
  X("BLM", "BL", "Saint Barthélemy")                                                                         \
  X("BLR", "BY", "Belarus")                                                                                  \
  X("BLZ", "BZ", "Belize")                                                                                   \
  X("BMU", "BM", "Bermuda")                                                                                  \
  X("BOL", "BO", "Bolivia (Plurinational State of)")                                                         \
  X("BRA", "BR", "Brazil")                                                                                   \
  X("BRB", "BB", "Barbados")                                                                                 \
  X("BRN", "BN", "Brunei Darussalam")                                                                        \
  X("BTN", "BT", "Bhutan")                                                                                   \
  X("BVT", "BV", "Bouvet Island")                                                                            \
  X("BWA", "BW", "Botswana")                                                                                 \
  X("CAF", "CF", "Central African Republic")                                                                 \
  X("CAN", "CA", "Canada")                                                                                   \
  X("CCK", "CC", "Cocos (Keeling) Islands")                                                                  \
  X("CHE", "CH", "Switzerland")                                                                              \
  X("CHL", "CL", "Chile")                                                                                    \
  X("CHN", "CN", "China")                                                                                    \
  X("CIV", "CI", "Côte d'Ivoire")                                                                            \
  X("CMR", "CM", "Cameroon")                                                                                 \
  X("COD", "CD", "Congo (Democratic Republic of the)")                                                       \
  X("COG", "CG", "Congo")                                                                                    \
  X("COK", "CK", "Cook Islands")                                                                             \
  X("COL", "CO", "Colombia")                                                                                 \
  X("COM", "KM", "Comoros")                                                                                  \
  X("CPV", "CV", "Cabo Verde")                                                                               \
  X("CRI", "CR", "Costa Rica")                                                                               \
  X("CUB", "CU", "Cuba")                                                                                     \
  X("CUW", "CW", "Curaçao")                                                                                  \
  X("CXR", "CX", "Christmas Island")                                                                         \
  X("CYM", "KY", "Cayman Islands")                                                                           \
  X("CYP", "CY", "Cyprus")                                                                                   \
  X("CZE", "CZ", "Czechia")                                                                                  \
  X("DEU", "DE", "Germany")                                                                                  \
  X("DJI", "DJ", "Djibouti")                                                                                 \
  X("DMA", "DM", "Dominica")                                                                                 \
  X("DNK", "DK", "Denmark")                                                                                  \
  X("DOM", "DO", "Dominican Republic")                                                                       \
  X("DZA", "DZ", "Algeria")                                                                                  \
  X("ECU", "EC", "Ecuador")                                                                                  \
  X("EGY", "EG", "Egypt")                                                                                    \
  X("ERI", "ER", "Eritrea")                                                                                  \
  X("ESH", "EH", "Western Sahara")                                                                           \
  X("ESP", "ES", "Spain")                                                                                    \
  X("EST", "EE", "Estonia")                                                                                  \
  X("ETH", "ET", "Ethiopia")                                                                                 \
  X("FIN", "FI", "Finland")                                                                                  \
  X("FJI", "FJ", "Fiji")                                                                                     \
  X("FLK", "FK", "Falkland Islands (Malvinas)")                                                              \
  X("FRA", "FR", "France")                                                                                   \
  X("FRO", "FO", "Faroe Islands")                                                                            \
  X("FSM", "FM", "Micronesia (Federated States of)")                                                         \
  X("GAB", "GA", "Gabon")                                                                                    \
  X("GBR", "GB", "United Kingdom of Great Britain and Northern Ireland")                                     \
  X("GEO", "GE", "Georgia")                                                                                  \
  X("GGY", "GG", "Guernsey")                                                                                 \
  X("GHA", "GH", "Ghana")                                                                                    \
  X("GIB", "GI", "Gibraltar")                                                                                \
  X("GIN", "GN", "Guinea")                                                                                   \
  X("GLP", "GP", "Guadeloupe")                                                                               \
  X("GMB", "GM", "Gambia")                                                                                   \
  X("GNB", "GW", "Guinea-Bissau")                                                                            \
  X("GNQ", "GQ", "Equatorial Guinea")                                                                        \
  X("GRC", "GR", "Greece")                                                                                   \
  X("GRD", "GD", "Grenada")                                                                                  \
  X("GRL", "GL", "Greenland")                                                                                \
  X("GTM", "GT", "Guatemala")                                                                                \
  X("GUF", "GF", "French Guiana")                                                                            \
  X("GUM", "GU", "Guam")                                                                                     \
  X("GUY", "GY", "Guyana")                                                                                   \
  X("HKG", "HK", "Hong Kong")                                                                                \
  X("HMD", "HM", "Heard Island and McDonald Islands")                                                        \
  X("HND", "HN", "Honduras")                                                                                 \
  X("HRV", "HR", "Croatia")                                                                                  \
  X("HTI", "HT", "Haiti")                                                                                    \
  X("HUN", "HU", "Hungary")                                                                                  \
  X("IDN", "ID", "Indonesia")                                                                                \
  X("IMN", "IM", "Isle of Man")                                                                              \
  X("IND", "IN", "India")                                                                                    \
  X("IOT", "IO", "British Indian Ocean Territory")                                                           \
  X("IRL", "IE", "Ireland")                                                                                  \
  X("IRN", "IR", "Iran (Islamic Republic of)")                                                               \
  X("IRQ", "IQ", "Iraq")                                                                                     \
  X("ISL", "IS", "Iceland")                                                                                  \
  X("ISR", "IL", "Israel")                                                                                   \
  X("ITA", "IT", "Italy")                                                                                    \
  X("JAM", "JM", "Jamaica")                                                                                  \
  X("JEY", "JE", "Jersey")                                                                                   \
  X("JOR", "JO", "Jordan")                                                                                   \
  X("JPN", "JP", "Japan")                                                                                    \
  X("KAZ", "KZ", "Kazakhstan")                                                                               \
  X("KEN", "KE", "Kenya")                                                                                    \
  X("KGZ", "KG", "Kyrgyzstan")                                                                               \
  X("KHM", "KH", "Cambodia")                                                                                 \
  X("KIR", "KI", "Kiribati")                                                                                 \
  X("KNA", "KN", "Saint Kitts and Nevis")                                                                    \
  X("KOR", "KR", "Korea (Republic of)")                                                                      \
  X("KWT", "KW", "Kuwait")                                                                                   \
  X("LAO", "LA", "Lao People's Democratic Republic")                                                         \
  X("LBN", "LB", "Lebanon")                                                                                  \
  X("LBR", "LR", "Liberia")                                                                                  \
  X("LBY", "LY", "Libya")                                                                                    \
  X("LCA", "LC", "Saint Lucia")                                                                              \
  X("LIE", "LI", "Liechtenstein")                                                                            \
  X("LKA", "LK", "Sri Lanka")                                                                                \
  X("LSO", "LS", "Lesotho")                                                                                  \
  X("LTU", "LT", "Lithuania")                                                                                \
  X("LUX", "LU", "Luxembourg")                                                                               \
  X("LVA", "LV", "Latvia")                                                                                   \
  X("MAC", "MO", "Macao")                                                                                    \
  X("MAF", "MF", "Saint Martin (French part)")                                                               \
  X("MAR", "MA", "Morocco")                                                                                  \
  X("MCO", "MC", "Monaco")                                                                                   \
  X("MDA", "MD", "Moldova (Republic of)")                                                                    \
  X("MDG", "MG", "Madagascar")                                                                               \
  X("MDV", "MV", "Maldives")                                                                                 \
  X("MEX", "MX", "Mexico")                                                                                   \
  X("MHL", "MH", "Marshall Islands")                                                                         \
  X("MKD", "MK", "North Macedonia")                                                                          \
  X("MLI", "ML", "Mali")                                                                                     \
  X("MLT", "MT", "Malta")                                                                                    \
  X("MMR", "MM", "Myanmar")                                                                                  \
  X("MNE", "ME", "Montenegro")                                                                               \
  X("MNG", "MN", "Mongolia")                                                                                 \
  X("MNP", "MP", "Northern Mariana Islands")                                                                 \
  X("MOZ", "MZ", "Mozambique")                                                                               \
  X("MRT", "MR", "Mauritania")                                                                               \
  X("MSR", "MS", "Montserrat")                                                                               \
  X("MTQ", "MQ", "Martinique")                                                                               \
  X("MUS", "MU", "Mauritius")                                                                                \
  X("MWI", "MW", "Malawi")                                                                                   \
  X("MYS", "MY", "Malaysia")                                                                                 \
  X("MYT", "YT", "Mayotte")                                                                                  \
  X("NAM", "NA", "Namibia")                                                                                  \
  X("NCL", "NC", "New Caledonia")                                                                            \
  X("NER", "NE", "Niger")                                                                                    \
  X("NFK", "NF", "Norfolk Island")                                                                           \
  X("NGA", "NG", "Nigeria")                                                                                  \
  X("NIC", "NI", "Nicaragua")                                                                                \
  X("NIU", "NU", "Niue")                                                                                     \
  X("NLD", "NL", "Netherlands (Kingdom of the)")                                                             \
  X("NOR", "NO", "Norway")                                                                                   \
  X("NPL", "NP", "Nepal")                                                                                    \
  X("NRU", "NR", "Nauru")                                                                                    \
  X("NZL", "NZ", "New Zealand")                                                                              \
  X("OMN", "OM", "Oman")                                                                                     \
  X("PAK", "PK", "Pakistan")                                                                                 \
  X("PAN", "PA", "Panama")                                                                                   \
  X("PCN", "PN", "Pitcairn")                                                                                 \
  X("PER", "PE", "Peru")                                                                                     \
  X("PHL", "PH", "Philippines")                                                                              \
  X("PLW", "PW", "Palau")                                                                                    \
  X("PNG", "PG", "Papua New Guinea")                                                                         \
  X("POL", "PL", "Poland")                                                                                   \
  X("PRI", "PR", "Puerto Rico")                                                                              \
  X("PRK", "KP", "Korea (Democratic People's Republic of)")                                                  \
  X("PRT", "PT", "Portugal")                                                                                 \
  X("PRY", "PY", "Paraguay")                                                                                 \
  X("PSE", "PS", "Palestine, State of")                                                                      \
  X("PYF", "PF", "French Polynesia")                                                                         \
  X("QAT", "QA", "Qatar")                                                                                    \
  X("REU", "RE", "Réunion")                                                                                  \
  X("ROU", "RO", "Romania")                                                                                  \
  X("RUS", "RU", "Russian Federation")                                                                       \
  X("RWA", "RW", "Rwanda")                                                                                   \
  X("SAU", "SA", "Saudi Arabia")                                                                             \
  X("SDN", "SD", "Sudan")                                                                                    \
  X("SEN", "SN", "Senegal")                                                                                  \
  X("SGP", "SG", "Singapore")                                                                                \
  X("SGS", "GS", "South Georgia and the South Sandwich Islands")                                             \
  X("SHN", "SH", "Saint Helena, Ascension and Tristan da Cunha")                                             \
  X("SJM", "SJ", "Svalbard and Jan Mayen")                                                                   \
  X("SLB", "SB", "Solomon Islands")                                                                          \
  X("SLE", "SL", "Sierra Leone")                                                                             \
  X("SLV", "SV", "El Salvador")                                                                              \
  X("SMR", "SM", "San Marino")                                                                               \
  X("SOM", "SO", "Somalia")                                                                                  \
  X("SPM", "PM", "Saint Pierre and Miquelon")                                                                \
  X("SRB", "RS", "Serbia")                                                                                   \
  X("SSD", "SS", "South Sudan")                                                                              \
  X("STP", "ST", "Sao Tome and Principe")                                                                    \
  X("SUR", "SR", "Suriname")                                                                                 \
  X("SVK", "SK", "Slovakia")                                                                                 \
  X("SVN", "SI", "Slovenia")                                                                                 \
  X("SWE", "SE", "Sweden")                                                                                   \
  X("SWZ", "SZ", "Eswatini")                                                                                 \
  X("SXM", "SX", "Sint Maarten (Dutch part)")                                                                \
  X("SYC", "SC", "Seychelles")                                                                               \
  X("SYR", "SY", "Syrian Arab Republic")                                                                     \
  X("TCA", "TC", "Turks and Caicos Islands")                                                                 \
  X("TCD", "TD", "Chad")                                                                                     \
  X("TGO", "TG", "Togo")                                                                                     \
  X("THA", "TH", "Thailand")                                                                                 \
  X("TJK", "TJ", "Tajikistan")                                                                               \
  X("TKL", "TK", "Tokelau")                                                                                  \
  X("TKM", "TM", "Turkmenistan")                                                                             \
  X("TLS", "TL", "Timor-Leste")                                                                              \
  X("TON", "TO", "Tonga")                                                                                    \
  X("TTO", "TT", "Trinidad and Tobago")                                                                      \
  X("TUN", "TN", "Tunisia")                                                                                  \
  X("TUR", "TR", "Türkiye")                                                                                  \
  X("TUV", "TV", "Tuvalu")                                                                                   \
  X("TWN", "TW", "Taiwan (Province of China)")                                                               \
  X("TZA", "TZ", "Tanzania, United Republic of")                                                             \
  X("UGA", "UG", "Uganda")                                                                                   \
  X("UKR", "UA", "Ukraine")                                                                                  \
  X("UMI", "UM", "United States Minor Outlying Islands")                                                     \
  X("URY", "UY", "Uruguay")                                                                                  \
  X("USA", "US", "United States of America")                                                                 \
  X("UZB", "UZ", "Uzbekistan")                                                                               \
  X("VAT", "VA", "Holy See")                                                                                 \
  X("VCT", "VC", "Saint Vincent and the Grenadines")                                                         \
  X("VEN", "VE", "Venezuela (Bolivarian Republic of)")                                                       \
  X("VGB", "VG", "Virgin Islands (British)")                                                                 \
  X("VIR", "VI", "Virgin Islands (U.S.)")                                                                    \
  X("VNM", "VN", "Viet Nam")                                                                                 \
  X("VUT", "VU", "Vanuatu")                                                                                  \
  X("WLF", "WF", "Wallis and Futuna")                                                                        \
  X("WSM", "WS", "Samoa")                                                                                    \
  X("YEM", "YE", "Yemen")                                                                                    \
  X("ZAF", "ZA", "South Africa")                                                                             \
  X("ZMB", "ZM", "Zambia")                                                                                   \
  X("ZWE", "ZW", "Zimbabwe")

// ICAO Doc 9303-3, section 5: parts A to H.
#define ICAO_STATES(X)                                                                                       \
  X("ANT", "AN", "Netherlands Antilles")                                                                     \
  X("D", "DE", "Germany")                                                                                    \
  X("EUE", "EU", "European Union")                                                                           \
  X("GBD", "", "British Overseas Territories Citizen")                                                       \
  X("GBN", "", "British National")                                                                           \
  X("GBO", "", "British Overseas Citizen")                                                                   \
  X("GBP", "", "British Protected Person")                                                                   \
  X("GBS", "", "British Subject")                                                                            \
  X("IAO", "IA", "International Civil Aviation Organization")                                                \
  X("NTZ", "NT", "Neutral Zone")                                                                             \
  X("RKS", "KS", "Kosovo")                                                                                   \
  X("UNA", "UN", "United Nations specialized agency or one of its officials")                                \
  X("UNK", "", "Resident of Kosovo with a travel document issued by UNMIK")                                  \
  X("UNO", "UN", "United Nations Organization or one of its officials")                                      \
  X("UTO", "UT", "Utopia")                                                                                   \
  X("XBA", "", "African Development Bank")                                                                   \
  X("XCC", "", "Caribbean Community or one of its emissaries")                                               \
  X("XCE", "", "Council of Europe")                                                                          \
  X("XCO", "", "Common Market for Eastern and Southern Africa")                                              \
  X("XDC", "", "Southern African Development Community")                                                     \
  X("XEC", "", "Economic Community of West African States")                                                  \
  X("XES", "", "Organization of Eastern Caribbean States")                                                   \
  X("XIM", "", "African Export-Import Bank")                                                                 \
  X("XMP", "", "Parliamentary Assembly of the Mediterranean")                                                \
  X("XOM", "", "Sovereign Military Order of Malta or one of its emissaries")                                 \
  X("XPO", "", "International Criminal Police Organization")                                                 \
  X("XXA", "", "Stateless person")                                                                           \
  X("XXB", "", "Refugee")                                                                                    \
  X("XXC", "", "Refugee other than XXB")                                                                     \
  X("XXX", "", "Person of unspecified nationality")

// Codes that documents or their readers use although Doc 9303 does not permit them.
#define SEEN_STATES(X)                                                                                       \
  X("INP", "", "INTERPOL")                                                                                   \
  X("NSK", "", "\"Neue Slowenische Kunst\" fantasy passport")                                                \
  X("UNM", "", "UNMIK")                                                                                      \
  X("WSA", "", "World Service Authority \"World Passport\"")                                                 \
  X("XCT", "", "\"Turkish Republic of Northern Cyprus\"")                                                    \
  X("XKX", "", "Kosovo")                                                                                     \
  X("XXK", "", "Kosovo")

// ISO 3166-3: withdrawn codes.
#define WITHDRAWN_STATES(X)                                                                                  \
  X("BUR", "", "Burma")                                                                                      \
  X("BYS", "", "Byelorussian SSR")                                                                           \
  X("CSK", "", "Czechoslovakia")                                                                             \
  X("DDR", "", "German Democratic Republic")                                                                 \
  X("FXX", "", "Metropolitan France")                                                                        \
  X("ROM", "", "Romania")                                                                                    \
  X("SCG", "", "Serbia and Montenegro")                                                                      \
  X("SUN", "", "USSR")                                                                                       \
  X("TMP", "", "East Timor")                                                                                 \
  X("YMD", "", "Democratic Yemen")                                                                           \
  X("YUG", "", "Yugoslavia")                                                                                 \
  X("ZAR", "", "Zaire")

#define KNOWN_STATE_LIST(X) ISO_STATES(X) ICAO_STATES(X) SEEN_STATES(X) WITHDRAWN_STATES(X)

namespace documents {

namespace {

// All names, each with its NUL, so that a state needs an offset only and the table no relocation.
#define WITH_NUL(code, alpha2, name) name "\0"
constexpr char NAMES[] = KNOWN_STATE_LIST(WITH_NUL);
#undef WITH_NUL

struct entry {
  char code[4];
  char alpha2[3];
  listing listed_by;
  uint16_t name; // where it begins in NAMES
};

// A code as a number whose order is the alphabet's. Shorter codes come before those they begin.
constexpr int order_of(const char *code, int length) {
  int order = 0;
  for (int i = 0; i < 3; ++i) {
    order = order * 27 + (i < length ? code[i] - 'A' + 1 : 0);
  }
  return order;
}

constexpr int length_of(const char *text) {
  int length = 0;
  while (text[length] != '\0') {
    ++length;
  }
  return length;
}

constexpr int order_of(const entry &e) { return order_of(e.code, length_of(e.code)); }

// The first two letters of a code, or the only one, as a number below PAIRS.
constexpr int PAIRS = 26 * 27;

constexpr int pair_of(const char *code, int length) {
  return (code[0] - 'A') * 27 + (length > 1 ? code[1] - 'A' + 1 : 0);
}

struct table {
  entry entries[KNOWN_STATES] = {};
  int16_t first[PAIRS + 1] = {}; // the first entry of each pair of letters, and the end

  constexpr table() {
    int count = 0;
    size_t name = 0;
#define ADD(list, code, alpha2, text)                                                                        \
  insert(count++, entry{code, alpha2, list, static_cast<uint16_t>(name)});                                   \
  name += sizeof text;
#define ADD_ISO(code, alpha2, text) ADD(listing::iso, code, alpha2, text)
#define ADD_ICAO(code, alpha2, text) ADD(listing::icao, code, alpha2, text)
#define ADD_SEEN(code, alpha2, text) ADD(listing::seen, code, alpha2, text)
#define ADD_WITHDRAWN(code, alpha2, text) ADD(listing::withdrawn, code, alpha2, text)
    ISO_STATES(ADD_ISO)
    ICAO_STATES(ADD_ICAO)
    SEEN_STATES(ADD_SEEN)
    // cppcheck-suppress unreadVariable // where a next name would stand
    WITHDRAWN_STATES(ADD_WITHDRAWN)
#undef ADD_WITHDRAWN
#undef ADD_SEEN
#undef ADD_ICAO
#undef ADD_ISO
#undef ADD
    for (const entry &e : entries) {
      ++first[pair_of(e.code, length_of(e.code)) + 1];
    }
    for (int pair = 1; pair <= PAIRS; ++pair) {
      first[pair] = static_cast<int16_t>(first[pair] + first[pair - 1]);
    }
  }

  // Keeps the entries in alphabetical order.
  constexpr void insert(int count, entry added) {
    int i = count;
    for (; i > 0 && order_of(added) < order_of(entries[i - 1]); --i) {
      entries[i] = entries[i - 1];
    }
    entries[i] = added;
  }
};

constexpr table STATES;

static_assert(sizeof NAMES <= UINT16_MAX);
static_assert(STATES.entries[KNOWN_STATES - 1].code[0] == 'Z', "as many entries as KNOWN_STATES says");

constexpr int count_listed() {
  int count = 0;
  for (const entry &e : STATES.entries) {
    count += is_permitted(e.listed_by) ? 1 : 0;
  }
  return count;
}
static_assert(count_listed() == LISTED_STATES);

state state_of(const entry &e) { return state{NAMES + e.name, e.alpha2, e.code, e.listed_by}; }

// Null where there is none.
const entry *find_entry(const char *code, int length) {
  const bool is_code =
      length >= 1 && length <= 3 && ascii::is_upper(code[0]) && (length < 2 || ascii::is_upper(code[1]));
  if (!is_code) {
    return nullptr;
  }
  const int pair = pair_of(code, length);
  const char third = length > 2 ? code[2] : '\0';
  for (int i = STATES.first[pair]; i < STATES.first[pair + 1]; ++i) {
    if (STATES.entries[i].code[2] == third) {
      return &STATES.entries[i];
    }
  }
  return nullptr;
}

} // namespace

state state_at(int index) { return state_of(STATES.entries[index]); }

state find_state(const char *code, int length) {
  const entry *found = find_entry(code, length);
  return found != nullptr ? state_of(*found) : state{nullptr, "", "", listing::none};
}

bool is_listed_state(const char *code, int length) {
  const entry *found = find_entry(code, length);
  return found != nullptr && is_permitted(found->listed_by);
}

} // namespace documents
