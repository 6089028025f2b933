#!/bin/sh
# Builds the Debian package: packaging/package.sh [FOLDER], by default into build/package.
set -eu
cd "$(dirname "$0")/.."
. packaging/common.sh

folder=${1:-build/package}
mkdir -p "$folder"
folder=$(cd "$folder" && pwd)

ensure_packages "$build_packages $desktop_packages dpkg-dev file"
export DEB_BUILD_MAINT_OPTIONS=hardening=+all
CXXFLAGS="$(dpkg-buildflags --get CPPFLAGS) $(dpkg-buildflags --get CXXFLAGS)"
LDFLAGS="$(dpkg-buildflags --get LDFLAGS)"
export CXXFLAGS LDFLAGS
step "Configuring the package's build" cmake --fresh -S . -B "$folder/build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DHTR60_TESTS=OFF -DCMAKE_INSTALL_PREFIX=/usr
step "Building the programs" cmake --build "$folder/build"
umask 022
step "Packing" cpack --config "$folder/build/CPackConfig.cmake" -G DEB -B "$folder/staging"
for package in "$folder"/staging/*.deb; do
  step "Checking that it depends on the SVG library, by which pictures are drawn, and that its programs are hardened" \
    packaging/check_package.sh "$package"
  mv "$package" "$folder"
  echo "Package: $folder/${package##*/}"
done
rm -rf "$folder/staging"
