#!/bin/bash
# Installs what is missing, builds everything as release, with sanitizers and for Windows, and runs the tests of all three.
set -euo pipefail
cd "$(dirname "$0")"
. packaging/common.sh

started=$(now)
jobs=$(nproc)
log=build/ctest.log

export CTEST_OUTPUT_ON_FAILURE=1
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export LSAN_OPTIONS=print_suppressions=0:suppressions=$PWD/packaging/leaks.supp

ensure_formatter() {
  if command -v apt-get >/dev/null && ! command -v clang-format >/dev/null; then
    echo "==> Installing clang-format, for the check of the formatting"
    install_packages clang-format || echo "    It could not be installed; the check is left out."
  fi
}

# The rules of the formatter change with its version; the sources follow version 14.
check_formatting() {
  if ! clang-format --version 2>/dev/null | grep -q 'version 14\.'; then
    echo "    LEFT OUT: there is no clang-format 14"
    return 0
  fi
  local folder folders=()
  for folder in apps bench fuzz packaging simulator src tests; do
    if [ -d "$folder" ]; then folders+=("$folder"); fi
  done
  find "${folders[@]}" \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 clang-format --dry-run --Werror
}

# run_tests PRESET: all tests; holds ctest's closing lines back in $closing and counts the tests in $tests.
run_tests() {
  echo "==> Running the tests of build/$1"
  local start status=0
  start=$(now)
  ctest --preset "$1" -j "$jobs" 2>&1 | tee "$log" | sed -u '/^[0-9]*% tests passed/,$d' || status=$?
  closing=$(sed -n '/^[0-9]*% tests passed/,$p' "$log")
  tests=$(sed -n 's/^100% tests passed, 0 tests failed out of \([0-9]*\)$/\1/p' "$log")
  seconds=$(($(now) - start))
  if [ "$status" != 0 ] || [ -z "$tests" ]; then
    echo "$closing"
    echo "FAILED: the tests of build/$1" >&2
    exit 1
  fi
}

mkdir -p build
ensure_packages "$build_packages $desktop_packages $test_packages $windows_packages"
ensure_formatter
installed=$(now)
step "Checking the formatting" check_formatting

for preset in release sanitize; do
  # run.sh configures the release build without tests.
  if ! configured "build/$preset" HTR60_TESTS:BOOL=ON HTR60_DESKTOP:BOOL=ON; then
    step "Configuring build/$preset" cmake --preset "$preset" -DHTR60_TESTS=ON -DHTR60_DESKTOP=ON
  fi
  step "Building build/$preset" cmake --build --preset "$preset" -j "$jobs"
done
windows=
if command -v x86_64-w64-mingw32-g++-win32 >/dev/null; then
  windows=1
  if ! configured build/windows HTR60_TESTS:BOOL=ON; then
    step "Configuring build/windows" cmake --preset windows -DHTR60_TESTS=ON
  fi
  step "Building build/windows" cmake --build --preset windows -j "$jobs"
else
  echo "==> LEFT OUT: what is built for Windows, for there is no cross compiler"
fi
built=$(now)

run_tests release
release="$tests in $seconds s"
run_tests sanitize
sanitize="$tests in $seconds s"
foreign=none
if [ -n "$windows" ]; then
  run_tests windows
  foreign="$tests in $seconds s"
  sed -n 's/^SKIPPED/    &/p' build/windows/Testing/Temporary/LastTest.log | sort -u
fi
echo "Install $((installed - started)) s, check and build $((built - installed)) s, release tests $release," \
  "sanitizer tests $sanitize, tests for Windows $foreign, together $(($(now) - started)) s."
echo "$closing"
