version=3.40.1-2+deb12u2
source=sqlite3

build() {
    (cd source && ./configure --disable-tcl >/dev/null && make sqlite3.c)
    mkdir -p "$stage/include" "$stage/lib"
    cp source/sqlite3.h "$stage/include"
    "$triplet-gcc-posix" -O2 -DSQLITE_OMIT_LOAD_EXTENSION -c source/sqlite3.c -o sqlite3.o
    "$triplet-ar" rcs "$stage/lib/libsqlite3.a" sqlite3.o
    describe sqlite3 -lsqlite3
}
