#!/usr/bin/env python3
"""Asks the solver whether each level that has a recorded win can be won without digging, and with fewer digs than its idea
means, and prints docs/level-proofs.md. Bonuses stay where they lie: a bomb opens floors too.

The questions take up to --seconds each; two are asked at a time. Fails when a level that is meant to need digging
is not "exhausted" without, or is won with fewer digs.
"""
import argparse
import collections
import concurrent.futures
import pathlib
import re
import subprocess
import sys

# The digs that a level is meant to need at least; a level that is not here is meant to be won without.
MEANT = {
    "turma/level05": 2, "turma/level04": 1, "turma/level03": 1, "turma/level06": 9, "turma/level08": 3, "turma/level13": 3,
    "turma/level14": 2, "turma/level16": 1, "turma/level17": 2, "turma/level20": 2, "turma/level22": 2,
    "jelezo/level02": 3, "jelezo/level03": 2, "jelezo/level04": 16, "jelezo/level06": 2, "jelezo/level07": 1,
    "jelezo/level08": 1, "jelezo/level09": 3, "jelezo/level12": 1, "jelezo/level13": 15, "jelezo/level14": 2,
    "jelezo/level10": 1, "jelezo/level15": 10,
    "podval/level02": 14, "podval/level06": 1, "podval/level07": 1, "podval/level09": 2, "podval/level12": 4,
    "podval/level15": 2, "podval/level14": 4, "podval/level13": 5,
}
HEADING = """# What the levels need: answers of the solver

`python3 scripts/level_proofs.py > docs/level-proofs.md` writes this page: for each level with a recorded win, its digs, the
digs that its idea means at least, and what `grubtool solve LEVEL --no-bonuses --seconds {seconds}` answers with `--no-dig`, and with
`--digs` one below that least. "won": with so many digs, a short cut where more are meant. "exhausted": no way was
left, at the grain of `tools/solve`. "cut": time or width ran out, no proof; then come the most keys reached, of all.

| index | level | title | digs of the win | meant | without digging | with fewer digs |
|---|---|---|---|---|---|---|"""

Level = collections.namedtuple("Level", "index name source title win_digs meant")


def levels(root: pathlib.Path, tool: str) -> list[Level]:
    """The levels of the list that have a win beside them, in the order of the list."""
    names = re.findall(r'"levels\\\\(\w+)\\\\(\w+)\.lvl"', (root / "src/game/rules/level_list.h").read_text())
    found = []
    for index, name in enumerate("/".join(pair) for pair in names):
        source = root / "content/levels" / f"{name}.txt"
        if not source.with_suffix(".game").exists():
            continue
        title = re.search(r"^title +(.*)", source.read_text(), re.M)[1]
        rows = subprocess.run([tool, "level", "check", source], capture_output=True, text=True).stdout.splitlines()
        win_digs = dict(zip(re.sub("in reach|win s", "word", rows[0]).split(), rows[1].split()))["digs"]
        found.append(Level(index, name, source, title, win_digs, MEANT.get(name, 0)))
    return found


def answer(tool: str, seconds: int, level: Level, digs: int) -> str:
    """What the solver says, in a few words."""
    if digs < 0:
        return "-"
    most = ["--no-dig"] if digs == 0 else ["--digs", str(digs)]
    run = subprocess.run([tool, "solve", level.source, "--index", str(level.index), "--no-bonuses",
                          "--seconds", str(seconds), "--threads", "1", *most], capture_output=True, text=True)
    said = re.match(r"(won|exhausted|cut): (\d+) of (\d+)", run.stdout)
    if not said:
        sys.exit(f"{level.name}: {run.stderr}")
    verdict = said[1] if said[1] != "cut" else f"cut, {said[2]} of {said[3]}"
    return verdict if digs == 0 else f"{digs}: {verdict}"


def main() -> int:
    root = pathlib.Path(__file__).resolve().parent.parent
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--tool", default=str(root / "build/release/bin/grubtool"))
    parser.add_argument("--seconds", type=int, default=20, help="for each question")
    args = parser.parse_args()
    print(HEADING.format(seconds=args.seconds))
    shortcuts = []

    def row(level: Level) -> list[str]:
        fewer = level.meant - 1 if level.meant > 1 else -1
        return [answer(args.tool, args.seconds, level, digs) for digs in (0, fewer)]

    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        asked = levels(root, args.tool)
        for level, answers in zip(asked, pool.map(row, asked)):
            print("|", " | ".join([str(level.index), f"`{level.name}`", level.title, level.win_digs, str(level.meant),
                                   *answers]), "|", flush=True)
            if level.meant > 0 and (answers[0] != "exhausted" or answers[1].endswith("won")):
                shortcuts.append(level.name)
    for name in shortcuts:
        print(f"{name}: it is not sure that it needs digging, or it is won with fewer digs than it means",
              file=sys.stderr)
    return 1 if shortcuts else 0


if __name__ == "__main__":
    sys.exit(main())
