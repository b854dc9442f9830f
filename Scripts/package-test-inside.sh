#!/usr/bin/env bash
# What Scripts/package-test.sh does in its folder: as root with no argument, then as a person with
# "person", within a session bus.
set -euo pipefail

fail() {
    echo "FAILED: $*" >&2
    exit 1
}
eventually() {
    for _ in $(seq 200); do
        if "$@"; then
            return 0
        fi
        sleep 0.1
    done
    fail "not within 20 s: $*"
}
passed() { echo "ok: $*"; }

entry=/usr/share/applications/works.fenmoor.wendlow.desktop

# ---- as a person ------------------------------------------------------------------------------------

active_is() { [ "$(xdotool getactivewindow getwindowname 2>/dev/null)" = "$1" ]; }
has_a_window() { xdotool search --onlyvisible --classname '^wendlow$' >/dev/null 2>&1; }
processes() {
    local link
    for link in /proc/[0-9]*/exe; do
        if [ "$(readlink "$link")" = /opt/Wendlow.app/Contents/MacOS/wendlow-settings ]; then
            basename "${link%/exe}"
        fi
    done
}
nothing_runs() { [ -z "$(processes)" ]; }

# Files as people have them: spacing that no printer would choose, comments, no last line end.
fill_home() {
    mkdir -p .claude .codex .cursor .config/opencode
    printf '{\r\n  "model": "opus",\r\n  "hooks": { "Stop": [] }\r\n}' >.claude/settings.json
    printf '{"numStartups":7,"mcpServers":{"files":{ }},  "note":"a\\/b \\u00e9"}' >.claude.json
    printf '# mine\nmodel = "o3"   # and this\n\n[mcp_servers.files]\ncommand = "x"' >.codex/config.toml
    printf '{"mcpServers": {}}\n' >.cursor/mcp.json
    printf '{\n\t"version": 1,\n\t"hooks": {}\n}\n' >.cursor/hooks.json
    printf '{\n  // mine\n  "model": "x/y",\n}\n' >.config/opencode/opencode.json
}

# Each file with mode and bytes. Copies beside the files and what Wendlow keeps of its own are told of,
# and stay.
manifest() {
    find . -path ./Library -prune -o -type f ! -name '*.wendlow-backup-*' -printf '%m %p ' \
        -exec sha256sum {} \; | sort -k 2
}

tools() {
    fill_home
    cp -a . /tmp/before
    wendlow-connect install >/tmp/installed || fail "install: $(cat /tmp/installed)"
    local connected
    connected=$(wendlow-connect scan --json | grep -c '"state": "connected"')
    [ "$connected" = 4 ] || fail "$connected of 4 tools connected: $(wendlow-connect scan)"
    grep -q /opt/Wendlow.app/Contents/MacOS/wendlow-mcp .claude.json .codex/config.toml \
        .cursor/mcp.json .config/opencode/opencode.json || fail "a tool's file does not name /opt"
    passed "four tools connected"

    printf '{"hook_event_name":"UserPromptSubmit","prompt":"hello","session_id":"1","cwd":"/"}' |
        /opt/Wendlow.app/Contents/MacOS/wendlow-hook --harness codex || fail "the hook"
    printf '%s\n' '{"jsonrpc":"2.0","id":1,"method":"ping"}' |
        /opt/Wendlow.app/Contents/MacOS/wendlow-mcp | grep -q '"id":1' || fail "the server"
    passed "what a tool starts runs"

    wendlow-connect doctor >/tmp/doctor
    grep -q '^  bundle: /opt/Wendlow.app$' /tmp/doctor || fail "doctor: $(cat /tmp/doctor)"
    if grep -q "$HOME" /tmp/doctor; then
        fail "doctor names the home folder"
    fi
    passed "doctor"

    wendlow-connect remove >/tmp/removed || fail "remove: $(cat /tmp/removed)"
    diff <(cd /tmp/before && manifest) <(manifest) || fail "the tools' files are not as before"
    passed "disconnected byte for byte"
}

