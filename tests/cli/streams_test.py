"""Where output goes, what becomes of it when it cannot go there, and what a stream costs."""

import os
import pathlib
import subprocess
import sys
import tempfile
import threading
import unittest

from support import PASSPORT, PASSPORT_JSON, PASSPORT_LINE, PROGRAM, VECTORS, environment, read_until, varnel


def close_quietly(pipe):
    try:
        pipe.close()
    except BrokenPipeError:  # what was still buffered has nowhere to go
        pass


class Broken(unittest.TestCase):
    @unittest.skipUnless(os.path.exists("/dev/full"), "no /dev/full here")
    def test_a_full_disk(self):
        calls = [["parse", "-"], ["parse", "--each", "line"], ["parse", "--each", "block", "--format", "csv"],
                 ["parse", "--format", "table"], ["element", "DAQ"], ["soundex", "Lee"], ["--help"], ["--version"],
                 ["parse", "--help"]]
        for arguments in calls:
            with self.subTest(arguments=arguments), open("/dev/full", "wb") as full:
                code, _, err = varnel(*arguments, text=PASSPORT_LINE, stdout=full)
                self.assertEqual((code, err), (2, b"varnel: standard output: No space left on device\n"))

    @unittest.skipUnless(os.path.exists("/dev/full"), "no /dev/full here")
    def test_no_file_is_opened_once_nothing_more_can_be_written(self):
        with open("/dev/full", "wb") as full:
            code, _, err = varnel("parse", *[VECTORS / "td3" / "specimen.mrz"] * 2, "/nonexistent", stdout=full)
        self.assertEqual((code, err), (2, b"varnel: standard output: No space left on device\n"))

    @unittest.skipUnless(os.path.exists("/dev/full"), "no /dev/full here")
    def test_nothing_more_is_read_once_nothing_more_can_be_written(self):
        with open("/dev/full", "wb") as full:
            child = subprocess.Popen([PROGRAM, "parse", "--each", "line"], stdin=subprocess.PIPE, stdout=full,
                                     stderr=subprocess.PIPE, env=environment())
        with self.assertRaises(BrokenPipeError):
            for _ in range(1000):
                child.stdin.write(PASSPORT_LINE * 1000)
                child.stdin.flush()
        with child.stderr as pipe:
            self.assertEqual(pipe.read(), b"varnel: standard output: No space left on device\n")
        self.assertEqual(child.wait(timeout=60), 2)
        close_quietly(child.stdin)

    def closed_pipe(self, arguments, text, **options):
        """The reader takes one line and closes the pipe; more is written than a pipe holds."""
        child = subprocess.Popen([PROGRAM, *arguments], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                 stderr=subprocess.PIPE, env=environment(), **options)

        def feed():
            try:
                while True:
                    child.stdin.write(text)
            except BrokenPipeError:
                pass

        feeder = threading.Thread(target=feed)
        feeder.start()
        first = child.stdout.readline()
        child.stdout.close()
        code = child.wait(timeout=60)
        feeder.join()
        close_quietly(child.stdin)
        with child.stderr as pipe:
            return code, first, pipe.read()

    def test_a_closed_pipe_ends_an_endless_stream_quietly(self):
        self.assertEqual(self.closed_pipe(["parse", "--each", "line"], PASSPORT_LINE * 1000), (0, PASSPORT_JSON, b""))

    def test_the_code_is_that_of_what_was_seen(self):
        self.assertEqual(self.closed_pipe(["parse", "--each", "block"], b"no zone\n\n" * 1000), (1, b"null\n", b""))

    def test_a_closed_pipe_is_quiet_whatever_the_caller_made_of_the_signal(self):
        self.assertEqual(self.closed_pipe(["parse", "--each", "line"], PASSPORT_LINE * 1000, restore_signals=False),
                         (0, PASSPORT_JSON, b""))

    def test_standard_output_may_be_closed_from_the_start(self):
        done = subprocess.run(f'"{PROGRAM}" parse >&-', shell=True, input=PASSPORT, stderr=subprocess.PIPE, check=False)
        self.assertEqual((done.returncode, done.stderr), (2, b"varnel: standard output: Bad file descriptor\n"))

    def test_standard_input_may_be_closed_from_the_start(self):
        done = subprocess.run(f'"{PROGRAM}" parse <&-', shell=True, capture_output=True, check=False)
        self.assertEqual((done.returncode, done.stdout, done.stderr),
                         (2, b"", b"varnel: standard input: Bad file descriptor\n"))

    def test_a_file_that_cannot_be_read_any_further(self):
        """The documents before the failure are printed, the one that it broke off is not."""
        with tempfile.TemporaryDirectory() as place:
            unreadable = pathlib.Path("/proc/self/mem")
            if not unreadable.exists():
                self.skipTest("no file here that opens and cannot be read")
            good = pathlib.Path(place) / "good"
            good.write_bytes(PASSPORT_LINE)
            code, out, err = varnel("parse", "--each", "line", unreadable, good)
        self.assertEqual((code, out, err), (2, PASSPORT_JSON, b"varnel: /proc/self/mem: Input/output error\n"))


class Flow(unittest.TestCase):
    def test_every_answer_is_out_before_more_input_is_waited_for(self):
        child = subprocess.Popen([PROGRAM, "parse", "--each", "line"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                 env=environment())
        for _ in range(3):
            child.stdin.write(PASSPORT_LINE)
            child.stdin.flush()
            self.assertEqual(read_until(child.stdout, len(PASSPORT_JSON)), PASSPORT_JSON)
        child.stdin.close()
        child.stdout.close()
        self.assertEqual(child.wait(timeout=60), 0)

    def memory_after(self, count, how, document):
        """The peak of resident memory, in KiB, when `count` documents have been answered."""
        child = subprocess.Popen([PROGRAM, "parse", "--each", how], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                 env=environment())

        def feed():
            for _ in range(count // 100):
                child.stdin.write(document * 100)
            child.stdin.flush()

        feeder = threading.Thread(target=feed)
        feeder.start()
        seen = read_until(child.stdout, count * len(PASSPORT_JSON))
        feeder.join()
        self.assertEqual(len(seen), count * len(PASSPORT_JSON))
        status = pathlib.Path(f"/proc/{child.pid}/status").read_text(encoding="ascii")
        child.stdin.close()
        child.stdout.close()
        child.wait(timeout=60)
        return next(int(line.split()[1]) for line in status.splitlines() if line.startswith("VmHWM"))

    @unittest.skipUnless(sys.platform.startswith("linux"), "memory is read from /proc")
    def test_100000_documents_take_no_more_memory_than_100(self):
        for how, document in (("line", PASSPORT_LINE), ("block", PASSPORT + b"\n")):
            with self.subTest(each=how):
                # What a run takes varies by some pages with where the system happens to put the program.
                few = max(self.memory_after(100, how, document) for _ in range(3))
                many = min(self.memory_after(100_000, how, document) for _ in range(3))
                self.assertLessEqual(many, few + 64)


if __name__ == "__main__":
    unittest.main()
