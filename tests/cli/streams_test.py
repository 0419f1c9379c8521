"""Where output goes, what becomes of it when it cannot go there, and what a stream costs."""

import os
import pathlib
import pty
import select
import signal
import subprocess
import sys
import tempfile
import threading
import unittest

from support import (PASSPORT, PASSPORT_JSON, PASSPORT_LINE, PROGRAM, VECTORS, environment, read_terminal,
                     read_until, varnel)


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


class Interrupted(unittest.TestCase):
    def start(self, *arguments, **options):
        return subprocess.Popen([PROGRAM, *arguments], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, env=environment(), **options)

    def end(self, child):
        with child.stdout as out, child.stderr as err:
            ended = out.read(), err.read()
        close_quietly(child.stdin)
        return (child.wait(timeout=60), *ended)

    def test_a_signal_while_input_is_waited_for_leaves_whole_records(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            for arguments in (["parse", "--each", "line"], ["parse", "--each", "zone"]):
                with self.subTest(signal=number, arguments=arguments):
                    child = self.start(*arguments)
                    child.stdin.write(PASSPORT_LINE * 2 + PASSPORT_LINE[:50])  # the third is not complete
                    child.stdin.flush()
                    self.assertEqual(read_until(child.stdout, 2 * len(PASSPORT_JSON)), PASSPORT_JSON * 2)
                    child.send_signal(number)
                    self.assertEqual(self.end(child), (-number, b"", b""))

    def test_a_signal_while_output_is_waited_for_leaves_whole_records(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            with self.subTest(signal=number), tempfile.TemporaryDirectory() as place:
                lines = pathlib.Path(place) / "lines"
                lines.write_bytes(PASSPORT_LINE * 20_000)
                child = self.start("parse", "--each", "line", lines)
                seen = read_until(child.stdout, len(PASSPORT_JSON))  # the pipe is full soon after
                child.send_signal(number)
                code, rest, err = self.end(child)
                count = (len(seen) + len(rest)) // len(PASSPORT_JSON)
                self.assertEqual((code, seen + rest, err), (-number, PASSPORT_JSON * count, b""))
                self.assertLess(count, 20_000)

    def test_a_signal_that_the_caller_ignores_stays_ignored(self):
        child = self.start("parse", "--each", "line", preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_IGN))
        child.stdin.write(PASSPORT_LINE)
        child.stdin.flush()
        read_until(child.stdout, len(PASSPORT_JSON))
        child.send_signal(signal.SIGINT)
        child.stdin.write(PASSPORT_LINE)
        child.stdin.close()
        self.assertEqual(self.end(child), (0, PASSPORT_JSON, b""))

    def test_the_progress_bar_is_gone(self):
        master, slave = pty.openpty()
        child = subprocess.Popen([PROGRAM, "parse", "--each", "line"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                 stderr=slave, env=environment())
        os.close(slave)
        child.stdin.write(PASSPORT_LINE)
        child.stdin.flush()
        read_until(child.stdout, len(PASSPORT_JSON))
        child.send_signal(signal.SIGINT)
        seen = read_terminal(master)
        os.close(master)
        self.assertEqual(child.wait(timeout=60), -signal.SIGINT)
        self.assertTrue(seen.endswith(b"\r\033[Kvarnel: 1 document, 0 refused; interrupted\r\n"), seen)
        child.stdout.close()
        child.stdin.close()


class NonBlocking(unittest.TestCase):
    def test_input_is_waited_for(self):
        reading, writing = os.pipe()
        os.set_blocking(reading, False)
        child = subprocess.Popen([PROGRAM, "parse", "--each", "line"], stdin=reading, stdout=subprocess.PIPE,
                                 stderr=subprocess.PIPE, env=environment())
        os.close(reading)
        for _ in range(2):
            self.assertFalse(select.select([child.stdout], [], [], 0.1)[0], "there is nothing to answer yet")
            os.write(writing, PASSPORT_LINE)
            self.assertEqual(read_until(child.stdout, len(PASSPORT_JSON)), PASSPORT_JSON)
        os.close(writing)
        self.assertEqual((*child.communicate(timeout=60), child.returncode), (b"", b"", 0))

    def test_output_is_waited_for(self):
        reading, writing = os.pipe()
        os.set_blocking(writing, False)
        with tempfile.TemporaryDirectory() as place:
            lines = pathlib.Path(place) / "lines"
            lines.write_bytes(PASSPORT_LINE * 5000)
            child = subprocess.Popen([PROGRAM, "parse", "--each", "line", lines], stdout=writing,
                                     stderr=subprocess.PIPE, env=environment())
            os.close(writing)
            with os.fdopen(reading, "rb") as pipe, child.stderr as err:
                select.select([], [], [], 0.2)  # until the pipe is full
                self.assertEqual((pipe.read(), err.read()), (PASSPORT_JSON * 5000, b""))
            self.assertEqual(child.wait(timeout=60), 0)


class OutputAsInput(unittest.TestCase):
    def test_an_input_that_is_the_output_file_is_refused(self):
        with tempfile.TemporaryDirectory() as place:
            path = pathlib.Path(place) / "f"
            for arguments in ([path], ["--each", "line", path], ["--each=line"]):
                path.write_bytes(PASSPORT_LINE)
                with self.subTest(arguments=arguments), open(path, "ab") as out, open(path, "rb") as standard_input:
                    done = subprocess.run([PROGRAM, "parse", *arguments], stdin=standard_input, stdout=out,
                                          stderr=subprocess.PIPE, env=environment(), check=False, timeout=60)
                    name = str(path) if path in arguments else "standard input"
                    self.assertEqual((done.returncode, done.stderr.decode(), path.read_bytes()),
                                     (2, f"varnel: {name}: this input file is the output file\n", PASSPORT_LINE))

    def test_what_a_command_has_written_so_far_is_not_read_either(self):
        with tempfile.TemporaryDirectory() as place:
            path = pathlib.Path(place) / "f"
            with open(path, "wb") as out:
                code, _, err = varnel("parse", "--each=line", "-", path, text=PASSPORT_LINE, stdout=out)
            self.assertEqual((code, err.decode()), (2, f"varnel: {path}: this input file is the output file\n"))
            self.assertEqual(path.read_bytes(), PASSPORT_JSON)


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
