"""The Objective-C of a page compiles: documented_code.py PAGE COMPILER FLAGS..."""

import re
import subprocess
import sys
from pathlib import Path

page, *compiler = sys.argv[1:]
programs = re.findall(r"^```objc\n(.*?)^```$", Path(page).read_text(), re.MULTILINE | re.DOTALL)
if not programs:
    sys.exit(f"{page} has no Objective-C")
for program in programs:
    subprocess.run([*compiler, "-x", "objective-c", "-"], input=program, text=True, check=True)
