#!/usr/bin/env bash
# check_command.sh COMMAND SOURCE FOLDER - the subcommands for exchange files as a person uses them: exit status and
# output. What docs/command.md shows is run here, and must be what comes out.
set -euo pipefail
command=$1 source=$2 folder=$3
rm -rf "$folder"
mkdir -p "$folder"
cp "$source"/tests/exchange/command/*.stp "$source/examples/compiled/plant.exp" "$folder"
cd "$folder"
steprt() { "$command" "$@"; }

# expect STATUS PATTERN ARGUMENT... - runs the command; its output must match the pattern.
expect() {
  local status=0 output
  output=$(steprt "${@:3}" 2>&1) || status=$?
  if [ "$status" = "$1" ] && grep -q -- "$2" <<<"$output"; then return; fi
  printf 'steprt %s: status %s instead of %s, output:\n%s\n' "${*:3}" "$status" "$1" "$output" >&2
  exit 1
}

# The lines that start with "$ " in the blocks of the page, with their output.
shown=$folder/shown made=$folder/made
# shellcheck disable=SC2016
sed -n '/^```console$/,/^```$/p' "$source/docs/command.md" | grep -v '^```' >"$shown"
while IFS= read -r line; do
  printf '$ %s\n' "$line"
  eval "$line" || true
done < <(sed -n 's/^\$ //p' "$shown") >"$made"
diff -u "$shown" "$made"
[ "$(grep -c '^\$ steprt' "$shown")" -ge 5 ]

expect 0 'Usage: steprt stat' stat --help
expect 0 '--schema FILE.exp' check --help
expect 2 'FILE is required' stat
expect 2 'FILE is required' check
expect 2 'most' check plant.stp --most -1
expect 0 '^records 5$' stat plant.stp
expect 1 '^  doubled       1$' stat faults.stp
expect 2 "^steprt: error: cannot read 'nothing.stp': No such file" stat nothing.stp plant.stp
expect 2 '^records 5$' stat nothing.stp plant.stp
expect 2 'cannot read' check .
expect 0 '^records 5, read 5, errors 0, warnings 0$' check plant.stp
expect 0 '^plant.stp: records 5, read 5, errors 0' check plant.stp plant.stp
expect 1 '^records 14, read 13, errors 3, warnings 0$' check plant.stp faults.stp
expect 2 "cannot read 'nothing.exp'" check plant.stp --schema nothing.exp
printf 'SCHEMA s; ENTITY e; END_SCHEMA;' >broken.exp
expect 2 'broken.exp:1:.*: error: ' check plant.stp --schema broken.exp
printf '' >empty.exp
expect 2 'error' check plant.stp --schema empty.exp
printf 'SCHEMA other; ENTITY line; END_ENTITY; END_SCHEMA;' >other.exp
expect 1 'warning: expected the schema OTHER, found PLANT \[schema-differs\]' check plant.stp --schema other.exp
expect 0 'errors 0, warnings 0' check plant.stp --schema other.exp --schema plant.exp
expect 0 'errors 0, warnings 0' check --schema other.exp plant.stp --schema plant.exp
expect 1 '"doubled": 1' stat faults.stp --json
expect 2 '"files": \[\]' check nothing.stp --json
printf 'ISO-10303-21;HEADER;\x1b[31m' >control.stp
expect 1 'control.stp:1:22: error' check control.stp
if steprt check control.stp | grep -q $'\x1b'; then exit 1; fi # neither colours nor what the file holds
steprt stat - <plant.stp >/dev/null 2>&1 && exit 1             # "-" is a name like any other
steprt check <(cat plant.stp) | grep -q '^records 5, read 5, errors 0, warnings 0$'

# A file of exactly one page and one of none have an end, too.
head -c 4096 /dev/zero | tr '\0' ' ' >page.stp
expect 1 'records 0, read 0, errors 4, warnings 0' check page.stp
: >none.stp
expect 1 'records 0, read 0, errors 4, warnings 0' check none.stp

# No value changes on the way to a standard file and through XML, whatever the file holds.
cp "$source"/tests/exchange/command/all.exp .
data() { sed -n '/^DATA/,$p' "$1" | tr -d '\n'; }
expect 0 '^records 3, written 3$' convert all.stp again.stp
diff <(data all.stp) <(data again.stp)
expect 0 '^records 3, written 3$' convert all.stp all.xml --schema all.exp
expect 0 '^records 3, written 3$' convert all.xml again.stp --schema all.exp
diff <(data all.stp) <(data again.stp)
grep -q "FILE_NAME('all.stp','2026-11-24T12:00:00',('A','B'),('C'),'d','e','f')" again.stp

printf 'ISO-10303-21;HEADER;ENDSEC;DATA;#3=a(12345678901,1e400,.5,#9,-0,+7);ENDSEC;END-ISO-10303-21;' >odd.stp
expect 0 'written 1' convert odd.stp again.stp
grep -q '^#3=A(12345678901,1.E400,0.5,#9,-0,+7);' again.stp
expect 1 ' 1  integers beyond 32 bits' convert odd.stp again.stp --to native
grep -q '^#1 = a(2147483647,1.79769e+308,0.5,$,0,7);' again.stp
expect 1 '"references": 1' convert odd.stp again.stp --to native --json
cp faults.stp itself.stp
expect 1 'itself.stp:9:1: error' convert itself.stp itself.stp --to native # IN was read before OUT is written
expect 2 'add --schema' convert plant.stp plant.xml
expect 2 "cannot read 'nothing.stp'" convert nothing.stp again.stp
expect 2 "cannot write 'nowhere/again.stp': No such file or directory" convert plant.stp nowhere/again.stp
expect 2 'OUT is required' convert plant.stp
expect 2 'form' convert plant.stp again.stp --to form

# The library's own form lacks fields of the header, which is no fault.
expect 1 'written 4' convert plant.stp own.stp --to native
expect 0 'warning: Missing text \[missing-text\]' convert own.stp again.stp
expect 0 '^records 4, written 4$' convert own.stp again.stp
sed 's/FILE_NAME(/FILE_NAME((1),/' own.stp >wrong.stp # a value of another kind is lost
expect 1 'error: Missing text' convert wrong.stp again.stp
printf 'ISO-10303-21;HEADER;ENDSEC;DATA;#1=BASE(#8);#2=BASE(#9);#3=BASE(5);ENDSEC;END-ISO-10303-21;' >order.stp
expect 1 'written 3' convert order.stp order.xml --schema all.exp
test "$(steprt convert order.stp order.xml --schema all.exp | grep -oE '^order.stp:1:[0-9]+')" = \
  "$(steprt convert order.stp order.xml --schema all.exp | grep -oE '^order.stp:1:[0-9]+' | sort -t: -k3n)"

# Nothing is left out in silence: the exit status is 1, and the form is said to lack it.
wide() { printf "ISO-10303-21;HEADER;FILE_DESCRIPTION((''),'2;1');FILE_NAME('','',(''),(''),'','','');%s" \
  "FILE_SCHEMA(('ALL_KINDS'));ENDSEC;$1;END-ISO-10303-21;" >wide.stp; }
wide "DATA;#1=VALVE('x');#2=(BASE('x')VALVE(1));#3=BASE('x');ENDSEC"
expect 1 ' 2  records or parts of entities' convert wide.stp again.xml --schema all.exp
expect 1 '"entities": 2' convert wide.stp again.xml --schema all.exp --json
wide "ANCHOR;<a>=#1;ENDSEC;DATA;#1=BASE('x');ENDSEC"
expect 1 ' 1  sections of edition 3' convert wide.stp again.stp
wide "DATA;#1=();#2=BASE('x');ENDSEC"
expect 1 ' 1  other records' convert wide.stp again.stp
wide "DATA;#1=A('x);
#2=A('x');
#3=A('x');ENDSEC"
expect 1 ' 2  other records' convert wide.stp again.stp
wide "DATA;#1=BASE('x');#2=KINDS(*,'','',\$,(),1.E400,1.,-1.E400,1,\"0\",.T.,.U.,\$,\$,\$,(),(),(),(),\$,\$);ENDSEC"
expect 1 ' 2  reals beyond the range' convert wide.stp again.xml --schema all.exp

# Enumerators and binaries get their capitals.
wide 'DATA;#1=a(.t.,"0ab",x(.Red.));ENDSEC'
expect 0 'written 1' convert wide.stp again.stp
grep -q '^#1=A(.T.,"0AB",X(.RED.));' again.stp

# OUT has the name that it is given. A file that cannot be converted leaves it as it was.
expect 0 'written 5' convert plant.stp bare
cmp bare <(steprt convert plant.stp bare.stp >bare.txt && sed 's/bare.stp/bare/' bare.stp)
mkdir -p folder
expect 1 'written 4' convert plant.stp folder/bare --to native
test -f folder/bare
echo 'a letter' >letter.txt
for form in standard native; do
  expect 2 "cannot convert 'letter.txt'" convert letter.txt letter.txt --to $form
done
test "$(cat letter.txt)" = 'a letter'
printf '<html><p>x</p></html>' >page.xml
expect 2 "cannot convert 'page.xml'" convert page.xml page.xml --schema all.exp
if [ -e /dev/full ]; then
  expect 2 "cannot write '/dev/full': No space left on device" convert plant.stp /dev/full
  for subcommand in 'stat' 'check' 'convert bare'; do
    status=0
    # shellcheck disable=SC2086
    steprt $subcommand plant.stp >/dev/full 2>full.txt || status=$?
    test "$status" = 2
    grep -q 'cannot write standard output' full.txt
  done
fi

# The completion offers what the help lists.
# shellcheck source=/dev/null
source "$source/tools/steprt/completion.bash"
offers() {
  COMP_WORDS=(steprt "$@" --)
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  _steprt
  printf '%s\n' "${COMPREPLY[@]}" | sort
}
for subcommand in stat check convert compile; do
  diff <(offers "$subcommand") <(steprt "$subcommand" --help | grep -oE '^ *(-h,)?--[a-z-]+' | grep -oE -- '--[a-z-]+' | sort)
  for option in $(offers "$subcommand"); do # and so does the manual page
    grep -q -- "${option//-/\\\\-}" "$source/tools/steprt/steprt.1" || { echo "steprt.1 lacks $option" >&2 && exit 1; }
  done
done
