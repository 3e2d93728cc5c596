#!/usr/bin/env bash
# The cheap checks: format, comments, assertions, tests that docs name, headers alone; then clang-tidy on changed files
# (`all`: on all).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/lib.sh
install_packages

sources() { git ls-files -co --exclude-standard -- '*.cpp' '*.h'; }

# Files that differ from the upstream branch, or, where there is none or nothing differs, from before the last commit.
changed() {
    local base
    base=$(git merge-base HEAD origin/main 2>/dev/null || true)
    if [ -z "$base" ] || [ "$base" = "$(git rev-parse HEAD)" ]; then base=HEAD~1; fi
    { git diff --name-only --diff-filter=d "$base" 2>/dev/null || true; git ls-files -o --exclude-standard; } |
        grep '\.cpp$' | sort -u || true
}

sources | xargs clang-format-14 --dry-run -Werror
python3 scripts/check_comments.py
python3 scripts/check_assertions.py
python3 scripts/check_platform_names.py
python3 scripts/check_behaviour.py
[ -f build/release/compile_commands.json ] || build_preset release
python3 scripts/check_headers.py build/release
if [ "${1:-changed}" = all ]; then files=$(sources | grep '\.cpp$'); else files=$(changed); fi
# Fuzzers are built by clang in a build of their own.
files=$(grep -v '^fuzz/' <<<"$files" || true)
[ -z "$files" ] || xargs -P 2 -n 4 clang-tidy-14 -p build/release --quiet --extra-arg=-Wno-unknown-warning-option <<<"$files" 2>/dev/null
