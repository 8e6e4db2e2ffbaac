# A search and a verification over the reference host's database and photo store.

# The peers do not show anything: sqlite3 runs the statement of the search, find lists the photo store.
row_search() {
    local data=$inputs/search rows=1000000 statement
    "$bin/host/bench_data" "$inputs"
    export QT_QPA_PLATFORM=offscreen
    statement=$("$bin/host/bench_search" statement)
    ours "search, first rows" 512 "$bin/host/bench_search" first "$data" "$rows"
    local first_ms=$our_best first_peak=$our_peak
    ours "search, 1M rows" 512 "$bin/host/bench_search" all "$data" "$rows"
    peer "sqlite3" 0.67 sqlite3 -readonly "$data/host.db" "$statement"
    line "search, first rows" "$first_ms" "$first_peak" "to the end" "$our_best" "$our_peak" \
        "$(awk "BEGIN { printf \"%.2f\", $our_best / $first_ms }")" ">= 3" "$(calculate "$our_best >= 3 * $first_ms")"
}

row_verify() {
    "$bin/host/bench_data" "$inputs"
    ours "verify, 100k" 64 "$bin/host/bench_verify" "$inputs/verify"
    peer "find -type f" 0.33 find "$inputs/verify/photos" -type f
}
