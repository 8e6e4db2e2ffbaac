# The toolchain of this project for Windows: the compilers, and the libraries that dependencies.sh has built.
#   cmake -DCMAKE_TOOLCHAIN_FILE=scripts/windows/project.cmake -DLUMARIN_WINDOWS_BITS=x86 ...    (or x64)
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-${LUMARIN_WINDOWS_BITS}.cmake)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES LUMARIN_WINDOWS_BITS)

if(NOT DEFINED ENV{LUMARIN_WINDOWS_FOLDERS_${LUMARIN_WINDOWS_BITS}})
  execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/dependencies.sh ${LUMARIN_WINDOWS_BITS} --print
                  OUTPUT_VARIABLE folders OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE missing)
  if(missing)
    message(FATAL_ERROR "Libraries are missing; scripts/windows/dependencies.sh ${LUMARIN_WINDOWS_BITS} builds them")
  endif()
  set(ENV{LUMARIN_WINDOWS_FOLDERS_${LUMARIN_WINDOWS_BITS}} "${folders}")
endif()
set(folders $ENV{LUMARIN_WINDOWS_FOLDERS_${LUMARIN_WINDOWS_BITS}})
set(CMAKE_PREFIX_PATH ${folders})
list(APPEND CMAKE_FIND_ROOT_PATH ${folders})

# For targets with headers that put their own path into the program.
list(GET folders 0 first)
get_filename_component(cache ${first} DIRECTORY)
set(LUMARIN_HIDE_PATHS -fmacro-prefix-map=${cache}=.)

# The libraries are static but for Qt and libvips, so what they need in turn is linked too.
list(TRANSFORM folders APPEND /lib/pkgconfig)
list(JOIN folders ":" descriptions)
set(ENV{PKG_CONFIG_LIBDIR} "${descriptions}")
set(PKG_CONFIG_ARGN --static)
# Qt's tools that run on the build machine are Debian's.
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake)
# Programs of this build run in Wine, tests among them.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine.sh ${LUMARIN_WINDOWS_BITS})
