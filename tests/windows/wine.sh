#!/bin/bash
# Runs what is built for Windows by Wine: wine.sh FOLDER WORD ARGUMENT...
# FOLDER holds the prefix and what else is needed. The words are functions below. 77: it cannot be run here.
# HTR60_DISPLAY=1: they open windows; HTR60_DPI: dots an inch of the screen, for a program.
# HTR60_BITS: of the programs, 64 or 32; HTR60_LIMIT: seconds that all of it may take.
set -euo pipefail
folder=$1
word=$2
shift 2
limit=${HTR60_LIMIT:-120}
bits=${HTR60_BITS:-64}

# skip WHY
skip() {
  echo "SKIPPED: $1"
  exit 77
}

# find_program NAME: where it is. Debian's packages put it where programs are not looked for.
find_program() {
  local place
  for place in $(command -v "$1") /usr/lib/wine/"$1" /usr/lib/wine-development/"$1"; do
    if [ -x "$place" ]; then
      echo "$place"
      return
    fi
  done
  return 1
}

wine=$(find_program wine64) || wine=$(find_program wine) || wine=
server=$(find_program wineserver) || server=
if [ -z "$wine" ] || [ -z "$server" ]; then
  skip "there is no Wine (Debian: wine64)"
fi

# Nothing of the user's own is read or written, no window is opened, and no browser is asked for.
export WINEPREFIX=$folder/prefix HOME=$folder/home WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
# Numbers and code pages are alike wherever this runs.
export LC_ALL=C.UTF-8
# Texts are freed when they are let go, not kept for the next.
export OANOCACHE=1
unset DISPLAY WAYLAND_DISPLAY XDG_CACHE_HOME XDG_CONFIG_HOME XDG_DATA_HOME
mkdir -p "$folder/home"
made=$WINEPREFIX/made-unmanaged

# What opens a window gets a display of its own.
if [ "${HTR60_DISPLAY:-0}" = 1 ]; then
  if [ "$bits" = 32 ]; then skip "in a Wine of 64 bits programs of 32 cannot draw"; fi
  if ! command -v Xvfb >/dev/null; then skip "there is no Xvfb (Debian: xvfb)"; fi
  exec 3>"$folder/display"
  Xvfb -displayfd 3 -screen 0 2560x1600x24 -nolisten tcp >/dev/null 2>&1 &
  display=$!
  exec 3>&-
  for ((i = 0; i < 100; i++)); do
    if [ -s "$folder/display" ]; then break; fi
    sleep 0.1
  done
  export DISPLAY=:$(<"$folder/display")
fi

# Programs of 32 bits run in the Wine of 64 by the libraries of the other one.
system='C:\windows\system32'
if [ "$bits" = 32 ]; then
  export WINEDLLPATH=$folder/wine32/usr/lib/i386-linux-gnu/wine
  system='C:\windows\syswow64'
fi

# end_wine: ends every process of the prefix, and writes the registry.
end_wine() {
  if [ -d "$WINEPREFIX" ]; then timeout 30 "$server" -k -w || true; fi
  if [ -n "${display:-}" ]; then kill "$display" 2>/dev/null || true; fi
}
trap end_wine EXIT

# seconds_left: at least one.
seconds_left() {
  echo $((limit > SECONDS ? limit - SECONDS : 1))
}

# run COMMAND...: in the prefix, for as long as the limit allows; what it writes ends its lines as everywhere here.
run() {
  local status=0
  timeout -k 10 "$(seconds_left)" "$wine" "$@" </dev/null >"$folder/output" 2>"$folder/errors" || status=$?
  tr -d '\r' <"$folder/output"
  tr -d '\r' <"$folder/errors" >&2
  if [ "$status" = 124 ] || [ "$status" = 137 ]; then echo "FAILED: not done after $limit s: $*" >&2; fi
  return "$status"
}

# windows_path FILE: as the programs of Windows name it.
windows_path() {
  local path
  path=$(readlink -f "$1")
  echo "Z:${path//\//\\}"
}

# fetch_wine32: the package of the libraries of 32 bits, with folders of apt's own, so that this system's stay as they
# are; nothing is installed.
fetch_wine32() {
  if ! command -v apt-get >/dev/null || ! command -v dpkg-deb >/dev/null; then return 1; fi
  local apt=$folder/apt
  local options=(-q -o APT::Architecture=i386 -o APT::Architectures=i386 -o "Dir::State::Lists=$apt/lists"
    -o "Dir::Cache=$apt/cache" -o Dir::State::Status=/dev/null -o Debug::NoLocking=1 -o Acquire::Retries=3)
  if [ "$(id -u)" = 0 ]; then options+=(-o APT::Sandbox::User=root); fi
  mkdir -p "$apt/lists/partial" "$apt/cache/archives/partial"
  # Lists that are not needed may fail.
  timeout "$(seconds_left)" apt-get "${options[@]}" update >"$apt/log" 2>&1 || true
  (cd "$apt" && timeout "$(seconds_left)" apt-get "${options[@]}" download libwine >>"$apt/log" 2>&1) || return 1
  rm -rf "$folder/wine32.part"
  mkdir "$folder/wine32.part"
  dpkg-deb --fsys-tarfile "$apt"/libwine_*.deb | tar -x -C "$folder/wine32.part" --wildcards '*/i386-windows/*' || return 1
  # What they ask of the host stands beside those of 64 bits, and is looked for here.
  local place
  for place in /usr/lib/x86_64-linux-gnu/wine /usr/lib64/wine /usr/lib/wine; do
    if [ -d "$place/x86_64-unix" ]; then
      ln -s "$place/x86_64-unix" "$folder/wine32.part/usr/lib/i386-linux-gnu/wine/"
      break
    fi
  done
  mv "$folder/wine32.part" "$folder/wine32"
  rm -rf "$apt"
}

