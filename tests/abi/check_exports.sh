#!/usr/bin/env bash
# check_exports.sh LIST MAPPED UNMAPPED - compares the names that two builds of the library export with the list that
# comes from src/exports/entries.def. MAPPED is the library; a name that it lacks is listed and not defined. UNMAPPED was
# linked without the linker's map; a name that it has beyond the list bears STEPRT_API and has no row. Names of the
# standard library, whose templates leave a compiler some freedom, are none of ours.
set -euo pipefail

exported() {
  nm -D --defined-only --format=just-symbols "$1" |
    while read -r symbol; do
      case $(c++filt "$symbol") in
        *std::* | *__gnu_cxx::* | 'operator new'* | 'operator delete'*) ;;
        *) echo "$symbol" ;;
      esac
    done | LC_ALL=C sort
}

for library in "$2" "$3"; do
  diff --unified=0 --label 'entries.def' --label "exported by $(basename "$library")" \
    <(LC_ALL=C sort "$1") <(exported "$library") | c++filt
done
