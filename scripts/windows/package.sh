#!/usr/bin/env bash
# Makes what a Windows machine runs as it is: a folder, and the same as a zip, in build/package.
#   scripts/windows/package.sh x86|x64
# Programs, libraries, plugins, licences, the guide with its pictures, and photos to try out. The demo runs under Wine from
# that folder before it is packed.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
bits=${1:-}
[[ $bits == x86 || $bits == x64 ]] || { sed -n '2,5s/^# \{0,1\}//p' "$0"; exit 2; }

"$root/scripts/setup.sh"
"$root/scripts/setup.sh" windows
"$root/scripts/windows/dependencies.sh" "$bits"
if [[ $bits == x86 ]]; then "$root/scripts/windows/wine32.sh"; fi
build=$root/build/windows-$bits
"$root/scripts/build.sh" "windows-$bits"

version=$(sed -n 's/^project(Lumarin VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
name=lumarin-$version-windows-$bits
folder=$root/build/package/$name
rm -rf "$folder" "$folder.zip"
mkdir -p "$folder"

cmake --install "$build" --component program --strip --prefix "$folder.part" >/dev/null
mv "$folder.part"/bin/* "$folder/"
rm -r "$folder.part"
mkdir "$folder/docs" "$folder/licences"
cp -r "$root"/docs/{user-guide.md,windows.md,third-party.md,images} "$root/README.md" "$root/CHANGELOG.md" "$folder/docs/"

# As Debian's packages of the same libraries state them.
for package in qt6-base-dev:qt libzip-dev:libzip libqpdf-dev:qpdf libtiff-dev:libtiff libjpeg-dev:libjpeg libcurl4-openssl-dev:curl \
               libsqlite3-dev:sqlite libcpp-httplib-dev:cpp-httplib zlib1g-dev:zlib mingw-w64-common:mingw-w64 \
               gcc-mingw-w64-base:gcc; do
    cp "/usr/share/doc/${package%:*}/copyright" "$folder/licences/${package#*:}.txt"
done
IFS=';' read -ra libraries < <("$root/scripts/windows/dependencies.sh" "$bits" --print)
for library in "${libraries[@]}"; do
    if [[ ${library##*/} == vips-* ]]; then cp "$library/README.md" "$folder/licences/libvips.md"; fi
done

# What Wine lacks a Windows machine has. It stands alone: whatever else the programs need has to be in the folder.
export WINEPREFIX=$build/drive WINEPATH=$build/stand-ins
mkdir -p "$WINEPATH"
cp "$build/bin/bcryptprimitives.dll" "$WINEPATH/"
demo=$build/package-demo
run() { "$root/scripts/windows/wine.sh" "$bits" "$@"; }
xvfb-run -a bash -c "$(declare -f run); root='$root' bits=$bits; run wineboot --init; run '$folder/lumarin-host.exe' --demo --demo-folder '$demo'" \
    >"$build/package-demo.log" 2>&1 || { tail -n 20 "$build/package-demo.log" >&2; echo "package.sh: the demo fails" >&2; exit 1; }
cp -r "$demo/originals" "$folder/photos to try"

# A person's folders do not travel.
if grep -rlF -e "$root" -e "$HOME/" "$folder"; then
    echo "package.sh: these files name folders of this machine" >&2
    exit 1
fi
(cd "$root/build/package" && zip -q -r -X "$name.zip" "$name")
du -sh "$folder" "$folder.zip"
