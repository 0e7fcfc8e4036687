#!/usr/bin/env bash
# check_compile.sh COMMAND SOURCE FOLDER - the subcommand `compile` as a person uses it: exit status, messages and files.
set -euo pipefail
command=$1 source=$2 folder=$3
schema=$source/tests/express/every_construct.exp
rm -rf "$folder"
mkdir -p "$folder"
cd "$folder"

# expect STATUS PATTERN ARGUMENT... - runs the command; its output must match the pattern, or be empty for none.
expect() {
  local status=0 output
  output=$("$command" "${@:3}" 2>&1) || status=$?
  if [ "$status" = "$1" ] && { [ -z "$2" ] && [ -z "$output" ] || grep -q -- "${2:-.}" <<<"$output"; }; then return; fi
  printf 'steprt %s: status %s instead of %s, output:\n%s\n' "${*:3}" "$status" "$1" "$output" >&2
  exit 1
}

expect 0 'Make C++ classes' --help
expect 0 '--entities A,B' compile --help
expect 0 '^steprt [0-9]' --version
expect 2 'subcommand' # none
expect 2 '--out is required' compile "$schema"
expect 2 'SCHEMA.exp is required' compile --out made
expect 2 "'1x' cannot be a namespace" compile "$schema" --out made --namespace 1x
expect 2 "'steprt' cannot be a namespace" compile "$schema" --out made --namespace steprt
expect 2 "'system' cannot be a namespace" compile "$schema" --out made --namespace system
expect 2 'an empty name is no folder' compile "$schema" --out ''
expect 2 'parts' compile "$schema" --out made --parts 0
expect 2 'nothing.exp' compile nothing.exp --out made
expect 1 "no entity 'Nobody'" compile "$schema" --out made --entities Saw,Nobody
printf 'SCHEMA s;\nENTITY e;\n  a : ;\nEND_ENTITY;\nEND_SCHEMA;\n' >broken.exp
expect 1 "broken.exp:3:7: error: expected OPTIONAL or a type, found ';'" compile broken.exp --out made
printf 'SCHEMA s;\nEND_SCHEMA;\n' >empty.exp
expect 1 'this schema has no entities' compile empty.exp --out made
[ ! -e made ] # no failure leaves anything

expect 0 '' compile "$schema" --out made/here --namespace a::b --parts 2 --module
[ "$(cd made/here && echo *)" = 'a_b.cpp a_b.h a_b_1.cpp a_b_2.cpp a_b_module.cpp' ]
expect 0 '' compile "$schema" --out again --namespace a::b --parts 2 --module
diff -r made/here again
if [ "$(id -u)" != 0 ]; then # root writes anywhere
  chmod a-w again again/*
  expect 2 'cannot write' compile "$schema" --out again --namespace a::b
fi
