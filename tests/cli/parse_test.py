"""varnel parse, one document per file."""

import json
import os
import pathlib
import random
import re
import tempfile
import unittest

from support import (CARD, CSV_HEADER, KEYS, PASSPORT, PASSPORT_JSON, PASSPORT_ROW, PASSPORT_SLOTS,
                     PASSPORT_VALUES, VECTORS, varnel)

NO_ZONE_AS_OPERAND = (b"no such file; the text of a document is read from standard input: "
                      b"varnel parse < FILE\n")
MARK = b"\xef\xbb\xbf"
LENGTHS = "expected 72 (TD2 card, short visa), 88 (passport, long visa) or 90 (TD1 card)"


class Folder(unittest.TestCase):
    def setUp(self):
        self.place = tempfile.TemporaryDirectory()
        self.addCleanup(self.place.cleanup)

    def file(self, name, text):
        path = pathlib.Path(self.place.name) / name
        path.write_bytes(text)
        return path


class Inputs(Folder):
    def test_standard_input_is_read_when_no_file_is_named(self):
        self.assertEqual(varnel("parse", text=PASSPORT), (0, PASSPORT_JSON, b""))

    def test_a_hyphen_is_standard_input(self):
        self.assertEqual(varnel("parse", "-", text=PASSPORT), (0, PASSPORT_JSON, b""))

    def test_a_file(self):
        self.assertEqual(varnel("parse", self.file("p", PASSPORT)), (0, PASSPORT_JSON, b""))

    def test_files_and_standard_input_in_the_order_named(self):
        card = self.file("card", CARD)
        code, out, err = varnel("parse", card, "-", card, text=PASSPORT)
        lines = out.splitlines(keepends=True)
        self.assertEqual((code, len(lines), lines[1], err), (0, 3, PASSPORT_JSON, b""))
        self.assertEqual(json.loads(lines[0])["documentType"], "TD")
        self.assertEqual(lines[0], lines[2])

    def test_a_file_may_be_named_like_a_command_or_an_option(self):
        self.file("element", PASSPORT)
        self.file("--slots", PASSPORT)
        self.file("--", PASSPORT)
        self.assertEqual(varnel("parse", "element", "--", "--slots", "--", "element", cwd=self.place.name),
                         (0, PASSPORT_JSON * 4, b""))

    def test_options_may_stand_behind_files(self):
        code, out, _ = varnel("parse", self.file("p", PASSPORT), "--format", "csv")
        self.assertEqual((code, out), (0, CSV_HEADER + b"1," + PASSPORT_ROW))

    def test_a_file_that_is_missing_is_named_and_the_others_done(self):
        good = self.file("p", PASSPORT)
        missing = pathlib.Path(self.place.name) / "missing"
        code, out, err = varnel("parse", good, missing, good)
        self.assertEqual((code, out), (2, PASSPORT_JSON + b"null\n" + PASSPORT_JSON))
        self.assertEqual(err.decode(), f"varnel: {missing}: No such file or directory\n")

    def test_a_missing_file_named_like_a_zone_is_not_repeated(self):
        first, second = PASSPORT.decode().splitlines()
        for operands in ([first + second], [PASSPORT.decode()], [first], ["<"], ["--", "-" + first]):
            with self.subTest(operands=operands):
                self.assertEqual(varnel("parse", *operands), (2, b"", b"varnel: " + NO_ZONE_AS_OPERAND))

    def test_a_file_that_has_such_a_name_is_read(self):
        self.assertEqual(varnel("parse", self.file("P<UTO", PASSPORT)), (0, PASSPORT_JSON, b""))

    def test_an_empty_name_is_quoted(self):
        self.assertEqual(varnel("parse", ""), (2, b"", b"varnel: '': No such file or directory\n"))

    def test_a_folder_is_no_file(self):
        code, out, err = varnel("parse", self.place.name)
        self.assertEqual((code, out), (2, b""))
        self.assertEqual(err.decode(), f"varnel: {self.place.name}: Is a directory\n")

    @unittest.skipIf(os.geteuid() == 0, "everything is readable to root")
    def test_a_file_that_may_not_be_read(self):
        closed = self.file("p", PASSPORT)
        closed.chmod(0)
        code, out, err = varnel("parse", closed)
        self.assertEqual((code, out, err.decode()), (2, b"", f"varnel: {closed}: Permission denied\n"))

    def test_trouble_outweighs_refusal(self):
        code, out, _ = varnel("parse", self.file("empty", b""), "/nonexistent")
        self.assertEqual((code, out), (2, b"null\nnull\n"))

    def test_a_file_that_cannot_be_read_keeps_its_place_among_several(self):
        good = self.file("p", PASSPORT)
        row = b"," * 12 + b"\n"
        self.assertEqual(varnel("parse", "--format=csv", "/nonexistent", good, self.place.name)[:2],
                         (2, CSV_HEADER + b"1" + row + b"2," + PASSPORT_ROW + b"3" + row))
        code, out, _ = varnel("parse", "--format=table", "/nonexistent", good)
        self.assertTrue(out.startswith(b"/nonexistent\nrefused\n\n" + str(good).encode() + b"\n"), out)
        self.assertEqual(code, 2)

    def test_operands_are_taken_as_they_were_typed(self):
        names = ["[one.txt]", "++", "[]", "[a,b]", "'q'", '"q"', "a=b", "{x}", "%%", "1", "parse"]
        for name in names:
            self.file(name, PASSPORT)
        self.assertEqual(varnel("parse", *names, cwd=self.place.name), (0, PASSPORT_JSON * len(names), b""))
        self.assertEqual(varnel("parse", "[none]", "++none", cwd=self.place.name)[2],
                         b"varnel: [none]: No such file or directory\nvarnel: ++none: No such file or directory\n")

    def test_control_characters_of_a_file_name_are_made_visible(self):
        _, _, err = varnel("parse", "no\033[31m\nsuch")
        self.assertEqual(err, b"varnel: no?[31m?such: No such file or directory\n")


