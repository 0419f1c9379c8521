"""CPU time of a call from Python: parse.py REPETITIONS. Prints lines of "NAME NANOSECONDS…"."""

import sys
import time

import varnel

ZONE = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\nL898902C36UTO7408122F1204159ZE184226B<<<<<10"


def measure(name, calls, call):
    times = []
    for _ in range(int(sys.argv[1]) + 1):
        start = time.process_time_ns()
        for _ in range(calls):
            call()
        times.append((time.process_time_ns() - start) // calls)
    print(name, *times[1:])  # the first only warms up


assert varnel.parse(ZONE)["lastName"] == "ERIKSSON"
measure("python,varnel", 50_000, lambda: varnel.parse(ZONE))
measure("python,inspect", 10_000, lambda: varnel.inspect(ZONE, date="2026-11-21"))
