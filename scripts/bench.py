#!/usr/bin/env python3
"""Runs every benchmark program of a folder (five repetitions, medians) and, with --json, writes one file of them all."""
import argparse
import json
import os
import pathlib
import subprocess
import sys
import tempfile


def run(program: pathlib.Path, wanted: str | None) -> dict | None:
    with tempfile.NamedTemporaryFile(suffix=".json") as out:
        command = [str(program), "--benchmark_repetitions=5", "--benchmark_report_aggregates_only=true",
                   f"--benchmark_out={out.name}", "--benchmark_out_format=json"]
        if wanted:
            command.append(f"--benchmark_filter={wanted}")
        env = dict(os.environ, SDL_VIDEODRIVER="dummy", SDL_AUDIODRIVER="dummy")
        if subprocess.run(command, env=env).returncode != 0:
            return None
        text = pathlib.Path(out.name).read_text()
        return json.loads(text) if text.strip() else {"benchmarks": []}


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--json", type=pathlib.Path)
    parser.add_argument("--filter")
    args = parser.parse_args()
    merged: dict = {"context": {}, "benchmarks": []}
    failed = False
    for program in sorted(p for p in args.folder.iterdir() if p.is_file() and os.access(p, os.X_OK)):
        result = run(program, args.filter)
        if result is None:
            failed = True
            continue
        merged["context"] = merged["context"] or result.get("context", {})
        merged["benchmarks"] += result["benchmarks"]
        failed |= any(row.get("error_occurred") for row in result["benchmarks"])
    if args.json:
        args.json.write_text(json.dumps(merged, indent=1) + "\n")
        print(f"{len(merged['benchmarks'])} figures in {args.json}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
