# Usage: cmake -DROOT=<source tree> -P check_layers.cmake
# Fails, naming every offending line, where a folder of src/ includes a folder that does not lie
# below it, or where a platform header is included outside the Windows layers.
cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/QuillLayers.cmake")

# Headers that belong to one operating system. Whatever is not here and not a standard header
# fails in one of the two builds anyway.
set(platform_headers
  "^(sys|arpa|net|netinet|linux|bits|ddk)/"
  "^(windows|winsock2|windowsx|winbase|winuser|wingdi|winnt|windef|winreg|winerror|tchar|olectl|ole2|oleauto|oaidl|objbase|objidl|unknwn|activscp|dispex|ocidl|commctrl|commdlg|shlobj|shlwapi|shellapi|uxtheme|richedit|io|direct|process|conio)\\.h$"
  "^(unistd|dirent|dlfcn|fcntl|pthread|termios|poll|glob|fnmatch|pwd|grp|sched|semaphore|spawn|syslog|utime|iconv|langinfo|strings|libgen|wordexp)\\.h$")

set(offences)
file(GLOB_RECURSE files RELATIVE "${ROOT}"
  "${ROOT}/src/*.h" "${ROOT}/src/*.cpp" "${ROOT}/src/*.inc"
  "${ROOT}/host/*.h" "${ROOT}/host/*.cpp" "${ROOT}/host/*.inc")

foreach(file IN LISTS files)
  string(REGEX MATCH "^src/([^/]+)/" in_layer "${file}")
  set(layer "${CMAKE_MATCH_1}")
  if(file MATCHES "^(src/(com|win32|server)|host/win32)/")
    set(may_use_platform ON)
  else()
    set(may_use_platform OFF)
  endif()
  if(file MATCHES "^src/" AND (NOT in_layer OR NOT layer IN_LIST QUILL_LAYERS))
    string(APPEND offences "  ${file}: its folder is no layer of cmake/QuillLayers.cmake\n")
    continue()
  endif()

  file(STRINGS "${ROOT}/${file}" includes REGEX "^[ \t]*#[ \t]*include[ \t]*[<\"]")
  foreach(line IN LISTS includes)
    string(REGEX MATCH "[<\"]([^>\"]+)[>\"]" quoted "${line}")
    set(header "${CMAKE_MATCH_1}")
    if(in_layer AND quoted MATCHES "^\"")
      if(header MATCHES "^\\.\\.?/" OR header MATCHES "/\\.\\./")
        string(APPEND offences "  ${file}: ${quoted} is not written from the include root\n")
      elseif(header MATCHES "^([^/]+)/")
        set(used "${CMAKE_MATCH_1}")
        if(NOT used STREQUAL layer AND NOT used IN_LIST QUILL_LAYER_${layer})
          string(APPEND offences "  ${file}: ${quoted} does not lie below ${layer}\n")
        endif()
      endif()
    endif()
    if(NOT may_use_platform)
      string(TOLOWER "${header}" lower)
      foreach(pattern IN LISTS platform_headers)
        if(lower MATCHES "${pattern}")
          string(APPEND offences "  ${file}: platform header ${quoted}\n")
        endif()
      endforeach()
    endif()
  endforeach()
endforeach()

if(offences)
  message(FATAL_ERROR "Includes against the layer rules:\n${offences}")
endif()
list(LENGTH files count)
if(count EQUAL 0)
  message(FATAL_ERROR "No sources found under ${ROOT}: wrong ROOT?")
endif()
message(STATUS "${count} files keep the layer rules")
