# A search and a verification over the reference host's database and photo store.

# The window of the search is painted, on the toolkit's offscreen platform; the same without any window is for
# information. The peers show nothing: sqlite3 runs the statement of the search, find lists the photo store.
row_search() {
    local data=$inputs/search rows=1000000 statement deaf
    local shown=(env QT_QPA_PLATFORM=offscreen "QT_LOGGING_RULES=*.warning=false" "$bin/host/bench_shown_search")
    "$bin/host/bench_data" "$inputs"
    statement=$("$bin/host/bench_search" statement)
    ours "search, first rows" 512 "${shown[@]}" first "$data" "$rows"
    line "$job" "$our_best" "$our_peak" - - - - "<= 100 ms" "$(calculate "$our_best <= 100")"
    ours "search, 1M rows" 320 "${shown[@]}" all "$data" "$rows"
    peer "sqlite3" 0.67 sqlite3 -readonly "$data/host.db" "$statement"
    deaf=$(for ((i = 0; i < runs; ++i)); do "${shown[@]}" all "$data" "$rows"; done | sort -n | head -n 1)
    line "  longest turn" "$deaf" - - - - - "<= 50 ms" "$(calculate "$deaf <= 50")"
    ours "  without a window" 320 "$bin/host/bench_search" all "$data" "$rows"
    peer "sqlite3" - sqlite3 -readonly "$data/host.db" "$statement"
}

row_verify() {
    "$bin/host/bench_data" "$inputs"
    ours "verify, 100k" 64 "$bin/host/bench_verify" "$inputs/verify"
    peer "find -type f" 0.34 find "$inputs/verify/photos" -type f
}

# A document of 1 MB to the host's own server: the median chunk, which must not be felt, and the slowest.
row_upload() {
    local median slowest commands
    rm -rf "$out/upload"
    read -r median slowest commands < <("$bin/host/bench_upload" "$out/upload")
    line "upload, a chunk" "$median" - "slowest" "$slowest" - - "slowest < 10 ms" "$(calculate "$slowest < 10")"
    line "add, delete 1 MB" "$commands" - - - - - "-" 1
}
