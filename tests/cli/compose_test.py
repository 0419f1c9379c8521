"""varnel compose and varnel specimen: values in, zones out; zones of made-up people."""

import json
import unittest

from support import SOURCES, varnel

PASSPORT = {"layout": "TD3", "documentCode": "P", "issuingState": "UTO", "documentNumber": "L898902C3",
            "nationality": "UTO", "birthDate": "1974-08-12", "sex": "F", "expiryDate": "2012-04-15",
            "primaryIdentifier": "Eriksson", "secondaryIdentifier": "Anna Maria", "personalNumber": "ZE184226B"}
LINES = ["P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<", "L898902C36UTO7408122F1204159ZE184226B<<<<<10"]
ZONE = "\n".join(LINES).encode() + b"\n\n"
CARD = {**PASSPORT, "layout": "TD1", "documentCode": "I", "documentNumber": "D23145890", "personalNumber": None}
CARD_ZONE = (b"I<UTOD231458907<<<<<<<<<<<<<<<\n7408122F1204159UTO<<<<<<<<<<<6\n"
             b"ERIKSSON<<ANNA<MARIA<<<<<<<<<<\n\n")


def text_of(*documents, **layout):
    return "".join(json.dumps(document, ensure_ascii=False, **layout) + "\n" for document in documents).encode()


def complaint(reason, line=1, name="standard input"):
    return f"varnel: {name}: line {line}: {reason}\n".encode()


