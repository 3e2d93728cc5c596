#!/usr/bin/env python3
"""Takes one picture of play: plays a script of keys without a display and saves the picture of one game frame."""
import argparse
import pathlib
import subprocess
import sys
import tempfile

def main() -> int:
    parser = argparse.ArgumentParser(prog="./dev shot", description=__doc__)
    parser.add_argument("program", help=argparse.SUPPRESS)
    parser.add_argument("picture", metavar="OUT.png", type=pathlib.Path)
    parser.add_argument("--level", default="1", help="1 to 50, or a .lvl file")
    parser.add_argument("--keys", type=pathlib.Path, help="file of lines `FRAME down|up NAME`; # starts a comment")
    parser.add_argument("--frame", type=int, default=25, help="game frame that the picture shows (0: the first)")
    args = parser.parse_args()

    level = args.level if args.level.isdigit() else str(pathlib.Path(args.level).resolve())
    keys = args.keys.read_text() if args.keys else ""
    with tempfile.TemporaryDirectory() as folder:
        script = pathlib.Path(folder) / "shot.script"
        script.write_text(f"{keys}\n{args.frame} shot {args.picture.resolve()}\n")
        command = [str(pathlib.Path(args.program).resolve()), "--script", str(script), "--level", level]
        result = subprocess.run(command, cwd=folder)
    if result.returncode == 0 and args.picture.exists():
        print(args.picture)
        return 0
    print(f"no picture: the program ended with {result.returncode}", file=sys.stderr)
    return 1


if __name__ == "__main__":
    sys.exit(main())
