#!/usr/bin/env bash
# check_consumer.sh WAY COMPILER SOURCE PREFIX FOLDER - builds two examples and a schema in FOLDER as a consumer does who
# comes by this WAY, and runs them. Each is a client that checks what it reads and writes.
#
#   find_package, pkg_config    on the package installed in PREFIX
#   subdirectory, without_xml   on the tree in SOURCE; the second without the XML reader and without the command
set -euo pipefail
way=$1 compiler=$2 source=$3 prefix=$4 folder=$5
here=$(cd "$(dirname "$0")" && pwd)

build_by_cmake() {
  cmake -S "$here/$1" -B "$folder" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" "${@:2}"
  cmake --build "$folder"
}

build_by_pkg_config() {
  export PKG_CONFIG_PATH
  PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name steprt.pc)")
  local flags
  read -ra flags <<<"$(pkg-config --cflags --libs steprt)"
  for client in edit_and_write stp_xml_convert; do
    "$compiler" -std=c++17 -Wall -Wextra -Wpedantic -Werror "$source/examples/$client.cpp" -o "$folder/$client" \
      "${flags[@]}"
  done
  "$prefix/bin/steprt" compile "$source/examples/compiled/plant.exp" --out "$folder/schema" --parts 1
  "$compiler" -std=c++17 -Wall -Wextra -Wpedantic -Werror -I"$folder/schema" "$source/examples/compiled/main.cpp" \
    "$folder"/schema/*.cpp -o "$folder/compiled" "${flags[@]}"
  export LD_LIBRARY_PATH
  LD_LIBRARY_PATH=$(pkg-config --variable=libdir steprt)
}

rm -rf "$folder"
mkdir -p "$folder"
case $way in
  find_package) build_by_cmake find_package -DCMAKE_PREFIX_PATH="$prefix" ;;
  pkg_config) build_by_pkg_config ;;
  subdirectory) build_by_cmake subdirectory -DSTEPRT_SOURCE="$source" ;;
  without_xml) build_by_cmake subdirectory -DSTEPRT_SOURCE="$source" -DSTEPRT_XML=OFF -DSTEPRT_TOOLS=OFF ;;
esac
"$folder/edit_and_write" "$folder"
[ "$way" = without_xml ] || "$folder/compiled" "$folder"
# Without the XML reader nothing comes of a document, which this client says in its result.
if [ "$way" = without_xml ]; then
  if "$folder/stp_xml_convert" "$folder"; then exit 1; fi
else
  "$folder/stp_xml_convert" "$folder"
fi