class Compose(unittest.TestCase):
    def refused(self, reason, **changes):
        self.assertEqual(varnel("compose", text=text_of({**PASSPORT, **changes})), (1, b"", complaint(reason)))

    def test_an_object(self):
        self.assertEqual(varnel("compose", text=text_of(PASSPORT)), (0, ZONE, b""))
        self.assertEqual(varnel("compose", text=text_of(PASSPORT).rstrip()), (0, ZONE, b""))

    def test_an_object_over_many_lines(self):
        nested = {**PASSPORT, "more": {"of": [{"this": "}"}, "\\\"{"]}}
        for text in (text_of(nested, indent=2), text_of(nested, indent=2).replace(b"\n", b"\r\n"),
                     b"\xef\xbb\xbf" + text_of(nested, indent=0)):
            self.assertEqual(varnel("compose", text=text), (0, ZONE, b""))

    def test_lines_of_objects(self):
        text = text_of(PASSPORT) + b"\n \t\n" + text_of(CARD) + text_of(PASSPORT, indent=1)
        self.assertEqual(varnel("compose", text=text), (0, ZONE + CARD_ZONE + ZONE, b""))

    def test_json(self):
        line = json.dumps({"zone": LINES}, separators=(",", ":")).encode() + b"\n"
        self.assertEqual(varnel("compose", "--format", "json", text=text_of(PASSPORT, PASSPORT)), (0, line * 2, b""))
        self.assertEqual(varnel("compose", "--format", "text", text=text_of(PASSPORT)), (0, ZONE, b""))

    def test_letters_of_a_language(self):
        for language, name in ((None, "GNATIUK"), ("uk", "HNATIUK"), ("", "GNATIUK")):
            document = {**PASSPORT, "primaryIdentifier": "Гнатюк", "language": language}
            self.assertTrue(varnel("compose", text=text_of(document))[1].startswith(f"P<UTO{name}<<".encode()))

    def test_escaped_letters(self):
        text = json.dumps({**PASSPORT, "primaryIdentifier": "Þóra Müller"}).encode()
        self.assertIn(b"\\u00de", text)
        self.assertTrue(varnel("compose", text=text)[1].startswith(b"P<UTOTHORA<MUELLER<<"))

    def test_unknown_keys_and_nulls_are_passed_over(self):
        text = text_of({**PASSPORT, "optionalData": None, "optionalData1": "", "zone": 7, "officeCode": "X"})
        self.assertEqual(varnel("compose", text=text), (0, ZONE, b""))

    def test_one_bad_document_does_not_stop_the_rest(self):
        bad = {**PASSPORT, "primaryIdentifier": "名前"}
        text = text_of(PASSPORT, bad, CARD)
        said = complaint("primaryIdentifier: character 1 cannot be written there", 2)
        self.assertEqual(varnel("compose", text=text), (1, ZONE + CARD_ZONE, said))

    def test_what_is_no_object_does_not_stop_the_rest(self):
        for bad in (b"{", b'{"layout":"TD3",', b'{"a":[{', b"[1,", b"[]", b"7", b"nonsense", b'{"a":}', b"{}}", b'{"a":"', b"\xff"):
            with self.subTest(bad=bad):
                text = text_of(PASSPORT) + bad + b"\n" + text_of(CARD)
                said = complaint("not a JSON object", 2)
                self.assertEqual(varnel("compose", text=text), (1, ZONE + CARD_ZONE, said))

    def test_an_object_without_an_end(self):
        self.assertEqual(varnel("compose", text=text_of(PASSPORT) + b"\n{\n"),
                         (1, ZONE, complaint("not a JSON object", 3)))

    def test_nothing_makes_nothing(self):
        for text in (b"", b"\n\n", b" \n"):
            self.assertEqual(varnel("compose", text=text), (0, b"", b""))

    def test_each_field_is_named(self):
        self.refused("layout: not one of TD1, TD2, TD3, MRV-A, MRV-B", layout="FRA-ID")
        self.refused("layout: not one of TD1, TD2, TD3, MRV-A, MRV-B", layout=None)
        self.refused("language: not one of be, bg, mk, sr, uk", language="de")
        self.refused("documentCode: not a code of this layout", documentCode="I")
        self.refused("documentCode: character 2 cannot be written there", documentCode="P<")
        self.refused("documentCode: two lines that begin with ID and FRA are a French identity card, not a TD2",
                     layout="TD2", documentCode="ID", issuingState="FRA")
        self.refused("issuingState: not a listed state", issuingState="XYZ")
        self.refused("documentNumber: no room from character 10 on", documentNumber="1234567890")
        self.refused("documentNumber: nothing to write, and a zone needs it", documentNumber=None)
        self.refused("nationality: character 1 cannot be written there", nationality="uto")
        self.refused("birthDate: not a date of the calendar, as YYYY-MM-DD", birthDate="1974-02-30")
        self.refused("sex: character 1 cannot be written there", sex="<")
        self.refused("expiryDate: before birthDate", expiryDate="1974-08-11")
        self.refused("primaryIdentifier: nothing to write, and a zone needs it", primaryIdentifier="'")
        self.refused("secondaryIdentifier: character 3 cannot be written there", secondaryIdentifier="Ab1")
        self.refused("optionalData: this layout has no such field", optionalData="A")
        self.refused("personalNumber: character 2 cannot be written there", personalNumber="A.")

    def test_values_are_texts(self):
        for value in (7, True, [], {}, 1.5):
            self.refused("sex: neither a text nor null", sex=value)
        self.refused("layout: neither a text nor null", layout=3)

    def test_the_schema_has_these_keys(self):
        schema = json.loads((SOURCES / "docs" / "composition.schema.json").read_text(encoding="utf-8"))
        for key in schema["properties"]:
            self.refused(f"{key}: neither a text nor null", **{key: 1})
        self.assertEqual(set(PASSPORT) - set(schema["properties"]), set())
        for key in set(schema["properties"]) - {"birthDate"}:
            code = varnel("compose", text=text_of({**PASSPORT, key: None}))[0]
            self.assertEqual(code, 1 if key in schema["required"] else 0, key)

    def test_a_nul_does_not_end_a_text(self):
        self.refused("primaryIdentifier: character 3 cannot be written there", primaryIdentifier="Ab\0c")
        self.refused("sex: no room from character 2 on", sex="F\0")

    def test_nothing_of_a_value_is_repeated(self):
        code, out, err = varnel("compose", text=text_of({**PASSPORT, "documentNumber": "secret"}))
        self.assertEqual((code, out), (1, b""))
        self.assertNotIn(b"secret", err)

    def test_files(self):
        code, out, err = varnel("compose", "/nowhere", "-", text=text_of(PASSPORT))
        self.assertEqual((code, out), (2, ZONE))
        self.assertEqual(err, b"varnel: /nowhere: No such file or directory\n")

    def test_an_over_long_line(self):
        text = text_of({**PASSPORT, "more": "x" * (1 << 20)}, PASSPORT)
        self.assertEqual(varnel("compose", text=text), (1, ZONE, complaint("longer than 1 MiB")))

    def test_an_over_long_object(self):
        text = text_of({**PASSPORT, "more": ["x" * 1000] * 1100}, indent=1) + text_of(PASSPORT)
        self.assertEqual(varnel("compose", text=text), (1, ZONE, complaint("not a JSON object")))


