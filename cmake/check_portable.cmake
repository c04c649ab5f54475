# Usage: cmake -DROOT=<source tree> -P check_portable.cmake
# Fails, naming every offending line, where the product's code uses what only some compilers know,
# outside the one header that is for it. What the language itself forbids, -Wpedantic finds.
cmake_minimum_required(VERSION 3.25)

set(header "src/support/compiler.h")
# Names with two underscores and the compilers' own macros, but for the standard's ones and the
# vector types that all compilers share.
set(standard "__(FILE|LINE|VA_ARGS|VA_OPT|func|has_include|cplusplus|cpp_[a-z0-9_]+|m128i?)(__)?")
set(extensions
  "__[A-Za-z][A-Za-z0-9_]*" "(_MSC_VER|_GLIBCXX[A-Z0-9_]*|_LIBCPP[A-Z0-9_]*|_Pragma|typeof|asm)[ (]"
  "(gnu|clang|msvc)::" "# *pragma +[^o]" "# *(include_next|warning)" "<bits/")

set(offences)
file(GLOB_RECURSE files RELATIVE "${ROOT}"
  "${ROOT}/src/*.h" "${ROOT}/src/*.cpp" "${ROOT}/host/*.h" "${ROOT}/host/*.cpp")
foreach(file IN LISTS files)
  # What is in the runtime folder is written for one compiler.
  if(file STREQUAL header OR file MATCHES "^src/win32/runtime/")
    continue()
  endif()
  file(STRINGS "${ROOT}/${file}" lines
    REGEX "__|_MSC_VER|_GLIBCXX|_LIBCPP|_Pragma|typeof|asm|(gnu|clang|msvc)::|# *pragma|# *include|# *warning")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "//.*" "" code "${line}")
    string(REGEX REPLACE "\"([^\"\\\\]|\\\\.)*\"" "\"\"" code "${code}")
    string(REGEX REPLACE "(^|[^A-Za-z0-9_])${standard}" "\\1" code " ${code}")
    foreach(extension IN LISTS extensions)
      if(code MATCHES "[^A-Za-z0-9_]${extension}")
        string(STRIP "${line}" line)
        string(APPEND offences "  ${file}: ${line}\n")
        break()
      endif()
    endforeach()
  endforeach()
endforeach()
if(offences)
  message(FATAL_ERROR "Only some compilers know this; it belongs into ${header}:\n${offences}")
endif()
list(LENGTH files count)
if(count EQUAL 0)
  message(FATAL_ERROR "No sources found under ${ROOT}: wrong ROOT?")
endif()
message(STATUS "${count} files are plain C++")
