#!/usr/bin/env python3
"""Names the drawn pictures that are not those of content/art/pictures.sha256, a line `HASH  FILE` each.

An edit of a drawing should change the pictures that it means to change and no others. A difference is a report and no fault:
another processor or another version of the drawing libraries may change single bits. --update writes the list again.
"""
import argparse
import hashlib
import pathlib
import sys

LIST = pathlib.Path("content/art/pictures.sha256")


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder", type=pathlib.Path, help="where the build stages what it packs, build/release/content")
    parser.add_argument("--update", action="store_true")
    options = parser.parse_args()
    files = sorted(f for f in options.folder.rglob("*") if f.suffix in (".bmp", ".jpg"))
    if not files:
        print(f"{options.folder}: no pictures; build them first")
        return 1
    now = {f.relative_to(options.folder).as_posix(): hashlib.sha256(f.read_bytes()).hexdigest() for f in files}
    if options.update:
        LIST.write_text("".join(f"{digest}  {name}\n" for name, digest in now.items()))
        print(f"{len(now)} pictures written down in {LIST}")
        return 0
    if not LIST.exists():
        print(f"{LIST} is not there; write it with --update")
        return 1
    known = {name: digest for digest, name in (line.split("  ", 1) for line in LIST.read_text().splitlines())}
    changed = [name for name in sorted(known.keys() | now.keys()) if known.get(name) != now.get(name)]
    for name in changed:
        print(f"{name}: {'new' if name not in known else 'gone' if name not in now else 'changed'}")
    print(f"{len(changed)} of {len(now)} pictures differ from {LIST}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
