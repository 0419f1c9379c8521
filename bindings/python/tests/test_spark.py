"""The function of the Spark sample, which Spark calls with frames of pandas."""

import importlib.util
import pathlib
import typing
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[3]


class Spark(unittest.TestCase):
    def test_frames(self) -> None:
        pandas: typing.Any = importlib.import_module("pandas")
        spec = importlib.util.spec_from_file_location("sample", ROOT / "samples" / "cluster" / "inspect_on_spark.py")
        assert spec is not None and spec.loader is not None
        sample = importlib.util.module_from_spec(spec)
        spec.loader.exec_module(sample)
        passport = (ROOT / "samples" / "passport.mrz").read_text(encoding="utf-8").replace("\n", "")
        frames = [pandas.DataFrame({"value": [passport, "no zone"]}), pandas.DataFrame({"value": [passport]})]
        answers = [frame.to_dict("records") for frame in sample.inspect_frames(frames)]
        valid = {"verdict": "valid", "documentNumber": "L898902C3"}
        self.assertEqual(answers, [[valid, {"verdict": "refused", "documentNumber": None}], [valid]])


if __name__ == "__main__":
    unittest.main()
