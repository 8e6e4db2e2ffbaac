#!/usr/bin/env bash
# A user's way through both example hosts, with real mouse and keys: a listing, a photo that is sent, a document.
#   examples.sh WINE BITS FOLDER-OF-PROGRAMS HOST.VBS
set -euo pipefail
wine=$1 bits=$2 programs=$3 script=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$programs"

eventually() {
    for _ in {1..200}; do
        if "$@" >/dev/null 2>&1; then return; fi
        sleep 0.1
    done
    echo "$name: not in 20 s: $*" >&2
    return 1
}
# Then it takes mouse and keys in a moment; nothing says when.
seen() { eventually xdotool search --onlyvisible --name "$1" && sleep 0.5; }
press() { xdotool key "$@" && sleep 0.3; }
enter() { xdotool type "$1" && press Return; }

# A host with a folder of its own, as a system path and as the host's.
start() {
    name=$1
    mkdir "$work/$name"
    "$wine" "$bits" "${@:3}" "Z:${work//\//\\}\\$name\\" "$2" >"$work/$name.said" 2>/dev/null &
}
said() { grep -q "$1" "$work/$name.said"; }

open_listing() {
    seen "^Listing Photos$"
    xdotool mousemove 184 130 # the box for a listing number: the window fills most of the screen
    sleep 0.3
    xdotool click 1
    sleep 0.3
    enter 1001
    eventually test -e "$work/$name/Photo Import/1001.dat"
}

# Closes the window by its frame; compares what the host has said, but for the second by which a document is named.
leave() {
    press alt+F4
    eventually said ended
    if xdotool search --onlyvisible --name "^Script host$" >/dev/null 2>&1; then press Return; fi
    wait $!
    diff <(printf "$1") <(sed 's/\r$//; s/_[0-9]*Doc/_Doc/' "$work/$name.said")
}

start cpp photos example_host.exe
open_listing
leave 'tool off\njob 7 ended\ntool on\n'

"$wine" "$bits" regsvr32 /s QorLumarin.dll
# What it sends is kept, for another zip reader.
sed 's|^ *chunks = 0$|&: CreateObject("Scripting.FileSystemObject").CopyFile folder \& "Photo Import\\" \& nameOrChunk, folder \& "sent.zip"|' \
    "$script" >"$work/host.vbs"
host=(cscript //nologo "Z:${work//\//\\}\\host.vbs")
cp "$(dirname "$script")/../../docs/images/viewer.png" "$work/front.jpg"
start photos photos "${host[@]}"
open_listing
press ctrl+o
seen "^Import Photo$"
enter "Z:$work/front.jpg"
seen "front.jpg$"
press Return # captures
eventually test -e "$work/$name/Photo Import/1001a.jpg"
press ctrl+Return
eventually said uploaded
diff <(printf '1001.dat\n1001a.jpg\n') <(unzip -Z1 "$work/$name/sent.zip" | sort)
unzip -tqq "$work/$name/sent.zip"
chunks=$((($(stat -c %s "$work/$name/sent.zip") + 5119) / 5120))
leave "tool False\nuploaded, chunks: $chunks\njob 7 ended\ntool True\ntool True\n"

printf '%%PDF-1.4\n%%%%EOF\n' >"$work/deed.pdf"
start documents documents cscript //nologo "Z:${script//\//\\}"
seen "^Listing Number$"
enter 1001
seen "^Qor Documents - Listing #1001"
# The script's box is in front meanwhile.
xdotool mousemove --window "$(xdotool search --onlyvisible --name "^Qor Documents" | head -n 1)" 200 200
sleep 0.3
xdotool click 1
sleep 0.3
press ctrl+o
seen "^Add PDF File$"
enter "Z:${work//\//\\}\\deed.pdf"
seen "^Document$"
press Return # takes the description that is offered
eventually said documents
leave 'tool False\nuploaded, chunks: 1\ndocuments: ADD|SMALL|ME|1001|SMALL_ME1001_Doc.pdf|deed\njob 7 ended\ntool True\ntool True\n'

# A host that forgets its job ends all the same.
grep -v -e '^MsgBox' -e 'UnloadObj$' "$script" >"$work/host.vbs"
start forgetful photos "${host[@]}"
wait $!
"$wine" "$bits" regsvr32 /s /u QorLumarin.dll
