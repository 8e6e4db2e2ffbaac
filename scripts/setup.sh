#!/usr/bin/env bash
# Installs the Debian packages that are missing; says nothing when none is.
#   scripts/setup.sh          what building, running and testing takes
#   scripts/setup.sh bench    also what the benchmarks compare with
#   scripts/setup.sh lint     also what checks the code
#   scripts/setup.sh windows  also what building and testing for Windows takes
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

lists=("$here/packages.txt")
case "${1:-}" in
    "") ;;
    bench | lint | windows) lists+=("$here/packages-$1.txt") ;;
    *) echo "setup.sh: unknown argument \"$1\"; there are \"bench\", \"lint\" and \"windows\"" >&2; exit 2 ;;
esac

names=()
while read -r name _; do
    [[ -n $name ]] && names+=("$name")
done < <(sed 's/#.*//' "${lists[@]}")

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    echo "setup.sh: this machine has no apt; make sure that it has what these lists name: ${lists[*]/#*\//scripts/}" >&2
    exit 0
fi

missing=()
for entry in "${names[@]}"; do
    name=${entry%%|*}
    if [[ $entry == *"|"* ]] && command -v "${entry#*|}" >/dev/null; then continue; fi
    state=$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null || true)
    [[ $state == *installed && $state != *not-installed ]] || missing+=("$name")
done
[[ ${#missing[@]} -gt 0 ]] || exit 0

as_root=()
if [[ $(id -u) -ne 0 ]]; then
    if ! command -v sudo >/dev/null; then
        echo "setup.sh: these packages are missing and only root can install them: ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi

echo "Installing ${missing[*]}" >&2
log=$(mktemp)
trap 'rm -f "$log"' EXIT
apt() { "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q "$@"; }
# An index of somebody else's that cannot be refreshed is not a reason to stop while the packages can be had.
refreshed=yes
apt update >"$log" 2>&1 || refreshed=no
if ! apt -y --no-install-recommends install "${missing[@]}" >>"$log" 2>&1; then
    cat "$log" >&2
    echo "setup.sh: the packages could not be installed" >&2
    exit 1
fi
if [[ $refreshed == no ]]; then
    grep '^[EW]:' "$log" >&2 || true
    echo "setup.sh: warning: not every package index could be refreshed; all packages could be installed" >&2
fi
