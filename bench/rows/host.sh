# A search and a verification over the reference host's database and photo store.

# shown_search JOB first|all: the times of the same search in the front end, for information.
shown_search() {
    local quietly=(env QT_QPA_PLATFORM=offscreen "QT_LOGGING_RULES=*.warning=false")
    ours "$1" 1024 "${quietly[@]}" "$bin/host/bench_shown_search" "$2" "$inputs/search"
    line "$1" "$our_best" "$our_peak" - - - - "-" 1
}

# The peers do not show anything either: sqlite3 runs the statement of the search, find lists the photo store.
row_search() {
    local data=$inputs/search rows=1000000 statement first_ms first_peak
    "$bin/host/bench_data" "$inputs"
    statement=$("$bin/host/bench_search" statement)
    ours "search, first rows" 512 "$bin/host/bench_search" first "$data" "$rows"
    first_ms=$our_best first_peak=$our_peak
    ours "search, 1M rows" 512 "$bin/host/bench_search" all "$data" "$rows"
    peer "sqlite3" 0.67 sqlite3 -readonly "$data/host.db" "$statement"
    local ratio
    ratio=$(awk "BEGIN { printf \"%.2f\", $our_best / $first_ms }")
    line "search, first rows" "$first_ms" "$first_peak" "to the end" "$our_best" "$our_peak" "$ratio" \
        ">= 5" "$(calculate "$ratio >= 5")"
    shown_search "painted, first" first
    shown_search "painted, 1M rows" all
}

row_verify() {
    "$bin/host/bench_data" "$inputs"
    ours "verify, 100k" 64 "$bin/host/bench_verify" "$inputs/verify"
    peer "find -type f" 0.34 find "$inputs/verify/photos" -type f
}