class Refusals(Folder):
    def refusal(self, text):
        code, out, err = varnel("parse", text=text)
        self.assertEqual((code, out), (1, b"null\n"))
        return err.decode()

    def test_the_sentence_names_the_file_and_the_length_found(self):
        path = self.file("note", b"A" * 75)
        code, out, err = varnel("parse", path)
        self.assertEqual((code, out), (1, b"null\n"))
        self.assertEqual(err.decode(), f"varnel: {path}: not a machine-readable zone: "
                         f"75 characters after clean-up, {LENGTHS}\n")

    def test_no_text_at_all(self):
        self.assertEqual(self.refusal(b""), "varnel: standard input: not a machine-readable zone: "
                         f"0 characters after clean-up, {LENGTHS}\n")

    def test_one_character(self):
        self.assertIn(": 1 character after", self.refusal(b"A"))

    def test_a_text_that_was_cut(self):
        self.assertIn(": 1022 characters after clean-up, ", self.refusal(b"A" * 1022))
        self.assertIn(": 1023 characters after clean-up of its first 1023, ", self.refusal(b"A" * 1024))

    def test_the_length_is_that_after_clean_up(self):
        self.assertIn(": 4 characters after", self.refusal(b"  a<\r\n\0\xff B.1 "))

    def test_bytes_at_the_end_that_were_not_examined_are_counted(self):
        umlaut = PASSPORT[:-1].replace(b"SSON", "SSÖN".encode())
        self.assertEqual(self.refusal(umlaut), "varnel: standard input: not a machine-readable zone: 86 characters "
                         f"after clean-up, {LENGTHS}; 1 byte at the end was not examined, because the text has "
                         "characters beyond ASCII\n")
        for text, unexamined in (("A" * 5 + "É", "1 byte"), ("ÉÉ" + "A" * 86 + "\n", "2 bytes"),
                                 ("AAAA\U0001f6c2", "2 bytes"), ("A" * 1000 + "É" * 22, "22 bytes")):
            with self.subTest(text=text):
                self.assertIn(f"{unexamined} at the end {'was' if unexamined == '1 byte' else 'were'} not examined, "
                              "because the text has characters beyond ASCII", self.refusal(text.encode()))

    def test_line_breaks_at_the_end_that_were_not_examined_are_not_worth_a_word(self):
        for text in ("É" + "A" * 40 + "\n", "ÉÉ" + "A" * 40 + "\r\n", "A" * 72 + "\n"):
            with self.subTest(text=text):
                self.assertNotIn("examined", self.refusal(text.encode()))

    def test_a_text_of_1023_units_is_cut_for_its_length_alone(self):
        self.assertNotIn("examined", self.refusal(("É" * 1023).encode()))

    def test_the_field_at_fault_is_named_by_its_place_and_what_it_lacks(self):
        passport = PASSPORT.decode()
        card = CARD.decode()
        for text, reason in (
                (passport.replace("740812", "74O812"), "line 2, columns 14-19 (birth date): expected digits"),
                (passport.replace("120415", "1204<5"), "line 2, columns 22-27 (expiry date): expected digits"),
                (passport.replace("P<UTO", "P<U70"), "line 1, columns 3-5 (issuing state): expected letters or <"),
                (passport.replace("6UTO", "6UT0"), "line 2, columns 11-13 (nationality): expected letters or <"),
                (passport.replace("ANNA", "4NNA"), "line 1, columns 6-44 (name): expected letters or <"),
                (passport.replace("ERIKSSON<<ANNA<MARIA", "<" * 20), "line 1, columns 6-44 (name): expected a name"),
                (passport.replace("P<", "Q<"), "line 1, columns 1-2 (document code): expected P or V first (passport, "
                 "long visa)"),
                (card.replace("740812", "74O812"), "line 2, columns 1-6 (birth date): expected digits"),
                (card.replace("120415", "12O415"), "line 2, columns 9-14 (expiry date): expected digits"),
                (card.replace("9UTO", "9UT0"), "line 2, columns 16-18 (nationality): expected letters or <"),
                (card.replace("ANNA", "4NNA"), "line 3, columns 1-30 (name): expected letters or <"),
                (card.replace("I<", "IV"), "line 1, columns 1-2 (document code): expected no V after the letter of a "
                 "card"),
                ("C" * 72, "line 2, columns 14-19 (birth date): expected digits; line 2, columns 22-27 (expiry date): "
                 "expected digits")):
            with self.subTest(text=text):
                self.assertEqual(self.refusal(text.encode()), f"varnel: standard input: {reason}\n")

    def test_every_refused_change_of_a_zone_has_its_column_in_the_reason(self):
        long_visa = PASSPORT.replace(b"P<", b"V<")
        short = b"%c<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<\nD231458907UTO7408122F1204159<<<<<<<6\n"
        for zone in (PASSPORT, long_visa, CARD, short % ord("I"), short % ord("V")):
            lines = zone.decode().splitlines()
            changed = [(line, column, "".join([*lines[:line], lines[line][:column] + c + lines[line][column + 1:],
                                               *lines[line + 1:]]))
                       for line in range(len(lines)) for column in range(len(lines[0])) for c in "Q7<"]
            text = "".join(zone + "\n" for _, _, zone in changed).encode()
            _, out, err = varnel("parse", "--each", "line", "--verbose", text=text)
            refused = [place for place, answer in zip(changed, out.splitlines(), strict=True) if answer == b"null"]
            self.assertGreater(len(refused), 30)
            for (line, column, _), reason in zip(refused, err.decode().splitlines(), strict=True):
                with self.subTest(zone=zone, line=line, column=column):
                    found = re.fullmatch(r"varnel: standard input: document \d+ \(line \d+\): line (\d), columns "
                                         r"(\d+)-(\d+) \([a-z ]+\): expected [a-zA-Z0-9 ,<()]+", reason)
                    self.assertEqual(int(found[1]), line + 1)
                    self.assertTrue(int(found[2]) <= column + 1 <= int(found[3]), reason)

    def test_the_document_code_is_named_as_the_reason_where_it_is_one(self):
        zones = {72: b"I<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<D231458907UTO7408122F1204159<<<<<<<6",
                 88: PASSPORT.replace(b"\n", b""), 90: CARD.replace(b"\n", b"")}
        for length, zone in zones.items():
            codes = [bytes([first, second]) for first in b"ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789<" for second in b"<VX"]
            files = {code: self.file(f"{length}{code.hex()}", code + zone[2:]) for code in codes}
            files_bad = {code: self.file(f"{length}{code.hex()}-", code + b"Q" * (length - 2)) for code in codes}
            read = [line != b"null" for line in varnel("parse", *files.values())[1].splitlines()]
            self.assertEqual(sum(read), {72: 9, 88: 6, 90: 6}[length])
            reasons = varnel("parse", *files_bad.values())[2].splitlines()
            for code, accepted, reason in zip(codes, read, reasons, strict=True):
                with self.subTest(length=length, code=code):
                    self.assertEqual(b"(document code)" not in reason, accepted, reason)

    def test_the_advice_names_what_helps(self):
        sentence = f"varnel: standard input: not a machine-readable zone: {{}} characters after clean-up, {LENGTHS}"
        line = PASSPORT.replace(b"\n", b"") + b"\n"
        for text, length, how in ((PASSPORT * 2, 176, "zone"), (PASSPORT + b"\n" + PASSPORT, 176, "block"),
                                  (line * 2, 176, "line"), (b"see:\n" + PASSPORT, 91, "zone"),
                                  (PASSPORT.replace(b"\n", b"\r") * 2, 176, "zone")):
            with self.subTest(text=text):
                self.assertEqual(self.refusal(text), sentence.format(length) + f"; try --each {how}\n")
        self.assertEqual(self.refusal(b"A" * 200), sentence.format(200) + "\n")

    def test_nothing_of_the_text_is_repeated(self):
        for text in (PASSPORT + b"X", PASSPORT.replace(b"P<", b"Q<"), PASSPORT[:80]):
            with self.subTest(text=text):
                err = self.refusal(text)
                for secret in ("ERIKSSON", "ANNA", "L898902C3", "740812", "ZE184226B"):
                    self.assertNotIn(secret, err)

    def test_refused_and_read_files_line_up(self):
        good, bad = self.file("good", PASSPORT), self.file("bad", b"no zone")
        code, out, _ = varnel("parse", bad, good, bad)
        self.assertEqual((code, out), (1, b"null\n" + PASSPORT_JSON + b"null\n"))


