"""varnel element and varnel soundex."""

import json
import unittest

from support import varnel

DAU = {"element": "DAU", "tables": {
    "MAP_AAMVA_2D01": [{"slot": 14, "constant": "FIELD_HEIGHT_FT_IN"}],
    "MAP_AAMVA_2D03": [{"slot": 54, "constant": "FIELD_HEIGHT"}],
    "MAP_AAMVA_2D06": [{"slot": 54, "constant": "FIELD_HEIGHT"}],
    "MAP_AAMVA_2D04_HAWAII": [{"slot": 54, "constant": "FIELD_HEIGHT"},
                              {"slot": 14, "constant": "FIELD_HEIGHT_FT_IN"}],
    "MAP_AAMVA_2D08": [{"slot": 54, "constant": "FIELD_HEIGHT"}, {"slot": 54, "constant": "FIELD_HEIGHT"}]}}


class Elements(unittest.TestCase):
    def test_json_gives_the_slots_in_each_table_second_rows_included(self):
        code, out, err = varnel("element", "DAU")
        self.assertEqual((code, err), (0, b""))
        self.assertEqual(out.decode(), json.dumps(DAU, separators=(",", ":")) + "\n")

    def test_a_table_without_the_element_gives_an_empty_list(self):
        tables = json.loads(varnel("element", "PAA")[1])["tables"]
        self.assertEqual({name: [row["slot"] for row in rows] for name, rows in tables.items()},
                         {"MAP_AAMVA_2D01": [19], "MAP_AAMVA_2D03": [], "MAP_AAMVA_2D06": [],
                          "MAP_AAMVA_2D04_HAWAII": [19], "MAP_AAMVA_2D08": []})

    def test_the_two_blocks_of_the_last_table(self):
        for element, slots in (("DBB", [78, 11]), ("DAQ", [6, 55]), ("DCG", [125, 56]), ("DDL", [126])):
            with self.subTest(element=element):
                tables = json.loads(varnel("element", element)[1])["tables"]
                self.assertEqual([row["slot"] for row in tables["MAP_AAMVA_2D08"]], slots)

    def test_table(self):
        code, out, err = varnel("element", "--format", "table", "DDL", "DBP")
        self.assertEqual((code, err), (0, b""))
        self.assertEqual(out.decode(), "ELEMENT  TABLE                  SLOT  CONSTANT\n"
                                       "DDL      MAP_AAMVA_2D08         126   FIELD_VETERAN\n"
                                       "DBP      MAP_AAMVA_2D01         48    FIELD_AKA_FIRST_NAME\n"
                                       "DBP      MAP_AAMVA_2D04_HAWAII  48    FIELD_AKA_FIRST_NAME\n")

    def test_csv(self):
        code, out, _ = varnel("element", "DDL", "--format", "csv")
        self.assertEqual((code, out.decode()), (0, "element,table,slot,constant\n"
                                                   "DDL,MAP_AAMVA_2D08,126,FIELD_VETERAN\n"))

    def test_unknown_identifiers_are_reported_and_the_others_printed(self):
        code, out, err = varnel("element", "ZZZ", "DDL", "DA", "DAAA", "", "\udcc4AA", "DAA")
        self.assertEqual(code, 1)
        self.assertEqual([json.loads(line)["element"] for line in out.splitlines()], ["DDL", "DAA"])
        self.assertEqual(err.splitlines(), [b"varnel: unknown element 'ZZZ'", b"varnel: unknown element 'DA'",
                                            b"varnel: unknown element 'DAAA'", b"varnel: unknown element ''",
                                            b"varnel: unknown element '\xc4AA'"])

    def test_identifiers_are_capital_letters(self):
        self.assertEqual(varnel("element", "daq"), (1, b"", b"varnel: unknown element 'daq'; did you mean 'DAQ'?\n"))

    def test_nothing_known_makes_no_table(self):
        self.assertEqual(varnel("element", "--format", "table", "ZZZ")[:2], (1, b""))


class Names(unittest.TestCase):
    CODES = [("Robert", "R163"), ("Rupert", "R163"), ("robert", "R163"), ("Ashcraft", "A261"), ("Tymczak", "T522"),
             ("Pfister", "P236"), ("Lee", "L000"), ("A", "A000"), ("Washington DC", "W252")]

    def test_json(self):
        code, out, err = varnel("soundex", *[name for name, _ in self.CODES])
        self.assertEqual((code, err), (0, b""))
        self.assertEqual(out.decode(), "".join(f'{{"name":"{name}","code":"{soundex}"}}\n'
                                               for name, soundex in self.CODES))

    def test_table(self):
        code, out, _ = varnel("soundex", "--format", "table", "Washington DC", "Lee")
        self.assertEqual((code, out), (0, b"NAME           CODE\nWashington DC  W252\nLee            L000\n"))

    def test_csv(self):
        code, out, _ = varnel("soundex", "--format", "csv", 'Washington, "DC"', "Lee")
        self.assertEqual((code, out), (0, b'name,code\n"Washington, ""DC""",W252\nLee,L000\n'))

    def test_names_that_cannot_be_encoded_are_reported_and_the_others_printed(self):
        code, out, err = varnel("soundex", "O'Brien", "Lee", "Smith Jones", "", "1st", "\u00c9mile")
        self.assertEqual((code, out), (1, b'{"name":"Lee","code":"L000"}\n'))
        self.assertEqual(err.decode(), "".join(
            f"varnel: no Soundex code for '{name}': it is not a name of letters A to Z\n"
            for name in ("O'Brien", "Smith Jones", "", "1st", "\u00c9mile")))

    def test_what_follows_the_third_digit_may_be_any_bytes(self):
        code, out, _ = varnel("soundex", "Washington\udcff\"")
        self.assertEqual((code, json.loads(out)), (0, {"name": "Washington\ufffd\"", "code": "W252"}))


if __name__ == "__main__":
    unittest.main()
