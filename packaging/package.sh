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
mv "$folder"/staging/*.deb "$folder"
rm -rf "$folder/staging"
for package in "$folder"/htr60_*.deb; do
  echo "Package: $package"
done
