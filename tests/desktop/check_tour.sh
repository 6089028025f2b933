#!/bin/sh
# check_tour.sh PROGRAM FOLDER: the tour goes to its end and speaks to people: no name of a control, and nothing that the
# toolkit says of itself.
set -u
program=$1
folder=$2
failed=0

rm -rf "$folder" && mkdir -p "$folder" || exit 1
env -u XDG_RUNTIME_DIR "$program" --tour "$folder/pictures" >"$folder/steps" 2>"$folder/errors" || failed=1
tail -n 1 "$folder/steps" | grep -qx "Done: all [0-9]* steps, [0-9]* pictures in $folder/pictures" || failed=1
if grep -nE 'txt|cmb|cmd|Cmd|Cmb|SSTab|frm|lbArray|Command[0-9]' "$folder/steps"; then failed=1; fi
if [ -s "$folder/errors" ]; then cat "$folder/errors" && failed=1; fi
if [ "$failed" = 1 ]; then tail -n 3 "$folder/steps"; fi
exit $failed
