#!/usr/bin/env python3
"""Prints how much of the code are tests: lines of tests and fuzz against lines of src, tools and content, blank lines and comments left out."""
import pathlib
import subprocess
import sys

TOO_MUCH = 36  # per cent; a third is the aim


def lines_of(*folders: str) -> int:
    patterns = [f"{folder}/*{ending}" for folder in folders for ending in (".cpp", ".h")]
    names = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", *patterns], capture_output=True, text=True, check=True)
    texts = [pathlib.Path(name).read_text() for name in names.stdout.split() if pathlib.Path(name).exists()]
    lines = [line.strip() for text in texts for line in text.splitlines()]
    return sum(bool(line) and not line.startswith("//") for line in lines)


def main() -> int:
    code, tests = lines_of("src", "tools", "content"), lines_of("tests", "fuzz")
    share = 100 * tests / code
    print(f"tests are {share:.1f}% of the code ({tests} lines to {code})")
    if share > TOO_MUCH:
        print(f"that is more than {TOO_MUCH}%: take weaker tests away")
    return 0


if __name__ == "__main__":
    sys.exit(main())
