version=1.12.1-0.2
source=googletest

build() {
    cmake_build -DBUILD_GMOCK=OFF
}
