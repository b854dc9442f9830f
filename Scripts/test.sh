#!/usr/bin/env bash
# Every check there is: formatting, build with warnings as errors, QML lint, static analysis,
# sanitizers on the modules without Qt, a short fuzz run, unit tests and end-to-end tests.
set -euo pipefail
cd "$(dirname "$0")/.."
export FUZZ_SECONDS="${FUZZ_SECONDS:-15}"

step() { printf '\n== %s (%d s)\n' "$1" "$SECONDS"; }

step "dependencies"
Scripts/dependencies.sh

step "formatting and the map of folders"
git ls-files -z -- '*.cpp' '*.h' '*.c' | xargs -0 clang-format-19 --dry-run -Werror
Scripts/check-map.sh

step "build"
cmake --preset dev >/dev/null
cmake --build --preset dev

step "QML lint"
cmake --build --preset dev --target all_qmllint

step "sanitizers"
cmake --preset asan >/dev/null
cmake --build --preset asan
ctest --preset asan --output-on-failure -j2 | tail -n 4

step "thread sanitizer on the gateway client"
cmake --preset tsan >/dev/null
cmake --build --preset tsan
ctest --preset tsan --output-on-failure -j2 | tail -n 4

step "fuzz, ${FUZZ_SECONDS} s each"
Scripts/fuzz.sh "$FUZZ_SECONDS"

step "static analysis"
Scripts/tidy.sh

step "tests"
ctest --preset dev -j2
step "done"
