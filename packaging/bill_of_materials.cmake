# Included by make.cmake: writes what the packages are made of as an SPDX 2.3 document. What the
# libraries bring of the compiler's runtime is read from their link maps, so that nothing can get in
# unnoticed.

string(TIMESTAMP created "%Y-%m-%dT%H:%M:%SZ" UTC)  # SOURCE_DATE_EPOCH's time
set(packages)
set(file_entries)
set(relationships)

function(relate from how to)
  string(APPEND relationships "${comma}
    {\"spdxElementId\": \"SPDXRef-${from}\", \"relationshipType\": \"${how}\",
     \"relatedSpdxElement\": \"SPDXRef-${to}\"}")
  set(comma "," PARENT_SCOPE)
  set(relationships "${relationships}" PARENT_SCOPE)
endfunction()
set(comma "")

# describe(<id> <name> <version> <supplier> <licence> <more fields>)
function(describe id package_name version supplier licence more)
  if(packages)
    string(APPEND packages ",")
  endif()
  string(APPEND packages "
    {\"SPDXID\": \"SPDXRef-${id}\", \"name\": \"${package_name}\", \"versionInfo\": \"${version}\",
     \"supplier\": \"${supplier}\", \"downloadLocation\": \"NOASSERTION\",
     \"licenseConcluded\": \"${licence}\", \"licenseDeclared\": \"${licence}\",
     \"copyrightText\": \"NOASSERTION\", ${more}}")
  set(packages "${packages}" PARENT_SCOPE)
endfunction()

# The files, and the code over them that tells a changed set.
set(file_sums)
foreach(file IN LISTS files)
  file(SHA1 "${stage}/${file}" sha1)
  file(SHA256 "${stage}/${file}" sha256)
  list(APPEND file_sums ${sha1})
  string(REGEX REPLACE "[^A-Za-z0-9.]" "-" id "File-${file}")
  if(file MATCHES "\\.dll$")
    set(type BINARY)
    relate(${id} STATIC_LINK compiler-runtime)
    relate(${id} STATIC_LINK windows-runtime)
  else()
    set(type TEXT)
  endif()
  relate(quillstart CONTAINS ${id})
  if(file_entries)
    string(APPEND file_entries ",")
  endif()
  string(APPEND file_entries "
    {\"SPDXID\": \"SPDXRef-${id}\", \"fileName\": \"./${file}\", \"fileTypes\": [\"${type}\"],
     \"checksums\": [{\"algorithm\": \"SHA1\", \"checksumValue\": \"${sha1}\"},
                   {\"algorithm\": \"SHA256\", \"checksumValue\": \"${sha256}\"}],
     \"licenseConcluded\": \"MIT\", \"licenseInfoInFiles\": [\"NOASSERTION\"],
     \"copyrightText\": \"NOASSERTION\"}")
endforeach()
list(SORT file_sums)
list(JOIN file_sums "" file_sums)
string(SHA1 verification "${file_sums}")
set(us "Organization: The Quillstart developers")
describe(quillstart "Quillstart" "${VERSION}" "${us}" "MIT" "\"filesAnalyzed\": true,
     \"licenseInfoFromFiles\": [\"NOASSERTION\"], \"primaryPackagePurpose\": \"LIBRARY\",
     \"packageVerificationCode\": {\"packageVerificationCodeValue\": \"${verification}\"}")

# The finished packages.
execute_process(COMMAND makensis -VERSION OUTPUT_VARIABLE nsis OUTPUT_STRIP_TRAILING_WHITESPACE)
describe(installer-stub "NSIS" "${nsis}" "NOASSERTION" "Zlib" "\"filesAnalyzed\": false")
foreach(package "installer;${name}-setup.exe;INSTALL" "archive;${name}.zip;ARCHIVE")
  list(GET package 0 id)
  list(GET package 1 file)
  list(GET package 2 purpose)
  file(SHA256 "${OUT}/${file}" sum)
  describe(${id} "${file}" "${VERSION}" "${us}" "MIT" "\"packageFileName\": \"${file}\",
     \"primaryPackagePurpose\": \"${purpose}\", \"filesAnalyzed\": false,
     \"checksums\": [{\"algorithm\": \"SHA256\", \"checksumValue\": \"${sum}\"}]")
  relate(DOCUMENT DESCRIBES ${id})
  relate(${id} CONTAINS quillstart)
endforeach()
relate(installer STATIC_LINK installer-stub)

# The runtime: every archive in the link maps is known, or belongs to us.
set(compiler_archives libgcc libgcc_eh libstdc++)
set(windows_archives libmingw32 libmingwex libuuid)
# Import libraries: names of what the system has.
set(import_archives libadvapi32 libcomctl32 libcomdlg32 libgdi32 libkernel32 libmsimg32 libmsvcrt
    libole32 liboleacc liboleaut32 libshell32 libshlwapi libuser32 libuxtheme libversion)
set(linked)
foreach(library IN ITEMS "${X86}" "${X64}")
  cmake_path(REPLACE_EXTENSION library LAST_ONLY map OUTPUT_VARIABLE map)
  file(STRINGS "${map}" members REGEX "^[^ ].*\\.a\\([^)]*\\)$")
  list(TRANSFORM members REPLACE "^(.*/)?([^/]+)\\.a\\(.*" "\\2")
  list(APPEND linked ${members})
endforeach()
list(REMOVE_DUPLICATES linked)
list(SORT linked)
if(NOT "libgcc" IN_LIST linked)
  message(FATAL_ERROR "the link maps beside the libraries cannot be read")
endif()
foreach(archive IN LISTS linked)
  if(NOT archive MATCHES "^libquill_" AND
     NOT archive IN_LIST compiler_archives AND NOT archive IN_LIST windows_archives AND
     NOT archive IN_LIST import_archives)
    message(FATAL_ERROR "${archive} has got into the library; the bill of materials must tell its licence")
  endif()
endforeach()
execute_process(COMMAND x86_64-w64-mingw32-g++-win32 -dumpfullversion
  OUTPUT_VARIABLE compiler OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
file(WRITE "${OUT}/work/runtime.c" "#include <_mingw.h>\n")
execute_process(COMMAND x86_64-w64-mingw32-g++-win32 -E -dM "${OUT}/work/runtime.c"
  OUTPUT_VARIABLE macros COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCH "__MINGW64_VERSION_MAJOR ([0-9]+)" found "${macros}")
set(windows_runtime ${CMAKE_MATCH_1})
string(REGEX MATCH "__MINGW64_VERSION_MINOR ([0-9]+)" found "${macros}")
string(APPEND windows_runtime ".${CMAKE_MATCH_1}")
describe(compiler-runtime "GCC runtime libraries (libgcc, libstdc++)" "${compiler}"
  "Organization: Free Software Foundation" "GPL-3.0-or-later WITH GCC-exception-3.1"
  "\"filesAnalyzed\": false, \"primaryPackagePurpose\": \"LIBRARY\",
     \"comment\": \"The exception lets a program that is compiled by this compiler carry the runtime under any terms.\"")
describe(windows-runtime "MinGW-w64 runtime" "${windows_runtime}"
  "Organization: The MinGW-w64 project" "ZPL-2.1"
  "\"filesAnalyzed\": false, \"primaryPackagePurpose\": \"LIBRARY\",
     \"comment\": \"Start-up code and what the system's C runtime lacks; much of it is in the public domain.\"")

string(UUID namespace NAMESPACE "6ba7b811-9dad-11d1-80b4-00c04fd430c8"
  NAME "quillstart ${VERSION} ${verification}" TYPE SHA1)
file(WRITE "${OUT}/${name}.spdx.json" "{
  \"spdxVersion\": \"SPDX-2.3\",
  \"dataLicense\": \"CC0-1.0\",
  \"SPDXID\": \"SPDXRef-DOCUMENT\",
  \"name\": \"${name}\",
  \"documentNamespace\": \"urn:uuid:${namespace}\",
  \"creationInfo\": {\"created\": \"${created}\",
    \"creators\": [\"${us}\", \"Tool: quillstart-package\"]},
  \"packages\": [${packages}
  ],
  \"files\": [${file_entries}
  ],
  \"relationships\": [${relationships}
  ]
}
")
