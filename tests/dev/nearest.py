"""The three names of standard input that are nearest to a word: nearest.py WORD"""

import difflib
import sys

names = sys.stdin.read().split()
parts = {name: [name, *name.split("."), *name.split("_")] for name in names}


def likeness(name):
    return max(difflib.SequenceMatcher(None, sys.argv[1].lower(), part.lower()).ratio() for part in parts[name])


print(", ".join(sorted(names, key=lambda name: (-likeness(name), name))[:3]))
