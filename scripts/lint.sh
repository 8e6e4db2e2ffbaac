#!/usr/bin/env bash
# Checks the code: layout, the warnings of g++ and clang++ as errors, and clang-tidy. Says what is wrong, or nothing.
#   scripts/lint.sh              everything; the two builds and clang-tidy take long the first time, and again
#                                only what they have not yet found clean as it is
#   scripts/lint.sh FILE...      layout and clang-tidy for these sources only
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$root/scripts/setup.sh" lint
cd "$root"

folders=(src platform host tests bench)
status=0

# With clang++, for both: clang-tidy reads the command lines of this build.
cmake --preset lint >/dev/null
everything=no
if [[ $# -gt 0 ]]; then
    layout=("$@")
    sources=("$@")
else
    everything=yes
    mapfile -t layout < <(find "${folders[@]}" -name '*.cpp' -o -name '*.h' | sort)
    mapfile -t sources < <(find "${folders[@]}" -name '*.cpp' | sort)
    scripts/build.sh debug || status=1
    scripts/build.sh lint || status=1
fi

clang-format --dry-run --Werror "${layout[@]}" || status=1

# Whether a source was found clean after its object was last built, which follows its headers, and under the rules
# as they are.
isClean() {
    [[ $everything == yes ]] || return
    local stamp=$1 object newest
    object=$(grep -F -- "-c $PWD/$2\"" build/lint/compile_commands.json | sed 's/.* -o \([^ ]*\) -c .*/\1/;q')
    for newest in "build/lint/$object" .clang-tidy */.clang-tidy; do [[ $stamp -nt $newest ]] || return; done
}
tidy() {
    local stamp=build/lint/tidy/$1
    isClean "$stamp" "$1" && return
    # Not what counts the warnings in other people's headers, which are not shown.
    clang-tidy --quiet -p build/lint "$1" 2> >(grep -v ' warnings\? generated\.$' >&2) || return
    mkdir -p "${stamp%/*}"
    touch "$stamp"
}
export -f isClean tidy
export everything
printf '%s\0' "${sources[@]}" | xargs -0 -n 1 -P "$(nproc)" bash -c 'tidy "$1"' tidy || status=1
exit "$status"