# prefix: makes it, unless it is there.
prefix() {
  if [ "$bits" = 32 ] && [ ! -d "$folder/wine32" ] && ! fetch_wine32; then
    skip "Wine's libraries of 32 bits cannot be had (Debian: libwine of i386)"
  fi
  if [ -e "$made" ]; then return; fi
  rm -rf "$WINEPREFIX"
  run wineboot -i
  # There is no window manager: one that should answer is waited for for seconds with each window that goes.
  run reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f
  end_wine
  touch "$made"
}

# What needs a prefix that could not be made cannot be run either.
if [ "$word" != prefix ] && [ ! -e "$made" ]; then skip "there is no prefix"; fi

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

# set_resolution DPI: of the screen, for what is run from now on.
set_resolution() {
  run reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f
}

# program EXPECTED PROGRAM ARGUMENT...: its output is that of the file, to the last line.
program() {
  local expected=$1 status=0
  shift
  if [ -n "${HTR60_DPI:-}" ]; then set_resolution "$HTR60_DPI"; fi
  run "$@" >"$folder/found" || status=$?
  if [ -n "${HTR60_DPI:-}" ]; then set_resolution 96; fi
  expect "$expected" "$folder/found" "$status"
}

# install SWITCHES DLL...: regsvr32 with these switches, for one after the other.
install() {
  local switches=$1 dll
  shift
  for dll in "$@"; do
    # shellcheck disable=SC2086 # several
    run "$system\regsvr32.exe" /s $switches "$(windows_path "$dll")"
  done
}

# register DLL...: for what needs them registered.
register() {
  install "" "$@"
}

# Fonts, drivers and menus, which Wine looks after anew in each session.
own_upkeep='^system\.reg System\\\\CurrentControlSet\\\\(Control\\\\Class|Hardware Profiles)'
own_upkeep+='|^system\.reg Software\\\\Microsoft\\\\Windows( NT)?\\\\CurrentVersion\\\\Fonts|^user\.reg Software\\\\Wine'

# registry_state FILE: the whole registry but for Wine's own upkeep, each key and each value a line.
registry_state() {
  end_wine
  (cd "$WINEPREFIX" && LC_ALL=C awk '
    /^#|^;|^WINE|^$/ { next }
    /^\[/ {
      sub(/\] [0-9]*$/, "")
      key = FILENAME " " substr($0, 2)
      # A key stands in the file where it has values or nothing below it: here with all those above it.
      for (above = key; !(above in seen); sub(/\\\\[^\\]*$/, "", above)) {
        seen[above]
        print above
        if (index(above, "\\\\") == 0) break
      }
      next
    }
    { print key " " $0 }' system.reg user.reg userdef.reg) |
    grep -vE "$own_upkeep" | LC_ALL=C sort >"$1"
}

# expect_added EXPECTED WHAT: since `clean` the lines of the file have been added, and nothing else has changed.
expect_added() {
  registry_state "$folder/now"
  LC_ALL=C comm -13 "$folder/clean" "$folder/now" >"$folder/added"
  LC_ALL=C comm -23 "$folder/clean" "$folder/now" >"$folder/removed"
  if ! diff -u /dev/null "$folder/removed" || ! diff -u "$1" "$folder/added"; then
    echo "FAILED: $2" >&2
    return 1
  fi
}

# registry MACHINE USER CONTROL MANAGER: what registering for the machine and for the user writes, as the two files tell
# with the folder of the DLLs as FOLDER, and that undoing it leaves nothing.
registry() {
  local dlls
  dlls=$(windows_path "$(dirname "$3")")
  dlls=${dlls//\\/\\\\}
  sed "s|FOLDER|${dlls//\\/\\\\}|" "$1" >"$folder/machine"
  sed "s|FOLDER|${dlls//\\/\\\\}|" "$2" >"$folder/user"
  shift 2
  # What an earlier run has left.
  install /u "$@"
  install "/u /n /i:user" "$@"
  registry_state "$folder/clean"
  if grep -iE 'htr60|\{036D1486-' "$folder/clean"; then
    echo "FAILED: this was there before" >&2
    return 1
  fi
  # Twice, for nobody asks what is there already.
  install "" "$@"
  install "" "$@"
  expect_added "$folder/machine" "registering for the machine"
  install /u "$@"
  install /u "$@"
  expect_added /dev/null "undoing it"
  install "/n /i:user" "$@"
  expect_added "$folder/user" "registering for the user"
  install "/u /n /i:user" "$@"
  expect_added /dev/null "undoing it for the user"
  if install "/n /i:nobody" "$1"; then
    echo "FAILED: it can be registered for nobody" >&2
    return 1
  fi
  expect_added /dev/null "registering for nobody"
  echo "$(wc -l <"$folder/clean") lines of the registry compared"
}

# script EXPECTED SCRIPT: for what is registered; its output is that of the file, to the last line.
script() {
  local expected=$1 status=0
  run "$system\cscript.exe" //nologo "$(windows_path "$2")" >"$folder/found" || status=$?
  expect "$expected" "$folder/found" "$status"
}

# manual CHECK PROGRAM MANUAL: the examples of a manual, by the script that checks them.
manual() {
  printf '#!/bin/bash\nexec timeout -k 10 %q %q %q\n' "$(seconds_left)" "$wine" "$2" >"$folder/program.sh"
  chmod +x "$folder/program.sh"
  "$1" "$folder/program.sh" "$3"
}

"$word" "$@"
