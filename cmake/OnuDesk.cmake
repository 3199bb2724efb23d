# SPDX-License-Identifier: MIT
include(GoogleTest)

add_library(onudesk_options INTERFACE)
target_compile_options(onudesk_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<BOOL:${ONUDESK_WERROR}>:-Werror> -fstack-protector-strong
    # GCC 12 reports a copy inside its own std::string operator+ (GCC bug 105651).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_compile_definitions(onudesk_options INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII
    $<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)
target_include_directories(onudesk_options INTERFACE ${PROJECT_SOURCE_DIR}/include
    ${PROJECT_SOURCE_DIR}/src)
if(ONUDESK_SANITIZE STREQUAL "address")
    target_compile_options(onudesk_options INTERFACE -fsanitize=address,undefined
        -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(onudesk_options INTERFACE -fsanitize=address,undefined)
elseif(ONUDESK_SANITIZE STREQUAL "thread")
    target_compile_options(onudesk_options INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
    target_link_options(onudesk_options INTERFACE -fsanitize=thread)
endif()
if(ONUDESK_SANITIZE)
    # Checks of the libraries in what they have inline: positions in containers and texts.
    target_compile_definitions(onudesk_options INTERFACE _GLIBCXX_ASSERTIONS QT_FORCE_ASSERTS)
    # GCC 12 sees uninitialised variables, and frees of objects that it passed by itself, in what
    # the sanitizers add.
    target_compile_options(onudesk_options INTERFACE
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized;-Wno-free-nonheap-object>)
endif()

# onudesk_library(NAME KIND SOURCES... LIBS... [PCH headers...] [MOC])
# KIND is STATIC, SHARED, MODULE or PROGRAM; sources are always listed one by one.
function(onudesk_library name kind)
    cmake_parse_arguments(ARG "MOC" "" "SOURCES;LIBS;PCH" ${ARGN})
    if(kind STREQUAL "PROGRAM")
        add_executable(${name} ${ARG_SOURCES})
    else()
        add_library(${name} ${kind} ${ARG_SOURCES})
    endif()
    target_link_libraries(${name} PUBLIC onudesk_options ${ARG_LIBS})
    if(ARG_PCH)
        target_precompile_headers(${name} PRIVATE ${ARG_PCH})
    endif()
    set_target_properties(${name} PROPERTIES AUTOMOC ${ARG_MOC})
endfunction()

# Tests are compiled fast: what they test is optimised, they themselves are not.
set(ONUDESK_TEST_OPTIONS -O0 -U_FORTIFY_SOURCE)

# onudesk_test(NAME [LABELS...] SOURCES... LIBS... [PCH headers...] [MOC]): one GoogleTest program,
# run headless.
function(onudesk_test name)
    cmake_parse_arguments(ARG "MOC" "" "SOURCES;LIBS;LABELS;PCH" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE onudesk_options ${ARG_LIBS} GTest::gtest)
    target_compile_options(${name} PRIVATE ${ONUDESK_TEST_OPTIONS})
    if(ARG_PCH)
        target_precompile_headers(${name} PRIVATE ${ARG_PCH})
    endif()
    set_target_properties(${name} PROPERTIES AUTOMOC ${ARG_MOC}
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
    target_compile_definitions(${name} PRIVATE
        ONUDESK_SOURCE_DIR="${PROJECT_SOURCE_DIR}" ONUDESK_BUILD_CLIENT_DIR="${ONUDESK_CLIENT_DIR}")
    if(NOT ARG_LABELS)
        set(ARG_LABELS unit)
    endif()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT $<IF:$<STREQUAL:${ONUDESK_SANITIZE},>,120,600> LABELS "${ARG_LABELS}"
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
