version=11.3.0-1+deb12u1
source=qpdf
needs=(zlib jpeg)

build() {
    cmake_build -DBUILD_STATIC_LIBS=ON -DREQUIRE_CRYPTO_NATIVE=ON -DUSE_IMPLICIT_CRYPTO=OFF -DBUILD_DOC=OFF \
        -DBUILD_TESTING=OFF
}
