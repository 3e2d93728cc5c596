#!/usr/bin/env python3
"""Finds names that the platform layer declares and nobody calls, and names that docs/platform.md does not list.

Callers are the game's folders, the tools, and tests and benchmarks of other folders; the layer itself and its own tests
do not count. Exit code 1 and one line for each finding.
"""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
HEADERS = sorted((ROOT / "src/platform/include").glob("*.h"))
TABLE = ROOT / "docs/platform.md"
CALLERS = ("src", "tools", "tests", "bench", "fuzz")
LAYER = ("src/platform/", "tests/platform/")

# Names that only other declarations need: the type of a parameter, a field or a base.
DECLARATIONS = (
    re.compile(r"^\s*using (\w+) =", re.M),
    re.compile(r"^\s*(?:struct|union|enum class|enum|class) (\w+)[^;]*\{", re.M),
    re.compile(r"^\s*inline (?:constexpr|const) (?:[\w:]+\s+)*?(\w+)(?:\[\])? = ", re.M),
    re.compile(r"^\s*(?:\[\[\w+\]\] |constexpr |inline )*[\w:*]+[ *]+\*?(\w+)\([^;{]*\)(?: const)?(?: = 0)?\s*[;{]", re.M),
    re.compile(r"^#define (\w+)", re.M),
)


def without_comments(text):
    return re.sub(r"//[^\n]*|/\*.*?\*/", "", text, flags=re.S)


def declared_in(header):
    text = without_comments(header.read_text())
    names = {name for pattern in DECLARATIONS for name in pattern.findall(text)}
    return {name for name in names if not name.endswith("_")}


def words_of(path):
    return set(re.findall(r"\w+", without_comments(path.read_text(errors="replace"))))


def caller_files():
    for folder in CALLERS:
        for path in sorted((ROOT / folder).rglob("*")):
            inside_layer = str(path.relative_to(ROOT)).startswith(LAYER)
            if path.suffix in (".h", ".cpp") and not inside_layer:
                yield path


def needed_by_headers(name):
    """Whether another declaration uses the name, as a parameter's type for example."""
    return sum(len(re.findall(rf"\b{name}\b", without_comments(h.read_text()))) for h in HEADERS) > 1


def main():
    called = set().union(*(words_of(path) for path in caller_files()))
    listed = set(re.findall(r"`(\w+)`", TABLE.read_text())) if TABLE.exists() else set()
    findings = []
    for header in HEADERS:
        for name in sorted(declared_in(header)):
            if name not in called and not needed_by_headers(name):
                findings.append(f"{header.name}: nobody calls {name}")
            if name not in listed:
                findings.append(f"{header.name}: {TABLE.relative_to(ROOT)} does not list {name}")
    print("\n".join(findings) if findings else "every declared name is called and listed")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
