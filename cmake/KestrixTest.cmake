# GoogleTest from Debian's sources, and the one way to declare a test program.

set(gtest_force_shared_crt ON CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
if(NOT EXISTS /usr/src/googletest/CMakeLists.txt)
  message(FATAL_ERROR "GoogleTest's sources are missing. Install them: apt-get install googletest")
endif()
add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)

# A test's own code and the test framework gain nothing from the optimiser, and compile in three fifths of the time
# without it.
set(KESTRIX_TEST_OPTIONS $<$<COMPILE_LANGUAGE:CXX>:-O0>)
target_compile_options(gtest PRIVATE ${KESTRIX_TEST_OPTIONS})

# What nearly every test includes, compiled once: the test framework, the Windows API and the usual standard headers.
if(KESTRIX_PRECOMPILED_HEADERS)
  add_library(kestrix_test_headers OBJECT ${PROJECT_SOURCE_DIR}/tests/support/CommonHeaders.cpp)
  target_compile_options(kestrix_test_headers PRIVATE ${KESTRIX_TEST_OPTIONS})
  target_link_libraries(kestrix_test_headers PRIVATE kestrix_options gtest)
  target_precompile_headers(kestrix_test_headers PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/CommonHeaders.h)
endif()

# The sources of a target of the tests are compiled eight at a time, each eight as one: what they all include and
# instantiate costs as much as they do. A source is whole by itself all the same; switched off, the build finds what is
# missing.
option(KESTRIX_UNITY_TESTS "Compile the sources of the tests in groups" ON)
function(kestrix_compile_in_groups target)
  if(KESTRIX_UNITY_TESTS)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
    # A fixture in the unnamed namespace of a source is no mistake because another source includes it.
    target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Wno-subobject-linkage>)
  endif()
endfunction()

# kestrix_compile_as_test(TARGET): a target that is a test's own code.
function(kestrix_compile_as_test target)
  target_compile_options(${target} PRIVATE ${KESTRIX_TEST_OPTIONS})
  kestrix_compile_in_groups(${target})
  if(TARGET kestrix_test_headers)
    target_precompile_headers(${target} REUSE_FROM kestrix_test_headers)
  endif()
endfunction()

# The thousands of small sections of code that is not optimised take the compiler's own linker ten seconds.
find_program(KESTRIX_LLD ld.lld)
if(NOT KESTRIX_LLD)
  message(FATAL_ERROR "The linker of the test programs is missing. Install it: apt-get install lld")
endif()

# lld leaves out what tells how to unwind a function of the C++ library, as its objects come without the names of those
# sections, and an exception that passes such a function ends the program. As plain sections they stay.
set(lld_libraries ${PROJECT_BINARY_DIR}/lld)
file(MAKE_DIRECTORY ${lld_libraries})
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libstdc++.a
  OUTPUT_VARIABLE library OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_OBJCOPY} --wildcard --set-section-flags .pdata$*=alloc,load,readonly,data
  ${library} ${lld_libraries}/libstdc++.a COMMAND_ERROR_IS_FATAL ANY)

# kestrix_link_as_test(TARGET): a program of the tests.
function(kestrix_link_as_test target)
  target_link_options(${target} PRIVATE -municode -wrapper ${PROJECT_SOURCE_DIR}/cmake/lld -L${lld_libraries})
  set_target_properties(${target} PROPERTIES LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/lld)
endfunction()

# kestrix_begin_early(TEST...): tests that take long begin before the others, so that nobody waits for them in the end.
function(kestrix_begin_early)
  set_tests_properties(${ARGN} PROPERTIES COST 100)
endfunction()

# kestrix_needs_desktop(TEST...): tests that get a desktop for themselves, since it has one foreground window, one pointer
# and one window that a second viewer looks for. ./test opens some; without it such tests are to run one by one.
function(kestrix_needs_desktop)
  set_tests_properties(${ARGN} PROPERTIES RESOURCE_GROUPS desktops:1)
  kestrix_begin_early(${ARGN})
endfunction()

# All programs of the unit tests, with what they need to run.
add_custom_target(unit_tests)

# kestrix_test(NAME SOURCES... LINKS... [SECONDS n] [ARGUMENTS...])
# A console program with all GoogleTest cases of its sources, run as one ctest entry under Wine.
# It gets the program's manifest, so that the common controls are those of the product, and runs in the folder of the
# built program, where the language file lies at resource/en-US.
function(kestrix_test name)
  cmake_parse_arguments(arg "" "SECONDS" "SOURCES;LINKS;ARGUMENTS" ${ARGN})
  if(NOT arg_SECONDS)
    set(arg_SECONDS 300)
  endif()
  add_executable(${name} ${arg_SOURCES} ${PROJECT_SOURCE_DIR}/resource/Manifest.rc)
  kestrix_compile_as_test(${name})
  kestrix_link_as_test(${name})
  set_target_properties(${name} PROPERTIES CROSSCOMPILING_EMULATOR ${PROJECT_SOURCE_DIR}/tests/support/run-test)
  target_link_libraries(${name} PRIVATE kestrix_live_handles kestrix_test_support ${arg_LINKS})
  add_test(NAME ${name} COMMAND ${name} ${arg_ARGUMENTS} WORKING_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
  set_tests_properties(${name} PROPERTIES TIMEOUT ${arg_SECONDS})
  if(name MATCHES "^ui_")
    kestrix_needs_desktop(${name})
  elseif(name MATCHES "^unit_")
    add_dependencies(unit_tests ${name})
  endif()
endfunction()
