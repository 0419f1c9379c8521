// From docs/composition.schema.json, by types.sh.

/**
 * The values that a zone is composed from. Unknown keys are ignored.
 */
export interface Composition {
  /**
   * The layout of the zone (ICAO Doc 9303-4 to 9303-7).
   */
  layout: "TD1" | "TD2" | "TD3" | "MRV-A" | "MRV-B";
  /**
   * The language whose exceptions hold for Cyrillic letters (Doc 9303-3, section 6, table B); null or empty for none.
   */
  language?: "be" | "bg" | "mk" | "sr" | "uk" | "" | null;
  /**
   * The layout's letter, then a letter, a digit or nothing.
   */
  documentCode: string;
  /**
   * A code listed in Doc 9303-3, section 5, or XXK; without fillers.
   */
  issuingState: string;
  /**
   * Capitals and digits; white space, dashes and commas become fillers. Up to 9 characters; without separators up to 22 in TD1 and 14 in TD2.
   */
  documentNumber: string;
  /**
   * As the issuing state.
   */
  nationality: string;
  /**
   * With XX for an unknown day, or month and day; null or empty where wholly unknown.
   */
  birthDate?: string | null;
  /**
   * X is a filler in the zone.
   */
  sex: "M" | "F" | "X";
  /**
   * Not before a fully known date of birth.
   */
  expiryDate: string;
  /**
   * The family name, or an undivided name, in Latin, Cyrillic or Arabic letters.
   */
  primaryIdentifier: string;
  /**
   * Given names.
   */
  secondaryIdentifier?: string | null;
  /**
   * TD1: up to 15 characters, fewer after a long number.
   */
  optionalData1?: string | null;
  /**
   * TD1: up to 11 characters.
   */
  optionalData2?: string | null;
  /**
   * TD2: up to 7 characters, fewer after a long number; MRV-A: 16; MRV-B: 8.
   */
  optionalData?: string | null;
  /**
   * TD3: up to 14 characters.
   */
  personalNumber?: string | null;
}
