#!/usr/bin/env bash
# Gets and builds what the Windows programs need, for the user and not for one checkout.
#   scripts/windows/dependencies.sh x86|x64            builds what is missing; broken off, it goes on where it was
#   scripts/windows/dependencies.sh x86|x64 --print    prints the folders, separated by semicolons, and builds nothing;
#                                                      exit code 1 when one is missing
# Everything lies in ~/.cache/lumarin/windows (LUMARIN_WINDOWS_CACHE names another folder). Each library has a folder of
# its own, named after its version and its recipe, so a changed recipe rebuilds that library and nothing else.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
source "$here/recipe.sh"

libraries=(zlib jpeg tiff libzip qpdf curl sqlite googletest httplib vips qt)

[[ ${1:-} == x86 || ${1:-} == x64 ]] || { sed -n '2,7s/^# \{0,1\}//p' "$0"; exit 2; }
bits=$1
prepare "$bits"

missing=0
folders=()
for name in "${libraries[@]}"; do
    load_recipe "$name"
    folders+=("$prefix")
    if [[ -e $prefix ]]; then continue; fi
    missing=1
    if [[ ${2:-} != --print ]]; then build_library; fi
done
if [[ ${2:-} == --print ]]; then
    (IFS=';'; echo "${folders[*]}")
    exit "$missing"
fi
