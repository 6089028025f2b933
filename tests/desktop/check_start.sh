#!/bin/sh
# check_start.sh PROGRAM: what keeps the program from starting is said in one sentence, and it ends with a status of its
# own, without the toolkit's words and without being aborted.
set -u
program=$1
failed=0

# expect STATUS SENTENCE ENVIRONMENT...: of a run with these variables and no display.
expect() {
  status=$1
  sentence=$2
  shift 2
  said=$(env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$@" 2>&1 </dev/null)
  found=$?
  if [ "$found" != "$status" ] || [ "$said" != "htr60: $sentence" ]; then
    printf '%s\nstatus %s, said: %s\n' "$*" "$found" "$said"
    failed=1
  fi
}

no_display='no display can be opened. Without one, --tour DIR renders the pages as pictures.'
expect 1 "$no_display" "$program"
expect 1 "$no_display" DISPLAY=:4711 "$program"
expect 1 "$no_display" QT_QPA_PLATFORM=nonsense "$program"
expect 2 '--tour needs a folder for its pictures.' "$program" --tour
expect 2 'There are no colours '"'pink'"'. There are: light, dark, contrast.' QT_QPA_PLATFORM=offscreen "$program" --colours pink
exit $failed
