# One folder is one target. Its public include directory is the folder itself, so a file can include only headers of
# folders that its target links: the arrows of the design are kept by the compiler.

find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)

# grub_headers(NAME HEADERS...): a target that only precompiles; HEADERS are what most sources include anyway. Sources still name
# what they need: the clang builds, clang-tidy and scripts/check_headers.py compile without precompiled headers.
function(grub_headers name)
    file(WRITE ${CMAKE_BINARY_DIR}/${name}.cpp "")
    add_library(${name} OBJECT EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/${name}.cpp)
    target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()

# grub_precompiled(TARGET NAME): the sources of TARGET are compiled with the headers that grub_headers(NAME ...) precompiles.
function(grub_precompiled target name)
    if(GRUB_PCH)
        target_precompile_headers(${target} REUSE_FROM ${name})
    endif()
endfunction()

set(GRUB_STANDARD_HEADERS
    <algorithm> <array> <cmath> <cstddef> <cstdint> <cstdio> <cstring> <functional> <memory> <optional> <ranges> <span> <string>
    <string_view> <utility> <vector>)
if(GRUB_PCH)
    grub_headers(grub_standard_headers ${GRUB_STANDARD_HEADERS})
endif()

# grub_library(NAME [LINKS targets that its headers need] [USES targets and libraries that only its sources need])
function(grub_library name)
    cmake_parse_arguments(ARG "" "" "LINKS;USES" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    if(sources)
        add_library(${name} STATIC ${sources})
        target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
        target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_USES})
        grub_precompiled(${name} grub_standard_headers)
    else()
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE ${CMAKE_CURRENT_SOURCE_DIR})
        target_link_libraries(${name} INTERFACE ${ARG_LINKS})
    endif()
endfunction()

# grub_always_optimised(TARGET): for what draws and renders; without optimisation a debug build would take minutes for it.
function(grub_always_optimised target)
    if(CMAKE_BUILD_TYPE STREQUAL "Debug")
        target_compile_options(${target} PRIVATE -O2)
        # The precompiled headers of a debug build are not optimised; g++ does not mix the two.
        set_target_properties(${target} PROPERTIES DISABLE_PRECOMPILE_HEADERS ON)
    endif()
endfunction()

# grub_test(NAME targets...): the sources of the current folder become one GoogleTest program and one ctest test.
function(grub_test name)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    add_executable(${name} ${sources})
    # Tests wait for the code they call, hardly for themselves; optimising them would take as long as compiling them.
    target_compile_options(${name} PRIVATE -Og)
    target_link_libraries(${name} PRIVATE ${ARGN} grub_test_support GTest::gmock GTest::gtest_main)
    grub_precompiled(${name} grub_test_headers)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name} WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    set_tests_properties(${name} PROPERTIES TIMEOUT 300 ENVIRONMENT "${GRUB_TEST_ENVIRONMENT}")
endfunction()

# grub_bench(NAME targets...): one Google Benchmark program of the current folder's sources.
function(grub_bench name)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    add_executable(${name} ${sources})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/bench/support)
    target_link_libraries(${name} PRIVATE ${ARGN} grub_test_support benchmark::benchmark benchmark::benchmark_main)
    grub_precompiled(${name} grub_standard_headers)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bench)
endfunction()

# grub_fuzz(NAME SOURCE targets...): one libFuzzer program.
function(grub_fuzz name source)
    add_executable(${name} ${source})
    target_link_libraries(${name} PRIVATE ${ARGN})
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/fuzz)
endfunction()

# Programs under test run without a display, a sound card or a session bus.
set(GRUB_TEST_ENVIRONMENT
    "SDL_VIDEODRIVER=dummy;SDL_AUDIODRIVER=dummy;DBUS_SESSION_BUS_ADDRESS=disabled:;SDL_FRAMEBUFFER_ACCELERATION=0")
