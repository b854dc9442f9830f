#!/usr/bin/env bash
# clang-tidy over every source file of the product. A file whose text, headers and checks have not changed since it
# was last found clean is not looked at again.
set -euo pipefail
cd "$(dirname "$0")/.."
stamps=$PWD/build/tidy
mkdir -p "$stamps"

# clang cannot read GCC's precompiled headers, so it gets a database that includes their text.
database=$PWD/build/tidy/database
mkdir -p "$database"
python3 - build/dev/compile_commands.json "$database" <<'PY'
import json, pathlib, re, shutil, sys

database = pathlib.Path(sys.argv[2])

def text_of(match):
    header = pathlib.Path(match[1])
    copy = database / (header.parent.name + '.hxx')
    shutil.copyfile(header, copy)
    return f'-include {copy}'

entries = json.load(open(sys.argv[1]))
for entry in entries:
    command = re.sub(r'^.*?ccache ', '', entry['command']).replace('-Winvalid-pch', '')
    command = re.sub(r'-include (\S*cmake_pch\.hxx)', text_of, command)
    entry['command'] = command + ' -Wno-unknown-warning-option'
json.dump(entries, open(database / 'compile_commands.json', 'w'))
PY

headers=$(git ls-files -z -- '*.h' .clang-tidy | xargs -0 sha256sum | sha256sum | cut -c1-32)
export stamps headers database

check() {
    stamp=$stamps/$(printf '%s %s' "$headers" "$(sha256sum "$1")" | sha256sum | cut -c1-32)
    [ -e "$stamp" ] && return 0
    clang-tidy-19 --quiet -p "$database" "$1" 2>/dev/null || exit 1
    : >"$stamp"
}
export -f check

git ls-files -z -- 'Sources/*.cpp' 'Companions/*.cpp' |
    xargs -0 -P 2 -I{} bash -c 'check "$@"' _ {}
echo "clean"
