#!/usr/bin/env python3
"""Fails when a document names a test that does not exist, or when a line of docs/behaviour.md has no test.

Tests are named as `Suite.Name` in backticks.
"""
import pathlib
import re
import sys

TEST = re.compile(r"^(?:TEST|TEST_F|TEST_P|TYPED_TEST)\(\s*(\w+)\s*,\s*(\w+)\s*\)", re.M)
NAME = re.compile(r"`([A-Z]\w*\.[A-Z]\w*)`")


def main() -> int:
    known = {".".join(match) for path in pathlib.Path("tests").rglob("*.cpp") for match in TEST.findall(path.read_text())}
    faults = []
    for path in sorted(pathlib.Path("docs").rglob("*.md")):
        faults += [f"{path}: there is no test {name}" for name in NAME.findall(path.read_text()) if name not in known]
    behaviour = pathlib.Path("docs/behaviour.md").read_text()
    lines = re.findall(r"^- (.*(?:\n  .*)*)", behaviour, re.M)
    faults += [f"no test holds: {line}" for line in lines if not NAME.search(line)]
    print("\n".join(faults) if faults else f"{len(lines)} odd things, each with its test")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
