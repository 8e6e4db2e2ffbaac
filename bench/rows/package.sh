# Packaging 26 listings with 26 photos each.
row_package() {
    ours "package, 676" 64 "$bin/bench_package" "$out/ours.zip" "$inputs/package"
    # A new archive each time: zip would otherwise compare with and copy the old one.
    peer "zip -0 -X -j" 1 sh -c 'rm -f "$1"; exec zip -q -0 -X -j "$1" "$2"/*' sh "$out/peer.zip" "$inputs/package"
}
