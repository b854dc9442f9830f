#!/usr/bin/env bash
# Runs every fuzz target for the given number of seconds (60 if left out), two at a time, from the
# committed seeds. What a run finds stays in build/fuzz/found; the seeds are never written to.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
found=$PWD/build/fuzz/found
mkdir -p "$found"

run_one() {
    target=$1 seconds=$2 found=$3
    name=$(basename "$target")
    grown=$(mktemp -d)
    seeds=()
    [ -d "Fuzz/corpus/$name" ] && seeds=("Fuzz/corpus/$name")
    if "$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 -max_len=16384 \
        -artifact_prefix="$found/$name-" "$grown" "${seeds[@]}" >"$found/$name.log" 2>&1; then
        printf '%s: %s\n' "$name" "$(grep -E '^Done' "$found/$name.log" | tail -n 1)"
        rm -rf "$grown"
    else
        tail -n 40 "$found/$name.log"
        rm -rf "$grown"
        exit 1
    fi
}
export -f run_one

targets=$(find build/fuzz/Fuzz -maxdepth 1 -type f -perm -u+x -name 'Fuzz*' | sort)
[ -n "$targets" ] || { echo "no fuzz target was built" >&2; exit 1; }
printf '%s\n' "$targets" | xargs -P 2 -I{} bash -c 'run_one "$@"' _ {} "$seconds" "$found"
