# cmake -D CACHED=FILE -D OBJECT=FILE -P CompileCached.cmake -- COMPILER ARGUMENT...
# Puts the object that the compiler makes at OBJECT; from CACHED when it is there and whole, else compiled and kept
# there. The name of CACHED says what it is made of. Beside it lies its hash, so that a broken one is found out.

set(command "")
set(seen FALSE)
math(EXPR last "${CMAKE_ARGC} - 1")
foreach(i RANGE ${last})
  if(seen)
    list(APPEND command "${CMAKE_ARGV${i}}")
  elseif(CMAKE_ARGV${i} STREQUAL "--")
    set(seen TRUE)
  endif()
endforeach()

set(whole FALSE)
if(EXISTS "${CACHED}" AND EXISTS "${CACHED}.sha256")
  file(READ "${CACHED}.sha256" said)
  file(SHA256 "${CACHED}" found)
  if(said STREQUAL found)
    set(whole TRUE)
  endif()
endif()

if(NOT whole)
  # Others may be doing the same at the same time: every part has a name of its own, and appears by a rename.
  string(RANDOM LENGTH 12 part)
  set(part "${CACHED}.${part}")
  execute_process(COMMAND ${command} -o "${part}" RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    file(REMOVE "${part}")
    message(FATAL_ERROR "The compiler failed: ${status}")
  endif()
  file(SHA256 "${part}" hash)
  file(WRITE "${part}.sha256" "${hash}")
  file(RENAME "${part}" "${CACHED}")
  file(RENAME "${part}.sha256" "${CACHED}.sha256")
endif()

file(COPY_FILE "${CACHED}" "${OBJECT}")
