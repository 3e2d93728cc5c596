# Language level, warnings and sanitizers: the same for every target of the project.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

set(GRUB_SANITIZE "" CACHE STRING "Sanitizers of this build, as -fsanitize= takes them (address,undefined or thread)")
option(GRUB_FUZZ "Build the fuzzers (needs clang)" OFF)
option(GRUB_BENCH "Build the benchmarks" ON)

find_program(GRUB_CCACHE ccache)
if(GRUB_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${GRUB_CCACHE})
endif()

# -ffp-contract=off: the pictures are rendered with floating point and must come out the same on every processor.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror -ffp-contract=off)
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
    if(GRUB_SANITIZE MATCHES "undefined")
        add_compile_options(-fno-sanitize-recover=undefined)
    endif()
endif()

# A fuzzer finds its way by the branches that the code under test takes, so all code tells them.
if(GRUB_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
