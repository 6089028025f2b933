#!/bin/bash
# Replays the examples of a manual: check_examples.sh PROGRAM MANUAL
# Sends the lines after "> " of each block to the program; it must answer with exactly the lines after "< ".
set -euo pipefail
program=$1
manual=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

grep -E '^[><] ' "$manual" >"$work/lines"
sed -n 's/^> //p' "$work/lines" >"$work/sent"
[ -s "$work/sent" ] || { echo "no examples in $manual" >&2; exit 1; }

# A program that has quit answers no more, so each run starts a new one.
: >"$work/found"
awk -v work="$work" 'BEGIN { n = 1 } { print > (work "/run." n) } /"do":"quit"/ { n++ }' "$work/sent"
for ((n = 1; ; n++)); do
  [ -f "$work/run.$n" ] || break
  "$program" <"$work/run.$n" >"$work/answers"
  paste -d '\n' <(sed 's/^/> /' "$work/run.$n") <(sed 's/^/< /' "$work/answers") >>"$work/found"
done
diff -u --label "$manual" --label "what the program answers" "$work/lines" "$work/found"
