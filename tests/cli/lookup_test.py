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

    def test_small_letters_are_taken_for_capitals(self):
        self.assertEqual(varnel("element", "dau", "dAu"), (0, varnel("element", "DAU")[1] * 2, b""))

    def test_a_hyphen_reads_identifiers_from_standard_input_one_a_line(self):
        expected = varnel("element", "--format", "csv", "DDL", "DAU", "DAQ")
        self.assertEqual(varnel("element", "--format", "csv", "DDL", "-", "DAQ", text=b"\ndau\r\n\n"), expected)
        self.assertEqual(varnel("element", "-", text=b"ZZZ\n"), (1, b"", b"varnel: unknown element 'ZZZ'\n"))

    def test_a_zone_in_the_place_of_an_identifier_is_not_repeated(self):
        self.assertEqual(varnel("element", "P<UTOERIKSSON<<ANNA"),
                         (1, b"", b"varnel: unknown element (not repeated: it looks like a zone)\n"))

    def test_nothing_known_makes_no_table(self):
        self.assertEqual(varnel("element", "--format", "table", "ZZZ")[:2], (1, b""))


class Names(unittest.TestCase):
    def test_long_tables_take_no_more_time_a_row(self):
        """200,000 rows take about a second; when every row looks at all others they take minutes."""
        code, out, _ = varnel("soundex", "--format", "table", "-", text=b"Robert\n" * 200_000)
        self.assertEqual((code, out), (0, b"NAME    CODE\n" + b"Robert  R163\n" * 200_000))
        code, out, _ = varnel("element", "--format", "table", "-", text=b"DDL\n" * 200_000)
        self.assertEqual((code, out.count(b"\n")), (0, 200_001))

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

    def test_operands_are_taken_as_they_were_typed(self):
        code, out, err = varnel("soundex", "[Anna,Bob]", "++", "[]", "Lee")
        self.assertEqual((code, out), (1, b'{"name":"Lee","code":"L000"}\n'))
        self.assertEqual([line.split(b"'")[1] for line in err.splitlines()], [b"[Anna,Bob]", b"++", b"[]"])

    def test_a_hyphen_reads_names_from_standard_input_one_a_line(self):
        code, out, err = varnel("soundex", "Lee", "-", text=b"Robert\n\nWashington DC\r\nRupert")
        self.assertEqual((code, err), (0, b""))
        self.assertEqual([json.loads(line)["name"] for line in out.splitlines()],
                         ["Lee", "Robert", "Washington DC", "Rupert"])

    def test_a_zone_in_the_place_of_a_name_is_not_repeated(self):
        for zone in ("P<UTOERIKSSON<<ANNA", "L898902C36UTO7408122F1204159ZE184226B0000010"):
            self.assertEqual(varnel("soundex", zone)[2], b"varnel: no Soundex code for (not repeated: it looks like a "
                             b"zone): it is not a name of letters A to Z\n")

    def test_tables_mask_what_could_steer_a_terminal(self):
        name = "Washington\x1b[2J\x9b2J\u202e"
        out = varnel("soundex", "--format", "table", name)[1].decode()
        self.assertEqual(out, "NAME                CODE\nWashington?[2J?2J?  W252\n")

    def test_tables_are_aligned_by_characters(self):
        out = varnel("soundex", "--format", "table", "Abcd\u00e9", "Lee")[1].decode()
        self.assertEqual(out, "NAME   CODE\nAbcd\u00e9  A123\nLee    L000\n")

    def test_what_follows_the_third_digit_may_be_any_bytes(self):
        code, out, _ = varnel("soundex", "Washington\udcff\"")
        self.assertEqual((code, json.loads(out)), (0, {"name": "Washington\ufffd\"", "code": "W252"}))


if __name__ == "__main__":
    unittest.main()
