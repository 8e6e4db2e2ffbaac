#!/usr/bin/env bash
# Makes the installer of a folder with everything that runs on Windows.
#   scripts/windows/installer/compile.sh x86|x64 FOLDER OUTPUT.exe [QUICK]
# The lists say file by file what is installed and what is removed: what else lies in the folder is somebody else's.
# QUICK leaves out the compression, for tests.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
bits=$1 folder=$(realpath "$2") output=$(realpath -m "$3") quick=${4:-}
version=$(sed -n 's/^project(Lumarin VERSION \([0-9.]*\).*/\1/p' "$here/../../../CMakeLists.txt")
number=32
if [[ $bits == x64 ]]; then number=64; fi

# Standard input: paths within the folder, sorted.
install() {
    local path last=none
    echo "!macro Install$1"
    while read -r path; do
        local below=${path%/*}
        if [[ $below == "$path" ]]; then below=; fi
        if [[ $below != "$last" ]]; then echo "  SetOutPath \"\$INSTDIR${below:+\\${below//\//\\}}\""; fi
        last=$below
        echo "  File \"$folder/$path\""
    done
    echo "!macroend"
}

lists=${output%.exe}.nsh
cd "$folder"
of_host='^(lumarin-host\.exe|QorCreatePdf\.dll|Qt6Test\.dll|photos to try/.*)$'
files=$(find . -type f -printf '%P\n' | LC_ALL=C sort)
{
    grep -E "$of_host" <<<"$files" | install Host
    grep -E '^docs/' <<<"$files" | install Documentation
    grep -Ev -e "$of_host" -e '^docs/' <<<"$files" | install Component
    echo "!macro RemoveFiles"
    sed 's,/,\\,g; s,.*,  Delete "$INSTDIR\\&",' <<<"$files"
    find . -mindepth 1 -depth -type d -printf '  RMDir "$INSTDIR\\%P"\n' | sed 's,/,\\,g'
    echo "!macroend"
} >"$lists"

makensis -V2 -WX ${quick:+-DQUICK} -DBITS="$number" -DVERSION="$version" -DNUMBERS="$version.0" -DLISTS="$lists" \
    -DOUTPUT="$output" "$here/lumarin.nsi"
