version=1.7.3-1
source=libzip
needs=(zlib)

build() {
    cmake_build -DENABLE_COMMONCRYPTO=OFF -DENABLE_GNUTLS=OFF -DENABLE_MBEDTLS=OFF -DENABLE_OPENSSL=OFF \
        -DENABLE_WINDOWS_CRYPTO=OFF -DENABLE_BZIP2=OFF -DENABLE_LZMA=OFF -DBUILD_TOOLS=OFF -DBUILD_REGRESS=OFF \
        -DBUILD_EXAMPLES=OFF -DBUILD_DOC=OFF
    # The machine has a shared zlib for Windows too; the description names the one that is meant.
    sed -i 's/^Libs.private:.*/Libs.private: -ladvapi32\nRequires.private: zlib/' "$stage/lib/pkgconfig/libzip.pc"
}
