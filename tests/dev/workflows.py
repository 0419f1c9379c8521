"""Workflows take actions by commit, keep no credentials, and end in time."""

import pathlib
import re
import sys

FOLDER = pathlib.Path(__file__).resolve().parents[2] / ".github" / "workflows"
faults, jobs = [], 0
for path in sorted(FOLDER.glob("*.yml")):
    text = path.read_text()
    for action in re.findall(r"uses: (\S+)", text):
        if not re.search(r"@[0-9a-f]{40}$", action):
            faults.append(f"{path.name}: {action} is not pinned by a commit")
    if text.count("uses: actions/checkout@") != text.count("persist-credentials: false"):
        faults.append(f"{path.name}: a checkout keeps credentials")
    for name, job in re.findall(r"^  (\w+):\n((?:    .*\n|\n)+)", text.split("\njobs:\n")[1] + "\n", re.MULTILINE):
        jobs += 1
        if "    timeout-minutes: " not in job:
            faults.append(f"{path.name}: the job {name} has no timeout")
if jobs == 0:
    faults.append("no job was found")
print("\n".join(faults) or f"{jobs} jobs: pinned, without credentials, in time")
sys.exit(1 if faults else 0)
