# Opening a large JPEG to its preview of 320 pixels, and capturing 480 x 300 from its whole width.

# Peers that decode everything must be beaten clearly at 24 megapixels; the other sizes are shown for comparison.
slow_target() { if [[ $1 == 24 ]]; then echo 4; else echo -; fi; }

preview() {
    local photo=$inputs/photo-$1.jpg
    ours "preview, $1 MP" 64 "$bin/bench_imaging" preview "$photo"
    peer "gm" "$(slow_target "$1")" gm convert "$photo" -resize 320x320 "$out/peer.jpg"
    peer "convert" "$(slow_target "$1")" convert "$photo" -resize 320x320 "$out/peer.jpg"
    peer "vipsthumbnail" 1 vipsthumbnail "$photo" --size 320 -o "$out/peer.jpg"
}

# capture MEGAPIXELS CUT: the cut as WIDTHxHEIGHT+LEFT+TOP
capture() {
    local photo=$inputs/photo-$1.jpg
    ours "capture, $1 MP" 64 "$bin/bench_imaging" capture "$photo" "$out/ours.jpg"
    peer "gm" "$(slow_target "$1")" gm convert "$photo" -crop "$2" -resize '480x300!' -quality 75 "$out/peer.jpg"
    peer "convert" "$(slow_target "$1")" convert "$photo" -crop "$2" -resize '480x300!' -quality 75 "$out/peer.jpg"
    peer "vipsthumbnail" 1 vipsthumbnail "$photo" --size 480x300 --smartcrop centre -o "$out/peer.jpg[Q=75]"
}

row_preview12() { preview 12; }
row_preview24() { preview 24; }
row_preview48() { preview 48; }
row_capture12() { capture 12 4000x2500+0+250; }
row_capture24() { capture 24 6000x3750+0+125; }
row_capture48() { capture 48 8000x5000+0+500; }
