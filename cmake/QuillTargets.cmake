# quill_library(), quill_test(), quill_fuzzer(), quill_benchmark(): one call per target.

string(REGEX REPLACE "\\..*" "" QUILL_TYPE_LIBRARY_MAJOR "${QUILL_TYPE_LIBRARY_VERSION}")
string(REGEX REPLACE ".*\\." "" QUILL_TYPE_LIBRARY_MINOR "${QUILL_TYPE_LIBRARY_VERSION}")
set(QUILL_GENERATED_DIR "${PROJECT_BINARY_DIR}/generated")
configure_file("${PROJECT_SOURCE_DIR}/src/support/version.h.in"
               "${QUILL_GENERATED_DIR}/support/version.h" @ONLY)

# Turns layer names into their targets and leaves every other library as it is.
function(quill_resolve_links out)
  set(resolved)
  foreach(link IN LISTS ARGN)
    if(link IN_LIST QUILL_LAYERS)
      list(APPEND resolved "quill::${link}")
    else()
      list(APPEND resolved "${link}")
    endif()
  endforeach()
  set(${out} "${resolved}" PARENT_SCOPE)
endfunction()

# quill_library(<layer> SOURCES <file>... [LINKS <layer or library>...])
# The static library of one folder of src/: target quill_<layer>, alias quill::<layer>. Without
# LINKS it links every layer that it may use; a layer it may not use is an error. A folder that
# holds headers only may leave SOURCES out.
function(quill_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "quill_library(${name}): unknown argument ${arg_UNPARSED_ARGUMENTS}")
  endif()
  if(NOT name IN_LIST QUILL_LAYERS)
    message(FATAL_ERROR "quill_library(${name}): no such layer in cmake/QuillLayers.cmake")
  endif()

  foreach(link IN LISTS arg_LINKS)
    string(REGEX REPLACE "^quill(::|_)" "" layer "${link}")
    if(layer IN_LIST QUILL_LAYERS AND NOT layer IN_LIST QUILL_LAYER_${name})
      message(FATAL_ERROR "quill_library(${name}): ${layer} does not lie below ${name}")
    endif()
  endforeach()
  set(has_layer_link OFF)
  foreach(link IN LISTS arg_LINKS)
    if(link IN_LIST QUILL_LAYERS)
      set(has_layer_link ON)
    endif()
  endforeach()
  if(NOT has_layer_link)
    foreach(layer IN LISTS QUILL_LAYER_${name})
      if(TARGET quill_${layer})
        list(APPEND arg_LINKS ${layer})
      endif()
    endforeach()
  endif()

  quill_resolve_links(links ${arg_LINKS})
  set(scope PUBLIC)
  if(arg_SOURCES)
    add_library(quill_${name} STATIC ${arg_SOURCES})
    target_link_libraries(quill_${name} PRIVATE quill_compile_options)
  else()
    set(scope INTERFACE)
    add_library(quill_${name} INTERFACE)
  endif()
  add_library(quill::${name} ALIAS quill_${name})
  target_include_directories(quill_${name} ${scope} "${PROJECT_SOURCE_DIR}/src")
  target_link_libraries(quill_${name} ${scope} ${links})
  if(name STREQUAL "support")
    target_include_directories(quill_${name} ${scope} "${QUILL_GENERATED_DIR}")
  endif()
endfunction()

