# Documents of 100 pages against img2pdf, from the same PNG files; a page more on a document that has many.

# document KIND PEAK-LIMIT-MB: time and memory, and the bytes that are not pictures.
document() {
    local ours_pdf=$out/ours-$1.pdf peer_pdf=$out/peer-$1.pdf our_bytes peer_bytes ratio
    "$bin/documents/bench_pages" "$inputs/documents"
    ours "document, $1" "$2" "$bin/documents/bench_document" build "$ours_pdf" "$inputs/documents/$1"
    peer img2pdf 0.67 img2pdf -o "$peer_pdf" "$inputs/documents/$1"/*.png
    our_bytes=$("$bin/documents/bench_overhead" "$ours_pdf")
    peer_bytes=$("$bin/documents/bench_overhead" "$peer_pdf")
    ratio=$(awk "BEGIN { printf \"%.2f\", $our_bytes / $peer_bytes }")
    line "  bytes a page" "$our_bytes" - "img2pdf" "$peer_bytes" - "$ratio" "<= 1.1" "$(calculate "$ratio <= 1.1")"
    our_bytes=$(stat -c %s "$ours_pdf") peer_bytes=$(stat -c %s "$peer_pdf")
    ratio=$(awk "BEGIN { printf \"%.2f\", $our_bytes / $peer_bytes }")
    line "  kB in all" $((our_bytes / 1000)) - "img2pdf" $((peer_bytes / 1000)) - "$ratio" "<= 1.1" \
        "$(calculate "$ratio <= 1.1")"
}

row_document_colour() { document colour 256; }
row_document_bilevel() { document bilevel 64; }

# Opened, added, closed: the 200th time against the 10th.
row_document_grow() {
    local kind tenth last ratio
    "$bin/documents/bench_pages" "$inputs/documents"
    for kind in colour bilevel; do
        read -r tenth last < <("$bin/documents/bench_document" grow "$out/grow.pdf" "$inputs/documents/$kind" 200)
        ratio=$(awk "BEGIN { printf \"%.2f\", $last / $tenth }")
        line "200th, $kind" "$last" - "10th page" "$tenth" - "$ratio" "<= 2" "$(calculate "$ratio <= 2")"
    done
}

# What an agent waits for one page: its picture is made, then it is added and the document closed.
row_document_page() {
    local source kind picture added bytes
    "$bin/documents/bench_pages" "$inputs/documents"
    for source in photo.jpg sheet.png screenshot.png; do
        for kind in colour bilevel; do
            read -r picture added bytes < <("$bin/documents/bench_document" page "$out/page.pdf" \
                "$inputs/documents/sources/$source" "$kind")
            line "page, $kind" "$picture" - "add and close" "$added" - - "${source%.*}, $((bytes / 1000)) kB" 1
        done
    done
}
