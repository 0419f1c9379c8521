"""varnel barcode: a card per file, printed as varnel parse prints a document."""

import json
import pathlib
import tempfile
import unittest

from support import CSV_HEADER, KEYS, PASSPORT, varnel, varnel_on_terminal

# A licence of Virginia whose bearer does not exist.
LICENCE = (b"@\n\x1e\rANSI 636000100002DL00410110ZV01510008"
           b"DLDAQT64235789\nDCSHOLLOWAY\nDACMARGUERITE\nDADANNE,LOUISE\nDBD06062019\nDBB06061986\nDBA12102027\n"
           b"DBC2\nDAJVA\nDCGUSA\rZVZVA01\r")
VALUES = ["MARGUERITE", "HOLLOWAY", "ANNE LOUISE", "T64235789", "19860606", "20271210", "F", "USA", "VA", "",
          "DL", "20190606"]
INFO = {"version": 10, "issuer": "636000", "jurisdiction": "VA", "country": "USA", "subfiles": ["DL", "ZV"],
        "elements": [{"element": "ZVA", "start": 156, "end": 158}],
        "findings": [{"code": "unknownElement", "offset": 153, "element": "ZVA"}],
        "omitted": {"elements": 0, "findings": 0}}


class Barcode(unittest.TestCase):
    def test_the_twelve_values(self):
        code, out, err = varnel("barcode", text=LICENCE)
        self.assertEqual((code, err), (0, b""))
        self.assertEqual(list(json.loads(out).items()), list(zip(KEYS, VALUES)))

    def test_files(self):
        with tempfile.TemporaryDirectory() as place:
            path = pathlib.Path(place) / "licence"
            path.write_bytes(LICENCE)
            code, out, _ = varnel("barcode", path, path)
            self.assertEqual((code, len(out.splitlines())), (0, 2))

    def test_csv(self):
        code, out, _ = varnel("barcode", "--format", "csv", text=LICENCE)
        self.assertEqual((code, out), (0, CSV_HEADER + b"1," + ",".join(VALUES).encode() + b"\n"))

    def test_slots(self):
        _, out, _ = varnel("barcode", "--slots", text=LICENCE)
        slots = json.loads(out)["slots"]
        self.assertEqual((slots["FIELD_BIRTH_DATE"], slots["FIELD_ADDRESS_JURISDICTION"]), ("19860606", "VA"))

    def test_info(self):
        _, out, _ = varnel("barcode", "--info", text=LICENCE)
        answer = json.loads(out)
        self.assertEqual(answer.pop("info"), INFO)
        self.assertEqual(list(answer.values()), VALUES)

    def test_info_is_json_also_on_a_terminal(self):
        _, out, _ = varnel_on_terminal("barcode", "--info", text=LICENCE, streams=["stdout"])
        self.assertEqual(json.loads(out)["info"], INFO)
        for how in ("table", "csv"):
            code, out, err = varnel("barcode", "--info", "--format", how, text=LICENCE)
            self.assertEqual((code, out), (2, b""))
            self.assertTrue(err.startswith(b"varnel: --info is written as JSON only: it does not go with --format "
                                           + how.encode()), err)

    def test_a_byte_order_mark_is_found_and_counted(self):
        _, out, _ = varnel("barcode", "--info", text=b"\xef\xbb\xbf" + LICENCE)
        self.assertEqual(json.loads(out)["info"]["findings"],
                         [{"code": "byteOrderMark", "offset": 0, "element": None},
                          {"code": "unknownElement", "offset": 156, "element": "ZVA"}])

    def test_bytes_of_iso_8859_1_come_out_as_their_letters(self):
        _, out, _ = varnel("barcode", text=LICENCE.replace(b"HOLLOWAY", b"HOLL\xd6WAY"))
        self.assertEqual(json.loads(out)["lastName"], "HOLLÖWAY")

    def test_a_refused_text_says_why(self):
        code, out, err = varnel("barcode", text=PASSPORT)
        self.assertEqual((code, out), (1, b"null\n"))
        self.assertEqual(err, b"varnel: standard input: not a licence's barcode: "
                              b"neither a header nor lines of elements\n")

    def test_a_text_of_64_kib_is_read_and_a_longer_one_refused(self):
        text = LICENCE + b"8" * (65536 - len(LICENCE))
        self.assertEqual(varnel("barcode", text=text)[0], 0)
        code, out, err = varnel("barcode", text=text + b"8")
        self.assertEqual((code, out), (1, b"null\n"))
        self.assertEqual(err, b"varnel: standard input: not a licence's barcode: longer than 64 KiB\n")

    def test_it_has_no_each(self):
        code, out, err = varnel("barcode", "--each", "line", text=LICENCE)
        self.assertEqual((code, out), (2, b""))
        self.assertIn(b"--each", err)


if __name__ == "__main__":
    unittest.main()
