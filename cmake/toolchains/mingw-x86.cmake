# Cross-compiles for 32-bit Windows.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86)
set(QUILL_MINGW_TRIPLE i686-w64-mingw32)
include("${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake")
# The x87 unit rounds differently from every other flavour of this project; SSE2 does not. The
# compiler realigns the stack by itself where SSE needs it, as Windows only keeps four bytes.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
