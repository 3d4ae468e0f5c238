# Compiler settings shared by every target of the project, set once here.

find_program(CCACHE ccache)
if(CCACHE)
    # Relative paths, so that every clone and build folder shares what another has compiled; the sloppiness is what
    # precompiled headers ask for.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_NOHASHDIR=1 CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}
        CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()

option(VELA_SANITIZE "AddressSanitizer, UndefinedBehaviorSanitizer and libFuzzer targets (needs clang)" OFF)

# Link to this in every target of ours: warnings are errors.
add_library(vela_options INTERFACE)
target_compile_options(vela_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees overlapping copies in "text" + std::string at -O3, where there are none (its bug 105651).
    target_compile_options(vela_options INTERFACE -Wno-restrict)
    if(VELA_BENCH) # built at -O3: it sees copies beyond short texts as well
        target_compile_options(vela_options INTERFACE -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
    endif()
endif()

# What precompiled headers were made from is compared by contents: a time would make each of them new to ccache.
if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
    add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
endif()

# One build serves the sanitized tests and the fuzz targets.
if(VELA_SANITIZE)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
