#!/bin/sh
# Fails where an include points upwards: check_layers.sh FOLDER, the top of the sources.
set -eu
cd "$1"

# What each room may include beside itself and the standard library; "all but" is everything else.
rooms='src/text:
src/codecs: text
src/form: text codecs
src/shell: text codecs form
src/navigation: text codecs form shell
src/pages: text codecs form shell navigation
src/figures: text codecs form shell navigation pages
src/presentation: text codecs form shell navigation pages figures
simulator/process: text codecs form shell
simulator/device: text codecs form shell simulator/process
simulator/manager: text codecs form shell simulator/process simulator/device
apps/observe: text codecs form shell navigation pages figures presentation simulator/process simulator/device simulator/manager
apps/automate: all but desktop
apps/desktop: all but automate
apps/windows: all but automate desktop'

find src simulator apps -name '*.h' -o -name '*.cpp' -o -name '*.in' -o -name '*.def' | sort |
  xargs awk -v rooms="$rooms" '
  BEGIN {
    count = split(rooms, lines, "\n")
    for (i = 1; i <= count; i++) {
      colon = index(lines[i], ":")
      room = substr(lines[i], 1, colon - 1)
      allowed[room] = substr(lines[i], colon + 1) " "
      name = room
      sub(/^(src|apps)\//, "", name)
      known[name] = 1
    }
  }
  function RoomOf(path, parts) {
    split(path, parts, "/")
    return parts[1] "/" parts[2]
  }
  function Complain(why) {
    printf "%s:%d: %s\n", FILENAME, FNR, why
    bad = 1
  }
  FNR == 1 {
    room = RoomOf(FILENAME)
    own = room
    sub(/^(src|apps)\//, "", own)
    if (!(room in allowed)) Complain("no rule for the room " room)
  }
  # The name of the room that a folder lies in: "desktop/window" lies in "desktop".
  function Home(folder) {
    while (!(folder in known) && sub(/\/[^\/]*$/, "", folder)) {}
    return folder
  }
  function MayInclude(target) {
    if (allowed[room] ~ /^ *all but/) return index(allowed[room], " " target " ") == 0
    return index(allowed[room], " " target " ") > 0
  }
  /^[ \t]*#[ \t]*include/ {
    included = $0
    sub(/^[ \t]*#[ \t]*include[ \t]*["<]/, "", included)
    sub(/[">].*/, "", included)
    target = included
    if (target ~ /\//) sub(/\/[^\/]*$/, "", target)
    target = Home(target)
    if (room == "apps/observe" && (included ~ /^Q[A-Z]/ || included ~ /^Qt/ || included ~ /^windows/)) {
      Complain(included " has no place in " room)
    } else if (room ~ /^src/ && (included ~ /^Q[A-Z]/ || included ~ /^Qt/ || included ~ /^windows/ || included ~ /^nlohmann/)) {
      Complain(included " has no place in " room)
    } else if (included ~ /\.\.\//) {
      Complain(included " leaves its room by its path")
    } else if (target in known && target != own && !MayInclude(target)) {
      Complain(room " may not include " included)
    } else if (included ~ /^(simulator|apps|src|tests)\// && !(target in known)) {
      Complain(included " is in no room")
    }
  }
  END { exit bad }'
