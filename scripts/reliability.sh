#!/usr/bin/env bash
# Repeats what docs/reliability.md reports, and prints the figures.
#   scripts/reliability.sh           as the tests run it
#   scripts/reliability.sh --long    with 2000 kills, from a seed of its own, and the whole working day of bench/soak
# The seed and the number of kills can be chosen: LUMARIN_SEED=7 LUMARIN_KILLS=50 scripts/reliability.sh
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

day=(30 10)
case ${1:-} in
    "") ;;
    --long)
        day=(500 10)
        export LUMARIN_KILLS=${LUMARIN_KILLS:-2000}
        export LUMARIN_SEED=${LUMARIN_SEED:-$RANDOM}
        ;;
    *) sed -n '2,5s/^# \{0,1\}//p' "$0"; exit 2 ;;
esac

programs=(service_faults document_faults disk_faults kills)
"$root/scripts/setup.sh"
"$root/scripts/build.sh" release "${programs[@]/#/test_}" test_hostile lumarin_host

status=0
run() {  # the test program's name, what to run of it, what its figures look like
    local log
    log=$(mktemp)
    printf '\n== %s\n' "$1"
    if ! QT_QPA_PLATFORM=offscreen "$root/build/release/tests/$2/test_$1" --gtest_filter="$3" >"$log" 2>&1; then
        cat "$log"
        status=1
    fi
    grep -E '^\[ +(OK|FAILED) \].*ms\)$|^[1-9][0-9]* faults$|^seed ' "$log" || true
    rm -f "$log"
}
for program in "${programs[@]}"; do run "$program" reliability '*'; done
run hostile hostile '*'
printf '\n== program\n'
QT_QPA_PLATFORM=offscreen "$root/tests/host_drive/program.sh" "$root/build/release/host/desktop/lumarin-host" || status=1
printf '\n== soak, %s listings\n' "${day[0]}"
"$root/bench/soak" "${day[@]}" || status=1
exit "$status"
