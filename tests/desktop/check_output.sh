#!/bin/sh
# check_output.sh PROGRAM FOLDER: output that cannot be written ends the program with a message and status 1.
set -u
program=$1
folder=$2
failed=0

# expect_failure NAME STATUS MESSAGE: of the run whose status and standard error are given.
expect_failure() {
  if [ "$2" != 1 ] || ! grep -q "^htr60: .*cannot be written" "$3"; then
    echo "$1: status $2, and on standard error:" && cat "$3"
    failed=1
  fi
}

rm -rf "$folder" && mkdir -p "$folder" || exit 1
errors=$folder/errors

"$program" --tour "$folder/full" >/dev/full 2>"$errors"
expect_failure "a full device" $? "$errors"
"$program" --tour "$folder/closed" >&- 2>"$errors"
expect_failure "a closed stream" $? "$errors"
status=$folder/status
{
  "$program" --tour "$folder/pipe" 2>"$errors"
  echo $? >"$status"
} | :
expect_failure "a pipe without reader" "$(cat "$status")" "$errors"
"$program" --help >/dev/full 2>"$errors"
expect_failure "help to a full device" $? "$errors"
exit $failed
