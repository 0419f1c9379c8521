"""The package as its users have it: the vectors of the C library, the schema, and what bad calls get."""

import datetime
import importlib
import json
import pathlib
import typing
import unittest

import varnel
from varnel import _types

ROOT = pathlib.Path(__file__).resolve().parents[3]
VECTORS = sorted((ROOT / "tests" / "vectors").glob("*/*.mrz"))
SCHEMA = json.loads((ROOT / "docs" / "inspection.schema.json").read_text(encoding="utf-8"))
PASSPORT = (ROOT / "samples" / "passport.mrz").read_text(encoding="utf-8")
DATE = "2026-11-21"


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
        jsonschema: typing.Any = importlib.import_module("jsonschema")

        validator = jsonschema.Draft202012Validator(SCHEMA)
        seen = set()
        for vector in VECTORS:
            text = text_of(vector)
            if text is not None:
                document = varnel.inspect(text, date=DATE)
                validator.validate(document)
                seen.add(document["layout"])
        self.assertLessEqual({"TD1", "TD2", "TD3", "MRV-A", "MRV-B", None}, seen)


class Types(unittest.TestCase):
    """The typed dictionaries have the schema's keys, no more and no less."""

    def keys(self, name: str) -> typing.Set[str]:
        kind = getattr(_types, name)
        keys = set(kind.__annotations__)
        for base in getattr(kind, "__orig_bases__", ()):
            keys |= set(getattr(base, "__annotations__", {}))
        return keys

    def test_keys(self) -> None:
        self.assertEqual(self.keys("Inspection"), set(SCHEMA["properties"]))
        self.assertEqual(self.keys("Fields"), set(SCHEMA["properties"]["fields"]["properties"]))
        self.assertEqual(self.keys("Checks"), set(SCHEMA["properties"]["checks"]["properties"]))
        for name in ("Source", "Field", "CodeField", "StateField", "NameField", "DateField", "Check", "Change", "Finding"):
            with self.subTest(name):
                definition = SCHEMA["$defs"][name[0].lower() + name[1:]]
                self.assertEqual(self.keys(name), set(definition["properties"]))
                self.assertEqual(self.keys(name), set(definition["required"]))


if __name__ == "__main__":
    unittest.main()
