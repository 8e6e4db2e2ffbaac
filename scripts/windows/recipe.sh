# What the recipes share; read by dependencies.sh. A recipe, recipes/<name>.sh, sets `version`, `source` (a Debian source
# package, or nothing) and `needs` (recipes whose folders it uses), and defines `build`, which installs below $stage.

# Sets what depends on the word size: x86 or x64.
prepare() {
    bits=$1
    cache=${LUMARIN_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/lumarin/windows}
    mkdir -p "$cache/$bits" "$cache/logs"
    toolchain=$here/toolchain-$bits.cmake
    case $bits in
        x86) triplet=i686-w64-mingw32 ;;
        x64) triplet=x86_64-w64-mingw32 ;;
    esac
    compiler=$("$triplet-g++-posix" -dumpfullversion)
}

# Sets the variables of a recipe, and `prefix`, where its library is installed.
load_recipe() {
    name=$1
    version='' source='' needs=()
    source "$here/recipes/$name.sh"
    prefix=$(prefix_of "$name")
    build=$cache/$bits/building/${prefix##*/}
    stage=$build/staged$prefix  # moved to $prefix when it is whole; files that name their folder name that one
}

# The folder of a library: its name, its version, and a digest of all that decides what comes out.
prefix_of() (
    version='' source='' needs=()
    source "$here/recipes/$1.sh"
    digest=$({ cat "$here/recipes/$1.sh" "$here"/toolchain*.cmake; echo "$compiler"
               for need in "${needs[@]}"; do prefix_of "$need"; done; } | sha256sum)
    echo "$cache/$bits/$1-${version#*:}-${digest:0:10}"
)

build_library() {
    local log=$cache/logs/$bits-$name.log started=$SECONDS
    printf '%s %s for %s ... ' "$name" "$version" "$bits" >&2
    # One build at a time, also from several checkouts.
    exec 7>"$cache/$bits/lock"
    flock 7
    if [[ ! -e $prefix ]]; then
        rm -rf "$stage"
        mkdir -p "$stage" "$build"
        # In the background, because the shell takes a failed command for no failure within a condition.
        (set -e; get_source; cd "$build"; build) >"$log" 2>&1 </dev/null &
        if ! wait $!; then
            echo "failed; the end of $log:" >&2
            tail -n 40 "$log" >&2
            exit 1
        fi
        mv "$stage" "$prefix"  # there as a whole or not at all
        rm -rf "$build"
    fi
    flock -u 7
    echo "$((SECONDS - started)) s" >&2
}

# Unpacks the source package into $build/source. The package manager checks signatures and sums; its lists and
# downloads stay in the cache, so the machine's own settings are not touched.
get_source() {
    [[ -n $source && ! -e $build/source ]] || return 0
    local apt=$cache/apt
    if [[ ! -e $apt/ready ]]; then
        mkdir -p "$apt"/{parts,lists/partial,cache/archives/partial}
        sed 's/^Types:.*/Types: deb-src/' /etc/apt/sources.list.d/*.sources >"$apt/parts/all.sources" 2>/dev/null || true
        # A machine may have either kind of list alone.
        sed -n 's/^deb /deb-src /p' /etc/apt/sources.list /etc/apt/sources.list.d/*.list >"$apt/parts/all.list" \
            2>/dev/null || true
        printf 'Dir::Etc::sourcelist "/dev/null";\nDir::Etc::sourceparts "%s/parts";\n' "$apt" >"$apt/conf"
        printf 'Dir::State::lists "%s/lists";\nDir::Cache "%s/cache";\n' "$apt" "$apt" >>"$apt/conf"
        echo 'APT::Sandbox::User "";' >>"$apt/conf"
        APT_CONFIG=$apt/conf apt-get update || true  # one index of several may be missing
        touch "$apt/ready"
    fi
    rm -rf "$build/unpacked"
    mkdir "$build/unpacked"
    (cd "$build/unpacked" && APT_CONFIG=$apt/conf apt-get source "$source=$version")
    mv "$build"/unpacked/*/ "$build/source"
    rm -rf "$build/unpacked"
}

# Configures the source with CMake; the arguments are options for it.
cmake_configure() {
    local paths='' need
    for need in "${needs[@]}"; do paths+="$(prefix_of "$need");"; done
    # The build machine's own libraries are not for this.
    export PKG_CONFIG_LIBDIR=$build/none
    # Another checkout may go on with a build that was broken off; the toolchain stays where CMake has seen it.
    cp "$here"/toolchain*.cmake "$build/"
    cmake -S "$build/source" -B "$build/out" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$build/${toolchain##*/}" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_PREFIX_PATH="$paths" -DBUILD_SHARED_LIBS=OFF \
        -DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache "$@"
}

# Installs what was built; the arguments narrow it.
cmake_install() { DESTDIR=$build/staged cmake --install "$build/out" "$@"; }

# All three steps, for a source that has nothing else in it than what is wanted.
cmake_build() {
    cmake_configure "$@"
    cmake --build "$build/out"
    cmake_install
}

# Writes the description by which pkg-config finds the library: its name there, its flags for linking and compiling.
describe() {
    mkdir -p "$stage/lib/pkgconfig"
    cat >"$stage/lib/pkgconfig/$1.pc" <<END
prefix=$prefix
Name: $1
Description: built for Windows by scripts/windows
Version: ${version#*:}
Libs: -L\${prefix}/lib $2
Cflags: -I\${prefix}/include ${3:-}
END
}
