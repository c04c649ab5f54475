# What both Windows toolchains share; expects QUILL_MINGW_TRIPLE. The -win32 compilers lock with the
# system's own means: with the -posix ones the library would bring a threads library along, which
# loses handles whenever the library is unloaded.
set(CMAKE_C_COMPILER ${QUILL_MINGW_TRIPLE}-gcc-win32)
set(CMAKE_CXX_COMPILER ${QUILL_MINGW_TRIPLE}-g++-win32)
set(CMAKE_RC_COMPILER ${QUILL_MINGW_TRIPLE}-windres)
set(QUILL_WIDL ${QUILL_MINGW_TRIPLE}-widl)

set(CMAKE_FIND_ROOT_PATH /usr/${QUILL_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs carry the C++ runtime with them, so that they start anywhere.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(ZLIB_USE_STATIC_LIBS ON)

set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../../tools/wine/run")
