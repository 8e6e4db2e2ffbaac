find_package(PkgConfig REQUIRED)
pkg_check_modules(CURL REQUIRED IMPORTED_TARGET GLOBAL libcurl>=7.87)  # leaves an unfinished name look-up behind
find_package(Threads REQUIRED)
