#!/usr/bin/env bash
# The program as a command: how it ends and what it says. Usage: program.sh PROGRAM
set -uo pipefail
program=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
data=$folder/data
failed=0

# run EXIT-CODE SAID SCRIPT OPTION...: does the script and looks for the pattern in all that was said
run() {
    local wanted=$1 pattern=$2 script=$3 output status
    shift 3
    output=$(printf '%b' "$script" | "$program" "$@" 2>&1 | tr '\n' ' ' | tr -d '\\\r')
    status=$?
    if [[ $status != "$wanted" || ! $output =~ $pattern ]]; then
        printf '%s: exit code %s, not %s; said: %s\n' "$*" "$status" "$wanted" "$output"
        failed=1
    fi
}

run 0 'ok' 'wait frmListnumPrompt\n' --documents --data "$data" --drive -
run 1 'no command' 'fly\n' --data "$data" --drive -
run 2 '' '' --data "$data" --drive "$folder/none.txt"
run 0 '--faults' '' --help

# Mistakes are named.
run 2 'Unknown option "--photo"' '' --photo
run 2 '--data needs a value' '' --data
run 2 '--data needs a value' '' --data --photos
run 2 '--level needs a whole number of 0 or more, not "10x"' '' --level 10x
run 2 '--level needs a whole number of 0 or more, not "99999999999"' '' --level=99999999999
run 2 '--faults: "chunk lose" is ' '' --faults 'chunk lose'
run 2 '--demo and --drive exclude each other' '' --demo --drive -
run 2 '--demo uses a data folder of its own; leave out --data' '' --demo --data x

# A command that cannot be done says why.
reasons='no key "Entr".*no command "fly".*Usage: set.*no control "cmdNone".*"Paste" is disabled.*'
reasons+='"cmdRemove" is disabled.*No message.*No file dialog.*"frmNone" has not appeared.*quote is not closed'
run 1 "$reasons" '
wait frmLumarin
key frmLumarin.txtID Entr
fly
set frmLumarin.txtID
press frmLumarin.cmdNone
tool frmLumarin.Paste
press frmLumarin.cmdRemove
answer Yes
choose x
wait frmNone 1
set frmLumarin.txtID "open
quit
' --data "$data" --photos --drive -

# Controls, menus, the file dialog and questions are worked as a person does; the end dismisses what still asks.
answers='"name":"View".*"unnamed":\[\].*"windows":\["frmLumarin","frmMain"\].*"text":"Grüße X".*"caption":"Anywhere","checked":true.*'
answers+='"selected":2,"text":"Pending".*\[\["Front"\],\["Rear"\]\],"selected":1.*'
answers+='"allSelected":\[0,1\].*\[\["Rear"\],\["Front"\]\].*'
answers+='"title":"Send Photos".*"unnamed":\[\].*takes no input while.* null '
run 1 "$answers" "
wait frmLumarin
set frmLumarin.txtID 100123
key frmLumarin.txtID Enter
select frmLumarin.PhotoList 2
menu frmLumarin.PhotoList
tool frmLumarin.Open
unnamed fileDialog
choose
windows
press frmLumarin.cmdBrowse
set frmFindProperty.txtOwnerName \"Grüße \"
key frmFindProperty.txtOwnerName Shift+x
get frmFindProperty.txtOwnerName
set frmFindProperty.optMatchMethodOwner(1) 1
get frmFindProperty.optMatchMethodOwner(1)
set frmFindProperty.cmbStatus Pending
get frmFindProperty.cmbStatus
press frmFindProperty.cmdCancel
key frmLumarin.PhotoList Delete
get frmLumarin.PhotoList
reorder frmLumarin.PhotoList 0 2
select frmLumarin.PhotoList 1 0
get frmLumarin.PhotoList
key frmLumarin.PhotoList Delete
press frmLumarin.cmdSend
message
unnamed messageBox
press frmLumarin.cmdRemove
answer no
message
set frmLumarin.txtID 1
key frmLumarin.txtID Enter
quit
" --data "$data" --photos --drive -

# A listing of the main window opens by a double click, also in a window that is there; documents offer it.
run 0 '\[\["10012",[^]]*\]\].*\["100123".*"text":"100123"' '
double frmMain.Listings 0
wait frmLumarin
get frmLumarin.RecList
double frmMain.Listings 1
get frmLumarin.RecList
tool frmMain.Documents
wait frmListnumPrompt
get frmListnumPrompt.txtPropertyId
quit
' --data "$folder/listings" --drive -

# What a handler that is at work will ask is waited for.
run 0 'do you want to retry.* null .*"rows":\[\]' '
wait frmLumarin
set frmLumarin.txtID 100123
key frmLumarin.txtID Enter
key frmLumarin.PhotoList Delete
press frmLumarin.cmdSend
message
answer Yes
message
get frmLumarin.RecList
quit
' --data "$data" --photos --faults 'chunk 1 lose' --drive -

# A file to save is named, and asked for before it is replaced.
picture=$(dirname "$0")/../../docs/images/main.png
run 0 '"title"' "
tool frmMain.Documents
set frmListnumPrompt.txtPropertyId 100124
key frmListnumPrompt.txtPropertyId Alt+O
tool frmAddDocument.miMakePdf
drop frmMakePDF.lbmBM \"$picture\"
tool frmMakePDF.save
choose \"$folder/new\"
tool frmMakePDF.save
choose \"$folder/new.pdf\"
message
answer No
choose
tool frmMakePDF.save
choose \"$folder/new.pdf\"
answer Yes
quit
" --data "$data" --drive -
[[ -s $folder/new.pdf ]] || { echo "new.pdf was not saved"; failed=1; }

# Sending that failed is asked for again with its entries. A screen reader has names for all of the host's own windows.
run 0 '"unnamed":\[\].*"unnamed":\[\].*"unnamed":\[\].*"text":"localhost:1".*"rows":\[\["[^]]*program.sh"' "
unnamed frmMain
tool frmMain.SendFile
unnamed dlgSendFile
set dlgSendFile.txtServer localhost:1
press dlgSendFile.cmdAdd
unnamed fileDialog
choose \"$0\"
key dlgSendFile.txtServer Enter
wait messageBox
answer Cancel
wait dlgSendFile
get dlgSendFile.txtServer
get dlgSendFile.lstFiles
quit
" --data "$data" --drive -

# A data folder in use is refused.
coproc first { "$program" --data "$data" --drive -; }
echo 'wait frmMain' >&"${first[1]}"
read -r _ <&"${first[0]}"
run 3 'is in use by another run' 'quit\n' --data "$data" --drive -
echo quit >&"${first[1]}"
wait "$first_PID"
exit $failed
