#!/usr/bin/env python3
"""Lists public declarations of headers that no comment explains, and fails when there is one.

A declaration is explained by a `///` line above it, by `///<` on its line, or by the comment of the block of declarations
(lines without a blank line between) that it stands in. The comment of a class or struct also explains its fields and its
first block, where the constructors stand.

What explains itself needs no comment: questions without parameters (`bool isOpen() const`), setters (`setVolume`), overrides,
destructors, copies and moves, defaulted and deleted members, named constants, friends, operator new, delete and comparisons, forward declarations.
"""
import pathlib
import re
import subprocess
import sys

EXEMPT = re.compile(
    "|".join(
        (
            r"^\w+\(\);",  # a constructor without parameters
            r"^[^=]*\w\(\) const(?: noexcept)?(?: \{|;)|^\[\[nodiscard\]\] [^(]*\w\(\) \{ return \w+;|^(?:void|bool) set[A-Z]\w*\(",  # questions and setters
            r"\boperator(?:=| new| delete|==|<=>|\(\))|\b(\w+)\((?:const )?\1&|override|= default|= delete|^virtual ~|^~",
            r"^inline [^(]*\w::~?\w+\(|^friend\b|^using namespace|^using [\w:]+;|^(?:class|struct|enum class) \w+;",
            r"^inline constexpr [^(]*\bk[A-Z]\w*(?: =|\{)",  # constants with telling names
            r"^(?:public|protected|private):|^namespace\b|^extern \"C\"|^static_assert|^#|^//|^return\b|^template\b|^:|^\}|^\{|^if\b",
        )
    )
)


class Scope:
    def __init__(self, kind: str, public: bool):
        self.kind = kind  # namespace, class, enum, other
        self.public = public
        self.explained = False  # it had a comment of its own


def opened(line: str) -> Scope:
    if re.match(r"(inline )?namespace\b|extern \"C\"", line):
        return Scope("namespace", not re.match(r"namespace (detail|\{)", line))
    if re.match(r"(typedef )?enum\b", line):
        return Scope("enum", True)
    if re.match(r"class\b|template.*\bclass \w+.*\{$", line):
        return Scope("class", False)
    if re.match(r"(typedef )?(struct|union)\b", line):
        return Scope("class", True)
    return Scope("other", False)


def whole_statement(lines: list[str], first: int) -> str:
    """A declaration with its continuation lines."""
    joined = ""
    for line in lines[first : first + 6]:
        joined += line.strip() + " "
        if re.search(r"[;{}]\s*$", line):
            break
    return joined


def faults_of(path: pathlib.Path) -> list[str]:
    faults = []
    lines = path.read_text().splitlines()
    scopes: list[Scope] = []
    explained = False  # the current block of lines began with a comment
    statement = ""  # a declaration that goes on over several lines
    for number, raw in enumerate(lines, 1):
        line = raw.strip()
        visible = all(s.kind in ("namespace", "class") and s.public for s in scopes)
        if not line:
            if not statement:
                explained = False
            continue
        if line.startswith("///") or line.startswith("/**"):
            explained = True
            continue
        label = re.match(r"(public|protected|private):", line)
        if label and scopes and scopes[-1].kind == "class":
            scopes[-1].public = label.group(1) == "public"
            explained = scopes[-1].explained
            continue
        code = re.sub(r"//.*|\"(\\.|[^\"])*\"", "", line)
        begins = not statement
        field = scopes and scopes[-1].kind == "class" and scopes[-1].explained and "(" not in code and not code.endswith("{")
        if visible and begins and not EXEMPT.search(whole_statement(lines, number - 1)) and not (explained or field) and "///<" not in line and re.search(r"\w", code):
            faults.append(f"{path}:{number}: {line}")
        statement = "" if re.search(r"[;{}]\s*$|:$", code) or EXEMPT.match(line) and not code.endswith((",", "(")) else statement + code
        for char in re.findall(r"[{}]", code):
            if char == "{":
                scopes.append(opened(line))
                scopes[-1].explained = explained
            elif scopes:
                explained = scopes.pop().explained
        if code.endswith("{") and scopes[-1].kind != "class":
            explained = False
    return faults


def main() -> int:
    names = subprocess.run(
        ["git", "ls-files", "-co", "--exclude-standard", "src/*.h", "tools/*.h", "content/*.h", "tests/*.h", "bench/*.h"], capture_output=True, text=True
    ).stdout.split()
    faults = [fault for name in names for fault in faults_of(pathlib.Path(name))]
    print("\n".join(faults + [f"public declarations without a comment: {len(faults)}"]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
