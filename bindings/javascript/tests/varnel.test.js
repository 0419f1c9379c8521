// The package as its users have it: the vectors of the C library, the schema, and what bad calls get.
import assert from "node:assert/strict";
import { readdirSync, readFileSync, statSync } from "node:fs";
import { createRequire } from "node:module";
import { join } from "node:path";
import { test } from "node:test";

import { ComposeError, barcode, compose, inspect, parse } from "varnel";

const root = process.env.VARNEL_ROOT;
const require = createRequire(join(root, "build/javascript/tools/package.json"));
const Ajv2020 = require("ajv/dist/2020").default;
const json = (name) => JSON.parse(readFileSync(join(root, name), "utf8"));
const schema = (name) => new Ajv2020({ strict: false }).compile(json(`docs/${name}.schema.json`));
const date = "2026-11-21";
const passport = readFileSync(join(root, "samples/passport.mrz"), "utf8");

const vectors = readdirSync(join(root, "tests/vectors"), { withFileTypes: true })
  .filter((entry) => entry.isDirectory())
  .flatMap((folder) =>
    readdirSync(join(root, "tests/vectors", folder.name))
      .filter((name) => name.endsWith(".mrz"))
      .map((name) => join(root, "tests/vectors", folder.name, name)),
  );

// The text of a vector; undefined where it is no UTF-8, which a string cannot hold.
function textOf(vector) {
  try {
    return new TextDecoder("utf-8", { fatal: true, ignoreBOM: true }).decode(readFileSync(vector));
  } catch {
    return undefined;
  }
}

test("every vector is parsed as in C", () => {
  let compared = 0;
  for (const vector of vectors) {
    const text = textOf(vector);
    if (text !== undefined) {
      const expected = JSON.parse(readFileSync(vector.replace(/mrz$/, "json"), "utf8"));
      assert.deepEqual(parse(text), expected, vector);
      compared += 1;
    }
  }
  assert.ok(compared > 100, `${compared} vectors`);
});

test("every vector's inspection is within the schema", () => {
  const validate = schema("inspection");
  for (const vector of vectors) {
    const text = textOf(vector);
    if (text !== undefined) {
      const document = inspect(text, { date });
      assert.ok(validate(document), `${vector}: ${JSON.stringify(validate.errors)}`);
    }
  }
});

test("every vector of inspections is inspected as in C", () => {
  const folder = join(root, "tests/documents/vectors");
  const names = readdirSync(folder).filter((name) => name.endsWith(".json"));
  assert.ok(names.length > 40, `${names.length} vectors`);
  for (const name of names) {
    const expected = JSON.parse(readFileSync(join(folder, name), "utf8"));
    const text = textOf(join(folder, name.replace(/json$/, "txt")));
    assert.deepEqual(inspect(text, { date: expected.date, repair: expected.repair }), expected, name);
  }
});

test("zones are composed, or the value that is wrong is named", () => {
  const validate = schema("composition");
  for (const { name, fields, zone, error } of json("bindings/vectors/compositions.json")) {
    if (zone) {
      assert.deepEqual(compose(fields), zone, name);
      assert.ok(validate(fields), `${name}: ${JSON.stringify(validate.errors)}`);
      assert.equal(inspect(zone.join("\n"), { date }).verdict, "valid", name);
    } else {
      assert.throws(() => compose(fields), (thrown) => {
        const { field, reason, position, message } = thrown;
        assert.deepEqual({ field, reason, position, message }, error, name);
        return thrown instanceof ComposeError && thrown instanceof Error && thrown.name === "ComposeError";
      });
    }
  }
});

test("barcodes are read, and what else they say is within the schema", () => {
  const validate = schema("barcode");
  for (const { name, text, answer } of json("bindings/vectors/barcodes.json")) {
    assert.deepEqual(barcode(text), answer, name);
    assert.ok(answer === null || validate(answer.info), `${name}: ${JSON.stringify(validate.errors)}`);
  }
});

test("a barcode of the longest text and values is read whole", () => {
  const lines = ["DAQD1234567", "DBB06061986", "DACJANE"];
  const name = "É".repeat((65536 - Buffer.byteLength(lines.join("\n")) - 4) / 2);
  const answer = barcode([...lines, `DCS${name}`].join("\n"));
  assert.equal(answer.lastName, name);
  assert.equal(answer.licenseNumber, "D1234567");
});

test("a passport is inspected", () => {
  const document = inspect(passport, { date });
  assert.equal(document.verdict, "valid");
  assert.equal(document.date, date);
  assert.equal(document.fields.primaryIdentifier.value, "ERIKSSON");
  assert.equal(document.fields.birthDate.value, "1974-08-12");
  assert.equal(inspect(passport, { date: new Date("2020-02-29T23:00:00Z") }).date, "2020-02-29");
  assert.equal(inspect(passport).date.length, 10);
});

test("bad calls are errors that say what is wrong", () => {
  for (const wrong of [undefined, null, 7, ["P<UTO"]]) {
    for (const read of [parse, inspect, barcode]) {
      assert.throws(() => read(wrong), { name: "TypeError", message: /^text must be a string, not / });
    }
  }
  assert.throws(() => compose(null), { name: "TypeError", message: "fields must be an object, not null" });
  assert.throws(() => compose("TD3"), { name: "TypeError", message: "fields must be an object, not string" });
  assert.throws(() => compose({ sex: 1 }), { name: "TypeError", message: "sex must be a string or null, not number" });
  assert.throws(() => compose({ sex: "F".repeat(65536) }), { message: "text of more than 65536 bytes" });
  assert.throws(() => barcode("@".repeat(65537)), { name: "RangeError", message: "text of more than 65536 bytes" });
  assert.throws(() => inspect(passport, { repair: "all" }), { name: "RangeError", message: /"off", "columns"/ });
  assert.throws(() => inspect(passport, { date: "2026-02-30" }), { message: "there is no date 2026-02-30" });
  assert.throws(() => inspect(passport, { date: "0000-01-01" }), { message: "there is no date 0000-01-01" });
  assert.throws(() => inspect(passport, { date: "today" }), { message: /Date or YYYY-MM-DD, not today/ });
  assert.throws(() => inspect(passport, { date: new Date(NaN) }), RangeError);
  assert.throws(() => inspect("<".repeat(65537)), { name: "RangeError", message: "text of more than 65536 bytes" });
  assert.equal(inspect("<".repeat(65536), { date }).verdict, "refused");
});

test("no answer holds anything of the text before it", () => {
  assert.equal(inspect(passport, { date }).verdict, "valid");
  assert.equal(parse(""), null);
  assert.equal(inspect("", { date }).verdict, "refused");
});

test("the WebAssembly is small and imports nothing", () => {
  const file = join(root, "build/javascript/varnel.wasm");
  assert.ok(statSync(file).size < 100_000, `${statSync(file).size} bytes`);
  assert.deepEqual(WebAssembly.Module.imports(new WebAssembly.Module(readFileSync(file))), []);
});
