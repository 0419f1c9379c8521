"""varnel parse --each: many documents from a stream."""

import pathlib
import tempfile
import unittest

from support import (CARD, CSV_HEADER, PASSPORT, PASSPORT_JSON, PASSPORT_LINE, PASSPORT_ROW, VECTORS, varnel)

MIB = 1 << 20


def each(how, text, *arguments):
    return varnel("parse", "--each", how, *arguments, text=text)


class Lines(unittest.TestCase):
    def test_one_answer_per_line_in_input_order(self):
        card = each("line", CARD.replace(b"\n", b""))[1]
        self.assertTrue(card.startswith(b'{"firstName":"ANNA"'))
        self.assertEqual(each("line", PASSPORT_LINE + CARD.replace(b"\n", b"") + b"\n" + PASSPORT_LINE),
                         (0, PASSPORT_JSON + card + PASSPORT_JSON, b""))

    def test_empty_lines_are_refused_documents(self):
        self.assertEqual(each("line", b"\n" + PASSPORT_LINE + b"\n\n"),
                         (1, b"null\n" + PASSPORT_JSON + b"null\nnull\n", b""))

    def test_refused_lines_are_not_reported_one_by_one(self):
        self.assertEqual(each("line", b"nothing\n" * 3), (1, b"null\n" * 3, b""))

    def test_no_lines_give_nothing(self):
        self.assertEqual(each("line", b""), (0, b"", b""))

    def test_the_last_line_needs_no_line_feed(self):
        self.assertEqual(each("line", PASSPORT_LINE + PASSPORT_LINE[:-1]), (0, PASSPORT_JSON * 2, b""))

    def test_carriage_returns_do_no_harm(self):
        self.assertEqual(each("line", PASSPORT_LINE[:-1] + b"\r\n"), (0, PASSPORT_JSON, b""))

    def test_lines_may_end_with_carriage_returns_alone(self):
        text = PASSPORT_LINE.replace(b"\n", b"\r") * 2
        self.assertEqual(each("line", text), (0, PASSPORT_JSON * 2, b""))
        self.assertEqual(each("block", PASSPORT.replace(b"\n", b"\r") + b"\r" + PASSPORT), (0, PASSPORT_JSON * 2, b""))

    def test_a_byte_order_mark_is_skipped_in_every_input(self):
        with tempfile.TemporaryDirectory() as place:
            one = pathlib.Path(place) / "one"
            one.write_bytes(b"\xef\xbb\xbf" + PASSPORT_LINE)
            self.assertEqual(varnel("parse", "--each=line", one, "-", text=b"\xef\xbb\xbf" + PASSPORT_LINE),
                             (0, PASSPORT_JSON * 2, b""))
        for how in ("block", "zone"):
            self.assertEqual(each(how, b"\xef\xbb\xbf" + PASSPORT), (0, PASSPORT_JSON, b""))
        self.assertEqual(varnel("parse", text=b"\xef\xbb\xbf" + PASSPORT[:-1]), (0, PASSPORT_JSON, b""))

    def test_utf_16_is_a_clear_error(self):
        for encoding in ("utf-16-le", "utf-16-be"):
            text = ("\ufeff" + PASSPORT.decode()).encode(encoding)
            complaint = b"varnel: standard input: UTF-16 text, which is not read; convert it to UTF-8 first\n"
            for arguments in (["parse"], ["parse", "--each", "line"], ["soundex", "-"], ["element", "-"]):
                with self.subTest(encoding=encoding, arguments=arguments):
                    self.assertEqual(varnel(*arguments, text=text), (2, b"", complaint))

    def test_csv_numbers_every_line(self):
        self.assertEqual(each("line", b"\n" + PASSPORT_LINE + b"x\n", "--format", "csv"),
                         (1, CSV_HEADER + b"1,,,,,,,,,,,,\n2," + PASSPORT_ROW + b"3,,,,,,,,,,,,\n", b""))

    def test_tables_are_headed_by_numbers(self):
        code, out, err = each("line", b"\n" + PASSPORT_LINE, "--format", "table")
        self.assertEqual((code, err), (1, b""))
        self.assertTrue(out.startswith(b"document 1\nrefused\n\ndocument 2\nfirstName         ANNA\n"))

    def test_slots(self):
        _, out, _ = each("line", PASSPORT_LINE * 2, "--slots")
        self.assertEqual(out, varnel("parse", "--slots", text=PASSPORT)[1] * 2)

    def test_a_line_of_1_mib_is_read_and_a_longer_one_an_error_for_itself(self):
        line = PASSPORT_LINE[:-1]
        longest = line + b" " * (MIB - len(line)) + b"\n"
        self.assertEqual(each("line", longest + PASSPORT_LINE), (0, PASSPORT_JSON * 2, b""))
        code, out, err = each("line", PASSPORT_LINE + b" " + longest + PASSPORT_LINE)
        self.assertEqual((code, out), (1, PASSPORT_JSON + b"null\n" + PASSPORT_JSON))
        self.assertEqual(err, b"varnel: standard input: line 2: longer than 1 MiB, refused\n")

    def test_a_long_line_without_an_end(self):
        code, out, err = each("line", b"P" * (3 * MIB), "--format", "csv")
        self.assertEqual((code, out), (1, CSV_HEADER + b"1,,,,,,,,,,,,\n"))
        self.assertEqual(err, b"varnel: standard input: line 1: longer than 1 MiB, refused\n")

    def test_any_bytes(self):
        text = bytes(range(256)) * 40
        lines = text.count(b"\n") + text.count(b"\r") + 1
        self.assertEqual(each("line", text), (1, b"null\n" * lines, b""))

    def test_files_follow_each_other_and_numbers_go_on(self):
        with tempfile.TemporaryDirectory() as place:
            one, two = pathlib.Path(place) / "one", pathlib.Path(place) / "two"
            one.write_bytes(PASSPORT_LINE[:-1])  # no line feed: its last line ends with the file all the same
            two.write_bytes(b"x" * (MIB + 1) + b"\n" + PASSPORT_LINE)
            code, out, err = varnel("parse", "--each=line", "--format=csv", one, "/nonexistent", "-", two,
                                    text=PASSPORT_LINE)
        self.assertEqual(code, 2)
        self.assertEqual(out, CSV_HEADER + b"1," + PASSPORT_ROW + b"2," + PASSPORT_ROW + b"3,,,,,,,,,,,,\n4," +
                         PASSPORT_ROW)
        self.assertEqual(err.decode(), "varnel: /nonexistent: No such file or directory\n"
                         f"varnel: {two}: line 1: longer than 1 MiB, refused\n")

    def test_with_source_every_document_has_its_line(self):
        text = b"\n" + PASSPORT_LINE + b"x\n"
        self.assertEqual(each("line", text, "--with-source")[1],
                         b'{"file":"-","line":1,"refused":true}\n{"file":"-","line":2,' + PASSPORT_JSON[1:] +
                         b'{"file":"-","line":3,"refused":true}\n')
        self.assertEqual(each("block", b"\n\n" + PASSPORT, "--with-source", "--format", "csv")[1].splitlines()[1],
                         b"1,-,3," + PASSPORT_ROW[:-1])
        self.assertTrue(each("block", PASSPORT, "--with-source", "--format", "table")[1].startswith(
            b"document 1 (standard input, line 1)\n"))

    def test_reasons_are_given_when_asked_for(self):
        code, out, err = each("line", b"x\n" + PASSPORT_LINE + b"\n", "--verbose")
        self.assertEqual((code, out), (1, b"null\n" + PASSPORT_JSON + b"null\n"))
        first, second = err.decode().splitlines()
        self.assertTrue(first.startswith("varnel: standard input: document 1 (line 1): not a machine-readable "
                                         "zone: 1 character after clean-up, "), first)
        self.assertTrue(second.startswith("varnel: standard input: document 3 (line 3): not a machine-readable "
                                          "zone: 0 characters after clean-up, "), second)

    def test_100000_lines(self):
        documents = PASSPORT_LINE * 99 + b"\n"
        answers = PASSPORT_JSON * 99 + b"null\n"
        self.assertEqual(each("line", documents * 1000), (1, answers * 1000, b""))


