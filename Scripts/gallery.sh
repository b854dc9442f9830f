#!/usr/bin/env bash
# Renders every window in every state, and writes docs/gallery.md from the list of what was rendered, light
# and dark side by side: a state that has a picture is on the page.
# Of a build that is there already: Scripts/gallery.sh PROGRAMS, the folder of the bundle's programs.
set -euo pipefail
cd "$(dirname "$0")/.."
images=docs/images
page=docs/gallery.md
programs=${1:-build/release/Wendlow.app/Contents/MacOS}

MORE_PACKAGES=pngquant Scripts/dependencies.sh
if [ $# -eq 0 ]; then
    cmake --preset release >/dev/null
    cmake --build --preset release --target wendlow-settings wendlow-connect wendlow-hook wendlow-mcp
fi

# The Settings window shows the tools of the home folder: here one that is connected, and one that is not.
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
mkdir -p "$home/.claude" "$home/.codex" "$home/.cursor" "$home/run"
chmod 700 "$home/run"
alone() {
    env -u WAYLAND_DISPLAY -u DISPLAY HOME="$home" XDG_RUNTIME_DIR="$home/run" \
        DBUS_SESSION_BUS_ADDRESS=disabled: "$@"
}
alone "$programs/wendlow-connect" install claude-code >/dev/null

mkdir -p "$home/pictures"
alone "$programs/wendlow-settings" --snapshots "$home/pictures" >"$home/list"

# A third of the bytes, by up to 256 colours of each picture's own; one that would suffer stays as it is (99).
find "$home/pictures" -name '*.png' -print0 |
    xargs -0 -n 16 pngquant --quality=90-100 --strip --skip-if-larger --force --ext .png || true

# By name: the picture with "-light.png" and the one with "-dark.png", of which the journey has the second.
sed -nE 's,^.*/([^/]+)-(light|dark)\.png$,\1 \2,p' "$home/list" | awk '
    function words(name) { gsub(/-/, " ", name); return name }
    # What stands behind the last hyphen where it is of this shape; it is cut off then.
    function cut(shape,    last) {
        if (!match(state, "-" shape "$"))
            return ""
        last = substr(state, RSTART + 1)
        state = substr(state, 1, RSTART - 1)
        return last
    }
    function said(name,    text, size, width) {
        state = name
        text = cut("text[0-9]+"); size = cut("[0-9]+x[0-9]+"); width = cut("[0-9]+")
        sub(/^text/, "", text); sub(/x/, " × ", size)
        return (state == "" ? "as it opens" : words(substr(state, 2))) \
            (width == "" ? "" : ", " width " wide") (size == "" ? "" : ", " size) \
            (text == "" ? "" : ", words of " text " %")
    }
    function place(name,    i) {
        for (i = 1; i <= places; ++i)
            if (name == id[i] || index(name, id[i] "-") == 1)
                return i
        print "Scripts/gallery.sh: no place for the picture " name > "/dev/stderr"
        failed = 1
        return 0
    }
    function add(window, heading) { id[++places] = window; title[places] = heading }
    BEGIN {
        add("editor", "Memories"); add("settings-connected", "Settings: Connected Apps")
        add("settings-general", "Settings: General"); add("settings-recording", "Settings: Recording Control")
        add("settings-recovery", "Settings: Recovery"); add("settings-classifier", "Settings: Classifier")
        add("stats", "Stats"); add("journey", "The first run, which is always dark"); add("about", "About")
        add("shortcuts", "Keyboard Shortcuts"); add("workbench", "Workbench"); add("controls-bench", "Controls Bench")
        add("filters-bench", "Filters Bench"); add("search-bench", "Search Bench"); add("rows-bench", "Rows Bench")
    }
    { if (!($1 in seen)) { seen[$1] = 1; order[++states] = $1 } has[$1, $2] = 1 }
    END {
        print "# Gallery\n"
        print "Every window in every state. Written by `Scripts/gallery.sh` from the pictures that the program takes of itself, so no state is left out; how each window is worked is told in the pages beside this one.\n"
        for (i = 1; i <= places; ++i) {
            link = tolower(title[i]); gsub(/[:,]/, "", link); gsub(/ /, "-", link)
            print "- [" title[i] "](#" link ")"
        }
        for (i = 1; i <= places; ++i) {
            print "\n## " title[i] "\n\n| | light | dark |\n| --- | --- | --- |"
            for (s = 1; s <= states; ++s) {
                name = order[s]
                if (place(name) != i) continue
                what = said(substr(name, length(id[i]) + 1))
                # These are walked over a daemon that is too old; each of their states has a posed one.
                if (what == "as it opens" && id[i] ~ /general|recording$/)
                    what = "over a daemon that is too old"
                printf "| %s |", what
                for (l = 1; l <= 2; ++l) {
                    look = l == 1 ? "light" : "dark"
                    if ((name, look) in has)
                        printf " ![%s: %s, %s](images/%s-%s.png) |", title[i], what, look, name, look
                    else
                        printf " |"
                }
                print ""
            }
        }
        exit failed
    }' >"$home/gallery.md"

# Whole or not at all. What the page showed before and is no more goes; other pages have pictures of their own.
shown() { grep -oE 'images/[^)]+\.png' "$1" | sed 's,^images/,,' | sort -u; }
if [ -e "$page" ]; then
    comm -23 <(shown "$page") <(shown "$home/gallery.md") | while read -r picture; do
        echo "gone: $picture" >&2
        rm -f "$images/$picture"
    done
fi
mkdir -p "$images"
# These two name the folder that the program lies in, and are kept as they were taken of an installed one.
for look in light dark; do
    [ ! -e "$images/settings-connected-$look.png" ] || rm "$home/pictures/settings-connected-$look.png"
done
cp "$home/pictures"/*.png "$images/"
mv "$home/gallery.md" "$page"
echo "$page: $(grep -c '^| [^|-].*images/' "$page") states"
