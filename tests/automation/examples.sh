#!/usr/bin/env bash
# A user's way through both example hosts, with real mouse and keys: a listing is opened, the window closed by its frame.
#   examples.sh WINE BITS FOLDER-OF-PROGRAMS HOST.VBS
set -euo pipefail
wine=$1 bits=$2 programs=$3 script=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$programs"

seen() {
    for _ in {1..200}; do
        if xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1; then return; fi
        sleep 0.1
    done
    echo "\"$1\" is not seen" >&2
    return 1
}

# Runs a host, works its photo window, and compares what the host has said.
check() {
    local name=$1 expected=$2 folder
    shift 2
    mkdir "$work/$name"
    folder="Z:${work//\//\\}\\$name\\"
    "$wine" "$bits" "$@" "$folder" photos >"$work/$name.said" 2>/dev/null &
    seen "Listing Photos"
    sleep 0.5 # until it takes the mouse; nothing says when
    xdotool mousemove 184 130 # the box for a listing number: the window fills most of the screen
    sleep 0.3
    xdotool click 1
    sleep 0.3
    xdotool type 1001
    xdotool key Return
    for _ in {1..100}; do
        [[ -e "$work/$name/Photo Import/1001.dat" ]] && break
        sleep 0.1
    done
    [[ -e "$work/$name/Photo Import/1001.dat" ]] || { echo "$name: the listing was not opened" >&2; exit 1; }
    xdotool key alt+F4
    for _ in {1..100}; do
        grep -q ended "$work/$name.said" && break
        sleep 0.1
    done
    if xdotool search --onlyvisible --name "^Script host\$" >/dev/null 2>&1; then xdotool key Return; fi
    wait $!
    diff <(printf "$expected") <(tr -d '\r' <"$work/$name.said")
}

check cpp 'tool off\njob 7 ended\ntool on\n' example_host.exe
"$wine" "$bits" regsvr32 /s QorLumarin.dll
check script 'tool False\njob 7 ended\ntool True\ntool True\n' cscript //nologo "Z:${script//\//\\}"
"$wine" "$bits" regsvr32 /s /u QorLumarin.dll
