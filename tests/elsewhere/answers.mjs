// What the libraries answer as WebAssembly, printed as answers.cpp prints it: answers.mjs WASM LIST
import { readFileSync, writeSync } from "node:fs";

const [wasm, list] = process.argv.slice(2);
const module = new WebAssembly.Module(readFileSync(wasm));
const imports = WebAssembly.Module.imports(module);
if (imports.length > 0) {
  throw new Error(`there are imports: ${JSON.stringify(imports)}`);
}
const { exports: lib } = new WebAssembly.Instance(module, {});

// Memory after the library's own: the text, the records and what is read of them.
const BUFFER_SIZE = 1024;
const VALUE_COUNT = 12;
const ROOM = 1 << 17;
const start = lib.memory.grow(8) * 65536;
const place = { text: start, record: start + ROOM, buffer: start + ROOM + 8192, json: start + 2 * ROOM };
const pairs = place.buffer + BUFFER_SIZE; // key, first character, length
const options = pairs + VALUE_COUNT * 12; // four ints
const memory = () => new Uint8Array(lib.memory.buffer);
const int = (at) => new DataView(lib.memory.buffer).getInt32(at, true);
const setInt = (at, value) => new DataView(lib.memory.buffer).setInt32(at, value, true);
const bytes = (at, size) => Buffer.from(memory().slice(at, at + size));
const text = (at) => bytes(at, memory().indexOf(0, at) - at);

function values(size) {
  const length = lib.varnel_utf16_length(place.text, size);
  const status = lib.varnel_parse_mrz(place.text, length, place.record, place.buffer, BUFFER_SIZE);
  lib.varnel_export(place.record, pairs);
  const parts = [Buffer.from(`${status}`)];
  for (let pair = pairs; pair < pairs + VALUE_COUNT * 12; pair += 12) {
    parts.push(Buffer.from(" "), text(int(pair)), Buffer.from("="), bytes(int(pair + 4), int(pair + 8)));
  }
  return Buffer.concat([...parts, Buffer.from("\n")]);
}

function inspection(size, repair) {
  [2026, 11, 21, repair].forEach((value, i) => setInt(options + 4 * i, value));
  const status = lib.varnel_inspect(place.text, size, options, place.json + 65536);
  const json = status === 0 && lib.varnel_inspection_json(place.json + 65536, place.json, 65536) > 0;
  return Buffer.concat([Buffer.from(`${status} `), json ? text(place.json) : Buffer.of(), Buffer.from("\n")]);
}

for (const name of readFileSync(list, "utf8").trim().split("\n")) {
  const input = readFileSync(name);
  memory().set(input, place.text);
  for (const line of [values(input.length), inspection(input.length, 0), inspection(input.length, 2)]) {
    writeSync(1, line);
  }
}