# quill_test(<name> SOURCES <file>... LINKS <layer or library>... [TIMEOUT <seconds>] [SERIAL])
# A GoogleTest program <name>_test. Natively each of its cases is one ctest test. Under Wine the
# program is one ctest test, judged by GoogleTest's own closing lines, because a program that Wine
# cannot start prints nothing and returns 0. SERIAL keeps other tests from running beside it.
function(quill_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "SERIAL" "TIMEOUT" "SOURCES;LINKS")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "quill_test(${name}): unknown argument ${arg_UNPARSED_ARGUMENTS}")
  endif()
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 600)
  endif()
  quill_resolve_links(links ${arg_LINKS})
  add_executable(${name}_test ${arg_SOURCES})
  target_include_directories(${name}_test PRIVATE "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name}_test PRIVATE quill_compile_options ${links} quill_gtest_main)
  target_compile_definitions(${name}_test PRIVATE
    QUILL_SOURCE_DIR="${PROJECT_SOURCE_DIR}" QUILL_BINARY_DIR="${PROJECT_BINARY_DIR}")
  # GoogleTest's headers take a third of a test's compile time, so all tests share them precompiled;
  # not where ccache works, which then could not keep the tests' objects.
  get_property(first_test GLOBAL PROPERTY QUILL_FIRST_TEST)
  if(first_test AND NOT QUILL_CCACHE)
    target_precompile_headers(${name}_test REUSE_FROM ${first_test})
  elseif(NOT QUILL_CCACHE)
    target_precompile_headers(${name}_test PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
    set_property(GLOBAL PROPERTY QUILL_FIRST_TEST ${name}_test)
  endif()

  set(properties TIMEOUT ${arg_TIMEOUT})
  if(arg_SERIAL)
    list(APPEND properties RUN_SERIAL TRUE)
  endif()
  if(WIN32 AND CMAKE_CROSSCOMPILING)
    add_test(NAME ${name}
      COMMAND "${PROJECT_SOURCE_DIR}/tools/wine/gtest-suite" $<TARGET_FILE:${name}_test>)
    set_tests_properties(${name} PROPERTIES ${properties})
  elseif(WIN32)
    add_test(NAME ${name} COMMAND ${name}_test)
    set_tests_properties(${name} PROPERTIES ${properties})
  else()
    gtest_discover_tests(${name}_test
      TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120
      PROPERTIES ${properties})
  endif()
endfunction()

# quill_fuzzer(<name> SOURCES <file>... LINKS <layer or library>...)
# The program fuzz_<name>, and the test fuzz.<name>, which runs it over its corpus.
function(quill_fuzzer name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  quill_resolve_links(links ${arg_LINKS})
  add_executable(fuzz_${name} ${arg_SOURCES})
  target_include_directories(fuzz_${name} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_link_libraries(fuzz_${name} PRIVATE quill_compile_options quill_fuzz_engine ${links})
  target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  add_dependencies(fuzzers fuzz_${name})
  # File by file, because without instrumentation the engine refuses a folder.
  add_test(NAME fuzz.${name} COMMAND sh -c "exec \"$0\" \"$1\"/*" $<TARGET_FILE:fuzz_${name}>
                                     "${PROJECT_SOURCE_DIR}/fuzz/corpus/${name}")
endfunction()

# quill_benchmark(<name> SOURCES <file>... LINKS <layer or library>...): program bench_<name>.
function(quill_benchmark name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  find_package(benchmark REQUIRED)
  quill_resolve_links(links ${arg_LINKS})
  add_executable(bench_${name} ${arg_SOURCES})
  target_include_directories(bench_${name} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_link_libraries(bench_${name} PRIVATE
    quill_compile_options ${links} benchmark::benchmark)
endfunction()

# The rules of the tree as tests: the tree keeps them, and one that breaks them is noticed.
function(quill_add_layer_checks)
  add_test(NAME layers.tree_keeps_the_rules
    COMMAND ${CMAKE_COMMAND} -DROOT=${PROJECT_SOURCE_DIR}
            -P ${PROJECT_SOURCE_DIR}/cmake/check_layers.cmake)
  add_test(NAME layers.broken_trees_are_noticed
    COMMAND ${CMAKE_COMMAND} -DSCRATCH=${PROJECT_BINARY_DIR}/layer-check
            -P ${PROJECT_SOURCE_DIR}/cmake/check_layers_test.cmake)
  add_test(NAME portable.only_one_header_knows_compilers
    COMMAND ${CMAKE_COMMAND} -DROOT=${PROJECT_SOURCE_DIR}
            -P ${PROJECT_SOURCE_DIR}/cmake/check_portable.cmake)
  add_test(NAME portable.extensions_are_noticed
    COMMAND ${CMAKE_COMMAND} -DSCRATCH=${PROJECT_BINARY_DIR}/portable-check
            -P ${PROJECT_SOURCE_DIR}/cmake/check_portable_test.cmake)
endfunction()

# The finished library as its hosts find it.
function(quill_add_library_checks target)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(limit 560000)
  else()
    set(limit 620000)
  endif()
  if(MINGW AND CMAKE_BUILD_TYPE STREQUAL "MinSizeRel")
    add_test(NAME library.is_small_and_self_contained
      COMMAND ${CMAKE_COMMAND} -DLIBRARY=$<TARGET_FILE:${target}>
              -DMAP=$<TARGET_PROPERTY:${target},BINARY_DIR>/${target}.map
              -DOBJDUMP=${CMAKE_OBJDUMP} -DLIMIT=${limit}
              -P ${PROJECT_SOURCE_DIR}/cmake/check_library.cmake)
    # The same check must see what is wrong with a library that is none of this.
    add_test(NAME library.other_libraries_are_noticed
      COMMAND ${CMAKE_COMMAND} -DLIBRARY=$<TARGET_FILE:runtime_probe>
              -DMAP=$<TARGET_PROPERTY:runtime_probe,BINARY_DIR>/runtime_probe.map
              -DOBJDUMP=${CMAKE_OBJDUMP} -DLIMIT=1000
              -P ${PROJECT_SOURCE_DIR}/cmake/check_library.cmake)
    set_tests_properties(library.other_libraries_are_noticed PROPERTIES
      PASS_REGULAR_EXPRESSION
      "bytes large, more than 1000.*it exports ProbeNestedCatches.*instead of DllCanUnloadNow")
    cmake_path(GET CMAKE_TOOLCHAIN_FILE FILENAME toolchain)
    add_test(NAME library.builds_to_the_same_bytes_twice
      COMMAND ${CMAKE_COMMAND} -DLIBRARY=$<TARGET_FILE:${target}> -DROOT=${PROJECT_SOURCE_DIR}
              -DSCRATCH=${PROJECT_BINARY_DIR}/again -DTOOLCHAIN=${toolchain}
              -DBUILD_TYPE=${CMAKE_BUILD_TYPE}
              -P ${PROJECT_SOURCE_DIR}/cmake/check_same_bytes.cmake)
    set_tests_properties(library.builds_to_the_same_bytes_twice PROPERTIES
      TIMEOUT 1800 PROCESSORS 2)
  endif()
endfunction()
