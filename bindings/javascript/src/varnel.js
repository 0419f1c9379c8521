// Reads passports, ID cards and visas from the text of their machine-readable zone (ICAO Doc 9303). The work is
// done by the C library, compiled to WebAssembly; all calls are synchronous.
import wasm from "./wasm.js";

const { instance } = await WebAssembly.instantiate(Uint8Array.from(atob(wasm), (c) => c.charCodeAt(0)));
const core = instance.exports;
const TEXT_MAX = 65536;
const REPAIR = { off: 0, columns: 1, digits: 2 };
const encoder = new TextEncoder();
const decoder = new TextDecoder();
const input = new Uint8Array(core.memory.buffer, core.input(), TEXT_MAX);
const outputAddress = core.output();

// Hands a text to a call and its answer, as text, to the caller; what passed through the memory is cleared.
function call(text, name, ...rest) {
  if (typeof text !== "string") {
    throw new TypeError(`text must be a string, not ${text === null ? "null" : typeof text}`);
  }
  const { read, written } = encoder.encodeInto(text, input);
  let length = -1;
  try {
    if (read < text.length) {
      throw new RangeError(`text of more than ${TEXT_MAX} bytes`);
    }
    length = core[name](written, ...rest);
    return length > 0 ? outputText(length) : "";
  } finally {
    core.clear(written, Math.max(length, 0));
  }
}

function outputText(length) {
  return decoder.decode(new Uint8Array(core.memory.buffer, outputAddress, length));
}

const keys = outputText(core.keys()).split("\0").slice(0, -1);

// Twelve values under their keys.
function valuesOf(text) {
  const values = text.split("\0");
  return Object.fromEntries(keys.map((key, index) => [key, values[index]]));
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
  if (new Date(`${text}T00:00:00Z`).getUTCDate() !== day) {
    throw new RangeError(`there is no date ${text}`);
  }
  return [year, month, day];
}

export function parse(text) {
  const values = call(text, "parse");
  return values === "" ? null : valuesOf(values);
}

export function inspect(text, { date, repair = "off" } = {}) {
  if (!Object.hasOwn(REPAIR, repair)) {
    throw new RangeError(`repair must be "off", "columns" or "digits", not ${String(repair)}`);
  }
  return JSON.parse(call(text, "inspect", ...dateParts(date), REPAIR[repair]));
}
