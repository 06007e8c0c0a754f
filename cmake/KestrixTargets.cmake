# How every library and program of the project is compiled, stated once.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

# For everything that is built, GoogleTest included: it changes the layout of the library's containers.
add_compile_definitions($<$<AND:$<CONFIG:Debug>,$<COMPILE_LANGUAGE:CXX>>:_GLIBCXX_DEBUG>)

add_library(kestrix_options INTERFACE)
target_include_directories(kestrix_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(kestrix_options INTERFACE
  UNICODE _UNICODE STRICT NOMINMAX WIN32_LEAN_AND_MEAN
  _WIN32_WINNT=0x0601 NTDDI_VERSION=0x06010000 _WIN32_IE=0x0700)
target_compile_options(kestrix_options INTERFACE
  -Wall -Wextra -Werror
  # A source name in a trace line is the path inside the repository, on every machine.
  -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=
  # The system hands out identifiers of interfaces at odd addresses.
  $<$<CONFIG:Debug>:-fsanitize=undefined;-fno-sanitize=alignment;-fsanitize-undefined-trap-on-error>)
target_link_options(kestrix_options INTERFACE
  -static
  # The addresses of code and data differ from start to start, and no data is executed.
  -Wl,--dynamicbase,--nxcompat,--high-entropy-va
  # The same sources make the same file, whenever it is linked.
  -Wl,--no-insert-timestamp
  # Sections that begin with a page of the file can be mapped; with the usual 512 bytes Wine reads them all at the start.
  -Wl,--file-alignment,4096)

# The headers of Windows and of the standard library that nearly every source includes, compiled once: they took two
# thirds of a source's time. A source includes what it uses all the same; switched off, the build finds what is missing.
option(KESTRIX_PRECOMPILED_HEADERS "Compile common headers once" ON)
if(KESTRIX_PRECOMPILED_HEADERS)
  add_library(kestrix_headers OBJECT ${PROJECT_SOURCE_DIR}/cmake/CommonHeaders.cpp)
  target_link_libraries(kestrix_headers PRIVATE kestrix_options)
  target_precompile_headers(kestrix_headers PRIVATE ${PROJECT_SOURCE_DIR}/cmake/CommonHeaders.h)
endif()

# kestrix_use_common_headers(TARGET): for a target that is compiled as the product is.
function(kestrix_use_common_headers target)
  if(TARGET kestrix_headers)
    target_precompile_headers(${target} REUSE_FROM kestrix_headers)
  endif()
endfunction()

# kestrix_library(NAME SOURCES... LINKS...): a static library of the product.
function(kestrix_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC kestrix_options ${arg_LINKS})
  kestrix_use_common_headers(${name})
endfunction()

# kestrix_version(TARGET DESCRIPTION): the program or library of the product tells its version, and what it is.
function(kestrix_version target description)
  get_target_property(type ${target} TYPE)
  if(type STREQUAL EXECUTABLE)
    set(file ${target}.exe)
    set(file_type VFT_APP)
  else()
    set(file ${target}.dll)
    set(file_type VFT_DLL)
  endif()
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${target}Version.rc)
  configure_file(${PROJECT_SOURCE_DIR}/resource/Version.rc.in ${source} @ONLY)
  target_sources(${target} PRIVATE ${source})
endfunction()

# kestrix_resource_file(NAME SOURCE rc FILE path): target NAME makes the file from one resource source, as language
# files are made: no code, no entry point, nothing linked.
function(kestrix_resource_file name)
  cmake_parse_arguments(arg "" "SOURCE;FILE" "" ${ARGN})
  cmake_path(GET arg_FILE PARENT_PATH folder)
  cmake_path(GET arg_FILE STEM output)
  cmake_path(GET arg_FILE EXTENSION suffix)
  add_library(${name} MODULE ${arg_SOURCE})
  target_link_options(${name} PRIVATE -nostdlib -Wl,--entry=0 -Wl,--no-insert-timestamp)
  set_target_properties(${name} PROPERTIES
    LINKER_LANGUAGE C
    PREFIX "" OUTPUT_NAME ${output} SUFFIX "${suffix}"
    LIBRARY_OUTPUT_DIRECTORY ${folder})
endfunction()

# kestrix_delayed_library(LIBRARY FUNCTION...): target LIBRARY_delayed has these functions of a system library, which is
# loaded at the first call of one of them, from the system's folder. For libraries that a start does not need; link it
# before the system's own.
function(kestrix_delayed_library library)
  set(definitions ${CMAKE_CURRENT_BINARY_DIR}/${library}.def)
  set(archive ${CMAKE_CURRENT_BINARY_DIR}/lib${library}_delayed.a)
  list(JOIN ARGN "\n" functions)
  file(CONFIGURE OUTPUT ${definitions} CONTENT "LIBRARY ${library}.dll\nEXPORTS\n${functions}\n")
  add_custom_command(OUTPUT ${archive}
    # By its bare name, since the names of symbols in it are made of the name that is given here.
    COMMAND ${CMAKE_DLLTOOL} --input-def ${definitions} --output-delaylib lib${library}_delayed.a
    DEPENDS ${definitions} WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR} VERBATIM)
  add_custom_target(${library}_delayed_archive DEPENDS ${archive})
  add_library(${library}_delayed INTERFACE)
  target_link_libraries(${library}_delayed INTERFACE ${archive} delayimp)
  # Nothing else would make the linker take ours (platform/dialog/SystemLibrary.cpp) and not an empty one.
  target_link_options(${library}_delayed INTERFACE -Wl,--undefined=__pfnDliNotifyHook2)
  add_dependencies(${library}_delayed ${library}_delayed_archive)
endfunction()
