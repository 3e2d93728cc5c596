#!/usr/bin/env python3
"""Finds names that the platform layer declares and that have no caller; with --table it prints all names as a table.

Callers are the game's folders, the tools, and the tests and benchmarks of other folders; the layer itself and its own
tests do not count. A constant that the layer gives as a result or sends as a message needs no caller. Exit code 1 and
one line for each name without a caller. The table names the folders that call a name and at most four of its test files.
"""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
HEADERS = sorted((ROOT / "src/platform/include").glob("*.h"))
CALLERS = ("src", "tools", "bench", "tests")
LAYER = ("src/platform/", "tests/platform/")
TESTS = ("tests", "fuzz")

TYPE = re.compile(r"^\s*(?:using (\w+) =|(?:struct|union|class) (\w+)[^;{]*\{)", re.M)
CONSTANT = re.compile(r"^\s*inline (?:constexpr|const) (?:[\w:]+\s+)*?(\w+)(?:\[\])? = ", re.M)
FUNCTION = re.compile(
    r"^\s*(?:\[\[\w+\]\] |(?:const|constexpr|inline|virtual) )*"
    r"[\w:*]+[ *]+(\w+)\([^;{]*\)(?: const)?(?: = 0)?\s*[;{]", re.M)
ENUMERATION = re.compile(r"\benum (?:class )?\w+[^;{]*\{([^}]*)\}")
MACRO = re.compile(r"^#define (\w+)", re.M)


def code_of(path):
    """The text of a file without comments."""
    return re.sub(r"//[^\n]*|/\*.*?\*/", "", path.read_text(errors="replace"), flags=re.S)


def declared_in(text):
    """Names in the order of their declaration."""
    found = [(m.start(), name) for p in (TYPE, CONSTANT, FUNCTION, MACRO) for m in p.finditer(text)
             for name in m.groups() if name]
    for enumeration in ENUMERATION.finditer(text):
        found += [(enumeration.start(1) + m.start(), m.group(1))
                  for m in re.finditer(r"(?:^|,)\s*(\w+)", enumeration.group(1))]
    return list(dict.fromkeys(name for _, name in sorted(found) if not name.endswith("_")))


def sources(folders):
    for folder in folders:
        yield from (p for p in sorted((ROOT / folder).rglob("*")) if p.suffix in (".h", ".cpp"))


def users(folders, inside_layer):
    """For each word, the files of these folders that use it."""
    result = {}
    for path in sources(folders):
        name = str(path.relative_to(ROOT))
        if inside_layer is None or name.startswith(LAYER) == inside_layer:
            for word in set(re.findall(r"\w+", code_of(path))):
                result.setdefault(word, []).append(name)
    return result


def given_by_layer():
    """Constants that the layer's sources return or store: results and messages."""
    layer = "".join(code_of(p) for p in sources(["src/platform"]) if p.parent.name != "include")
    return set(re.findall(r"(?:return|[?:=(,{])\s*(\w+)", layer))


def table():
    callers = users(CALLERS, inside_layer=False)
    tests = users(TESTS, inside_layer=None)
    rows = []
    for header in HEADERS:
        rows.append(f"\n### {header.name}\n\n| name | called by | tests |\n|---|---|---|\n")
        for name in declared_in(code_of(header)):
            by = sorted({str(Path(f).parent) for f in callers.get(name, []) if f.startswith(("src", "tools", "bench"))})
            covered = sorted({Path(f).stem for f in tests.get(name, [])})
            rows.append(f"| `{name}` | {', '.join(by)} | {', '.join(covered[:4])} |\n")
    return "".join(rows)


def findings():
    callers = users(CALLERS, inside_layer=False)
    given = given_by_layer()
    headers = "".join(code_of(h) for h in HEADERS)
    for header in HEADERS:
        for name in declared_in(code_of(header)):
            needed_by_others = len(re.findall(rf"\b{name}\b", headers)) > 1  # a parameter's type, a value's part
            is_result = name in given and re.search(rf"{name}\b[^;()]* = ", headers)
            if name not in callers and not needed_by_others and not is_result:
                yield f"{header.name}: {name} has no caller"


def main():
    if "--table" in sys.argv:
        print(table().strip())
        return 0
    found = list(findings())
    print("\n".join(found) if found else "every declared name has a caller")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
