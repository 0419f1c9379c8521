"""Inspects a large file of zones on a Dask cluster and counts the verdicts.

usage: inspect_zones.py FILE FOLDER [--scheduler ADDRESS] [--workers N] [--date YYYY-MM-DD]

FILE holds zones with an empty line between them, as many as you like: no process holds more than its block. FOLDER
gets one file of JSON lines for each block, in the order of the input: the verdict and the values of a document. The
counts go to standard output. Without --scheduler a cluster of N processes is started on this machine.
"""

import argparse
import collections
import datetime
import json
import pathlib

import dask
import varnel
from dask.bytes import read_bytes
from dask.distributed import Client


@dask.delayed
def inspect_block(block, path, date):
    """Writes what the documents of a block say to a file of its own; gives the counts of their verdicts."""
    counts = collections.Counter()
    texts = (text for text in block.decode("utf-8", "replace").split("\n\n") if text.strip())
    with open(path, "w", encoding="utf-8") as out:
        for document in varnel.inspect_many(texts, date=date):
            counts[document["verdict"]] += 1
            values = {name: field["value"] for name, field in document["fields"].items()}
            out.write(json.dumps({"verdict": document["verdict"], **values}) + "\n")
    return counts


def main():
    parser = argparse.ArgumentParser(usage=__doc__.split("\n\n")[1].removeprefix("usage: "))
    parser.add_argument("file")
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--scheduler")
    parser.add_argument("--workers", type=int, default=2)
    parser.add_argument("--date", default=datetime.datetime.now(datetime.timezone.utc).date().isoformat())
    options = parser.parse_args()
    options.folder.mkdir(parents=True, exist_ok=True)
    cluster = {"address": options.scheduler} if options.scheduler else {
        "n_workers": options.workers, "threads_per_worker": 1, "dashboard_address": None}

    with Client(**cluster):
        _, (blocks,) = read_bytes(str(pathlib.Path(options.file).resolve()), blocksize="8 MiB", delimiter=b"\n\n",
                                  sample=False)
        paths = [str(options.folder.resolve() / f"{i:05}.jsonl") for i in range(len(blocks))]
        parts = dask.compute(*(inspect_block(b, p, options.date) for b, p in zip(blocks, paths)))
    for verdict, count in sorted(sum(parts, collections.Counter()).items()):
        print(f"{verdict:10} {count}")


if __name__ == "__main__":
    main()
