"""varnel inspect: a verdict on each document, in JSON, CSV or words."""

import json
import pathlib
import re
import tempfile
import unittest

from support import PASSPORT, SOURCES, varnel, varnel_on_terminal

DATE = ("--date", "2026-11-21")
WRONG_DIGIT = PASSPORT.replace(b"7408122", b"7408123")
CARD = (b"I<UTOD231458907<<<<<<<<<<<<<<<\n7408122F1204159UTO<<<<<<<<<<<6\nERIKSSON<<ANNA<MARIA<<<<<<<<<<\n")
VISA = b"V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<\nL898902C<3UTO6908061F9406236ZE184226\n"
PAGE = b"UTOPIA\nPassport No. L898902C3\n\n" + PASSPORT + b"\nsigned\n"

VALID_TABLE = """Valid passport (TD3), expired on 2012-04-15

  P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<
  L898902C36UTO7408122F1204159ZE184226B<<<<<10

  document code    P
  issuing state    UTO         Utopia
  family name      ERIKSSON
  given names      ANNA MARIA
  document number  L898902C3   check digit 6 agrees
  nationality      UTO         Utopia
  date of birth    1974-08-12  check digit 2 agrees
  sex              F
  date of expiry   2012-04-15  check digit 9 agrees
  personal number  ZE184226B   check digit 1 agrees
  composite                    check digit 0 agrees
"""

DOUBTFUL_TABLE = """Doubtful passport (TD3), expired on 2012-04-15

  P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<
  L898902C36UTO74O8122P1204159ZE184226B<<<<<10
               ^^^^^^ date of birth has characters that cannot stand there
                     ^ expected 6 (date of birth)
                      ^ sex has characters that cannot stand there
                                             ^ expected 8 (composite)

  document code    P
  issuing state    UTO         Utopia
  family name      ERIKSSON
  given names      ANNA MARIA
  document number  L898902C3   check digit 6 agrees
  nationality      UTO         Utopia
  date of birth    74O812      check digit 2, expected 6, has characters that cannot stand there
  sex              P           has characters that cannot stand there
  date of expiry   2012-04-15  check digit 9 agrees
  personal number  ZE184226B   check digit 1 agrees
  composite                    check digit 0, expected 8
"""


def verdicts(out):
    return [json.loads(line)["verdict"] for line in out.splitlines()]


class Json(unittest.TestCase):
    def test_a_page_with_a_passport(self):
        code, out, err = varnel("inspect", *DATE, text=PAGE)
        self.assertEqual((code, err), (0, b""))
        document = json.loads(out)
        self.assertEqual([document[key] for key in ("version", "date", "repair", "verdict", "layout", "expired")],
                         [1, "2026-11-21", "off", "valid", "TD3", True])
        self.assertEqual(document["source"][0], {"start": 31, "end": 75})
        self.assertEqual(document["fields"]["primaryIdentifier"]["value"], "ERIKSSON")

    def test_what_is_doubtful_or_refused_ends_with_1(self):
        code, out, err = varnel("inspect", *DATE, text=WRONG_DIGIT)
        self.assertEqual((code, verdicts(out), err), (1, ["doubtful"], b""))
        code, out, err = varnel("inspect", *DATE, text=b"Dear Sir or Madam,\n")
        self.assertEqual((code, verdicts(out)), (1, ["refused"]))
        self.assertEqual(json.loads(out)["findings"],
                         [{"code": "noZone", "field": None, "line": None, "column": None}])
        self.assertEqual(err, b"varnel: standard input: no machine-readable zone in the text\n")

    def test_lengths_are_explained(self):
        text = b"\n".join(line[:40] for line in PASSPORT.splitlines())
        code, out, err = varnel("inspect", *DATE, text=text)
        self.assertEqual((code, json.loads(out)["nearest"]["layout"]), (1, "TD3"))
        self.assertEqual(err, b"varnel: standard input: nearest to a passport (TD3), but line 1 has 40 characters instead "
                              b"of 44 and line 2 has 40 characters instead of 44\n")

    def test_files(self):
        with tempfile.TemporaryDirectory() as place:
            path = pathlib.Path(place) / "page"
            path.write_bytes(PAGE)
            code, out, err = varnel("inspect", *DATE, "--with-source", path, pathlib.Path(place) / "absent", path)
            self.assertEqual((code, verdicts(out)), (2, ["valid", "refused", "valid"]))
            self.assertTrue(out.startswith(f'{{"file":"{path}","line":1,"version":1,'.encode()))
            self.assertIn(b"absent", err)

    def test_a_text_of_64_KiB_is_the_longest(self):
        longest = PASSPORT + b"." * (65536 - len(PASSPORT))
        self.assertEqual(verdicts(varnel("inspect", *DATE, text=longest)[1]), ["valid"])
        code, out, err = varnel("inspect", *DATE, text=longest + b".")
        self.assertEqual((code, verdicts(out)), (1, ["refused"]))
        self.assertEqual(err, b"varnel: standard input: longer than 64 KiB, refused\n")


