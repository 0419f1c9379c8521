"""varnel parse and inspect, --each --jobs: the same answers, whatever the number of threads."""

import pathlib
import signal
import subprocess
import tempfile
import unittest

from support import CARD, PASSPORT, PASSPORT_JSON, PASSPORT_LINE, PROGRAM, varnel

CARD_LINE = CARD.replace(b"\n", b"") + b"\n"
OVER_LONG = b"A" * ((1 << 20) + 1) + b"\n"
JOBS = ("1", "2", "7")


def many_lines():
    """More than several chunks hold: passports, each with a number of its own, cards, refused and empty lines."""
    lines = []
    for i in range(6000):
        lines.append(PASSPORT_LINE.replace(b"L898902C3", b"%09d" % i))
        if i % 7 == 0:
            lines.append(CARD_LINE)
        if i % 11 == 0:
            lines.append(b"nothing\n")
        if i % 501 == 0:
            lines.append(b"\n")
    return b"".join(lines)


class SameAnswers(unittest.TestCase):
    maxDiff = 2000

    def expect_same(self, *arguments, text=b"", command="parse"):
        expected = varnel(command, *arguments, text=text)
        for jobs in JOBS:
            with self.subTest(arguments=arguments, jobs=jobs):
                found = varnel(command, *arguments, "--jobs", jobs, text=text)
                self.assertEqual(found[0], expected[0])
                self.assertTrue(found[1] == expected[1], "the output differs")
                self.assertTrue(found[2] == expected[2], "the messages differ")
        return expected

    def test_of_lines_in_every_format(self):
        text = many_lines()
        for options in ([], ["--format", "csv"], ["--format", "table"], ["--slots"], ["--with-source"],
                        ["--format", "csv", "--slots", "--with-source"], ["--format", "table", "--with-source"]):
            code, out, _ = self.expect_same("--each", "line", *options, text=text)
            self.assertEqual(code, 1)
            self.assertGreater(out.count(b"\n"), 6000)

    def test_of_blocks_and_zones(self):
        text = b"".join(PASSPORT.replace(b"L898902C3", b"%09d" % i) + b"\n" for i in range(3000))
        for how in ("block", "zone"):
            code, out, err = self.expect_same("--each", how, text=text)
            self.assertEqual((code, out.count(b"\n"), err), (0, 3000, b""))

    def test_of_several_files(self):
        with tempfile.TemporaryDirectory() as place:
            one, two, none = (pathlib.Path(place) / name for name in ("one", "two", "none"))
            one.write_bytes(many_lines())
            two.write_bytes(PASSPORT_LINE + b"x\n")
            code, _, err = self.expect_same("--each", "line", "--with-source", one, none, two, "-", text=CARD_LINE)
            self.assertEqual(code, 2)
            self.assertIn(b"No such file", err)
            code, _, err = self.expect_same("--each", "zone", two, one, text=b"")

    def test_with_the_reasons_of_refused_documents(self):
        code, _, err = self.expect_same("--each", "line", "--verbose", text=many_lines())
        self.assertEqual(code, 1)
        self.assertEqual(err.count(b"document "), 546 + 12)

    def test_with_documents_that_are_too_long(self):
        code, out, err = self.expect_same("--each", "line", text=PASSPORT_LINE + OVER_LONG + PASSPORT_LINE)
        self.assertEqual((code, out), (1, PASSPORT_JSON + b"null\n" + PASSPORT_JSON))
        self.assertEqual(err, b"varnel: standard input: line 2: longer than 1 MiB, refused\n")

    def test_of_nothing(self):
        self.assertEqual(self.expect_same("--each", "line"), (0, b"", b""))
        self.assertEqual(self.expect_same("--each", "zone")[0], 1)

    def test_of_one_document_without_each(self):
        self.assertEqual(self.expect_same(text=PASSPORT), (0, PASSPORT_JSON, b""))


    def test_of_inspections(self):
        text = many_lines()
        date = ("--date", "2026-11-21")
        for options in ([], ["--format", "csv"], ["--format", "table"], ["--with-source"], ["--repair", "digits"],
                        ["--verbose"]):
            with self.subTest(options=options):
                code, out, _ = self.expect_same("--each", "line", *date, *options, text=text, command="inspect")
                self.assertEqual(code, 1)
                self.assertGreater(out.count(b"\n"), 6000)
        blocks = b"".join(PASSPORT + b"\n" + CARD + b"\n" for _ in range(900))
        code, out, err = self.expect_same("--each", "block", *date, text=blocks, command="inspect")
        self.assertEqual((code, out.count(b"\n"), err), (0, 1800, b""))

    def test_of_doubtful_documents(self):
        doubtful = PASSPORT_LINE.replace(b"L898902C3", b"L898902C4")
        code, out, _ = self.expect_same("--each", "line", "--date", "2026-11-21", text=PASSPORT_LINE * 999 + doubtful,
                                        command="inspect")
        self.assertEqual((code, out.count(b'"doubtful"')), (1, 1))


class Zones(unittest.TestCase):
    def test_are_inspected_one_after_the_other(self):
        code, out, err = varnel("inspect", "--each", "zone", "--jobs", "2", text=PASSPORT)
        self.assertEqual((code, out), (2, b""))
        self.assertIn(b"varnel: --jobs goes with --each line or --each block", err)


class Numbers(unittest.TestCase):
    def test_other_than_1_to_256_are_refused(self):
        for jobs in ("0", "257", "-1", "two", "", "1.5", "99999999999"):
            with self.subTest(jobs=jobs):
                code, out, err = varnel("parse", "--each", "line", f"--jobs={jobs}", text=PASSPORT_LINE)
                self.assertEqual((code, out), (2, b""))
                self.assertIn(f"varnel: --jobs '{jobs}' is not a number from 1 to 256".encode(), err)

    def test_the_most(self):
        self.assertEqual(varnel("parse", "--each", "line", "--jobs", "256", text=PASSPORT_LINE * 3),
                         (0, PASSPORT_JSON * 3, b""))


class Streams(unittest.TestCase):
    def start(self):
        return subprocess.Popen([PROGRAM, "parse", "--each", "line", "--jobs", "2"], stdin=subprocess.PIPE,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE)

    def test_what_is_known_is_answered_before_more_is_waited_for(self):
        with self.start() as process:
            for _ in range(3):
                process.stdin.write(PASSPORT_LINE)
                process.stdin.flush()
                self.assertEqual(process.stdout.readline(), PASSPORT_JSON)
            process.stdin.close()
            self.assertEqual(process.wait(30), 0)

    def test_a_signal_ends_the_command_after_whole_answers(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            with self.start() as process:
                process.stdin.write(PASSPORT_LINE)
                process.stdin.flush()
                self.assertEqual(process.stdout.readline(), PASSPORT_JSON)
                process.send_signal(number)
                self.assertEqual(process.wait(30), -number)
                self.assertEqual(process.stdout.read(), b"")

    def test_a_reader_that_leaves_ends_the_command(self):
        with tempfile.NamedTemporaryFile() as file:
            file.write(PASSPORT_LINE * 20000)
            file.flush()
            with subprocess.Popen([PROGRAM, "parse", "--each", "line", "--jobs", "2", file.name],
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
                self.assertEqual(process.stdout.readline(), PASSPORT_JSON)
                process.stdout.close()
                self.assertEqual((process.wait(60), process.stderr.read()), (0, b""))


if __name__ == "__main__":
    unittest.main()
