#!/usr/bin/env bash
# The cheap checks: format, comments, assertions, tests that documents name, headers alone; then clang-tidy on changed files
# (`all`: on all).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/lib.sh

sources() { git ls-files -co --exclude-standard -- '*.cpp' '*.h'; }

# Files that differ from the upstream branch, or, where there is no such branch or nothing differs, from before the last commit.
changed() {
    local base
    base=$(git merge-base HEAD origin/main 2>/dev/null || true)
    if [ -z "$base" ] || [ "$base" = "$(git rev-parse HEAD)" ]; then base=HEAD~1; fi
    { git diff --name-only --diff-filter=d "$base" 2>/dev/null || true; git ls-files -o --exclude-standard; } |
        grep '\.cpp$' | sort -u || true
}

python3 scripts/check_share.py
sources | xargs -P 2 -n 60 clang-format-14 --dry-run -Werror
python3 scripts/check_comments.py
python3 scripts/check_assertions.py
python3 scripts/check_platform_names.py
python3 scripts/check_behaviour.py
configure release BUILD_TESTING=ON GRUB_BENCH=ON
python3 scripts/check_headers.py build/release
if [ "${1:-changed}" = all ]; then files=$(sources | grep '\.cpp$'); else files=$(changed); fi
[ -z "$files" ] || xargs python3 scripts/tidy.py build/release <<<"$files"
