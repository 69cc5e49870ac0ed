# SPDX-License-Identifier: MIT
# Sourced by the other scripts: where the repository is, and how it is built.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# Without a locale, programs would read and write ASCII.
if [[ -z ${LC_ALL:-}${LC_CTYPE:-}${LANG:-} ]]; then export LANG=C.UTF-8; fi

say() { printf '%s\n' "$*" >&2; }

# quietly WHAT COMMAND…: runs the command and hides its output. Shows the output when it fails.
quietly() {
  local what=$1 log status=0
  shift
  log=$(mktemp)
  "$@" </dev/null >"$log" 2>&1 || status=$?
  if ((status != 0)); then
    cat "$log" >&2
    say "$what failed (exit code $status), see above"
  fi
  rm -f "$log"
  return "$status"
}

# configure PRESET: configures the preset unless that was done since the presets last changed. When
# a CMakeLists changes, Ninja runs CMake by itself.
configure() {
  local build="$root/build/$1"
  if [[ ! -e $build/build.ninja || $root/CMakePresets.json -nt $build/build.ninja ]]; then
    quietly "Configuring $1" cmake -S "$root" --preset "$1"
  fi
}

# build PRESET [TARGET…]: configures the preset and builds the targets, or everything. Scripts that
# build the same preset wait for each other.
build() {
  local preset=$1
  shift
  if [[ ! -e $root/build/$preset/build.ninja ]]; then
    say "Building $preset, which takes minutes the first time"
  fi
  mkdir -p "$root/build"
  (
    flock 9
    configure "$preset" &&
      quietly "Building $preset" cmake --build "$root/build/$preset" -j "$(nproc)" ${1:+--target "$@"}
  ) 9>"$root/build/.$preset.lock"
}
