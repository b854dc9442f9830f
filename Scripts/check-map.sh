#!/usr/bin/env bash
# The map in docs/architecture.md names every module folder there is, and nothing that is not there.
set -euo pipefail
cd "$(dirname "$0")/.."
named=$(grep -oE '^\| `[A-Za-z]+(/[A-Za-z]+)*/?`' docs/architecture.md | grep -oE '[A-Za-z]+(/[A-Za-z]+)*' | sort -u)
there=$(git ls-files | grep -oE '^(Sources|Companions)/[^/]+/|^(Tests|Benchmarks|Fuzz|Scripts|Packaging|Translations|docs|cmake)/' |
    sed 's,/$,,' | sort -u)
if ! difference=$(diff <(printf '%s\n' "$named") <(printf '%s\n' "$there")); then
    printf 'docs/architecture.md: the map of folders is not what is there:\n%s\n' "$difference" >&2
    exit 1
fi
