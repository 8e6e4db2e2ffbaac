version=6.4.2+dfsg-10
source=qt6-base

# Core, Gui, Widgets and Test. The tools that run on the build machine are Debian's, of the same version.
build() {
    local off=() feature
    for feature in dbus sql network xml printsupport opengl vulkan concurrent tabletevent direct2d directwrite \
                   directwrite3 system_zlib system_png system_jpeg icu glib; do
        off+=("-DFEATURE_$feature=OFF")
    done
    cmake_build -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(gcc -print-multiarch)/cmake" \
        -DBUILD_SHARED_LIBS=ON -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF "${off[@]}" -DINPUT_opengl=no
}