class Batch(unittest.TestCase):
    def test_lines(self):
        lines = PASSPORT.replace(b"\n", b"") + b"\nnothing\n\n" + CARD.replace(b"\n", b"") + b"\n"
        code, out, err = varnel("inspect", *DATE, "--each", "line", text=lines)
        self.assertEqual((code, verdicts(out), err), (1, ["valid", "refused", "refused", "valid"], b""))
        err = varnel("inspect", *DATE, "--each", "line", "--verbose", text=lines)[2]
        self.assertEqual(err, b"varnel: standard input: document 2 (line 2): no machine-readable zone in the text\n"
                              b"varnel: standard input: document 3 (line 3): no machine-readable zone in the text\n")

    def test_blocks_have_offsets_of_their_own(self):
        code, out, _ = varnel("inspect", *DATE, "--each", "block", text=b"\n\n" + PASSPORT + b" \t\n" + CARD)
        self.assertEqual(code, 0)
        self.assertEqual([json.loads(line)["source"][0]["start"] for line in out.splitlines()], [0, 0])

    def test_offsets_count_every_byte(self):
        marked = b"\xef\xbb\xbf" + PASSPORT.replace(b"\n", b"\r\n")
        for each in ([], ["--each", "block"], ["--each", "zone"]):
            code, out, _ = varnel("inspect", *DATE, *each, text=marked)
            self.assertEqual((code, json.loads(out)["source"]), (0, [{"start": 3, "end": 47}, {"start": 49, "end": 93}]))

    def test_blocks_are_separated_by_lines_of_any_white_space(self):
        for between in ("\f", "\u3000\n", "\u00a0\n", "\v"):
            _, out, _ = varnel("inspect", *DATE, "--each", "block", text=PASSPORT + between.encode() + CARD)
            self.assertEqual(verdicts(out), ["valid", "valid"])

    def test_zones_wherever_they_stand(self):
        text = PAGE + CARD + b"line\n" + WRONG_DIGIT + VISA
        code, out, err = varnel("inspect", *DATE, "--each", "zone", "--with-source", text=text)
        self.assertEqual((code, err), (1, b""))
        documents = [json.loads(line) for line in out.splitlines()]
        self.assertEqual([(d["layout"], d["verdict"], d["line"]) for d in documents],
                         [("TD3", "valid", 4), ("TD1", "valid", 8), ("TD3", "doubtful", 12), ("MRV-B", "valid", 14)])
        self.assertEqual(documents[1]["source"][0]["start"], text.index(CARD))

    def test_zones_of_a_text_longer_than_64_KiB(self):
        gaps = [b"x" * (step % 97) + b"\n" for step in range(3000)]
        text = b"".join(gap + PASSPORT for gap in gaps)
        code, out, _ = varnel("inspect", *DATE, "--each", "zone", text=text)
        starts = [json.loads(line)["source"][0]["start"] for line in out.splitlines()]
        self.assertEqual((code, starts), (0, [match.start() for match in re.finditer(b"P<UTO", text)]))

    def test_an_input_without_a_zone(self):
        code, out, err = varnel("inspect", *DATE, "--each", "zone", text=b"nothing\n" * 20000)
        self.assertEqual((code, verdicts(out)), (1, ["refused"]))
        self.assertEqual(err, b"varnel: standard input: no machine-readable zone in the text\n")
        code, out, err = varnel("inspect", *DATE, "--each", "zone", text="P<UTO".encode("utf-16"))
        self.assertEqual((code, out), (2, b""))
        self.assertEqual(err, b"varnel: standard input: UTF-16, which is not read: convert it to UTF-8\n")


