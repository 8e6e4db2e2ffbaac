version=1:2.1.5-2
source=libjpeg-turbo

build() {
    cmake_build -DENABLE_SHARED=OFF -DWITH_TURBOJPEG=OFF -DWITH_SIMD=OFF
}
