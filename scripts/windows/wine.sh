#!/usr/bin/env bash
# Runs a Windows program.
#   scripts/windows/wine.sh x86|x64 PROGRAM [ARGUMENT...]
# 64-bit programs run in the machine's Wine, 32-bit ones in that of wine32.sh, in a root folder of its own with the
# machine's folders bound into it. WINEPREFIX names the folder of drive C; without it, one in the user's cache is used.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
bits=$1
shift
cache=${LUMARIN_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/lumarin/windows}
export WINEPREFIX=${WINEPREFIX:-$cache/drive-$bits}
# No talk of Wine's own, and none of its offers to install a browser or a runtime.
export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml,winemenubuilder.exe=}
# File names of any letters.
export LC_ALL=C.UTF-8
# Wine keeps the settings of the machine's own Qt from its programs, unless they come under this name.
export QT_QPA_FONTDIR=${QT_QPA_FONTDIR:-/usr/share/fonts/truetype/dejavu}
for name in "${!QT_@}"; do export "WINE$name=${!name}"; done
mkdir -p "$WINEPREFIX"

if [[ $bits == x64 ]]; then
    exec wine "$@"
fi

root=$("$here/wine32.sh" --print) || { echo "wine.sh: scripts/windows/wine32.sh was not run" >&2; exit 1; }
export WINEARCH=win32 LUMARIN_WINE_ROOT=$root LUMARIN_WINE_FOLDER=$PWD
# The folders that programs are given: bound under the same names.
binds=(/proc /sys /dev /tmp /usr/lib/locale "$HOME" "$(cd "$here/../.." && pwd)" "$WINEPREFIX" "$PWD" "$cache")
LUMARIN_WINE_BINDS=$(printf '%s\n' "${binds[@]}" | sort -u)
export LUMARIN_WINE_BINDS
namespaces=(--mount)
[[ $(id -u) -eq 0 ]] || namespaces+=(--map-root-user)
exec unshare "${namespaces[@]}" "$here/wine32-root.sh" "$@"
