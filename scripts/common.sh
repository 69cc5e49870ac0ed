# Shared by the scripts next to it, which source it: where the repository is, and how it is built.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# A machine without a locale still reads and writes UTF-8.
if [[ -z ${LC_ALL:-}${LC_CTYPE:-}${LANG:-} ]]; then export LANG=C.UTF-8; fi

say() { printf '%s\n' "$*" >&2; }

# quietly WHAT COMMAND…: runs the command unseen. When it fails, says so and shows what it said.
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

# configure PRESET: nothing at all when the preset was configured before. Ninja itself runs CMake again
# when a CMakeLists changes, but knows nothing of the presets.
configure() {
  local build="$root/build/$1"
  if [[ ! -e $build/build.ninja || $root/CMakePresets.json -nt $build/build.ninja ]]; then
    quietly "Configuring $1" cmake -S "$root" --preset "$1"
  fi
}

# build PRESET [TARGET…]: configures and builds, everything when no target is named. Two scripts that build the
# same preset at once take turns.
build() {
  local preset=$1
  shift
  if [[ ! -e $root/build/$preset/build.ninja ]]; then say "Building $preset, which takes minutes the first time"; fi
  mkdir -p "$root/build"
  (
    flock 9
    configure "$preset" &&
      quietly "Building $preset" cmake --build "$root/build/$preset" -j "$(nproc)" ${1:+--target "$@"}
  ) 9>"$root/build/.$preset.lock"
}
