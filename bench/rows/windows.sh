# The windows: a slider step until the preview is painted again, and the start with unsent listings.

row_slider() {
    local median p95
    read -r median p95 < <(QT_QPA_PLATFORM=offscreen "$bin/windows/bench_slider" "$inputs/photo-24.jpg" 2>/dev/null)
    line "slider step" "$median" - "p95" "$p95" - - "p95 < 8 ms" "$(calculate "$p95 < 8")"
}

# start LISTINGS PEAK-LIMIT-MB RATIO: the photo window is shown, then the program quits; the same with nothing in
# the working folder.
start() {
    local host=(env "QT_LOGGING_RULES=*.warning=false" "$root/build/bench/host/desktop/lumarin-host")
    local empty=$out/start-empty full=$out/start-$1
    rm -rf "$empty" "$full"
    printf 'wait frmLumarin 20000\nquit\n' >"$out/start.drive"
    "${host[@]}" --data "$empty" --photos --drive "$out/start.drive" >/dev/null 2>&1
    cp -r "$empty" "$full"
    "$bin/windows/bench_listings" "$full/user/Photo Import" "$1"
    ours "start, $1 listings" "$2" "${host[@]}" --data "$full" --photos --drive "$out/start.drive"
    peer "empty start" "$3" "${host[@]}" --data "$empty" --photos --drive "$out/start.drive"
}
row_start200() { start 200 200 0.5; }
row_start500() { start 500 200 0.4; }
