#!/usr/bin/env bash
# Every check there is: formatting, the product built with warnings as errors, QML lint, all tests under
# the address, leak and undefined-behaviour sanitizers, the gateway client's under the thread
# sanitizer, a short fuzz run, static analysis, and the end-to-end tests. What finds what, and how long
# each step takes, is told in docs/checks.md.
set -euo pipefail
cd "$(dirname "$0")/.."
export FUZZ_SECONDS="${FUZZ_SECONDS:-15}"

steps=() taken=() last_lines=()

# Also where a step fails: what was done until then, and what it took.
table() {
    status=$?
    [ ${#last_lines[@]} -eq 0 ] || printf '%s\n' '' "${last_lines[@]}"
    printf '\n'
    for i in "${!steps[@]}"; do
        printf '%6s s  %s\n' "${taken[$i]:-failed after $((SECONDS - began))}" "${steps[$i]}"
    done
    printf '%6s s  all\n' "$SECONDS"
    exit "$status"
}
trap table EXIT

step() {
    steps+=("$1")
    began=$SECONDS
    printf '\n== %s\n' "$1"
    "${@:2}"
    taken+=($((SECONDS - began)))
    printf -- '-- %s: %s s\n' "$1" "${taken[-1]}"
}

formatting() {
    git ls-files -z -- '*.cpp' '*.h' '*.c' | xargs -0 clang-format-19 --dry-run -Werror
    Scripts/check-map.sh
    Scripts/check-links.py
    Scripts/words.py --check
}

build() {
    cmake --preset "${2:-$1}" >/dev/null
    cmake --build --preset "$1"
}

# The last lines of every run stand together at the end.
tests() {
    local said
    said=$(mktemp)
    if ! ctest --preset "$1" -j2 >"$said"; then
        grep -vE '^ *[0-9]+/[0-9]+ Test .* Passed|^ *Start +[0-9]+:' "$said" || true
        rm "$said"
        return 1
    fi
    tail -n 12 "$said"
    last_lines+=("$1: $(grep -E 'tests passed' "$said")")
    rm "$said"
}

step "dependencies" Scripts/dependencies.sh
step "formatting, the map of folders, the links and the words" formatting
step "the product, with GCC" build product dev
step "QML lint" cmake --build --preset dev --target all_qmllint
step "static analysis" Scripts/tidy.py
step "everything under sanitizers, with clang" build sanitize
step "the gateway client under the thread sanitizer" build tsan
step "its tests" tests tsan
step "fuzz, $FUZZ_SECONDS s each" Scripts/fuzz.sh "$FUZZ_SECONDS"
step "end-to-end tests of the product" tests product
step "all other tests, under sanitizers" tests sanitize
