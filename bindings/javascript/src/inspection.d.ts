// From docs/inspection.schema.json, by types.sh.

/**
 * An inspected travel document. Unknown keys are to be ignored.
 */
export interface Inspection {
  /**
   * Version of this form.
   */
  version: 1;
  /**
   * The reference date.
   */
  date: string;
  /**
   * How far characters could be changed.
   */
  repair: "off" | "columns" | "digits";
  /**
   * No finding, as read; no finding after changes; no finding, combined from several looks; a zone with findings; no zone.
   */
  verdict: "valid" | "repaired" | "voted" | "doubtful" | "refused";
  kind: "passport" | "visa" | "card" | null;
  layout: "TD1" | "TD2" | "TD3" | "MRV-A" | "MRV-B" | "FRA-ID" | null;
  /**
   * The lines of the zone after clean-up and changes.
   *
   * @maxItems 3
   */
  zone: string[];
  /**
   * For each line, where it stands in the input; empty for a zone that was voted.
   *
   * @maxItems 3
   */
  source: Source[];
  /**
   * The layout's fields in the order of the zone.
   */
  fields: {
    documentCode?: CodeField;
    issuingState?: StateField;
    documentNumber?: Field;
    nationality?: StateField;
    birthDate?: DateField;
    sex?: Field;
    expiryDate?: DateField;
    primaryIdentifier?: NameField;
    secondaryIdentifier?: NameField;
    optionalData1?: Field;
    optionalData2?: Field;
    optionalData?: Field;
    personalNumber?: Field;
    officeCode?: Field;
  };
  /**
   * The layout's check digits.
   */
  checks: {
    documentNumber?: Check;
    birthDate?: Check;
    expiryDate?: Check;
    personalNumber?: Check;
    composite?: Check;
  };
  changes: Change[];
  findings: Finding[];
  notices: Notice[];
  /**
   * After a refusal for the length of the lines: the nearest layout.
   */
  nearest: {
    layout: "TD1" | "TD2" | "TD3" | "MRV-A" | "MRV-B" | "FRA-ID";
    /**
     * @minItems 2
     * @maxItems 3
     */
    lines: [
      {
        expected: number;
        found: number;
      },
      {
        expected: number;
        found: number;
      },
      ...{
        expected: number;
        found: number;
      }[]
    ];
  } | null;
  /**
   * Null where the expiry date does not say. On its day a document is not expired.
   */
  expired: boolean | null;
  /**
   * What a chip's access protocol hashes (Doc 9303-11).
   */
  chipAccess: string | null;
}
/**
 * Bytes of the input, from `start` to before `end`.
 */
export interface Source {
  start: number;
  end: number;
}
/**
 * The document code.
 */
export interface CodeField {
  /**
   * Its columns as they stand in the zone.
   */
  text: string;
  /**
   * Its value; null where it has none.
   */
  value: string | null;
  /**
   * Line of the zone, from 0.
   */
  line: number;
  /**
   * Column of the line, from 0.
   */
  column: number;
  source: Source;
  /**
   * The first that fits.
   */
  status: "empty" | "badCharacters" | "notADate" | "unknown" | "checkFailed" | "ok";
  /**
   * What confirms the value: its check digit and the composite, its check digit alone, the composite alone, a listed state, or nothing.
   */
  proof: "digits" | "digit" | "composite" | "list" | "none";
  /**
   * What the code says where Doc 9303 fixes it.
   */
  meaning: string | null;
}
/**
 * An issuing state or nationality.
 */
export interface StateField {
  /**
   * Its columns as they stand in the zone.
   */
  text: string;
  /**
   * Its value; null where it has none.
   */
  value: string | null;
  /**
   * Line of the zone, from 0.
   */
  line: number;
  /**
   * Column of the line, from 0.
   */
  column: number;
  source: Source;
  /**
   * The first that fits.
   */
  status: "empty" | "badCharacters" | "notADate" | "unknown" | "checkFailed" | "ok";
  /**
   * What confirms the value: its check digit and the composite, its check digit alone, the composite alone, a listed state, or nothing.
   */
  proof: "digits" | "digit" | "composite" | "list" | "none";
  /**
   * Its name in English.
   */
  name: string | null;
  /**
   * Its ISO 3166-1 alpha-2 code.
   */
  alpha2: string | null;
}
/**
 * A field of the zone.
 */
