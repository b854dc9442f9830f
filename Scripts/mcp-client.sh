#!/usr/bin/env bash
# Drives every tool of wendlow-mcp, its resources and its prompt by the protocol's own client for
# TypeScript, and once more by the inspector's command line, which starts the server for each call as
# the tools do, against the practice gateway on a bus of its own; and holds every schema to JSON Schema.
# Not part of Scripts/test.sh: it fetches both from npm.
set -euo pipefail
cd "$(dirname "$0")/.."
Scripts/dependencies.sh
command -v npm >/dev/null || { echo "npm is needed to fetch the client (apt-get install npm)" >&2; exit 1; }

folder=$PWD/build/mcp-client
mkdir -p "$folder"
cp -p Scripts/mcp-client/package.json Scripts/mcp-client/package-lock.json Scripts/mcp-client/*.mjs "$folder"
[ "$folder/node_modules/.package-lock.json" -nt "$folder/package-lock.json" ] ||
    npm ci --prefix "$folder" --ignore-scripts --no-audit --no-fund --loglevel=error
preset=${PRESET:-dev}
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" --target wendlow-mcp wendlow-practice-gateway
programs=$PWD/build/$preset/Wendlow.app/Contents/MacOS

home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
HOME=$home dbus-run-session -- bash -c '
    coproc gateway { exec "$1/wendlow-practice-gateway" --fill day --store "$HOME/support/data.db"; }
    read -r ready <&"${gateway[0]}" && [ "$ready" = ready ] || exit 1
    status=0
    node "$2/drive.mjs" "$1/wendlow-mcp" || status=$?
    node "$2/inspect.mjs" "$1/wendlow-mcp" || status=$?
    kill "$gateway_PID"
    exit "$status"' bash "$programs" "$folder"
