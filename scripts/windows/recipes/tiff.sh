version=4.5.0-6+deb12u4
source=tiff

# Fax packing alone.
build() {
    cmake_build -Dtiff-tools=OFF -Dtiff-tests=OFF -Dtiff-contrib=OFF -Dtiff-docs=OFF -Dcxx=OFF -Dzlib=OFF -Djpeg=OFF \
        -Dlzma=OFF -Dzstd=OFF -Dwebp=OFF -Djbig=OFF -Dlerc=OFF -Dlibdeflate=OFF
}
