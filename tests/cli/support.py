"""Runs the command varnel as a person or a script would."""

import fcntl
import os
import pathlib
import pty
import select
import struct
import subprocess
import termios
import threading

PROGRAM = os.environ["VARNEL_PROGRAM"]
SOURCES = pathlib.Path(os.environ["VARNEL_SOURCE_DIR"])
VECTORS = SOURCES / "tests" / "vectors"

KEYS = ["firstName", "lastName", "middleName", "licenseNumber", "birthDate", "expirationDate", "gender",
        "countryCode", "jurisdictionCode", "nationality", "documentType", "issueDate"]

# The specimen passport of ICAO Doc 9303.
PASSPORT = (b"P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
            b"L898902C36UTO7408122F1204159ZE184226B<<<<<10\n")
PASSPORT_LINE = PASSPORT.replace(b"\n", b"") + b"\n"
PASSPORT_VALUES = ["ANNA", "ERIKSSON", "MARIA", "L898902C3", "19740812", "20120415", "F", "UTO", "", "UTO",
                   "PASSPORT", ""]
PASSPORT_JSON = ("{" + ",".join(f'"{key}":"{value}"' for key, value in zip(KEYS, PASSPORT_VALUES)) + "}\n").encode()
PASSPORT_ROW = (",".join(PASSPORT_VALUES) + "\n").encode()
PASSPORT_SLOTS = [("FIELD_DOCUMENT_NUMBER", "L898902C3"), ("FIELD_EXPIRATION_DATE", "20120415"),
                  ("FIELD_SEX", "F"), ("FIELD_FAMILY_NAME", "ERIKSSON"), ("FIELD_FIRST_NAME", "ANNA"),
                  ("FIELD_MIDDLE_NAME", "MARIA"), ("FIELD_PERSONAL_NUMBER", "ZE184226B"),
                  ("FIELD_BIRTH_DATE", "19740812"), ("FIELD_DOCUMENT_TYPE", "PASSPORT"),
                  ("FIELD_COUNTRY_CODE", "UTO"), ("FIELD_NATIONALITY", "UTO")]
CSV_HEADER = ("document," + ",".join(KEYS) + "\n").encode()

# A made-up holder's card (TD1), three lines of 30.
CARD = (b"I<UTOD231458907<<<<<<<<<<<<<<<\n"
        b"7408122F1204159UTO<<<<<<<<<<<6\n"
        b"ERIKSSON<<ANNA<MARIA<<<<<<<<<<\n")


def environment(**changes):
    plain = {name: value for name, value in os.environ.items() if name not in ("NO_COLOR", "TERM")}
    return {**plain, "TERM": "xterm", **changes}


def varnel(*arguments, text=b"", **options):
    """Runs the program with pipes; gives its exit code, standard output and standard error."""
    done = subprocess.run([PROGRAM, *map(str, arguments)], input=text, stdout=options.pop("stdout", subprocess.PIPE),
                          stderr=subprocess.PIPE, env=environment(**options.pop("env", {})), check=False,
                          timeout=120, **options)
    return done.returncode, done.stdout, done.stderr


def read_terminal(master):
    """Everything that was written to a terminal; ends when the last writer has closed it."""
    seen = b""
    while True:
        try:
            piece = os.read(master, 65536)
        except OSError:  # EIO: nobody holds the other side any longer
            return seen
        if not piece:
            return seen
        seen += piece


def varnel_on_terminal(*arguments, text=b"", streams=("stdout", "stderr"), env=None, columns=80):
    """Runs the program with a terminal for the named streams ("stdin" takes its text from a keyboard then, up
    to a Ctrl-D); gives the exit code, standard output and standard error, each with a terminal of its own where it
    has one."""
    terminals = {stream: pty.openpty() for stream in streams}
    for master, _ in terminals.values():
        fcntl.ioctl(master, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
    places = {stream: terminals[stream][1] if stream in terminals else subprocess.PIPE
              for stream in ("stdin", "stdout", "stderr")}
    child = subprocess.Popen([PROGRAM, *map(str, arguments)], env=environment(**(env or {})), **places)
    for _, slave in terminals.values():
        os.close(slave)
    seen = {}

    def read(stream):
        if stream in terminals:
            seen[stream] = read_terminal(terminals[stream][0]).replace(b"\r\n", b"\n")
            os.close(terminals[stream][0])
        else:
            with getattr(child, stream) as pipe:
                seen[stream] = pipe.read()

    readers = [threading.Thread(target=read, args=[stream]) for stream in ("stdout", "stderr")]
    for reader in readers:
        reader.start()
    if "stdin" in terminals:
        os.write(terminals["stdin"][0], text + b"\x04")
    else:
        child.stdin.write(text)
        child.stdin.close()
    for reader in readers:
        reader.join()
    if "stdin" in terminals:
        os.close(terminals["stdin"][0])
    return child.wait(timeout=120), seen["stdout"], seen["stderr"]


def read_until(pipe, wanted, seconds=60):
    """Reads from a pipe until `wanted` bytes have come or it ends."""
    seen = bytearray()
    while len(seen) < wanted and select.select([pipe], [], [], seconds)[0]:
        piece = os.read(pipe.fileno(), 65536)
        if not piece:
            break
        seen += piece
    return bytes(seen)
