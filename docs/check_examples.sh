#!/bin/bash
# Replays the examples of a manual: check_examples.sh PROGRAM MANUAL
# Sends the lines after "> " to the program, which must answer with the lines after "< ", where "..." stands for any text.
set -euo pipefail
program=$1
manual=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# A program that has quit answers no more, so each run starts a new one.
awk -v work="$work" '
  BEGIN { n = 1 }
  /^> / { print substr($0, 3) > (work "/sent." n) }
  /^< / { print substr($0, 3) > (work "/expected." n); if (quit) { n++; quit = 0 } }
  /^> .*"do":"quit"/ { quit = 1 }' "$manual"

examples=0
failures=0
for ((n = 1; ; n++)); do
  [ -f "$work/sent.$n" ] || break
  "$program" <"$work/sent.$n" >"$work/found.$n"
  if [ "$(wc -l <"$work/found.$n")" != "$(wc -l <"$work/expected.$n")" ]; then
    echo "$manual: not as many answers as commands" >&2
    failures=$((failures + 1))
  fi
  while IFS= read -r sent <&3 && IFS= read -r expected <&4 && IFS= read -r found <&5; do
    examples=$((examples + 1))
    pattern=$(printf '%s' "$expected" | sed -e 's/[][\\*?]/\\&/g' -e 's/\.\.\./*/g')
    # shellcheck disable=SC2053 # the pattern is one
    if [[ $found != $pattern ]]; then
      printf '%s:\n> %s\nexpected %s\nfound    %s\n' "$manual" "$sent" "$expected" "$found" >&2
      failures=$((failures + 1))
    fi
  done 3<"$work/sent.$n" 4<"$work/expected.$n" 5<"$work/found.$n"
done
echo "$manual: $examples examples, $failures failures"
[ "$examples" -gt 0 ] && [ "$failures" = 0 ]