class Blocks(unittest.TestCase):
    def test_blank_lines_part_documents(self):
        self.assertEqual(each("block", PASSPORT + b"\n" + PASSPORT), (0, PASSPORT_JSON * 2, b""))

    def test_any_number_of_blank_lines(self):
        blank = b"\n \t\n\r\n\n"
        self.assertEqual(each("block", PASSPORT + blank + PASSPORT), (0, PASSPORT_JSON * 2, b""))

    def test_blank_lines_before_and_behind_are_no_documents(self):
        self.assertEqual(each("block", b"\n  \n\r\n" + PASSPORT + b"\n\n\t\n  "), (0, PASSPORT_JSON, b""))

    def test_nothing_but_blank_lines(self):
        self.assertEqual(each("block", b"\n \n\t\r\n"), (0, b"", b""))
        self.assertEqual(each("block", b""), (0, b"", b""))

    def test_the_last_block_needs_no_line_feed(self):
        self.assertEqual(each("block", PASSPORT + b"\n" + PASSPORT[:-1]), (0, PASSPORT_JSON * 2, b""))

    def test_a_refused_block_keeps_its_place(self):
        self.assertEqual(each("block", PASSPORT + b"\nnot a zone\nat all\n\n" + PASSPORT, "--format", "csv"),
                         (1, CSV_HEADER + b"1," + PASSPORT_ROW + b"2,,,,,,,,,,,,\n3," + PASSPORT_ROW, b""))

    def test_a_nul_byte_makes_no_line_blank(self):
        self.assertEqual(each("block", b"\0\n\n" + PASSPORT), (1, b"null\n" + PASSPORT_JSON, b""))

    def test_a_block_over_1_mib_is_an_error_for_itself(self):
        long_block = (b"x" * 1023 + b"\n") * 1024 + b"y\n"
        code, out, err = each("block", b"\n" + PASSPORT + b"\n" + long_block + b"\n" + PASSPORT)
        self.assertEqual((code, out), (1, PASSPORT_JSON + b"null\n" + PASSPORT_JSON))
        self.assertEqual(err, b"varnel: standard input: block at line 5: longer than 1 MiB, refused\n")

    def test_blank_lines_may_be_of_any_length(self):
        self.assertEqual(each("block", b" " * (2 * MIB) + b"\n" + PASSPORT + b"\t" * (2 * MIB) + b"\n" + PASSPORT),
                         (0, PASSPORT_JSON * 2, b""))

    def test_all_vectors_one_after_the_other(self):
        documents, answers = [], []
        for path in sorted(VECTORS.glob("*/*.mrz")):
            text = path.read_bytes()
            lines = text.removesuffix(b"\n").split(b"\n")
            # A blank line inside would part the text, and a text that is not ASCII is shorter in units than
            # in bytes, so that the line feed after it counts, which a block does not have.
            if text.isascii() and b"\r" not in text.replace(b"\r\n", b"") and all(line.strip(b" \t\r") for line in lines):
                documents.append(text.removesuffix(b"\n") + b"\n")
                answers.append(path.with_suffix(".json").read_bytes())
        self.assertGreaterEqual(len(documents), 40)
        code, out, err = each("block", b"\n".join(documents))
        self.assertEqual(out.splitlines(), b"".join(answers).splitlines())
        self.assertEqual((code, err), (1, b""))


