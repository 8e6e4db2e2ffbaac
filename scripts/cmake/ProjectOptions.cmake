# Warnings, sanitizers and the compiler cache for every target of the project.
find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  # Paths count relative to the sources, so that every checkout on a machine shares one cache.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${CCACHE_PROGRAM})
endif()

# Takes the options that the compiler knows.
include(CheckCXXCompilerFlag)
function(lumarin_compile_options)
  foreach(flag ${ARGN})
    string(MAKE_C_IDENTIFIER "LUMARIN_HAS${flag}" known)
    check_cxx_compiler_flag(${flag} ${known})
    if(${known})
      add_compile_options(${flag})
    endif()
  endforeach()
endfunction()
lumarin_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wconversion
                        -Wno-sign-conversion)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  lumarin_compile_options(-Wno-restrict)  # wrong about std::string concatenation in this compiler's library
endif()
if(LUMARIN_WARNINGS_AS_ERRORS)
  lumarin_compile_options(-Werror)
endif()

option(LUMARIN_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
if(LUMARIN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
  add_link_options(-fsanitize=address,undefined)
endif()
