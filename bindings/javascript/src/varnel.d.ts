import type { Inspection } from "./inspection.js";

export type * from "./inspection.js";

/** The twelve values of a document; a value that it does not have is empty. */
export interface Values {
  firstName: string;
  lastName: string;
  middleName: string;
  licenseNumber: string;
  birthDate: string;
  expirationDate: string;
  gender: string;
  countryCode: string;
  jurisdictionCode: string;
  nationality: string;
  documentType: string;
  issueDate: string;
}

/** How a document is inspected. */
export interface InspectOptions {
  /** The reference date, a Date or YYYY-MM-DD; today (UTC) by default. */
  date?: Date | string;
  /** How far characters may be changed; "off" by default. */
  repair?: "off" | "columns" | "digits";
}

/**
 * Reads the text of a zone into its twelve values; null where no layout accepts it. Two-digit years are resolved
 * against 15 February 2018 and no check digit is compared: inspect() does both better.
 */
export function parse(text: string): Values | null;

/**
 * Finds the zone in a text of up to 64 KiB and says of every field whether it is right. Places in `source` count
 * bytes of the text's UTF-8 form.
 *
 * @throws {TypeError} for what is no string
 * @throws {RangeError} for a text that is too long, a date that does not exist or an unknown level
 */
export function inspect(text: string, options?: InspectOptions): Inspection;
