#!/usr/bin/env bash
# Builds the application and opens it; arguments go to it, for example --window=settings.
# Without a display: Scripts/run.sh --snapshots DIR renders every window to PNG files.
set -euo pipefail
called_from=$PWD
cd "$(dirname "$0")/.."
Scripts/dependencies.sh

cmake --preset release >/dev/null
cmake --build --preset release --target wendlow-settings wendlow-hook wendlow-mcp wendlow-connect
application=$PWD/build/release/Wendlow.app/Contents/MacOS/wendlow-settings

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
    case " $* " in
    *" --snapshots "*) ;;
    *)
        echo "There is no display here. To see the windows as pictures: Scripts/run.sh --snapshots DIR" >&2
        exit 1
        ;;
    esac
fi
cd "$called_from"
exec "$application" "$@"
