#!/usr/bin/env bash
# Configures a preset and builds targets of it, quietly: output appears only when something fails.
#   scripts/build.sh PRESET [TARGET...]
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
preset=$1
shift
cd "$root"

log=$(mktemp)
trap 'rm -f "$log"' EXIT
quietly() {
    if ! "$@" >"$log" 2>&1; then
        grep -v '^\[[0-9]*/[0-9]*\] \(Building\|Linking\|Generating\|Automatic\)' "$log" | tail -n 200 >&2
        echo "build failed: $*" >&2
        exit 1
    fi
}

quietly cmake --preset "$preset"
targets=()
[[ $# -eq 0 ]] || targets=(--target "$@")
quietly cmake --build "build/$preset" "${targets[@]}"
