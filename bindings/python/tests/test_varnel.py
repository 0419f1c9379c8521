"""The package as its users have it: the vectors of the C library, the schema, and what bad calls get."""

import datetime
import importlib
import json
import pathlib
import pickle
import typing
import unittest

import varnel
from varnel import _core, _types

ROOT = pathlib.Path(__file__).resolve().parents[3]
VECTORS = sorted((ROOT / "tests" / "vectors").glob("*/*.mrz"))
INSPECTIONS = sorted((ROOT / "tests" / "documents" / "vectors").glob("*.json"))
PASSPORT = (ROOT / "samples" / "passport.mrz").read_text(encoding="utf-8")
DATE = "2026-11-21"


def json_of(name: str) -> typing.Any:
    return json.loads((ROOT / name).read_text(encoding="utf-8"))


def validator_of(name: str) -> typing.Any:
    jsonschema: typing.Any = importlib.import_module("jsonschema")
    return jsonschema.Draft202012Validator(json_of(f"docs/{name}.schema.json"))


def text_of(vector: pathlib.Path) -> typing.Optional[str]:
    """The text of a vector; None where it is no UTF-8, which a str cannot hold."""
    try:
        return vector.read_bytes().decode("utf-8")
    except UnicodeDecodeError:
        return None


class Parse(unittest.TestCase):
    def test_every_vector(self) -> None:
        texts = [(vector, text_of(vector)) for vector in VECTORS]
        readable = [(vector, text) for vector, text in texts if text is not None]
        self.assertGreater(len(readable), 100)
        answers = varnel.parse_many(text for _, text in readable)
        for (vector, _), answer in zip(readable, answers):
            with self.subTest(vector.stem):
                expected = json.loads(vector.with_suffix(".json").read_text(encoding="utf-8"))
                self.assertEqual(answer, expected)
                if answer is not None:
                    self.assertEqual(list(answer), list(expected), "the order of the keys")

    def test_text_without_utf8(self) -> None:
        self.assertIsNone(varnel.parse("\ud800" + PASSPORT))

    def test_what_is_no_text(self) -> None:
        for wrong in (None, 1, b"P<UTO", ["P<UTO"]):
            with self.subTest(wrong), self.assertRaisesRegex(TypeError, "text must be str, not <class"):
                varnel.parse(wrong)  # type: ignore[arg-type]


class Inspect(unittest.TestCase):
    def test_every_vector(self) -> None:
        self.assertGreater(len(INSPECTIONS), 40)
        for vector in INSPECTIONS:
            with self.subTest(vector.stem):
                expected = json_of(str(vector))
                text = vector.with_suffix(".txt").read_bytes().decode("utf-8")
                answer = varnel.inspect(text, date=expected["date"], repair=expected["repair"])
                self.assertEqual(answer, expected)

    def test_passport(self) -> None:
        document = varnel.inspect(PASSPORT, date=DATE)
        self.assertEqual(document["verdict"], "valid")
        self.assertEqual(document["layout"], "TD3")
        self.assertEqual(document["date"], DATE)
        self.assertEqual(document["fields"]["primaryIdentifier"]["value"], "ERIKSSON")
        self.assertEqual(document["fields"]["birthDate"]["value"], "1974-08-12")

    def test_dates(self) -> None:
        self.assertEqual(varnel.inspect(PASSPORT, date=DATE)["date"], DATE)
        self.assertEqual(varnel.inspect(PASSPORT, date=datetime.date(2026, 11, 21))["date"], DATE)
        before = datetime.datetime.now(datetime.timezone.utc).date()
        today = varnel.inspect(PASSPORT)["date"]
        after = datetime.datetime.now(datetime.timezone.utc).date()
        self.assertIn(today, (before.isoformat(), after.isoformat()))

    def test_bad_options(self) -> None:
        with self.assertRaisesRegex(ValueError, "day is out of range|Invalid isoformat|day must be"):
            varnel.inspect(PASSPORT, date="2026-02-30")
        with self.assertRaisesRegex(ValueError, "repair must be 'off', 'columns' or 'digits', not 'all'"):
            varnel.inspect(PASSPORT, repair="all")
        with self.assertRaisesRegex(ValueError, "text of more than 65536 bytes"):
            varnel.inspect("<" * 65537)
        with self.assertRaisesRegex(TypeError, "text must be str"):
            varnel.inspect(b"P<UTO")  # type: ignore[arg-type]

    def test_many(self) -> None:
        documents = list(varnel.inspect_many([PASSPORT, "nothing"], date=DATE))
        self.assertEqual([document["verdict"] for document in documents], ["valid", "refused"])

    def test_lone_surrogates_are_noise(self) -> None:
        document = varnel.inspect("\ud800" + PASSPORT, date=DATE)
        self.assertEqual(document["fields"]["primaryIdentifier"]["value"], "ERIKSSON")

    def test_schema(self) -> None:
        validator = validator_of("inspection")
        seen = set()
        for vector in VECTORS:
            text = text_of(vector)
            if text is not None:
                document = varnel.inspect(text, date=DATE)
                validator.validate(document)
                seen.add(document["layout"])
        self.assertLessEqual({"TD1", "TD2", "TD3", "MRV-A", "MRV-B", None}, seen)


