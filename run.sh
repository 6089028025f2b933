#!/bin/sh
# Installs what is missing, builds, and starts the desktop application with the given arguments. Without a display it
# renders a tour of the pages to build/tour instead.
set -eu
cd "$(dirname "$0")"
. packaging/common.sh

program=build/release/apps/desktop/htr60

ensure_packages "$build_packages $desktop_packages"
if ! configured build/release; then
  step "Configuring build/release" cmake --preset release -DHTR60_TESTS=OFF -DHTR60_BENCH=OFF
fi
step "Building the programs" cmake --build --preset release --target htr60 htr60-automate htr60_icons

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "==> No display: htr60 goes through its pages without a screen"
  mkdir -p build/tour
  step "Rendering the pages" env QT_QPA_PLATFORM=offscreen "$program" --tour build/tour "$@"
  exit 0
fi
echo "==> Starting htr60"
exec "$program" "$@"
