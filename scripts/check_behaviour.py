#!/usr/bin/env python3
"""Fails when a document names a test that does not exist, or when a line of docs/behaviour.md has no test.

Documents name a test as `Suite.Name` in backticks. In docs/behaviour.md the caption of a row of its table may follow in
double quotes; the file of that test must hold the caption as a string.
"""
import pathlib
import re
import sys

TEST = re.compile(r"^(?:TEST|TEST_F|TEST_P|TYPED_TEST)\(\s*(\w+)\s*,\s*(\w+)\s*\)", re.M)
NAME = re.compile(r"`([A-Z]\w*\.[A-Z]\w*)`")
CAPTION = re.compile(NAME.pattern + r'\s+"([^"]+)"')
STRING = re.compile(r'"((?:[^"\\\n]|\\.)*)"')


def main() -> int:
    texts = [path.read_text() for path in pathlib.Path("tests").rglob("*.cpp")]
    file_of = {".".join(match): text for text in texts for match in TEST.findall(text)}
    faults = []
    for path in sorted(pathlib.Path("docs").rglob("*.md")):
        faults += [f"{path}: there is no test {name}" for name in NAME.findall(path.read_text()) if name not in file_of]
    behaviour = pathlib.Path("docs/behaviour.md").read_text()
    lines = [" ".join(line.split()) for line in re.findall(r"^- (.*(?:\n  .*)*)", behaviour, re.M)]
    faults += [f"no test holds: {line}" for line in lines if not NAME.search(line)]
    for name, caption in (match for line in lines for match in CAPTION.findall(line)):
        if name in file_of and caption not in STRING.findall(file_of[name]):
            faults.append(f'docs/behaviour.md: the file of {name} has no string "{caption}"')
    print("\n".join(faults) if faults else f"{len(lines)} odd things, each with its test")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
