#!/usr/bin/env python3
"""Runs clang-tidy on sources, two at once. A source that passed is not looked at again until its preprocessed text, its flags or the
checks change. Precompiled headers are taken out of the flags: they are of another compiler.
"""
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

CACHE = pathlib.Path(os.environ.get("XDG_CACHE_HOME", pathlib.Path.home() / ".cache")) / "grubaway-tidy"
TIDY = ["clang-tidy-14", "--quiet", "--extra-arg=-Wno-unknown-warning-option"]


def commands_of(build: pathlib.Path) -> dict[str, list[str]]:
    """The compiler's words for each source, without the compiler cache and precompiled headers."""
    commands = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        words = shlex.split(entry["command"])
        words = words[1:] if pathlib.Path(words[0]).name == "ccache" else words
        for i in range(len(words) - 2, 0, -1):
            if words[i] == "-include" and words[i + 1].endswith("cmake_pch.hxx"):
                del words[i : i + 2]
        commands[entry["file"]] = [word for word in words if word != "-Winvalid-pch"]
    return commands


def key_of(words: list[str]) -> str:
    """What the outcome depends on; two checkouts of the same code have the same key."""
    quiet = [w for w in words if w not in ("-MD", "-c") and not w.startswith("-ffp-contract")]
    for flag in ("-MT", "-MF", "-o"):
        if flag in quiet:
            del quiet[quiet.index(flag) : quiet.index(flag) + 2]
    text = subprocess.run(["clang++-14", *quiet[1:], "-w", "-E"], capture_output=True).stdout
    root = str(pathlib.Path.cwd()).encode()
    flags = " ".join(w for w in quiet[1:-1] if not w.startswith("-I")).encode()
    return hashlib.sha256(text.replace(root, b"") + flags.replace(root, b"") + pathlib.Path(".clang-tidy").read_bytes()).hexdigest()


def fault_of(source: str, words: list[str], database: pathlib.Path) -> str:
    stamp = CACHE / key_of(words)
    if stamp.exists():
        return ""
    result = subprocess.run([*TIDY, "-p", str(database), source], capture_output=True, text=True)
    if result.returncode:
        return result.stdout + "".join(re.findall(r"^.*error:.*\n", result.stderr, re.M))
    stamp.touch()
    return ""


def main() -> int:
    build = pathlib.Path(sys.argv[1])
    commands = commands_of(build)
    CACHE.mkdir(parents=True, exist_ok=True)
    database = build / "tidy"
    database.mkdir(exist_ok=True)
    entries = [{"directory": str(build.resolve()), "file": f, "arguments": words} for f, words in commands.items()]
    (database / "compile_commands.json").write_text(json.dumps(entries))
    sources = [str(pathlib.Path(name).resolve()) for name in sys.argv[2:]]
    sources = [source for source in sources if source in commands]
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        faults = [f for f in pool.map(lambda s: fault_of(s, commands[s], database), sources) if f]
    print("\n".join(faults) if faults else f"clang-tidy: {len(sources)} sources are clean")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
