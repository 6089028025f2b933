#!/bin/sh
# check_package.sh PACKAGE: whether a Debian package brings what its desktop program needs to show pictures, and whether
# its programs are hardened.
set -eu
package=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

dpkg-deb -f "$package" Depends | grep -q 'libqt6svg6' || {
  echo "$package: does not depend on the SVG library" >&2
  exit 1
}
dpkg-deb -x "$package" "$folder"
readelf -d "$folder/usr/bin/htr60" | grep -q 'NEEDED.*libQt6Svg' || {
  echo "$package: its htr60 is not linked with the SVG library" >&2
  exit 1
}
"$(dirname "$0")/check_hardening.sh" "$folder/usr/bin/htr60" "$folder/usr/bin/htr60-automate"
