find_package(PkgConfig REQUIRED)
pkg_check_modules(SANE REQUIRED IMPORTED_TARGET GLOBAL sane-backends)
find_package(Threads REQUIRED)