class Zones(unittest.TestCase):
    def test_zones_below_each_other_need_no_blank_line(self):
        card = varnel("parse", text=CARD)[1]
        self.assertEqual(each("zone", PASSPORT + CARD + PASSPORT + PASSPORT_LINE),
                         (0, PASSPORT_JSON + card + PASSPORT_JSON * 2, b""))

    def test_text_around_is_passed_over(self):
        self.assertEqual(each("zone", b"Two passports:\n\n" + PASSPORT + b"and\n" + PASSPORT + b"Bye.\n"),
                         (0, PASSPORT_JSON * 2, b""))

    def test_a_damaged_zone_keeps_its_place(self):
        self.assertEqual(each("zone", PASSPORT + PASSPORT[1:] + PASSPORT), (1, PASSPORT_JSON + b"null\n" + PASSPORT_JSON, b""))

    def test_an_input_without_a_zone_is_reported(self):
        self.assertEqual(each("zone", b"nothing here\n"),
                         (1, b"", b"varnel: standard input: no machine-readable zone found\n"))

    def test_characters_beyond_ascii_cost_nothing_of_a_zone(self):
        self.assertEqual(each("zone", PASSPORT.replace(b"\n", "é\n".encode())), (0, PASSPORT_JSON, b""))


if __name__ == "__main__":
    unittest.main()
