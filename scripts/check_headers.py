#!/usr/bin/env python3
"""Compiles every header alone, with the flags of a source file of its folder: a header includes what it needs."""
import concurrent.futures
import json
import pathlib
import re
import subprocess
import sys


def flags_by_folder(build: pathlib.Path) -> dict[pathlib.Path, list[str]]:
    flags = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        words = entry["command"].split()
        kept = [w for w in words if re.match(r"-(I|D|std=|isystem)", w)]
        for i, word in enumerate(words):
            if word == "-isystem":
                kept += ["-isystem", words[i + 1]]
        kept = [w for i, w in enumerate(kept) if not (w == "-isystem" and (i + 1 == len(kept) or kept[i + 1].startswith("-")))]
        flags.setdefault(pathlib.Path(entry["file"]).parent, kept)
    return flags


def nearest(folder: pathlib.Path, flags: dict) -> list[str]:
    """A folder without sources of its own (headers for others) takes the flags of the folder above or of any user."""
    for candidate in (folder, *folder.parents):
        if candidate in flags:
            return flags[candidate]
    for candidate, words in flags.items():
        if f"-I{folder}" in words:
            return words
    return []


def compiles(header: pathlib.Path, words: list[str]) -> str:
    command = ["g++", "-std=c++20", "-fsyntax-only", "-Wall", "-Wextra", "-Werror", "-x", "c++", *words, "-include", str(header), "/dev/null"]
    result = subprocess.run(command, capture_output=True, text=True)
    return "" if result.returncode == 0 else f"{header} does not compile alone:\n{result.stderr}"


def main() -> int:
    build = pathlib.Path(sys.argv[1]).resolve()
    flags = flags_by_folder(build)
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "*.h"], capture_output=True, text=True).stdout.split()
    headers = [pathlib.Path(name).resolve() for name in listed]
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        faults = [fault for fault in pool.map(lambda h: compiles(h, nearest(h.parent, flags)), headers) if fault]
    print("\n".join(faults) if faults else f"{len(headers)} headers compile alone")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
