// Reads and composes the machine-readable zones of passports, ID cards and visas (ICAO Doc 9303) and reads the
// barcodes of driver's licences (AAMVA DL/ID). The work is done by the C libraries, compiled to WebAssembly; all
// calls are synchronous.
import wasm from "./wasm.js";

const { instance } = await WebAssembly.instantiate(Uint8Array.from(atob(wasm), (c) => c.charCodeAt(0)));
const core = instance.exports;
const TEXT_MAX = 65536;
const REPAIR = { off: 0, columns: 1, digits: 2 };
const encoder = new TextEncoder();
const decoder = new TextDecoder();
const input = new Uint8Array(core.memory.buffer, core.input(), TEXT_MAX);
const outputAddress = core.output();

// Hands a text to a function of the core; gives what it returns and the text that it wrote, which has as many bytes
// as it returns, the sign left aside. What passed through the memory is cleared.
function call(name, text, ...rest) {
  const { read, written } = encoder.encodeInto(text, input);
  let size = 0;
  try {
    if (read < text.length) {
      throw new RangeError(`text of more than ${TEXT_MAX} bytes`);
    }
    const status = core[name](written, ...rest);
    size = Math.abs(status);
    return [status, outputText(size)];
  } finally {
    core.clear(written, size);
  }
}

function outputText(size) {
  return size === 0 ? "" : decoder.decode(new Uint8Array(core.memory.buffer, outputAddress, size));
}

// Texts that the core wrote with a NUL after each.
function listOf(text) {
  return text.split("\0").slice(0, -1);
}

const keys = listOf(outputText(core.keys()));
const compositionKeys = listOf(outputText(core.composition_keys()));

// Twelve values under their keys.
function valuesOf(texts) {
  const values = {};
  for (let i = 0; i < keys.length; i += 1) { // several times as fast as Object.fromEntries()
    values[keys[i]] = texts[i];
  }
  return values;
}

const kindOf = (value) => (value === null ? "null" : typeof value);

function demandText(text) {
  if (typeof text !== "string") {
    throw new TypeError(`text must be a string, not ${kindOf(text)}`);
  }
}

function dateParts(date) {
  if (date === undefined) {
    date = new Date();
  }
  const text = date instanceof Date ? (Number.isNaN(date.getTime()) ? "" : date.toISOString().slice(0, 10)) : date;
  const parts = /^(\d{4})-(\d{2})-(\d{2})$/.exec(text);
  if (parts === null) {
    throw new RangeError(`date must be a Date or YYYY-MM-DD, not ${String(date)}`);
  }
  const [, year, month, day] = parts.map(Number);
  if (year === 0 || new Date(`${text}T00:00:00Z`).getUTCDate() !== day) {
    throw new RangeError(`there is no date ${text}`);
  }
  return [year, month, day];
}

export function parse(text) {
  demandText(text);
  const [size, values] = call("parse", text);
  return size === 0 ? null : valuesOf(values.split("\0"));
}

export function inspect(text, { date, repair = "off" } = {}) {
  demandText(text);
  if (!Object.hasOwn(REPAIR, repair)) {
    throw new RangeError(`repair must be "off", "columns" or "digits", not ${String(repair)}`);
  }
  return JSON.parse(call("inspect", text, ...dateParts(date), REPAIR[repair])[1]);
}

export class ComposeError extends Error {
  constructor(field, reason, position, words) {
    super(`${field}: ${words.replace("#", position + 1)}`);
    this.name = "ComposeError";
    this.field = field;
    this.reason = reason;
    this.position = position;
  }
}

// A value as the core reads it. A NUL would end it, so another control character is refused in its place.
function compositionValue(fields, key) {
  const value = fields[key] ?? "";
  if (typeof value !== "string") {
    throw new TypeError(`${key} must be a string or null, not ${typeof value}`);
  }
  return `${value.replaceAll("\0", "\x01")}\0`;
}

export function compose(fields) {
  if (typeof fields !== "object" || fields === null) {
    throw new TypeError(`fields must be an object, not ${kindOf(fields)}`);
  }
  const [status, text] = call("compose", compositionKeys.map((key) => compositionValue(fields, key)).join(""));
  if (status < 0) {
    const [field, reason, words] = listOf(text);
    throw new ComposeError(field, reason, core.refused_character(), words);
  }
  return listOf(text);
}

export function barcode(text) {
  demandText(text);
  const [size, answer] = call("barcode", text);
  if (size === 0) {
    return null;
  }
  const texts = answer.split("\0");
  return { ...valuesOf(texts), info: JSON.parse(texts.at(-1)) };
}
