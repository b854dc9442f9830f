#!/usr/bin/env bash
# Builds the application and opens it; arguments go to it, for example --window=settings. Where no
# gateway is running, the practice gateway runs beside it, as long as it does, and so does the
# practice menu, which plays the first-run download.
# Without a display: Scripts/run.sh --snapshots DIR renders every window to PNG files.
set -euo pipefail
called_from=$PWD
cd "$(dirname "$0")/.."
Scripts/dependencies.sh

cmake --preset release >/dev/null
cmake --build --preset release --target wendlow-settings wendlow-hook wendlow-mcp \
    wendlow-connect wendlow-ask wendlow-practice-gateway wendlow-practice-menu
run=$PWD/Scripts/run.sh
programs=$PWD/build/release/Wendlow.app/Contents/MacOS

cd "$called_from"

case " $* " in
*" --snapshots "*) exec "$programs/wendlow-settings" "$@" ;;
esac
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
    echo "There is no display here. To see the windows as pictures: Scripts/run.sh --snapshots DIR" >&2
    exit 1
fi
if [ -z "${DBUS_SESSION_BUS_ADDRESS:-}" ] && [ ! -S "${XDG_RUNTIME_DIR:-}/bus" ]; then
    echo "There is no session bus here, so one is started for this run." >&2
    exec dbus-run-session -- "$run" "$@"
fi

gateway_is_there() {
    dbus-send --session --print-reply=literal --dest=org.freedesktop.DBus /org/freedesktop/DBus \
        org.freedesktop.DBus.NameHasOwner string:works.fenmoor.wendlow.gateway 2>/dev/null |
        grep -q true
}

if gateway_is_there; then
    exec "$programs/wendlow-settings" "$@"
fi
echo "No gateway is running, so the practice gateway stands in: it keeps no real memory." >&2
"$programs/wendlow-practice-gateway" --fill day >/dev/null &
gateway=$!
"$programs/wendlow-practice-menu" >/dev/null &
menu=$!
trap 'kill "$gateway" "$menu" 2>/dev/null; wait "$gateway" "$menu" || true' EXIT
# The windows find it later too; but what opens first should not begin with a complaint.
for _ in $(seq 100); do
    if gateway_is_there || ! kill -0 "$gateway" 2>/dev/null; then
        break
    fi
    sleep 0.1
done
"$programs/wendlow-settings" "$@"
