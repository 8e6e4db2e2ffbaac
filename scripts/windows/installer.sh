#!/usr/bin/env bash
# Makes the installer for Windows machines, in build/package, of the folder that package.sh makes.
#   scripts/windows/installer.sh x86|x64
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
bits=${1:-}
[[ $bits == x86 || $bits == x64 ]] || { sed -n '2,3s/^# \{0,1\}//p' "$0"; exit 2; }

"$root/scripts/windows/package.sh" "$bits"
version=$(sed -n 's/^project(Lumarin VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
output=$root/build/package/lumarin-$version-setup-$bits.exe
"$root/scripts/windows/installer/compile.sh" "$bits" "$root/build/package/lumarin-$version-windows-$bits" "$output"
rm "${output%.exe}.nsh"
du -h "$output"