windows() {
    # Its number is the server's to choose: outside of this folder there may be others, and their
    # abstract sockets are seen here.
    Xvfb -displayfd 3 -screen 0 1400x1000x24 -nolisten tcp 3>/tmp/display >/dev/null 2>&1 &
    eventually test -s /tmp/display
    DISPLAY=:$(cat /tmp/display)
    export DISPLAY QT_QUICK_BACKEND=software
    # A window that comes before it manages is never shown.
    openbox --startup "touch /tmp/managing" >/dev/null 2>&1 &
    eventually test -e /tmp/managing

    gio launch "$entry" || fail "the desktop entry does not launch"
    eventually has_a_window
    passed "opens from its desktop entry"

    # The entry's actions, and starts from a shell: each ends, and its window is in front.
    local line name
    sed -n 's/^Exec=//p' "$entry" | tail -n +2 >/tmp/actions
    [ "$(wc -l </tmp/actions)" = 3 ] || fail "the entry has not three actions"
    while read -r line; do
        case $line in
        *memories) name=Memories ;;
        *stats) name=Stats ;;
        *settings) name=Wendlow ;;
        *) fail "what is $line?" ;;
        esac
        timeout 20 $line </dev/null || fail "$line"
        eventually active_is "$name"
    done </tmp/actions
    timeout 20 wendlow --window=stats || fail "a second start"
    eventually active_is Stats
    timeout 20 wendlow || fail "a second start that names no window"
    [ "$(processes | wc -l)" = 1 ] || fail "not one process: $(processes)"
    passed "second starts raise the first's windows"

    kill $(processes)
    eventually nothing_runs
    timeout 20 wendlow-open memories || fail "wendlow-open with nothing running"
    eventually active_is Memories
    kill $(processes)
    eventually nothing_runs
    passed "wendlow-open starts what does not run"
}

if [ "${1:-}" = person ]; then
    cd "$HOME"
    tools
    windows
    exit 0
fi

# ---- as root ----------------------------------------------------------------------------------------

everything() {
    find / -xdev \( -path /proc -o -path /dev -o -path /tmp -o -path /home -o -path /media \
        -o -path /var/cache -o -path /var/lib/apt -o -path /var/lib/dpkg -o -path /var/log \) -prune \
        -o -printf '%M %u %s %l %p\n' | grep -vE ' (/run|/etc/(subuid|subgid|passwd|shadow|group|gshadow)-?)$' | sort
}
install_package() {
    apt-get install -y -qq --no-install-recommends /media/package/wendlow_*.deb >/tmp/apt.log 2>&1 ||
        { cat /tmp/apt.log; fail "apt install"; }
}
purge_package() {
    apt-get purge -y -qq wendlow >/tmp/purge.log 2>&1 || { cat /tmp/purge.log; fail "apt purge"; }
}

echo 'deb http://deb.debian.org/debian bookworm main' >/etc/apt/sources.list
apt-get update -qq
install_package
passed "installed by apt: $(dpkg-query -W -f '${Package} ${Version}, ${Installed-Size} KB' wendlow)"
apt-get install -y -qq --no-install-recommends xvfb openbox xdotool dbus libglib2.0-bin >/dev/null 2>&1
useradd --create-home person

purge_package
everything >/tmp/without
install_package
runuser -u person -- env HOME=/home/person dbus-run-session -- \
    bash /media/package/package-test-inside.sh person
purge_package
grep -q 'wendlow-connect remove' /tmp/purge.log || fail "nothing is said before it goes"
everything >/tmp/after
diff /tmp/without /tmp/after || fail "purging leaves something"
left=$(find / -xdev \( -path /proc -o -path /home -o -path /media -o -path /tmp \) -prune \
    -o -iname '*wendlow*' -print)
[ -z "$left" ] || fail "purging leaves: $left"
passed "purged without a trace"
echo "in the person's home: $(cd /home/person && find . -iname '*wendlow*' | sort | tr '\n' ' ')"