class Formats(Folder):
    def test_json(self):
        self.assertEqual(varnel("parse", "--format", "json", text=PASSPORT), (0, PASSPORT_JSON, b""))

    def test_json_with_slots(self):
        code, out, err = varnel("parse", "--slots", text=PASSPORT)
        slots = ",".join(f'"{name}":"{value}"' for name, value in PASSPORT_SLOTS)
        self.assertEqual((code, err), (0, b""))
        self.assertEqual(out, PASSPORT_JSON[:-2] + b',"slots":{' + slots.encode() + b"}}\n")

    def test_csv(self):
        bad = self.file("bad", b"")
        code, out, _ = varnel("parse", "--format", "csv", "-", bad, text=PASSPORT)
        self.assertEqual((code, out), (1, CSV_HEADER + b"1," + PASSPORT_ROW + b"2,,,,,,,,,,,,\n"))

    def test_csv_with_slots(self):
        bad = self.file("bad", b"")
        code, out, _ = varnel("parse", "--slots", "--format", "csv", "-", bad, text=PASSPORT)
        slots = ";".join(f"{name}={value}" for name, value in PASSPORT_SLOTS).encode()
        self.assertEqual((code, out), (1, CSV_HEADER[:-1] + b",slots\n1," + PASSPORT_ROW[:-1] + b"," + slots +
                                       b"\n2,,,,,,,,,,,,,\n"))

    def test_table(self):
        code, out, err = varnel("parse", "--format", "table", text=PASSPORT)
        rows = [f"{key:<16}  {value}" if value else key for key, value in zip(KEYS, PASSPORT_VALUES)]
        self.assertEqual((code, out.decode(), err), (0, "\n".join(rows) + "\n", b""))

    def test_table_with_slots(self):
        code, out, _ = varnel("parse", "--slots", "--format", "table", text=PASSPORT)
        pairs = [*zip(KEYS, PASSPORT_VALUES), *PASSPORT_SLOTS]
        self.assertEqual(code, 0)
        self.assertEqual([tuple(line.split()) for line in out.decode().splitlines()],
                         [pair if pair[1] else pair[:1] for pair in pairs])
        self.assertEqual(len({line.rindex(" ") for line in out.decode().splitlines() if " " in line}), 1)

    def test_tables_of_several_files_are_headed_by_the_file_names(self):
        good, bad = self.file("good", PASSPORT), self.file("bad", b"")
        _, table, _ = varnel("parse", "--format", "table", good)
        code, out, _ = varnel("parse", "--format", "table", good, bad, "-", text=PASSPORT)
        self.assertEqual((code, out), (1, str(good).encode() + b"\n" + table + b"\n" + str(bad).encode() +
                                       b"\nrefused\n\nstandard input\n" + table))

    def test_with_source_json_names_file_and_line(self):
        good, bad = self.file("good", PASSPORT), self.file('a"b', b"")
        code, out, _ = varnel("parse", "--with-source", good, bad, "-", text=PASSPORT)
        expected = (f'{{"file":"{good}","line":1,'.encode() + PASSPORT_JSON[1:] +
                    f'{{"file":"{self.place.name}/a\\"b","line":1,"refused":true}}\n'.encode() +
                    b'{"file":"-","line":1,' + PASSPORT_JSON[1:])
        self.assertEqual((code, out), (1, expected))

    def test_with_source_csv_names_file_and_line(self):
        bad = self.file("a,b", b"")
        code, out, _ = varnel("parse", "--with-source", "--format", "csv", "-", bad, text=PASSPORT)
        self.assertEqual((code, out), (1, CSV_HEADER.replace(b"document,", b"document,file,line,") +
                                       b"1,-,1," + PASSPORT_ROW + f'2,"{bad}",1,,,,,,,,,,,,\n'.encode()))

    def test_with_source_tables_are_headed_by_it(self):
        out = varnel("parse", "--with-source", "--format", "table", text=PASSPORT)[1]
        self.assertTrue(out.startswith(b"standard input\nfirstName  "), out)

    def test_the_last_of_several_formats_counts(self):
        self.assertEqual(varnel("parse", "--format", "csv", "--format=json", text=PASSPORT)[1], PASSPORT_JSON)


