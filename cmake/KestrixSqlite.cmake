# The SQLite library, for the suite's database: kestrix_sqlite() makes the target sqlite3 of the amalgamation.
#
# The source is that of a pinned package, of which nothing is run and nothing else is used. It is fetched once and kept
# with the compiled object, which takes 20 s to make, in a cache outside the build folder. Whatever comes out of the
# cache is checked by its hash and made anew when it is not whole.

set(KESTRIX_SQLITE_PACKAGE better-sqlite3)
set(KESTRIX_SQLITE_PACKAGE_VERSION 13.2.0)
set(KESTRIX_SQLITE_PACKAGE_SHA256 40487589df3496f2ee0079d22b73c63fccebe7db0e8ee9a2c42421861e321e0b)
set(KESTRIX_SQLITE_SOURCE_SHA256 75a4760a7b9727a4c4c877aec92eacf39e52a8f2921ce00bd33be6d3a8e8e254)
set(KESTRIX_SQLITE_HEADER_SHA256 d6c84557261893439b341d2e6c35187ae3ea24fbfd843ad94616f72d89242b8c)

# The compiler's own checks are off: the source is not ours to change.
set(KESTRIX_SQLITE_FLAGS
  -w -O2 -std=gnu11
  -DSQLITE_THREADSAFE=1            # the library may be used by any thread, each connection by one at a time
  -DSQLITE_DEFAULT_WAL_SYNCHRONOUS=1
  -DSQLITE_DEFAULT_MEMSTATUS=0
  -DSQLITE_DQS=0                   # a name in double quotes is never taken for a text
  -DSQLITE_OMIT_DEPRECATED
  -DSQLITE_OMIT_LOAD_EXTENSION     # no code comes in through a statement
  -DSQLITE_OMIT_SHARED_CACHE
  -DSQLITE_MAX_EXPR_DEPTH=0
  -DSQLITE_TEMP_STORE=2            # what a statement sorts stays in memory
  -DSQLITE_USE_ALLOCA)

# The folder whose files survive the build folder, in `result`.
function(kestrix_cache_folder result)
  if(NOT "$ENV{XDG_CACHE_HOME}" STREQUAL "")
    set(${result} "$ENV{XDG_CACHE_HOME}/kestrix" PARENT_SCOPE)
  else()
    set(${result} "$ENV{HOME}/.cache/kestrix" PARENT_SCOPE)
  endif()
endfunction()

# True in `result` when the file is there and has the hash.
function(kestrix_has_hash path sha256 result)
  set(${result} FALSE PARENT_SCOPE)
  if(EXISTS "${path}")
    file(SHA256 "${path}" found)
    if(found STREQUAL sha256)
      set(${result} TRUE PARENT_SCOPE)
    endif()
  endif()
endfunction()

# Brings the package to the path in the cache. A half-written file never has the final name.
function(kestrix_fetch_sqlite_package path)
  find_program(KESTRIX_NPM npm)
  set(name ${KESTRIX_SQLITE_PACKAGE}@${KESTRIX_SQLITE_PACKAGE_VERSION})
  if(NOT KESTRIX_NPM)
    message(FATAL_ERROR "npm is missing, with which ${name} is fetched. Install it: apt-get install npm")
  endif()
  message(STATUS "Fetching ${name}")
  string(RANDOM LENGTH 12 part)
  cmake_path(GET path PARENT_PATH folder)
  cmake_path(GET path FILENAME file)
  set(part "${folder}/part-${part}")
  file(MAKE_DIRECTORY "${part}")
  execute_process(
    COMMAND ${KESTRIX_NPM} pack --ignore-scripts --loglevel=error ${name} # quiet, but for the reason of a failure
    WORKING_DIRECTORY "${part}" RESULT_VARIABLE status OUTPUT_QUIET ERROR_VARIABLE errors)
  kestrix_has_hash("${part}/${file}" ${KESTRIX_SQLITE_PACKAGE_SHA256} whole)
  if(whole)
    file(RENAME "${part}/${file}" "${path}")
  endif()
  set(fetched FALSE)
  if(EXISTS "${part}/${file}")
    set(fetched TRUE)
  endif()
  file(REMOVE_RECURSE "${part}")
  if(whole)
    return()
  endif()
  if(fetched)
    message(FATAL_ERROR "${name} is not the package that was pinned: its SHA-256 differs. Nothing of it was used. "
      "Try again; if it stays so, somebody has changed the package.")
  endif()
  string(REPLACE "\n" "\n  " errors "\n${errors}") # what is indented is printed as it stands
  message(FATAL_ERROR "${name} could not be fetched (npm ended with ${status}) and is not in ${folder}. Check the "
    "network and npm's settings, or put the file ${file} there.${errors}")
