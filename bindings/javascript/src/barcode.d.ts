// From docs/barcode.schema.json, by types.sh.

/**
 * What the barcode of a driver's licence (AAMVA DL/ID) says beside its values. Unknown keys are to be ignored.
 */
export interface BarcodeInfo {
  /**
   * AAMVA version of the header; null without a header.
   */
  version: number | null;
  /**
   * Issuer identification number.
   */
  issuer: string | null;
  /**
   * The issuer's jurisdiction; null where it is not known or has no code.
   */
  jurisdiction: string | null;
  /**
   * The issuer's country; null where it is not known.
   */
  country: "USA" | "CAN" | "MEX" | null;
  /**
   * Types of the subfiles, as the header lists them: DL, ID, EN, or Z and a letter.
   *
   * @maxItems 8
   */
  subfiles: string[];
  /**
   * Elements without a slot, and the bytes of the text where their values stand.
   *
   * @maxItems 64
   */
  elements: {
    element: string;
    start: number;
    end: number;
  }[];
  /**
   * Where the text departs from the standard, and what could not be taken as it stands, by offset; the reason of a refusal is the last.
   *
   * @maxItems 64
   */
  findings: {
    code:
      | "byteOrderMark"
      | "textBefore"
      | "indicatorMissing"
      | "headerControls"
      | "fileType"
      | "jurisdictionVersionMissing"
      | "jurisdictionVersionExtra"
      | "entries"
      | "offset"
      | "length"
      | "typeLettersMissing"
      | "subfileMissing"
      | "lineFeedAdded"
      | "lineFeed"
      | "carriageReturn"
      | "separators"
      | "terminatorMissing"
      | "printedReturn"
      | "smallLetters"
      | "textAfter"
      | "notAnElement"
      | "headerMissing"
      | "separatorsMissing"
      | "otherTable"
      | "repeated"
      | "unknownElement"
      | "controlCharacter"
      | "notADate"
      | "dateSeparators"
      | "dateOrder"
      | "nameNotSplit"
      | "jurisdictionByIssuer"
      | "notABarcode"
      | "noSubfile"
      | "ambiguous";
    /**
     * The byte of the text.
     */
    offset: number;
    /**
     * The element's identifier or the subfile's type.
     */
    element: string | null;
  }[];
  /**
   * How many elements and findings found no room.
   */
  omitted: {
    elements: number;
    findings: number;
  };
}
