#!/usr/bin/env python3
"""Puts the faults of tests/faults/faults.txt into the code, one at a time, and lists which test notices each.

Works on a copy of the tree in build/faults, so that an interrupted run leaves no fault behind. A fault counts as found when a
test program fails, crashes or does not come to its end. Ends with 1 when a fault was not found or could not be put in.
"""
import argparse
import dataclasses
import os
import pathlib
import re
import shutil
import subprocess
import sys
import time

LIST = pathlib.Path("tests/faults/faults.txt")
COPY = pathlib.Path("build/faults/tree")
LONGEST_TEST = 120  # seconds
ENVIRONMENT = os.environ | {
    "SDL_VIDEODRIVER": "dummy",
    "SDL_AUDIODRIVER": "dummy",
    "DBUS_SESSION_BUS_ADDRESS": "disabled:",
    "SDL_FRAMEBUFFER_ACCELERATION": "0",
}


@dataclasses.dataclass
class Fault:
    name: str
    programs: list[str] = dataclasses.field(default_factory=list)
    preset: str = "debug"
    old: list[str] = dataclasses.field(default_factory=list)
    new: list[str] = dataclasses.field(default_factory=list)


def read_faults() -> list[Fault]:
    faults = []
    for number, line in enumerate(LIST.read_text().splitlines(), 1):
        word, _, rest = line.strip().partition(" ")
        if not word or word == "#":
            continue
        if word == "fault":
            faults.append(Fault(rest))
        elif word == "try":
            faults[-1].programs += [f"test_{name}" for name in rest.split()]
        elif word == "build":
            faults[-1].preset = rest
        elif word in "-+":
            (faults[-1].old if word == "-" else faults[-1].new).append(rest)
        else:
            sys.exit(f"{LIST}:{number}: wanted fault, try, build, - or +, found '{word}'")
    return faults


def copy_tree() -> None:
    """Files that git knows or would know; a file that is the same keeps its time, so that nothing is built twice."""
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], capture_output=True, text=True, check=True)
    names = {name for name in listed.stdout.splitlines() if pathlib.Path(name).is_file()}
    for name in names:
        source, target = pathlib.Path(name), COPY / name
        if not target.exists() or source.read_bytes() != target.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)
    for target in [path for path in COPY.rglob("*") if path.is_file()]:
        if target.relative_to(COPY).parts[0] != "build" and str(target.relative_to(COPY)) not in names:
            target.unlink()


def build(preset: str, targets: list[str], content: str) -> bool:
    folder = COPY / "build" / preset
    if not (folder / "build.ninja").exists():
        words = ["cmake", "--preset", preset, "-DBUILD_TESTING=ON"]
        if content and preset != "release":  # a release build draws its own pictures, and so shows faults of drawings
            words.append(f"-DGRUB_CONTENT_FROM={content}")
        subprocess.run(words, cwd=COPY, check=True, stdout=subprocess.DEVNULL)
    with open(folder / "faults.log", "w") as log:
        return subprocess.run(["ninja", "-C", str(folder), *targets], stdout=log, stderr=log).returncode == 0


def place_of(fault: Fault) -> tuple[pathlib.Path, re.Match] | str:
    pattern = re.compile(r"[^\S\n]*\n\s*".join(re.escape(line) for line in fault.old))
    found = []
    for folder in ("src", "tools", "content"):
        for path in sorted((COPY / folder).rglob("*")):
            if path.suffix in (".cpp", ".h"):
                found += [(path, match) for match in pattern.finditer(path.read_text())]
    return found[0] if len(found) == 1 else f"its lines stand in {len(found)} places"


def first_failure(preset: str, program: str) -> str:
    """Why the program does not pass; nothing when it does."""
    folder = (COPY / "build" / preset / "tests").resolve()
    words = [str(folder / program), "--gtest_fail_fast", "--gtest_brief=1"]
    try:
        run = subprocess.run(words, cwd=folder, env=ENVIRONMENT, capture_output=True, text=True, errors="replace", timeout=LONGEST_TEST)
    except subprocess.TimeoutExpired:
        return "does not end"
    if run.returncode == 0:
        return ""
    failed = re.search(r"^\[  FAILED  \] (\S+)", run.stdout, re.M)
    sanitizer = re.search(r"ERROR: (\w+Sanitizer)", run.stderr)
    return failed.group(1) if failed else sanitizer.group(1) if sanitizer else f"ends with {run.returncode}"


def first_notice(fault: Fault, programs: list[str], content: str) -> str:
    """The first program that notices the fault: those that the fault names, then, only where debug serves, all others."""
    others = [p for p in programs if p not in fault.programs] if fault.preset == "debug" else []
    for targets, order in ((fault.programs, fault.programs), (["all"], others)):
        if not order:
            continue
        if not build(fault.preset, targets, content):
            return f"NOT PUT IN: it does not compile, see {COPY}/build/{fault.preset}/faults.log"
        for program in order:
            if failure := first_failure(fault.preset, program):
                return f"{program}: {failure}"
    return "NOT FOUND"


def try_fault(fault: Fault, programs: list[str], content: str) -> str:
    """Which test notices the fault; a line that begins with NOT when none does."""
    place = place_of(fault)
    if isinstance(place, str):
        return f"NOT PUT IN: {place}"
    path, match = place
    good = path.read_text()
    path.write_text(good[: match.start()] + "\n".join(fault.new) + good[match.end() :])
    try:
        return first_notice(fault, programs, content)
    finally:
        path.write_text(good)


def main() -> int:
    form = argparse.RawDescriptionHelpFormatter
    parser = argparse.ArgumentParser(prog="./dev faults", description=__doc__, formatter_class=form)
    parser.add_argument("name", nargs="*", help="only faults whose name holds one of these words")
    parser.add_argument("--content", default="", help="a build whose packages are taken; without it each build makes its own")
    args = parser.parse_args()

    faults = [f for f in read_faults() if not args.name or any(word in f.name for word in args.name)]
    copy_tree()
    if not build("debug", ["all"], args.content):
        sys.exit(f"the code without a fault does not compile, see {COPY}/build/debug/faults.log")
    programs = sorted(path.name for path in (COPY / "build/debug/tests").glob("test_*"))
    for program in programs:
        if failure := first_failure("debug", program):
            sys.exit(f"the code without a fault fails: {program}: {failure}")
    unnoticed = 0
    for fault in faults:
        start = time.monotonic()
        outcome = try_fault(fault, programs, args.content)
        unnoticed += outcome.startswith("NOT")
        print(f"{fault.name:60} {outcome}  ({time.monotonic() - start:.0f} s)", flush=True)
    print(f"{len(faults) - unnoticed} of {len(faults)} faults found")
    return 1 if unnoticed else 0


if __name__ == "__main__":
    sys.exit(main())
