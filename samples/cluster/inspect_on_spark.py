"""Inspects zones on a Spark cluster: inspect_on_spark.py FILE FOLDER (one zone a line; needs pyspark and pandas)."""

import sys


def inspect_frames(frames):
    """What Spark calls on each worker: frames with a column of zones in, frames of values out."""
    import pandas
    import varnel

    for frame in frames:
        documents = list(varnel.inspect_many(frame["value"], date="2026-11-21"))
        yield pandas.DataFrame({
            "verdict": [document["verdict"] for document in documents],
            "documentNumber": [document["fields"].get("documentNumber", {}).get("value") for document in documents],
        })


def main(file, folder):
    from pyspark.sql import SparkSession

    spark = SparkSession.builder.getOrCreate()
    documents = spark.read.text(file).mapInPandas(inspect_frames, "verdict string, documentNumber string")
    documents.write.json(folder)


if __name__ == "__main__":
    main(*sys.argv[1:])
