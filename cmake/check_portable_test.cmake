# Usage: cmake -DSCRATCH=<folder> -P check_portable_test.cmake
# Runs check_portable.cmake over one line at a time, so that the check cannot go blind.
cmake_minimum_required(VERSION 3.25)

set(check "${CMAKE_CURRENT_LIST_DIR}/check_portable.cmake")

# expect(<good|bad> <line>... ): each line in a file of its own.
function(expect verdict)
  foreach(line IN LISTS ARGN)
    file(REMOVE_RECURSE "${SCRATCH}")
    file(WRITE "${SCRATCH}/src/ui/a.h" "#pragma once\n${line}\n")
    execute_process(COMMAND "${CMAKE_COMMAND}" "-DROOT=${SCRATCH}" -P "${check}"
      RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(verdict STREQUAL "good" AND NOT result EQUAL 0)
      message(SEND_ERROR "${line} was refused:\n${output}")
    elseif(verdict STREQUAL "bad" AND (result EQUAL 0 OR NOT output MATCHES "Only some"))
      message(SEND_ERROR "${line} was not noticed:\n${output}")
    endif()
  endforeach()
endfunction()

expect(good "int a(int b, int c)" "#ifdef __has_include" "f(__FILE__, __LINE__)" "__m128i v"
  "// __attribute__ in a comment" "const char* t = \"__builtin\"" "[[nodiscard]] int asm_count()"
  "#include <bit>" "#ifdef _WIN32" "#if __cpp_lib_format")
expect(bad "void f() __attribute__((noinline))" "return __builtin_popcount(n)" "[[gnu::noinline]] void f()"
  "__extension__ typedef int a" "typeof (a) b" "asm (\"nop\")" "__int64 a" "__declspec(dllexport) int a"
  "__int128 a" "#pragma GCC diagnostic ignored" "#if defined(__GNUC__)" "#ifdef _MSC_VER "
  "__uuidof(IUnknown)" "#include <bits/stdc++.h>" "#include_next <a.h>" "__PRETTY_FUNCTION__")
file(REMOVE_RECURSE "${SCRATCH}")
