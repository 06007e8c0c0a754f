# Compiles one source without making an object and holds what the compiler says against its first line:
#   // compiles                     it must compile
#   // does not compile: TEXT       it must not, and the compiler must say TEXT
# usage: cmake -DCOMPILER=... -DFLAGS=a|b|c -DSOURCE=FILE -P Check.cmake

file(STRINGS ${SOURCE} first LIMIT_COUNT 1)
string(REPLACE "|" ";" flags "${FLAGS}")
execute_process(
  COMMAND ${COMPILER} ${flags} -fsyntax-only ${SOURCE}
  RESULT_VARIABLE result
  ERROR_VARIABLE said)

if(first STREQUAL "// compiles")
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "It does not compile:\n${said}")
  endif()
elseif(first MATCHES "^// does not compile: (.+)$")
  string(FIND "${said}" "${CMAKE_MATCH_1}" place)
  if(result EQUAL 0)
    message(FATAL_ERROR "It compiles.")
  elseif(place EQUAL -1)
    message(FATAL_ERROR "The compiler does not say \"${CMAKE_MATCH_1}\", but:\n${said}")
  endif()
else()
  message(FATAL_ERROR "The first line says neither \"compiles\" nor \"does not compile\": ${first}")
endif()
