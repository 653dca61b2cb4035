# SPDX-License-Identifier: MIT
# Shared by the scripts of this folder; sourced, not run.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

say() { printf '== %s\n' "$*"; }

# Runs a command as root: directly, or through sudo.
as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    echo "Neither root nor sudo: cannot run: $*" >&2
    return 1
  fi
}

# Further arguments of the configuration. Who runs no tests does without their packages:
#   configure_arguments=(-DBUILD_TESTING=OFF)
configure_arguments=()

# Configures and builds a preset; further arguments go to the build.
build_preset() {
  local preset=$1
  shift
  say "Building ($preset)"
  cmake --preset "$preset" "${configure_arguments[@]}" >"build-$preset.log" 2>&1 || { cat "build-$preset.log"; rm -f "build-$preset.log"; return 1; }
  rm -f "build-$preset.log"
  cmake --build --preset "$preset" -j "$(nproc)" "$@"
}
