// Issuer identification numbers of the AAMVA DL/ID card design standard, with the jurisdictions' codes as
// they stand in addresses. The Department of State and the Mexican states have none.
#include "issuers.hpp"

namespace {

constexpr issuer ISSUERS[] = {
    {604426, "PE", "CAN"}, // Prince Edward Island
    {604427, "AS", "USA"}, // American Samoa
    {604428, "QC", "CAN"}, // Quebec
    {604429, "YT", "CAN"}, // Yukon
    {604430, "MP", "USA"}, // Northern Mariana Islands
    {604431, "PR", "USA"}, // Puerto Rico
    {604432, "AB", "CAN"}, // Alberta
    {604433, "NU", "CAN"}, // Nunavut
    {604434, "NT", "CAN"}, // Northwest Territories
    {636000, "VA", "USA"}, // Virginia
    {636001, "NY", "USA"}, // New York
    {636002, "MA", "USA"}, // Massachusetts
    {636003, "MD", "USA"}, // Maryland
    {636004, "NC", "USA"}, // North Carolina
    {636005, "SC", "USA"}, // South Carolina
    {636006, "CT", "USA"}, // Connecticut
    {636007, "LA", "USA"}, // Louisiana
    {636008, "MT", "USA"}, // Montana
    {636009, "NM", "USA"}, // New Mexico
    {636010, "FL", "USA"}, // Florida
    {636011, "DE", "USA"}, // Delaware
    {636012, "ON", "CAN"}, // Ontario
    {636013, "NS", "CAN"}, // Nova Scotia
    {636014, "CA", "USA"}, // California
    {636015, "TX", "USA"}, // Texas
    {636016, "NL", "CAN"}, // Newfoundland and Labrador
    {636017, "NB", "CAN"}, // New Brunswick
    {636018, "IA", "USA"}, // Iowa
    {636019, "GU", "USA"}, // Guam
    {636020, "CO", "USA"}, // Colorado
    {636021, "AR", "USA"}, // Arkansas
    {636022, "KS", "USA"}, // Kansas
    {636023, "OH", "USA"}, // Ohio
    {636024, "VT", "USA"}, // Vermont
    {636025, "PA", "USA"}, // Pennsylvania
    {636026, "AZ", "USA"}, // Arizona
    {636027, "", "USA"},   // US Department of State (diplomatic)
    {636028, "BC", "CAN"}, // British Columbia
    {636029, "OR", "USA"}, // Oregon
    {636030, "MO", "USA"}, // Missouri
    {636031, "WI", "USA"}, // Wisconsin
    {636032, "MI", "USA"}, // Michigan
    {636033, "AL", "USA"}, // Alabama
    {636034, "ND", "USA"}, // North Dakota
    {636035, "IL", "USA"}, // Illinois
    {636036, "NJ", "USA"}, // New Jersey
    {636037, "IN", "USA"}, // Indiana
    {636038, "MN", "USA"}, // Minnesota
    {636039, "NH", "USA"}, // New Hampshire
    {636040, "UT", "USA"}, // Utah
    {636041, "ME", "USA"}, // Maine
    {636042, "SD", "USA"}, // South Dakota
    {636043, "DC", "USA"}, // District of Columbia
    {636044, "SK", "CAN"}, // Saskatchewan
    {636045, "WA", "USA"}, // Washington
    {636046, "KY", "USA"}, // Kentucky
    {636047, "HI", "USA"}, // Hawaii
    {636048, "MB", "CAN"}, // Manitoba
    {636049, "NV", "USA"}, // Nevada
    {636050, "ID", "USA"}, // Idaho
    {636051, "MS", "USA"}, // Mississippi
    {636052, "RI", "USA"}, // Rhode Island
    {636053, "TN", "USA"}, // Tennessee
    {636054, "NE", "USA"}, // Nebraska
    {636055, "GA", "USA"}, // Georgia
    {636056, "", "MEX"},   // Coahuila
    {636057, "", "MEX"},   // Hidalgo
    {636058, "OK", "USA"}, // Oklahoma
    {636059, "AK", "USA"}, // Alaska
    {636060, "WY", "USA"}, // Wyoming
    {636061, "WV", "USA"}, // West Virginia
    {636062, "VI", "USA"}, // US Virgin Islands
    {990876, "AB", "CAN"}, // Alberta: not on the list, but on cards
};

} // namespace

const issuer *issuer_of(int number) {
  for (const issuer &row : ISSUERS) {
    if (row.number == number) {
      return &row;
    }
  }
  return nullptr;
}