class Texts(Folder):
    def test_every_vector_gives_its_answer(self):
        vectors = sorted(VECTORS.glob("*/*.mrz"))
        self.assertGreaterEqual(len(vectors), 40)
        for path in vectors:
            with self.subTest(vector=f"{path.parent.name}/{path.stem}"):
                expected = path.with_suffix(".json").read_bytes()
                text = path.read_bytes()
                if text.startswith(MARK):  # which the command skips, unlike the library
                    expected = varnel("parse", text=text[len(MARK):])[1]
                code, out, err = varnel("parse", path)
                self.assertEqual(out, expected)
                self.assertEqual((code, err == b""), (1, False) if expected == b"null\n" else (0, True))

    def test_every_vector_gives_its_slots(self):
        vectors = sorted(VECTORS.glob("*/*.slots.json"))
        self.assertGreaterEqual(len(vectors), 5)
        for path in vectors:
            with self.subTest(vector=f"{path.parent.name}/{path.name}"):
                expected = json.loads(path.read_bytes())
                _, out, _ = varnel("parse", "--slots", path.with_name(path.name.replace(".slots.json", ".mrz")))
                slots = json.loads(out)["slots"]
                self.assertEqual(list(slots.items()), list(expected.items()))

    def test_any_bytes(self):
        seed = random.randrange(2**32)
        chance = random.Random(seed)
        for _ in range(40):
            text = chance.randbytes(chance.randrange(5000))
            with self.subTest(seed=seed, text=text):
                code, out, err = varnel("parse", text=text)
                self.assertEqual((code, out), (1, b"null\n"))
                self.assertRegex(err, rb"\Avarnel: standard input: (not a machine-readable zone: |line \d, ).*\n\Z")

    def test_noise_is_dropped_and_small_letters_raised(self):
        noisy = PASSPORT.lower().replace(b"\n", b"\r\n").replace(b"eriksson", b" e.r\0i-k\tsson ")
        self.assertEqual(varnel("parse", text=noisy), (0, PASSPORT_JSON, b""))

    def test_what_follows_the_first_1023_units_is_not_examined(self):
        padded = PASSPORT + b" " * (1023 - len(PASSPORT)) + b"X" * (3 << 20)
        self.assertEqual(varnel("parse", self.file("p", padded)), (0, PASSPORT_JSON, b""))
        self.assertEqual(varnel("parse", self.file("q", b" " + padded[:1022] + b"X"))[:2], (0, PASSPORT_JSON))
        self.assertEqual(varnel("parse", self.file("r", padded[:1022] + b"X"))[:2], (1, b"null\n"))

    def test_a_text_that_never_ends(self):
        code, out, err = varnel("parse", "/dev/zero")
        self.assertEqual((code, out), (1, b"null\n"))
        self.assertIn(b": 0 characters after clean-up of its first 1023, expected", err)


if __name__ == "__main__":
    unittest.main()
