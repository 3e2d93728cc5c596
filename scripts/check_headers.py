#!/usr/bin/env python3
"""Compiles every header alone, with the flags of a source file of its folder: a header includes what it needs.

The compiler cache, where there is one, knows the headers that have not changed.
"""
import concurrent.futures
import json
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

COMPILER = ["ccache", "g++"] if shutil.which("ccache") else ["g++"]


def flags_by_folder(build: pathlib.Path) -> dict[pathlib.Path, list[str]]:
    flags = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        words = shlex.split(entry["command"])
        kept = [w for w in words if re.match(r"-(I|D|std=|isystem)", w)]
        for i, word in enumerate(words):
            if word == "-isystem":
                kept += ["-isystem", words[i + 1]]
        kept = [w for i, w in enumerate(kept) if not (w == "-isystem" and (i + 1 == len(kept) or kept[i + 1].startswith("-")))]
        flags.setdefault(pathlib.Path(entry["file"]).parent, kept)
    return flags


def candidates(folder: pathlib.Path, flags: dict) -> list[list[str]]:
    """The flags of the folder's own sources, then those of every folder that may include from here."""
    own = [flags[folder]] if folder in flags else []
    return own + [words for other, words in flags.items() if other != folder and f"-I{folder}" in words]


def compiles(header: pathlib.Path, folder: pathlib.Path, choices: list[list[str]]) -> str:
    """What is wrong with the header; nothing when it compiles under any of the flags."""
    complaint = f"{header}: no target may include it"
    alone = folder / f"{header.parent.name}_{header.stem}.cpp"
    alone.write_text(f'#include "{header.relative_to(pathlib.Path.cwd())}"\n')
    for words in choices:
        command = [*COMPILER, "-std=c++20", "-Wall", "-Wextra", "-Werror", "-I.", *words, "-c", str(alone), "-o", str(alone.with_suffix(".o"))]
        result = subprocess.run(command, capture_output=True, text=True)
        if result.returncode == 0:
            return ""
        complaint = f"{header} does not compile alone:\n{result.stderr}"
    return complaint


def main() -> int:
    build = pathlib.Path(sys.argv[1]).resolve()
    flags = flags_by_folder(build)
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "*.h"], capture_output=True, text=True).stdout.split()
    headers = [pathlib.Path(name).resolve() for name in listed]
    folder = build / "headers"
    folder.mkdir(exist_ok=True)
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        faults = [fault for fault in pool.map(lambda h: compiles(h, folder, candidates(h.parent, flags)), headers) if fault]
    print("\n".join(faults) if faults else f"{len(headers)} headers compile alone")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
