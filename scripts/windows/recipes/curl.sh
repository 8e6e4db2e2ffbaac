version=7.88.1-10+deb12u15
source=curl

# FTP with the system's own TLS, nothing else that can be left out: without HTTP this version's FTP does not link.
build() {
    local off=() part
    for part in ALTSVC HSTS LDAP LDAPS TELNET DICT TFTP GOPHER POP3 IMAP SMB SMTP RTSP MQTT FILE; do
        off+=("-DCURL_DISABLE_$part=ON")
    done
    cmake_build -DCURL_USE_SCHANNEL=ON -DENABLE_UNICODE=ON -DBUILD_CURL_EXE=OFF -DBUILD_TESTING=OFF "${off[@]}" \
        -DCURL_USE_LIBSSH2=OFF -DCURL_ZLIB=OFF -DCURL_USE_LIBPSL=OFF -DUSE_NGHTTP2=OFF
    sed -i 's/^Cflags:.*/& -DCURL_STATICLIB/' "$stage/lib/pkgconfig/libcurl.pc"
}