class Csv(unittest.TestCase):
    def test_rows(self):
        code, out, _ = varnel("inspect", *DATE, "--each", "block", "--format", "csv",
                              text=WRONG_DIGIT + b"\nnothing\n")
        self.assertEqual(code, 1)
        self.assertEqual(out.decode().splitlines(), [
            "document,verdict,layout,expired,findings,documentCode,issuingState,documentNumber,nationality,birthDate,"
            "sex,expiryDate,primaryIdentifier,secondaryIdentifier,optionalData1,optionalData2,optionalData,"
            "personalNumber,officeCode",
            "1,doubtful,TD3,true,birthDate=checkFailed;composite=checkFailed,P,UTO,L898902C3,UTO,1974-08-12,F,"
            "2012-04-15,ERIKSSON,ANNA MARIA,,,,ZE184226B,",
            "2,refused,,,noZone,,,,,,,,,,,,,,"])


class Words(unittest.TestCase):
    def test_a_valid_passport(self):
        self.assertEqual(varnel("inspect", *DATE, "--format", "table", text=PASSPORT)[1].decode(), VALID_TABLE)

    def test_a_doubtful_one(self):
        text = PASSPORT.replace(b"7408122F", b"74O8122P")
        code, out, _ = varnel("inspect", *DATE, "--format", "table", text=text)
        self.assertEqual((code, out.decode()), (1, DOUBTFUL_TABLE))

    def test_notices_and_noise(self):
        text = CARD.replace(b"I<UTO", b"IX*UTO").replace(b"ERIKSSON<<", b"ERIK*SSON<<")
        out = varnel("inspect", *DATE, "--format", "table", text=text)[1].decode()
        self.assertTrue(out.endswith("\n  line 1: characters that no zone has were dropped\n"
                                     "  line 3: characters that no zone has were dropped\n"), out)

    def test_colours_are_for_terminals(self):
        out = varnel_on_terminal("inspect", *DATE, text=WRONG_DIGIT, streams=["stdout"])[1]
        self.assertTrue(out.startswith(b"\033[1;33mDoubtful passport (TD3)\033[0m, expired on 2012-04-15\n"))
        self.assertIn(b"\033[4;31m3\033[0m", out)
        plain = varnel("inspect", *DATE, "--format", "table", text=WRONG_DIGIT)[1]
        self.assertEqual(re.sub(rb"\033\[[0-9;]*m", b"", out), plain)

    def test_the_summary_counts_the_doubtful(self):
        for text, summary in ((PASSPORT + b"\n" + WRONG_DIGIT + b"\nnothing\n", b"3 documents, 1 refused, 1 doubtful\n"),
                              (PASSPORT, b"1 document, 0 refused\n")):
            err = varnel_on_terminal("inspect", *DATE, "--each", "block", text=text, streams=["stderr"])[2]
            self.assertTrue(err.endswith(b"varnel: " + summary), err)

    def test_all_zones_of_a_text_have_a_summary_too(self):
        for text, summary in ((PAGE + WRONG_DIGIT + b"\nand words\n", b"2 documents, 0 refused, 1 doubtful\n"),
                              (b"nothing\n", b"1 document, 1 refused\n")):
            err = varnel_on_terminal("inspect", *DATE, "--each", "zone", text=text, streams=["stderr"])[2]
            self.assertTrue(err.endswith(b"varnel: " + summary), err)
            self.assertNotIn(b"varnel: 1 document", varnel("inspect", *DATE, "--each", "zone", text=text)[2])

    def test_a_refusal_is_explained_once(self):
        reason = b"no machine-readable zone in the text"
        for each in ((), ("--each", "block"), ("--each", "zone")):
            _, out, err = varnel_on_terminal("inspect", *DATE, *each, text=b"nothing\n", streams=["stdout", "stderr"])
            self.assertEqual((out.count(reason), err.count(reason)), (1, 0), each)
            _, out, err = varnel_on_terminal("inspect", *DATE, *each, text=b"nothing\n", streams=["stderr"])
            self.assertEqual((out.count(reason), err.count(reason)), (0, 1), each)

    def test_given_names_are_many(self):
        text = PASSPORT.replace(b"ANNA", b"ANN4")
        out = varnel("inspect", *DATE, "--format", "table", text=text)[1].decode()
        self.assertIn(" given names have characters that cannot stand there\n", out)
        self.assertIn("\n  given names      ANN4<MARIA<<<<<<<<<<<<<<<<<<<  have characters that cannot stand there\n", out)


