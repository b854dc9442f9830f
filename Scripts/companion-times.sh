#!/usr/bin/env bash
# Measures the two programs that AI tools start, in their release build, over a practice gateway with a
# hundred thousand memories on a bus of its own: times in one run, beside what a bare exchange costs.
# Not part of Scripts/test.sh: a busy machine says little. docs/benchmarks.md has the figures.
set -euo pipefail
cd "$(dirname "$0")/.."
Scripts/dependencies.sh
cmake --preset release >/dev/null
cmake --build --preset release --target wendlow-hook wendlow-mcp wendlow-practice-gateway
programs=$PWD/build/release/Wendlow.app/Contents/MacOS

home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
HOME=$home dbus-run-session -- bash -c '
    coproc gateway { exec "$1/wendlow-practice-gateway" --fill power --store "$HOME/support/data.db"; }
    read -r ready <&"${gateway[0]}" && [ "$ready" = ready ] || exit 1
    status=0
    /usr/bin/python3 Scripts/companion-times/measure.py "$1" "${@:2}" || status=$?
    kill "$gateway_PID"
    exit "$status"' bash "$programs" "$@"
