#!/usr/bin/env bash
# clang-tidy over every source file. A file whose text, headers and checks have not changed since it
# was last found clean is not looked at again.
set -euo pipefail
cd "$(dirname "$0")/.."
stamps=$PWD/build/tidy
mkdir -p "$stamps"

# clang cannot read GCC's precompiled headers nor two of its flags, so it gets a database without.
database=$PWD/build/tidy/database
mkdir -p "$database"
python3 - build/dev/compile_commands.json "$database/compile_commands.json" <<'PY'
import json, re, sys
entries = json.load(open(sys.argv[1]))
for entry in entries:
    command = re.sub(r'-Winvalid-pch|-include \S*cmake_pch\.hxx|-fpch-\S+', '', entry['command'])
    entry['command'] = re.sub(r'^.*?ccache ', '', command) + ' -Wno-unknown-warning-option'
json.dump(entries, open(sys.argv[2], 'w'))
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

git ls-files -z -- 'Sources/*.cpp' 'Companions/*.cpp' 'Tests/*.cpp' |
    xargs -0 -P 2 -I{} bash -c 'check "$@"' _ {}
echo "clean"
