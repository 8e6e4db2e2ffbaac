# What both word sizes share. The compilers are those with POSIX threads: std::thread needs them.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${LUMARIN_WINDOWS_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${LUMARIN_WINDOWS_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${LUMARIN_WINDOWS_PREFIX}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${LUMARIN_WINDOWS_PREFIX} ${CMAKE_PREFIX_PATH})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Paths of the build machine do not travel in assertions and debug information.
add_compile_options($<$<NOT:$<COMPILE_LANGUAGE:RC>>:-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.>)
