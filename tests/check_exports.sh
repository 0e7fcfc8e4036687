#!/usr/bin/env bash
# check_exports.sh LIBRARY LIST - compares the names that the library exports with the list. With STEPRT_ACCEPT=1 in the
# environment it writes the list.
set -euo pipefail
library=$1
list=$2

exported() {
  nm -D --defined-only --demangle "$library" | sed -E 's/^[0-9a-f]+ [A-Za-z] //' | LC_ALL=C sort -u
}

if [ "${STEPRT_ACCEPT:-}" = 1 ]; then
  exported >"$list"
  exit 0
fi
diff --unified=0 --label expected --label exported "$list" <(exported)
