#!/bin/sh
# make_pictures.sh PROGRAM: makes the pictures of the manuals anew, by a tour of the pages.
set -eu
program=$1
pictures=$(dirname "$0")/pictures
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

QT_QPA_PLATFORM=offscreen "$program" --tour "$work" --colours light | tail -n 1
# take STEP NAME: the picture of a step of the tour.
take() {
  if command -v convert >/dev/null; then  # a quarter of the size
    convert "$work"/[0-9]*-"$1".png -strip +dither -colors 200 "PNG8:$pictures/$2.png"
  else
    cp "$work"/[0-9]*-"$1".png "$pictures/$2.png"
  fi
}
take identification identification
take identification-not-written not-written
take identification-write-locked locked
take observe observe
take analog-input-limits-out-of-order limits
take calibration-refused refused
take table-falling table
take table-pasting pasting
take level-settings level
take no-answer stale
take density-others fault
take communication communication
take trend trend
take calibration-record-with-tolerance record
take simulator simulator
