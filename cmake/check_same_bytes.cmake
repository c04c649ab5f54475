# Usage: cmake -DLIBRARY=<dll> -DROOT=<source tree> -DSCRATCH=<folder> -DTOOLCHAIN=<file>
#              -DBUILD_TYPE=<type> -P check_same_bytes.cmake
# Builds the library a second time, from a copy of the sources elsewhere and without any cache, and
# compares: whoever builds the same sources gets the same library.
cmake_minimum_required(VERSION 3.25)

set(ENV{CCACHE_DISABLE} 1)
# The copies keep their times, so that only what changed is compiled again the next time.
file(REMOVE_RECURSE "${SCRATCH}/source")
file(COPY "${ROOT}/CMakeLists.txt" "${ROOT}/cmake" "${ROOT}/src" "${ROOT}/tools" DESTINATION "${SCRATCH}/source")
execute_process(
  COMMAND "${CMAKE_COMMAND}" -G Ninja -S "${SCRATCH}/source" -B "${SCRATCH}/build"
          "-DCMAKE_TOOLCHAIN_FILE=${SCRATCH}/source/cmake/toolchains/${TOOLCHAIN}"
          "-DCMAKE_BUILD_TYPE=${BUILD_TYPE}" -DBUILD_TESTING=OFF
          -DQUILL_HOST=OFF
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${CMAKE_COMMAND}" --build "${SCRATCH}/build" --target kvrrcBHDGS
  COMMAND_ERROR_IS_FATAL ANY)

file(GLOB_RECURSE again "${SCRATCH}/build/src/kvrrcBHDGS.dll")
if(NOT again)
  message(FATAL_ERROR "the second build made no library")
endif()
execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${LIBRARY}" "${again}"
  RESULT_VARIABLE differs)
if(differs)
  message(FATAL_ERROR "${LIBRARY} and ${again} come from the same sources and differ")
endif()
message(STATUS "the same bytes twice")
