# One folder is one target. Its public include directory is the folder itself, so a file can include only headers of
# folders that its target links: the arrows of the design are kept by the compiler.

find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)

# grub_library(NAME [LINKS targets that its headers need] [USES targets and libraries that only its sources need])
function(grub_library name)
    cmake_parse_arguments(ARG "" "" "LINKS;USES" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    if(sources)
        add_library(${name} STATIC ${sources})
        target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
        target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_USES})
    else()
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE ${CMAKE_CURRENT_SOURCE_DIR})
        target_link_libraries(${name} INTERFACE ${ARG_LINKS})
    endif()
endfunction()

# grub_test(NAME targets...): the sources of the current folder become one GoogleTest program and one ctest test.
function(grub_test name)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    add_executable(${name} ${sources})
    # Tests wait for the code they call, hardly for themselves; optimising them would take as long as compiling them.
    target_compile_options(${name} PRIVATE -Og)
    target_link_libraries(${name} PRIVATE ${ARGN} grub_test_support GTest::gmock GTest::gtest_main)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name} WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    set_tests_properties(${name} PROPERTIES TIMEOUT 300 ENVIRONMENT "${GRUB_TEST_ENVIRONMENT}")
endfunction()

# grub_bench(NAME targets...): one Google Benchmark program of the current folder's sources.
function(grub_bench name)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE ${ARGN} grub_test_support benchmark::benchmark benchmark::benchmark_main)
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
