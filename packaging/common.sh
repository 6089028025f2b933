# shellcheck shell=sh disable=SC2034
# Shell functions that run.sh, test.sh and packaging/package.sh share; sourced from the top folder.

build_packages="g++ cmake ninja-build ccache libexpat1-dev nlohmann-json3-dev"
desktop_packages="qt6-base-dev qt6-base-dev-tools qt6-svg-dev libgl-dev fonts-dejavu-core"
windows_packages="g++-mingw-w64-x86-64-win32 mingw-w64-tools wine64 libwine xvfb"
test_packages="libgtest-dev libbenchmark-dev poppler-utils"

# Lets ccache keep objects that use a precompiled header, too, and share them between clones of this repository.
export CCACHE_SLOPPINESS=pch_defines,time_macros
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1

# now: whole seconds, for measuring how long something takes.
now() {
  date +%s
}

# step TEXT COMMAND...: says what is done, does it, and says how long it took. On failure the script ends.
step() {
  step_text=$1
  shift
  echo "==> $step_text"
  step_start=$(now)
  if "$@"; then
    step_seconds=$(($(now) - step_start))
    echo "    done in $step_seconds s"
  else
    step_status=$?
    echo "    FAILED after $(($(now) - step_start)) s: $*" >&2
    exit "$step_status"
  fi
}

# missing_packages LIST: those of the Debian packages that are not installed.
missing_packages() {
  for package in $1; do
    if [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
      printf '%s ' "$package"
    fi
  done
}

# apt_get ARGUMENTS: apt-get with the rights that it needs, asking nothing.
apt_get() {
  set -- env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3 "$@"
  if [ "$(id -u)" != 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "    Neither root nor sudo: please have it installed with: $*" >&2
      return 1
    fi
    set -- sudo "$@"
  fi
  "$@" >>build/apt.log 2>&1 || {
    tail -n 15 build/apt.log >&2
    return 1
  }
}

install_packages() {
  apt_get update || echo "    The package lists could not be renewed; going on with those there are." >&2
  # shellcheck disable=SC2086
  apt_get install --no-install-recommends $1
}

# ensure_packages LIST: installs what is missing of the Debian packages; on other systems it only says what is needed.
ensure_packages() {
  if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    echo "==> No Debian system: these packages, or what they stand for, have to be there: $1"
    return 0
  fi
  missing=$(missing_packages "$1")
  if [ -z "$missing" ]; then
    echo "==> All needed packages are installed"
    return 0
  fi
  mkdir -p build
  step "Installing missing packages (log in build/apt.log): $missing" install_packages "$missing"
}

# configured FOLDER WORD...: whether FOLDER is configured, with every WORD in its cache, no older than the presets.
configured() {
  [ -n "$(find "$1/build.ninja" -newer CMakePresets.json 2>/dev/null)" ] || return 1
  configured_folder=$1
  shift
  for word in "$@"; do
    grep -q "^$word\$" "$configured_folder/CMakeCache.txt" || return 1
  done
}
