version=11.3.0-1+deb12u1
source=qpdf
needs=(zlib jpeg)

# The library alone: its programs ask for the libraries of a Windows machine.
build() {
    cmake_configure -DBUILD_STATIC_LIBS=ON -DREQUIRE_CRYPTO_NATIVE=ON -DUSE_IMPLICIT_CRYPTO=OFF -DBUILD_DOC=OFF \
        -DBUILD_TESTING=OFF -DCMAKE_CXX_FLAGS="-include cstdint"  # a header of it relies on others for the integers
    cmake --build "$build/out" --target libqpdf
    cmake_install --component dev
}
