version=0.11.4+ds-1+deb12u1
source=cpp-httplib

build() {
    mkdir -p "$stage/include"
    cp source/httplib.h "$stage/include"
    describe cpp-httplib -lws2_32
}
