#!/usr/bin/env bash
# Unpacks Debian's 32-bit Wine, with all that it needs, into a folder of the user's cache. The machine's own packages
# are not touched, and no administrator's rights are needed.
#   scripts/windows/wine32.sh           gets it when it is missing
#   scripts/windows/wine32.sh --print   prints the folder; exit code 1 when it is missing
set -euo pipefail
cache=${LUMARIN_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/lumarin/windows}
packages=(wine wine32 libgnutls30 libxcomposite1 libxcursor1 libxfixes3 libxi6 libxinerama1 libxrandr2 libxrender1
          fonts-dejavu-core fonts-liberation fonts-wine fontconfig bash coreutils)
digest=$(sha256sum "${BASH_SOURCE[0]}")
root=$cache/wine32-${digest:0:10}

if [[ ${1:-} == --print ]]; then
    echo "$root"
    [[ -e $root ]]
    exit
fi
mkdir -p "$cache/logs"
exec 7>"$cache/wine32.lock"
flock 7
if [[ -e $root ]]; then exit 0; fi

log=$cache/logs/wine32.log
started=$SECONDS
printf 'wine for 32-bit programs ... ' >&2
get() {
    set -e
    local apt=$cache/apt32
    mkdir -p "$apt"/{lists/partial,cache/archives/partial}
    # A package manager of its own: another architecture, and nothing installed yet.
    : >"$apt/status"
    cat >"$apt/conf" <<END
APT::Architecture "i386";
APT::Architectures { "i386"; };
APT::Install-Recommends "false";
APT::Sandbox::User "";
Dir::State::status "$apt/status";
Dir::State::lists "$apt/lists";
Dir::Cache "$apt/cache";
END
    export APT_CONFIG=$apt/conf
    apt-get update || true  # one index of several may be missing
    apt-get --yes --download-only --no-install-recommends install "${packages[@]}"
    rm -rf "$root.part"
    mkdir -p "$root.part"
    # Debian's root folders are links into /usr; packages still unpack into them.
    mkdir -p "$root.part"/usr/{bin,sbin,lib}
    ln -s usr/bin usr/sbin usr/lib "$root.part/"
    local package
    for package in "$apt"/cache/archives/*.deb; do
        dpkg-deb --fsys-tarfile "$package" | tar -x --keep-directory-symlink --no-same-owner -C "$root.part"
    done
    # What the packages' own scripts would do.
    /sbin/ldconfig -r "$root.part"
    local zlib=$root.part/usr/lib/i386-linux-gnu/wine/i386-windows/zlib1.dll
    cp "$root.part/usr/i686-w64-mingw32/lib/zlib1.dll" "$zlib"
    # By this mark Wine knows its own libraries; without it a program that takes them in a roundabout way finds no zlib.
    printf 'Wine builtin DLL\0' | dd of="$zlib" bs=1 seek=64 conv=notrunc status=none
    mkdir -p "$root.part"/{proc,dev,sys,tmp,root,home,etc}
    cp /etc/passwd /etc/group "$root.part/etc/"
    rm -rf "$apt"
    mv "$root.part" "$root"
}
get >"$log" 2>&1 </dev/null &
if ! wait $!; then
    echo "failed; the end of $log:" >&2
    tail -n 40 "$log" >&2
    exit 1
fi
echo "$((SECONDS - started)) s" >&2
