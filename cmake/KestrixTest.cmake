# GoogleTest from Debian's sources, and the one way to declare a test program.

set(gtest_force_shared_crt ON CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
if(NOT EXISTS /usr/src/googletest/CMakeLists.txt)
  message(FATAL_ERROR "GoogleTest's sources are missing. Install them: apt-get install googletest")
endif()
add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)

# kestrix_test(NAME SOURCES... LINKS... [SECONDS n] [ARGUMENTS...])
# A console program with all GoogleTest cases of its sources, run as one ctest entry under Wine.
# It gets the program's manifest, so that the common controls are those of the product, and runs in the folder of the
# built program, where the language file lies at resource/en-US.
function(kestrix_test name)
  cmake_parse_arguments(arg "" "SECONDS" "SOURCES;LINKS;ARGUMENTS" ${ARGN})
  if(NOT arg_SECONDS)
    set(arg_SECONDS 120)
  endif()
  add_executable(${name} ${arg_SOURCES} ${PROJECT_SOURCE_DIR}/resource/Manifest.rc)
  # A test's own code gains nothing from the optimiser, and compiles in three fifths of the time without it.
  target_compile_options(${name} PRIVATE $<$<AND:$<CONFIG:Release>,$<COMPILE_LANGUAGE:CXX>>:-O0>)
  target_link_options(${name} PRIVATE -municode)
  target_link_libraries(${name} PRIVATE kestrix_test_support ${arg_LINKS})
  add_test(NAME ${name} COMMAND ${name} ${arg_ARGUMENTS} WORKING_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
  set_tests_properties(${name} PROPERTIES TIMEOUT ${arg_SECONDS})
  if(name MATCHES "^ui_")
    # There is one foreground window, one pointer, and one window that a second viewer looks for.
    set_tests_properties(${name} PROPERTIES RESOURCE_LOCK desktop)
  endif()
endfunction()
