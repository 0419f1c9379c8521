import type { BarcodeInfo } from "./barcode.js";
import type { Composition } from "./composition.js";
import type { Inspection } from "./inspection.js";

export type * from "./barcode.js";
export type * from "./composition.js";
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

/** A driver's licence: the twelve values, and under `info` what else its barcode says. */
export interface Barcode extends Values {
  info: BarcodeInfo;
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

/** A value that cannot be composed; the message says why. */
export class ComposeError extends Error {
  /** The key of the value. */
  readonly field: keyof Composition;
  /** What is wrong with it. */
  readonly reason:
    | "missing"
    | "badCharacter"
    | "unknown"
    | "notADate"
    | "datesOrder"
    | "tooLong"
    | "notInLayout"
    | "otherLayout"
    | "unknownLanguage";
  /** The character of the value, from 0; 0 where the value as a whole is meant. */
  readonly position: number;
  private constructor();
}

/**
 * Composes the lines of a zone from the values of a document: names are transliterated and shortened and check digits
 * computed by Doc 9303. What it writes is valid to inspect().
 *
 * @throws {ComposeError} for the first value that cannot be composed
 * @throws {TypeError} for a value that is neither a string nor null
 * @throws {RangeError} for more than 64 KiB of values
 */
export function compose(fields: Composition): string[];

/**
 * Reads the text of the barcode of a US or Canadian driver's licence or ID card, of up to 64 KiB, control characters
 * included; null where it is none. Places in `info` count bytes of the text's UTF-8 form.
 *
 * @throws {TypeError} for what is no string
 * @throws {RangeError} for a text that is too long
 */
export function barcode(text: string): Barcode | null;
