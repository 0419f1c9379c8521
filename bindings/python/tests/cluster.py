"""The Dask sample on a cluster of two processes on this machine: a million documents in, each of them out."""

import collections
import json
import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[3]
COUNT = int(sys.argv[1]) if len(sys.argv) > 1 else 1_000_000
GOOD = (ROOT / "samples" / "passport.mrz").read_text(encoding="utf-8").strip()
ZONES = {"valid": GOOD, "doubtful": GOOD.replace("7408122", "7408123"), "refused": "no zone in this"}


def main() -> None:
    verdicts = [("valid", "doubtful", "refused")[i % 7 // 3] for i in range(COUNT)]
    with tempfile.TemporaryDirectory() as folder:
        zones = pathlib.Path(folder) / "zones.txt"
        with open(zones, "w", encoding="utf-8") as out:
            for verdict in verdicts:
                out.write(ZONES[verdict] + "\n\n")
        results = pathlib.Path(folder) / "results"
        sample = ROOT / "samples" / "cluster" / "inspect_zones.py"
        answer = subprocess.run(
            [sys.executable, str(sample), str(zones), str(results), "--workers", "2", "--date", "2026-11-21"],
            stdout=subprocess.PIPE, check=True, text=True)
        lines = [json.loads(line) for part in sorted(results.iterdir()) for line in part.open(encoding="utf-8")]
    assert [line["verdict"] for line in lines] == verdicts, "each document's verdict, in the order of the input"
    assert lines[0]["primaryIdentifier"] == "ERIKSSON"
    counts = {line.split()[0]: int(line.split()[1]) for line in answer.stdout.splitlines()}
    assert counts == dict(collections.Counter(verdicts)), counts
    print(f"{len(lines)} documents on two processes: {counts}")


if __name__ == "__main__":
    main()
