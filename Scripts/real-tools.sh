#!/usr/bin/env bash
# Runs the AI tools themselves, in pinned versions, against what wendlow-connect writes into their
# files: is the server listed and connected, does the hook fire, does its context reach the model, is
# an off-switch kept, is everything gone after a removal? Then Claude Code and Codex go through a whole
# loop with the real hook, server and practice gateway, beside the running Editor, of which pictures are
# taken where ImageMagick is there (build/real-tools/work/film). Not part of Scripts/test.sh: it fetches 1 GB.
#
#     Scripts/real-tools.sh [claude-code|codex|opencode...]      all, if none is named
#
# A tool runs only in a network namespace that holds the loopback alone, with a home of its
# own, without credentials, and with a made-up model. Homes and transcripts stay in build/real-tools.
set -euo pipefail
cd "$(dirname "$0")/.."
Scripts/dependencies.sh
command -v npm >/dev/null || { echo "npm is needed to fetch the tools (apt-get install npm)" >&2; exit 1; }

# With the last of the run goes whatever a tool left running.
apart=(unshare --net --pid --fork --kill-child --mount-proc)
[ "$(id -u)" -eq 0 ] || apart+=(--user --map-root-user)
"${apart[@]}" true 2>/dev/null ||
    { echo "no network namespace can be made here, so no tool is started" >&2; exit 1; }

folder=$PWD/build/real-tools
mkdir -p "$folder/tools"
cp -p Scripts/real-tools/package.json Scripts/real-tools/package-lock.json "$folder/tools"
# Their install scripts are not run: the programs lie in the packages.
[ "$folder/tools/node_modules/.package-lock.json" -nt "$folder/tools/package-lock.json" ] ||
    npm ci --prefix "$folder/tools" --ignore-scripts --no-audit --no-fund --loglevel=error
cmake --preset dev >/dev/null
cmake --build --preset dev --target wendlow-connect wendlow-hook wendlow-mcp \
    wendlow-ask wendlow-practice-gateway wendlow-settings

rm -rf "$folder/work"
mkdir "$folder/work"
exec "${apart[@]}" /usr/bin/python3 Scripts/real-tools/Run.py "$folder/tools" "$PWD/build/dev/Wendlow.app" "$folder/work" "$@"