endfunction()

# Makes the target sqlite3: a static library with its include folder.
function(kestrix_sqlite)
  kestrix_cache_folder(cache)
  file(MAKE_DIRECTORY "${cache}")
  set(package "${cache}/${KESTRIX_SQLITE_PACKAGE}-${KESTRIX_SQLITE_PACKAGE_VERSION}.tgz")
  set(folder "${PROJECT_BINARY_DIR}/sqlite")
  set(source "${folder}/package/deps/sqlite3/sqlite3.c")
  set(header "${folder}/package/deps/sqlite3/sqlite3.h")

  kestrix_has_hash("${source}" ${KESTRIX_SQLITE_SOURCE_SHA256} has_source)
  kestrix_has_hash("${header}" ${KESTRIX_SQLITE_HEADER_SHA256} has_header)
  if(NOT has_source OR NOT has_header)
    kestrix_has_hash("${package}" ${KESTRIX_SQLITE_PACKAGE_SHA256} has_package)
    if(NOT has_package)
      kestrix_fetch_sqlite_package("${package}")
    endif()
    file(ARCHIVE_EXTRACT INPUT "${package}" DESTINATION "${folder}" PATTERNS */deps/sqlite3/sqlite3.[ch])
    kestrix_has_hash("${source}" ${KESTRIX_SQLITE_SOURCE_SHA256} has_source)
    kestrix_has_hash("${header}" ${KESTRIX_SQLITE_HEADER_SHA256} has_header)
    if(NOT has_source OR NOT has_header)
      message(FATAL_ERROR "The SQLite source in ${package} is not the pinned one. Nothing of it was used.")
    endif()
  endif()

  # The object in the cache is that of this source, these flags and this compiler.
  execute_process(COMMAND ${CMAKE_C_COMPILER} -v ERROR_VARIABLE compiler OUTPUT_QUIET)
  string(SHA256 key "${KESTRIX_SQLITE_SOURCE_SHA256} ${KESTRIX_SQLITE_FLAGS} ${compiler}")
  set(object "${folder}/sqlite3.obj")
  set(script "${PROJECT_SOURCE_DIR}/cmake/CompileCached.cmake")
  add_custom_command(
    OUTPUT "${object}"
    COMMAND ${CMAKE_COMMAND} -D "CACHED=${cache}/sqlite3-${key}.obj" -D "OBJECT=${object}"
      -P "${script}" -- ${CMAKE_C_COMPILER} ${KESTRIX_SQLITE_FLAGS} -c "${source}"
    DEPENDS "${source}" "${script}"
    COMMENT "SQLite, from the cache or compiled in 20 s"
    VERBATIM)
  add_library(sqlite3 STATIC "${object}")
  set_source_files_properties("${object}" PROPERTIES EXTERNAL_OBJECT TRUE GENERATED TRUE)
  set_target_properties(sqlite3 PROPERTIES LINKER_LANGUAGE C)
  target_include_directories(sqlite3 SYSTEM INTERFACE "${folder}/package/deps/sqlite3")
endfunction()