class Repair(unittest.TestCase):
    READ = PASSPORT.replace(b"7408122F", b"74O8122F")

    def test_only_when_asked_for(self):
        self.assertEqual(verdicts(varnel("inspect", *DATE, text=self.READ)[1]), ["doubtful"])
        self.assertEqual(verdicts(varnel("inspect", *DATE, "--repair", "off", text=self.READ)[1]), ["doubtful"])
        code, out, _ = varnel("inspect", *DATE, "--repair", "columns", text=self.READ)
        document = json.loads(out)
        self.assertEqual((code, document["verdict"], document["repair"]), (0, "repaired", "columns"))
        self.assertEqual(document["changes"],
                         [{"line": 1, "column": 15, "from": "O", "to": "0", "reason": "class"}])

    def test_changes_in_words(self):
        out = varnel("inspect", *DATE, "--repair", "digits", "--format", "table", text=self.READ)[1].decode()
        self.assertTrue(out.startswith("Valid after repair: passport (TD3), expired on 2012-04-15\n"), out)
        self.assertTrue(out.endswith("\n  line 2, column 16: O read, 0 taken: "
                                     "only one kind of character can stand there\n"), out)


class Looks(unittest.TestCase):
    # Three frames of a passport, each with an error elsewhere.
    FRAMES = [PASSPORT.replace(b"ERIKSSON", b"ERIKSSDN"), PASSPORT.replace(b"7408122", b"7408172"),
              PASSPORT.replace(b"L898902C3", b"L898902G3")]

    def look(self, frames, *options):
        with tempfile.TemporaryDirectory() as place:
            paths = [pathlib.Path(place) / str(number) for number in range(len(frames))]
            for path, frame in zip(paths, frames):
                path.write_bytes(frame)
            return varnel("inspect", *DATE, "--looks", *options, *paths)

    def test_three_frames(self):
        code, out, err = self.look(self.FRAMES, "--repair", "digits")
        document = json.loads(out)
        self.assertEqual((code, document["verdict"], document["source"], err), (0, "voted", [], b""))
        self.assertEqual(document["zone"], PASSPORT.decode().split())

    def test_a_frame_without_a_zone_is_reported_and_counts_for_nothing(self):
        code, out, err = self.look([PASSPORT, b"nothing"])
        self.assertEqual((code, verdicts(out)), (0, ["valid"]))
        self.assertIn(b"1: no machine-readable zone in the text", err)
        self.assertEqual(verdicts(self.look([b"nothing"])[1]), ["refused"])

    def test_two_documents_are_no_answer(self):
        other = PASSPORT.replace(b"L898902C36UTO7408122F1204159ZE184226B<<<<<10",
                                 b"X123456785UTO7408122F1204159ZE184226B<<<<<12")
        code, out, _ = self.look([PASSPORT, other], "--repair", "digits")
        self.assertEqual((code, verdicts(out)), (1, ["doubtful"]))

    def test_one_document_has_no_source(self):
        for option in ("--each=line", "--with-source"):
            code, out, err = varnel("inspect", "--looks", option, text=PASSPORT)
            self.assertEqual((code, out), (2, b""))
            self.assertIn(b"--looks makes one document of all files", err)


class Usage(unittest.TestCase):
    def test_dates(self):
        for date in ("2026-02-30", "2026-13-01", "0000-01-01", "26-1-1", "2026-11-2x", " 2026-1-1", "today", ""):
            with self.subTest(date):
                code, out, err = varnel("inspect", f"--date={date}", text=PASSPORT)
                self.assertEqual((code, out), (2, b""))
                self.assertIn(b"--date", err)
        self.assertEqual(json.loads(varnel("inspect", "--date", "2024-02-29", text=PASSPORT)[1])["date"], "2024-02-29")

    def test_the_date_is_today_by_default(self):
        import datetime
        before = datetime.datetime.now(datetime.timezone.utc).date().isoformat()
        date = json.loads(varnel("inspect", text=PASSPORT)[1])["date"]
        after = datetime.datetime.now(datetime.timezone.utc).date().isoformat()
        self.assertIn(date, (before, after))

    def test_output_is_within_the_schema(self):
        try:
            import jsonschema
        except ImportError:
            self.skipTest("jsonschema is not found (Debian: python3-jsonschema)")
        schema = json.loads((SOURCES / "docs" / "inspection.schema.json").read_text())
        for text in (PASSPORT, WRONG_DIGIT, CARD, VISA, b"", PASSPORT[:80]):
            jsonschema.validate(json.loads(varnel("inspect", *DATE, text=text)[1]), schema)


if __name__ == "__main__":
    unittest.main()
