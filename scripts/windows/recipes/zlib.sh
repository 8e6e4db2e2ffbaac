# Debian has it built for Windows.
version=1.2.13

build() {
    mkdir -p "$stage/include" "$stage/lib"
    cp "/usr/$triplet/include/zlib.h" "/usr/$triplet/include/zconf.h" "$stage/include"
    cp "/usr/$triplet/lib/libz.a" "$stage/lib"
    describe zlib -lz
}
