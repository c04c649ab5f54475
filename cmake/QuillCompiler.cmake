# Compiler settings that hold for every target of the project.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# Assertions stay on in every flavour, so no flavour defines NDEBUG.
if(MSVC)
  string(REPLACE "/DNDEBUG" "" CMAKE_CXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_RELEASE}")
  string(REPLACE "/DNDEBUG" "" CMAKE_CXX_FLAGS_RELWITHDEBINFO "${CMAKE_CXX_FLAGS_RELWITHDEBINFO}")
  string(REPLACE "/DNDEBUG" "" CMAKE_CXX_FLAGS_MINSIZEREL "${CMAKE_CXX_FLAGS_MINSIZEREL}")
  # The library carries its runtime with it, so that it needs nothing but the system.
  set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
else()
  set(CMAKE_CXX_FLAGS_RELEASE "-O2")
  set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g")
  # Copies of functions with fewer parameters are private: the linker cannot keep one of many.
  set(CMAKE_CXX_FLAGS_MINSIZEREL "-Os -fno-ipa-sra")
endif()

find_program(QUILL_CCACHE ccache)
mark_as_advanced(QUILL_CCACHE)
if(NOT CMAKE_HOST_WIN32)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${PROJECT_SOURCE_DIR}/tools/compile")
endif()
if(QUILL_CCACHE)
  # Objects are the same in every build folder, so that one folder's work serves the others. A base
  # folder of the user's would make source names relative, and the library another one.
  list(APPEND CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_NOHASHDIR=1 CCACHE_BASEDIR= "${QUILL_CCACHE}")
endif()

add_library(quill_compile_options INTERFACE)
if(MSVC)
  # No warning ends the build here, because nobody of this project has seen this compiler's.
  target_compile_options(quill_compile_options INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:/W4>
    $<$<COMPILE_LANGUAGE:CXX>:/permissive->
    $<$<COMPILE_LANGUAGE:CXX>:/utf-8>
    $<$<COMPILE_LANGUAGE:CXX>:/Zc:__cplusplus>
    $<$<COMPILE_LANGUAGE:CXX>:/Zc:preprocessor>)
else()
  target_compile_options(quill_compile_options INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-Wall>
    $<$<COMPILE_LANGUAGE:CXX>:-Wextra>
    $<$<COMPILE_LANGUAGE:CXX>:-Wpedantic>
    $<$<COMPILE_LANGUAGE:CXX>:-Wshadow>
    $<$<COMPILE_LANGUAGE:CXX>:-Wconversion>
    # Clang counts signed/unsigned index arithmetic into -Wconversion, GCC does not. Container
    # indices make it noise; -Wconversion still reports every narrowing.
    $<$<COMPILE_LANGUAGE:CXX>:-Wno-sign-conversion>
    # The platform's automation interfaces have no virtual destructors: objects delete themselves.
    $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<NOT:$<BOOL:${WIN32}>>>:-Wnon-virtual-dtor>
    # Not where tools/compile cannot let them pass for whoever only wants the programs.
    $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<NOT:$<BOOL:${CMAKE_HOST_WIN32}>>>:-Werror>
    # Sections let the linker drop what the library does not use.
    $<$<COMPILE_LANGUAGE:CXX>:-ffunction-sections>
    $<$<COMPILE_LANGUAGE:CXX>:-fdata-sections>
    # The compiler's name in every object would end up in the library, once for each of them.
    $<$<COMPILE_LANGUAGE:CXX>:-fno-ident>
    # Build paths in objects would make the library depend on where it was built.
    $<$<COMPILE_LANGUAGE:CXX>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=>
  )
endif()
# Cheap checks of container indices, on in every flavour for the same reason as assertions; the
# size-limited Windows library relies on its own range checks instead.
if(NOT WIN32)
  target_compile_definitions(quill_compile_options INTERFACE _GLIBCXX_ASSERTIONS)
endif()

if(WIN32)
  target_compile_definitions(quill_compile_options INTERFACE
    UNICODE _UNICODE NOMINMAX _WIN32_WINNT=0x0601)
endif()

if(QUILL_SANITIZE)
  # Set for the whole build, because mixing instrumented and plain code hides errors.
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
    -fno-omit-frame-pointer -g)
  add_link_options(-fsanitize=address,undefined)
endif()

if(QUILL_COVERAGE)
  # By source regions: what the compiler adds for exceptions is no branch of the program.
  add_compile_options(-fprofile-instr-generate -fcoverage-mapping)
  add_link_options(-fprofile-instr-generate)
endif()

if(QUILL_FUZZ)
  # Without tracing comparisons, which halves the runs a second and in the same time reaches no more
  # code: the dictionary has the words.
  add_compile_options(-fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp)
endif()

# What a shared library for Windows needs to be small, self-contained and reproducible.
add_library(quill_dll_flags INTERFACE)
if(MSVC)
  # The same bytes twice, and what nobody calls left out.
  target_link_options(quill_dll_flags INTERFACE /Brepro /OPT:REF /OPT:ICF)
elseif(WIN32)
  # Parts of the C++ runtime library that a library needs of its own; tests/mingw tries them.
  target_sources(quill_dll_flags INTERFACE
    "${PROJECT_SOURCE_DIR}/src/win32/runtime/emergency_memory.cpp"
    "${PROJECT_SOURCE_DIR}/src/win32/runtime/exception_state.cpp")
  target_link_options(quill_dll_flags INTERFACE
    -static
    -s
    -Wl,--gc-sections
    # Tells what the library is made of; the check of the finished library reads it.
    -Wl,-Map=$<TARGET_PROPERTY:BINARY_DIR>/$<TARGET_PROPERTY:NAME>.map
    # Both are needed for the same bytes twice: the first drops the clock, the second an image
    # base that is derived from the output path.
    -Wl,--no-insert-timestamp
    -Wl,--disable-auto-image-base)
  # An exception that nobody catches ends the process at once. The default handler prints its
  # readable name first, for which it brings a demangler along, on a console that hosts do not have.
  set(underscore "")
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(underscore "_")
  endif()
  target_link_options(quill_dll_flags INTERFACE "-Wl,--defsym=\
${underscore}_ZN9__gnu_cxx27__verbose_terminate_handlerEv=${underscore}abort")
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    # The entry points are exported without the decoration that their calling convention adds.
    target_link_options(quill_dll_flags INTERFACE -Wl,--enable-stdcall-fixup)
    target_sources(quill_dll_flags INTERFACE
      "${PROJECT_SOURCE_DIR}/src/win32/runtime/unwind_tables.cpp")
  endif()
endif()
