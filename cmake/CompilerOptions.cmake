# Language level, warnings and sanitizers: the same for every target of the project.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# -O2 compiles sooner than -O3.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

set(GRUB_SANITIZE "" CACHE STRING "Sanitizers of this build, as -fsanitize= takes them (address,undefined or thread)")
option(GRUB_FUZZ "Build the fuzzers (needs clang)" OFF)
option(GRUB_BENCH "Build the benchmarks" OFF)
option(GRUB_PCH "Precompile the standard library's and GoogleTest's headers" ON)

find_program(GRUB_CCACHE ccache)
if(GRUB_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${GRUB_CCACHE})
endif()
# A tenth of a second for a program in place of one; the usual linker serves where mold is not installed.
find_program(GRUB_MOLD mold)
if(GRUB_MOLD)
    add_link_options(-fuse-ld=mold)
endif()

# -ffp-contract=off: the pictures are rendered with floating point and must come out the same on every processor.
# -pthread: threads are in every program, and a precompiled header serves only sources with the same flags.
add_compile_options(-pthread -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # g++ 12 sees overlapping copies in every "literal" + std::string of an optimised build.
    add_compile_options(-Wno-restrict)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # -Wconversion of g++ leaves signs alone; both compilers are to ask for the same.
    add_compile_options(-Wno-unused-private-field -Wno-sign-conversion)
endif()

if(GRUB_SANITIZE)
    add_compile_options(-fsanitize=${GRUB_SANITIZE} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${GRUB_SANITIZE})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # What sanitizers add lets g++ 12 see accesses out of bounds in strings of the standard library.
        add_compile_options(-Wno-array-bounds -Wno-stringop-overflow)
    endif()
    if(GRUB_SANITIZE MATCHES "undefined")
        add_compile_options(-fno-sanitize-recover=undefined)
    endif()
endif()

# A fuzzer finds its way by the branches that the code under test takes, so all code tells them.
if(GRUB_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
