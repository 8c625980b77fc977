# One function a kind of target, so that warnings, sanitizers and include paths are said once.

# Warnings are errors in both builds.
add_library(qv_warnings INTERFACE)
target_compile_options(qv_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
# What every target of ours is compiled with.
add_library(qv_options INTERFACE)
target_include_directories(qv_options INTERFACE $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}>
                                                $<INSTALL_INTERFACE:include/qvsettingsdialog>)
target_link_libraries(qv_options INTERFACE $<BUILD_INTERFACE:qv_warnings>)
if(QV_SANITIZE)
    target_compile_options(qv_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                -fno-omit-frame-pointer)
    target_link_options(qv_options INTERFACE -fsanitize=address,undefined)
endif()

# qv_library(NAME TYPE [SOURCES ...] [LINK ...]): a layer. TYPE is SHARED where its objects cross between modules
# (handle maps and module state must exist once in a process), STATIC elsewhere.
function(qv_library name type)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} ${type} ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC qv_options ${ARG_LINK})
    set_target_properties(${name} PROPERTIES PREFIX "")
endfunction()

# qv_test(NAME [SOURCES ...] [LINK ...]): the tests of one layer. Natively every case is a process of its own, so that
# one crash costs one case; under Wine, where a process costs half a second, the executable runs as a whole.
function(qv_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE qv_options ${ARG_LINK} GTest::gtest GTest::gtest_main)
    # Tests are compiled more often than they run long: optimising their checks costs more than it gives.
    target_compile_options(${name} PRIVATE -O0)
    # What every test includes is half of what compiling it costs.
    if(NOT WIN32)
        target_precompile_headers(${name} PRIVATE <gtest/gtest.h>)
    endif()
    if(WIN32)
        add_test(NAME ${name} COMMAND ${name})
        set_tests_properties(${name} PROPERTIES TIMEOUT 600)
    else()
        gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 120)
    endif()
endfunction()
