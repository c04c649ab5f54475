# Usage: cmake -DLIBRARY=<dll> -DMAP=<its link map> -DOBJDUMP=<objdump> -DLIMIT=<bytes>
#              -P check_library.cmake
# What a host may rely on before it loads the library: that it is small, needs nothing but Windows,
# offers the entry points of an automation server and nothing else, and brings no heavy parts of the
# runtime library.
cmake_minimum_required(VERSION 3.25)

set(system_libraries advapi32 comctl32 comdlg32 gdi32 kernel32 msimg32 msvcrt ole32 oleaut32 shell32
    shlwapi user32 uxtheme version)
set(entry_points DllCanUnloadNow DllGetClassObject DllInstall DllRegisterServer DllUnregisterServer)

set(faults)

file(SIZE "${LIBRARY}" size)
if(size GREATER LIMIT)
  string(APPEND faults "  it is ${size} bytes large, more than ${LIMIT}\n")
endif()

execute_process(COMMAND "${OBJDUMP}" -p "${LIBRARY}" OUTPUT_VARIABLE headers
  COMMAND_ERROR_IS_FATAL ANY)

string(REGEX MATCHALL "DLL Name: [^\r\n]+" imports "${headers}")
if(NOT imports)
  string(APPEND faults "  its imports cannot be read\n")
endif()
foreach(import IN LISTS imports)
  string(REGEX REPLACE "^DLL Name: " "" import "${import}")
  string(TOLOWER "${import}" name)
  string(REGEX REPLACE "\\.dll$" "" name "${name}")
  if(NOT name IN_LIST system_libraries)
    string(APPEND faults "  it imports ${import}\n")
  endif()
endforeach()

# Version 5 of comctl32, which hosts without a manifest get, is not promised to export them by name.
if(headers MATCHES "[A-Za-z]+Subclass(Proc)?[ \r\n]")
  string(APPEND faults "  it imports comctl32's subclassing\n")
endif()

string(REGEX MATCH "\\[Ordinal/Name Pointer\\] Table.*" names "${headers}")
string(REGEX REPLACE "\n\n.*" "" names "${names}")
string(REGEX MATCHALL "\\[ *[0-9]+\\] [^\r\n]+" exports "${names}")
list(TRANSFORM exports REPLACE "^\\[ *[0-9]+\\] (\\+base\\[ *[0-9]+\\] +[0-9a-f]+ )?" "")
list(SORT exports)
if(NOT "${exports}" STREQUAL "${entry_points}")
  string(APPEND faults "  it exports ${exports} instead of ${entry_points}\n")
endif()

# The threads library of the other thread model loses handles whenever the library is unloaded.
file(STRINGS "${MAP}" members REGEX "^[^ ].*\\.a\\([^)]*\\)")
if(NOT members)
  string(APPEND faults "  its link map ${MAP} cannot be read\n")
endif()
foreach(part "libpthread\\.a" "ios_init\\.o" "globals_io\\.o" "locale\\.o" "regex\\.o")
  set(found ${members})
  list(FILTER found INCLUDE REGEX "(${part}\\(|\\(${part}\\))")
  if(found)
    list(GET found 0 first)
    string(APPEND faults "  it contains ${first}\n")
  endif()
endforeach()

if(faults)
  message(FATAL_ERROR "${LIBRARY} is not as hosts expect it:\n${faults}")
endif()
message(STATUS "${size} bytes, imports and exports as expected")