export interface Field {
  /**
   * Its columns as they stand in the zone.
   */
  text: string;
  /**
   * Its value; null where it has none.
   */
  value: string | null;
  /**
   * Line of the zone, from 0.
   */
  line: number;
  /**
   * Column of the line, from 0.
   */
  column: number;
  source: Source;
  /**
   * The first that fits.
   */
  status: "empty" | "badCharacters" | "notADate" | "unknown" | "checkFailed" | "ok";
  /**
   * What confirms the value: its check digit and the composite, its check digit alone, the composite alone, a listed state, or nothing.
   */
  proof: "digits" | "digit" | "composite" | "list" | "none";
}
/**
 * A date: ISO 8601, XX for what is unknown.
 */
export interface DateField {
  /**
   * Its columns as they stand in the zone.
   */
  text: string;
  /**
   * Its value; null where it has none.
   */
  value: string | null;
  /**
   * Line of the zone, from 0.
   */
  line: number;
  /**
   * Column of the line, from 0.
   */
  column: number;
  source: Source;
  /**
   * The first that fits.
   */
  status: "empty" | "badCharacters" | "notADate" | "unknown" | "checkFailed" | "ok";
  /**
   * What confirms the value: its check digit and the composite, its check digit alone, the composite alone, a listed state, or nothing.
   */
  proof: "digits" | "digit" | "composite" | "list" | "none";
  /**
   * Null where unknown.
   */
  year: number | null;
  /**
   * Null where unknown.
   */
  month: number | null;
  /**
   * Null where unknown.
   */
  day: number | null;
}
/**
 * A part of the name.
 */
export interface NameField {
  /**
   * Its columns as they stand in the zone.
   */
  text: string;
  /**
   * Its value; null where it has none.
   */
  value: string | null;
  /**
   * Line of the zone, from 0.
   */
  line: number;
  /**
   * Column of the line, from 0.
   */
  column: number;
  source: Source;
  /**
   * The first that fits.
   */
  status: "empty" | "badCharacters" | "notADate" | "unknown" | "checkFailed" | "ok";
  /**
   * What confirms the value: its check digit and the composite, its check digit alone, the composite alone, a listed state, or nothing.
   */
  proof: "digits" | "digit" | "composite" | "list" | "none";
  /**
   * Whether it may have been cut to fit.
   */
  truncated: boolean;
}
/**
 * A check digit (Doc 9303-3, weights 7 3 1).
 */
export interface Check {
  /**
   * Line of the zone, from 0.
   */
  line: number;
  /**
   * Column of the line, from 0.
   */
  column: number;
  /**
   * The character that stands there.
   */
  found: string;
  /**
   * The digit computed.
   */
  expected: string;
  holds: boolean;
  /**
   * For long document numbers: whether the filler in the digit's column is left out or counted.
   */
  rule: "plain" | "filler" | null;
}
/**
 * A character that was changed.
 */
export interface Change {
  /**
   * Line of the zone, from 0.
   */
  line: number;
  /**
   * Column of the line, from 0.
   */
  column: number;
  /**
   * What was read; empty where nothing stood.
   */
  from: string;
  /**
   * What stands now; empty where it was taken out.
   */
  to: string;
  reason: "class" | "filler" | "digit" | "twin";
}
/**
 * What is wrong.
 */
export interface Finding {
  code:
    | "empty"
    | "badCharacters"
    | "notADate"
    | "unknown"
    | "checkFailed"
    | "datesOrder"
    | "unproven"
    | "looksDiffer"
    | "length"
    | "noZone";
  field:
    | "documentCode"
    | "issuingState"
    | "documentNumber"
    | "nationality"
    | "birthDate"
    | "sex"
    | "expiryDate"
    | "primaryIdentifier"
    | "secondaryIdentifier"
    | "optionalData1"
    | "optionalData2"
    | "optionalData"
    | "personalNumber"
    | "officeCode"
    | "composite"
    | null;
  line: number | null;
  column: number | null;
}
/**
 * Worth knowing, without effect on the verdict.
 */
export interface Notice {
  code: "digitInCode" | "codeNotAllowed" | "codeNotListed" | "nationalLetters" | "sexX" | "fillerDigit" | "dropped";
  field:
    | "documentCode"
    | "issuingState"
    | "documentNumber"
    | "nationality"
    | "birthDate"
    | "sex"
    | "expiryDate"
    | "primaryIdentifier"
    | "secondaryIdentifier"
    | "optionalData1"
    | "optionalData2"
    | "optionalData"
    | "personalNumber"
    | "officeCode"
    | "composite"
    | null;
  line: number | null;
  column: number | null;
}