# Whatever the machine.
SEED_7 = [["POUTOSHCHUKIN<LESNOI<<IURII<<<<<<<<<<<<<<<<<", "007J192<<6XXA0305071M3108136<<<<<<<<<<<<<<<8"]]


class Specimen(unittest.TestCase):
    WIDTHS = {"TD1": (3, 30), "TD2": (2, 36), "TD3": (2, 44), "MRV-A": (2, 44), "MRV-B": (2, 36)}

    def zones(self, *arguments):
        code, out, err = varnel("specimen", *arguments)
        self.assertEqual((code, err), (0, b""))
        return [zone.split("\n") for zone in out.decode().split("\n\n")[:-1]]

    def test_zones_of_each_layout(self):
        for layout, (lines, width) in self.WIDTHS.items():
            zones = self.zones("--layout", layout, "--count", 500, "--seed", 11)
            self.assertEqual(len(zones), 500)
            for zone in zones:
                self.assertEqual([len(line) for line in zone], [width] * lines)
                self.assertEqual(zone[0][2:5], "UTO")
                self.assertEqual(zone[0][0] == "V", layout.startswith("MRV"))

    def test_the_same_seed_makes_the_same_zones(self):
        self.assertEqual(self.zones("--layout", "TD3", "--seed", 7), SEED_7)
        self.assertNotEqual(self.zones("--count", 5, "--seed", 1), self.zones("--count", 5, "--seed", 2))
        self.assertNotEqual(self.zones("--count", 5), self.zones("--count", 5))

    def test_all_layouts_come_up(self):
        shapes = {(len(zone), len(zone[0]), zone[0][0] == "V") for zone in self.zones("--count", 200, "--seed", 5)}
        self.assertEqual(len(shapes), 5)

    def test_counts(self):
        self.assertEqual(len(self.zones()), 1)
        self.assertEqual(self.zones("--count", 0), [])

    def test_json(self):
        code, out, _ = varnel("specimen", "--format", "json", "--layout", "TD1", "--seed", 3)
        self.assertEqual((code, json.loads(out)), (0, {"zone": self.zones("--layout", "TD1", "--seed", 3)[0]}))

    def test_they_can_be_read(self):
        zones = varnel("specimen", "--count", 200, "--seed", 9)[1]
        code, out, err = varnel("parse", "--each", "block", text=zones)
        unknown_birth = sum(line == b"null" for line in out.splitlines())
        self.assertEqual(len(out.splitlines()), 200)
        self.assertLess(unknown_birth, 40, "only dates with unknown parts are refused by parse")

    def test_usage(self):
        for arguments, said in ((["--count", "x"], "--count 'x' is not a number"),
                                (["--count", "-1"], "--count needs a value: NUMBER"),
                                (["--count", "1x"], "--count '1x' is not a number"),
                                (["--seed", "18446744073709551616"], "--seed '18446744073709551616' is not a number"),
                                (["thing"], "specimen takes no operand"),
                                (["--", "thing"], "specimen takes no operand")):
            self.assertEqual(varnel("specimen", *arguments),
                             (2, b"", f"varnel: {said} (see varnel --help)\n".encode()), arguments)


if __name__ == "__main__":
    unittest.main()
