# 32-bit Windows programs, made on Debian.
set(LUMARIN_WINDOWS_PREFIX i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR x86)
include(${CMAKE_CURRENT_LIST_DIR}/toolchain.cmake)