class Compose(unittest.TestCase):
    def test_every_vector(self) -> None:
        validator = validator_of("composition")
        for vector in json_of("bindings/vectors/compositions.json"):
            with self.subTest(vector["name"]):
                if "zone" in vector:
                    self.assertEqual(varnel.compose(vector["fields"]), vector["zone"])
                    validator.validate(vector["fields"])
                    self.assertEqual(varnel.inspect("\n".join(vector["zone"]), date=DATE)["verdict"], "valid")
                    continue
                with self.assertRaises(varnel.ComposeError) as refusal:
                    varnel.compose(vector["fields"])
                error = refusal.exception
                self.assertIsInstance(error, ValueError)
                self.assertEqual({"field": error.field, "reason": error.reason, "position": error.position,
                                  "message": str(error)}, vector["error"])

    def test_error_passes_between_processes(self) -> None:
        error = pickle.loads(pickle.dumps(varnel.ComposeError("sex", "missing", 0, "sex: missing")))
        self.assertEqual((error.field, error.reason, error.position, str(error)), ("sex", "missing", 0, "sex: missing"))

    def test_what_is_no_text(self) -> None:
        with self.assertRaisesRegex(TypeError, "sex must be str or None, not <class 'int'>"):
            varnel.compose({"sex": 1})  # type: ignore[typeddict-item]
        with self.assertRaisesRegex(TypeError, "fields must be a mapping, not <class 'NoneType'>"):
            varnel.compose(None)  # type: ignore[arg-type]


class Barcode(unittest.TestCase):
    def test_every_vector(self) -> None:
        validator = validator_of("barcode")
        for vector in json_of("bindings/vectors/barcodes.json"):
            with self.subTest(vector["name"]):
                answer = varnel.barcode(vector["text"])
                self.assertEqual(answer, vector["answer"])
                if answer is not None:
                    validator.validate(answer["info"])
                    self.assertEqual(list(answer), list(vector["answer"]), "the order of the keys")

    def test_longest_text(self) -> None:
        lines = "DAQD1234567\nDBB06061986\nDACJANE\nDCS"
        name = "É" * ((65536 - len(lines)) // 2)
        answer = varnel.barcode(lines + name)
        assert answer is not None
        self.assertEqual(answer["lastName"], name)
        with self.assertRaisesRegex(ValueError, "text of more than 65536 bytes"):
            varnel.barcode("@" * 65537)

    def test_what_is_no_text(self) -> None:
        with self.assertRaisesRegex(TypeError, "text must be str, not <class 'bytes'>"):
            varnel.barcode(b"@")  # type: ignore[arg-type]
        self.assertIsNone(varnel.barcode("\ud800"))


class Types(unittest.TestCase):
    """The typed dictionaries have the schema's keys, no more and no less."""

    def keys(self, name: str) -> typing.Set[str]:
        kind = getattr(_types, name)
        keys = set(kind.__annotations__)
        for base in getattr(kind, "__orig_bases__", ()):
            keys |= set(getattr(base, "__annotations__", {}))
        return keys

    def assertHasKeys(self, name: str, schema: typing.Any) -> None:
        with self.subTest(name):
            self.assertEqual(self.keys(name), set(schema["properties"]))
            kind = getattr(_types, name)
            required: typing.Set[str] = set(kind.__required_keys__)
            self.assertEqual(required, set(schema.get("required", ())))

    def test_keys(self) -> None:
        inspection = json_of("docs/inspection.schema.json")
        self.assertHasKeys("Inspection", inspection)
        self.assertHasKeys("Fields", inspection["properties"]["fields"])
        self.assertHasKeys("Checks", inspection["properties"]["checks"])
        for name in ("Source", "Field", "CodeField", "StateField", "NameField", "DateField", "Check", "Change", "Finding"):
            self.assertHasKeys(name, inspection["$defs"][name[0].lower() + name[1:]])
        composition = json_of("docs/composition.schema.json")
        self.assertHasKeys("Composition", composition)
        self.assertEqual(set(_core.composition_keys()), set(composition["properties"]))
        barcode = json_of("docs/barcode.schema.json")
        self.assertHasKeys("BarcodeInfo", barcode)
        self.assertHasKeys("BarcodeElement", barcode["properties"]["elements"]["items"])
        self.assertHasKeys("BarcodeFinding", barcode["properties"]["findings"]["items"])
        self.assertHasKeys("BarcodeOmitted", barcode["properties"]["omitted"])


if __name__ == "__main__":
    unittest.main()
