# A build for Windows comes in packages for Node.js: the library with all that it needs in one file, its headers,
# and the sources of its C++ interface.
version=1.3.3

build() {
    local package
    case $bits in
        x86) package=win32-ia32 sum=sha512-UlNpMI0X1N++CvKiqrMkQl0Z2lH2z37tMcEetZldeJ+4KGr//NDDADxNPMU/5K5ehbZIwBkiwzEYboHFmMLfhQ== ;;
        x64) package=win32-x64 sum=sha512-+fifUVFjUSDG0J9GU4oGHVy2XkzPQr4ho0IyWGqn9UVwi087zMjiq8vknVjg09cybjgrVWsFsajUJCe4Wmf0hA== ;;
    esac
    unpack "$package" "$sum" library
    unpack dev sha512-syHhSsbBWUnxSew+Cj2455Dwlp4FbaT+POspRb8KEfqRitbfzDU+Dc08tKDXjhqQNGriQeOq0MNifFydHj8XCA== headers
    mkdir -p "$stage/bin" "$stage/lib" "$stage/include"
    cp library/lib/libvips-42.dll "$stage/bin"
    cp library/lib/libvips.lib "$stage/lib/libvips.dll.a"
    cp -r headers/include/vips headers/include/glib-2.0/* library/lib/glib-2.0/include/glibconfig.h "$stage/include"
    local file
    for file in VConnection VError VImage VInterpolate VRegion; do
        "$triplet-g++-posix" -std=c++17 -O2 -ffile-prefix-map="$stage"=. -I"$stage/include" \
            -c "headers/cplusplus/$file.cpp" -o "$file.o"
    done
    "$triplet-ar" rcs "$stage/lib/libvips-cpp.a" V*.o
    describe vips-cpp "-lvips-cpp -lvips"
    cp library/versions.json library/README.md "$stage"
}

# Gets a package, checks its sum and unpacks it into a folder.
unpack() {
    local file
    rm -rf "$3"
    mkdir "$3"
    file=$(npm pack --silent "@img/sharp-libvips-$1@$version")
    if [[ sha512-$(openssl dgst -sha512 -binary "$file" | base64 -w 0) != "$2" ]]; then
        echo "$file is not what was expected" >&2
        return 1
    fi
    tar -xzf "$file" -C "$3" --strip-components 1
}
