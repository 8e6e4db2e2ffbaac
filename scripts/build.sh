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

fresh=()
if [[ $preset == windows-* ]]; then
    # CMake remembers where it has found a library; one that was built anew lies elsewhere.
    mkdir -p "build/$preset"
    folders=$(scripts/windows/dependencies.sh "${preset#windows-}" --print) ||
        { echo "Libraries are missing; scripts/windows/dependencies.sh ${preset#windows-} builds them" >&2; exit 1; }
    if [[ $folders != "$(cat "build/$preset/libraries.txt" 2>/dev/null)" ]]; then fresh=(--fresh); fi
    echo "$folders" >"build/$preset/libraries.txt"
fi
quietly cmake --preset "$preset" "${fresh[@]}"
targets=()
[[ $# -eq 0 ]] || targets=(--target "$@")
quietly cmake --build "build/$preset" "${targets[@]}"
