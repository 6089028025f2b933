#!/bin/bash
# Runs what is built for Windows by Wine: wine.sh FOLDER WORD ARGUMENT...
# FOLDER holds the prefix and what else is needed. The words are functions below. 77: it cannot be run here.
set -euo pipefail
folder=$1
word=$2
shift 2
limit=${HTR60_LIMIT:-120}

# Debian's package puts neither program where programs are looked for.
find_program() {
  command -v "$1" || for place in /usr/lib/wine /usr/lib/wine-development; do
    if [ -x "$place/$1" ]; then
      echo "$place/$1"
      return
    fi
  done
}

wine=$(find_program wine64) || wine=$(find_program wine) || true
server=$(find_program wineserver) || true
if [ -z "$wine" ] || [ -z "$server" ]; then
  echo "SKIPPED: there is no Wine (Debian: wine64)"
  exit 77
fi

# Nothing of the user's own is read or written, no window is opened, and no browser is asked for.
export WINEPREFIX=$folder/prefix HOME=$folder/home WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
unset DISPLAY WAYLAND_DISPLAY XDG_CACHE_HOME XDG_CONFIG_HOME XDG_DATA_HOME
mkdir -p "$folder/home"

# end_wine: ends every process of the prefix, and writes the registry.
end_wine() {
  if [ -d "$WINEPREFIX" ]; then timeout 30 "$server" -k -w || true; fi
}
trap end_wine EXIT

# run COMMAND...: in the prefix, for as long as the limit allows; what it writes ends its lines as everywhere here.
run() {
  local status=0
  timeout "$limit" "$wine" "$@" </dev/null >"$folder/output" 2>"$folder/errors" || status=$?
  tr -d '\r' <"$folder/output"
  tr -d '\r' <"$folder/errors" >&2
  if [ "$status" = 124 ]; then echo "FAILED: not done after $limit s: $*" >&2; fi
  return "$status"
}

# windows_path FILE: as the programs of Windows name it.
windows_path() {
  local path
  path=$(readlink -f "$1")
  echo "Z:${path//\//\\}"
}

# prefix: makes it, unless it is there.
prefix() {
  if [ -e "$WINEPREFIX/made" ]; then return; fi
  rm -rf "$WINEPREFIX"
  run wineboot -i
  end_wine
  touch "$WINEPREFIX/made"
}

# expect EXPECTED FOUND STATUS: the program of that output ended well, and wrote what stands in the file.
expect() {
  if ! diff -u "$1" "$2"; then
    echo "FAILED: the output is not that of $1" >&2
    return 1
  fi
  if [ "$3" != 0 ]; then
    echo "FAILED: it ended with $3" >&2
    return 1
  fi
}

# program EXPECTED PROGRAM ARGUMENT...: its output is that of the file, to the last line.
program() {
  local expected=$1 status=0
  shift
  run "$@" >"$folder/found" || status=$?
  expect "$expected" "$folder/found" "$status"
}

"$word" "$@"
