#!/usr/bin/env python3
"""Fails when a test cannot fail: every TEST body must hold an assertion, or call a helper of its folder that holds one."""
import pathlib
import re
import sys

ASSERTION = re.compile(r"\b(?:EXPECT|ASSERT)_\w+|\bFAIL\(|\bADD_FAILURE")
TEST = re.compile(r"^(?:TEST|TEST_F|TEST_P|TYPED_TEST)\(\s*(\w+)\s*,\s*(\w+)\s*\)", re.M)
FUNCTION = re.compile(r"^[\w:<>&*\[\] ,]*?\b(\w+)\([^;{]*\)(?: const)? \{", re.M)


def body_at(text: str, start: int) -> str:
    """The text between the first brace after `start` and its partner."""
    depth = 0
    begin = text.index("{", start)
    for i in range(begin, len(text)):
        depth += {"{": 1, "}": -1}.get(text[i], 0)
        if depth == 0:
            return text[begin : i + 1]
    return text[begin:]


def main() -> int:
    bad = []
    for path in sorted(pathlib.Path("tests").rglob("*.cpp")):
        text = path.read_text()
        checking = {
            match.group(1)
            for source in (file.read_text() for file in path.parent.glob("*.cpp"))
            for match in FUNCTION.finditer(source)
            if match.group(1) not in ("TEST", "TEST_F", "TEST_P") and ASSERTION.search(body_at(source, match.start()))
        }
        for match in TEST.finditer(text):
            body = body_at(text, match.end())
            if ASSERTION.search(body) or any(re.search(rf"\b{name}\(", body) for name in checking):
                continue
            bad.append(f"{path}: {match.group(1)}.{match.group(2)} asserts nothing")
    print("\n".join(bad) if bad else "every test asserts something")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
