#!/usr/bin/env bash
# Runs every fuzz target for the given number of seconds (60 if left out), two at a time, from the
# committed seeds. What a run finds stays in the build folder; the seeds are never written to.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset sanitize -DWENDLOW_FUZZ_SECONDS="${1:-60}" >/dev/null
cmake --build --preset sanitize --target RunFuzzers -j2 2>&1 |
    grep -E '^Fuzz|number_of_executed_units|ERROR|SUMMARY|Test unit|FAILED|error:'
