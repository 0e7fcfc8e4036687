#!/usr/bin/env bash
# check_abi.sh LIBRARY HEADERS KEPT - compares the library's binary interface (the layout of its public types, its virtual
# tables, what its functions take and give) with the description that is kept. With STEPRT_ACCEPT=1 in the environment it
# writes the description. The library must have been built with symbols for debugging.
set -euo pipefail
library=$1
headers=$2
kept=$3

for tool in abidw abidiff; do
  command -v "$tool" >/dev/null || { echo "no $tool: install abigail-tools (script/setup does)" >&2 && exit 1; }
done

describe() {
  abidw --exported-interfaces-only --headers-dir "$headers" --drop-private-types --no-comp-dir-path --no-corpus-path \
    --no-show-locs --no-parameter-names --no-elf-needed --type-id-style hash "$library" |
    sed "s#path='[^']*/src/#path='src/#"
}

if [ "${STEPRT_ACCEPT:-}" = 1 ]; then
  describe >"$kept"
  exit 0
fi

fresh=$(mktemp)
trap 'rm -f "$fresh"' EXIT
describe >"$fresh"
abidiff "$kept" "$fresh"
