find_package(PkgConfig REQUIRED)
pkg_check_modules(VIPS_CPP REQUIRED IMPORTED_TARGET GLOBAL vips-cpp)
pkg_check_modules(GMODULE IMPORTED_TARGET GLOBAL gmodule-2.0)
pkg_check_modules(JPEG REQUIRED IMPORTED_TARGET GLOBAL libjpeg)
