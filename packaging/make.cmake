# Usage: cmake -DX86=<library> -DX64=<library> -DOUT=<folder> [-DVERSION=<a.b.c>] -P make.cmake
# Makes the packages of the two finished libraries in OUT: installer, zip, bill of materials and
# checksums. The same libraries and the same commit give the same bytes. Beside each library lies its
# link map.
cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/../cmake/QuillVersion.cmake")
cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH root)
if(NOT VERSION)
  set(VERSION ${QUILL_VERSION})
endif()
foreach(library IN ITEMS "${X86}" "${X64}")
  if(NOT EXISTS "${library}")
    message(FATAL_ERROR "there is no library '${library}'; ./package builds both")
  endif()
endforeach()

# run(<command>...) with its words shown only where it fails.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE words ERROR_VARIABLE words)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${words}\n${ARGV0} failed (${result})")
  endif()
endfunction()

# The time in every package is that of the commit.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND git -C "${root}" log -1 --format=%ct
    OUTPUT_VARIABLE epoch OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  if(NOT epoch)
    set(epoch 1735689600)
  endif()
  set(ENV{SOURCE_DATE_EPOCH} ${epoch})
endif()
set(ENV{TZ} UTC)

# One folder holds what both packages bring.
set(name "quillstart-${VERSION}")
set(stage "${OUT}/work/${name}")
file(REMOVE_RECURSE "${OUT}")
file(READ "${root}/src/server/kvrrcBHDGS.idl" idl)
foreach(part "LIBRARY;library" "INTERFACE;interface _clsPlugin :" "CLASS;coclass")
  list(GET part 0 id)
  list(GET part 1 what)
  # The attributes in front of it hold its identifier.
  if(NOT idl MATCHES "uuid\\(([-0-9A-F]+)\\)[^{]*\n *${what} ")
    message(FATAL_ERROR "the type library's source tells no identifier of its ${what}")
  endif()
  set(QUILL_${id}_ID "{${CMAKE_MATCH_1}}")
endforeach()
foreach(architecture "x86;x86;${X86}" "x64;amd64;${X64}")
  list(GET architecture 0 folder)
  list(GET architecture 1 PROCESSOR)
  list(GET architecture 2 library)
  file(MAKE_DIRECTORY "${stage}/${folder}")
  file(COPY_FILE "${library}" "${stage}/${folder}/${QUILL_LIBRARY_FILE_NAME}")
  configure_file("${CMAKE_CURRENT_LIST_DIR}/kvrrcBHDGS.sxs.manifest.in"
                 "${stage}/${folder}/kvrrcBHDGS.sxs.manifest" @ONLY NEWLINE_STYLE DOS)
endforeach()
configure_file("${CMAKE_CURRENT_LIST_DIR}/host.exe.manifest.in"
               "${stage}/host.exe.manifest" @ONLY NEWLINE_STYLE DOS)
configure_file("${root}/LICENSE" "${stage}/LICENSE.txt" @ONLY NEWLINE_STYLE DOS)
configure_file("${root}/docs/installing.md" "${stage}/installing.txt" @ONLY NEWLINE_STYLE DOS)

file(GLOB_RECURSE files RELATIVE "${stage}" "${stage}/*")
list(SORT files)
foreach(file IN LISTS files)
  file(CHMOD "${stage}/${file}" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
  run(touch -d "@$ENV{SOURCE_DATE_EPOCH}" "${stage}/${file}")
endforeach()

list(TRANSFORM files PREPEND "${name}/" OUTPUT_VARIABLE zipped)
execute_process(COMMAND zip -q -X -9 "${OUT}/${name}.zip" ${zipped}
  WORKING_DIRECTORY "${OUT}/work" COMMAND_ERROR_IS_FATAL ANY)

# What the installer puts in place, in this order; the list itself comes last, because whoever finds
# it knows that the rest is there.
list(TRANSFORM files REPLACE "/" "\\\\" OUTPUT_VARIABLE installed)
list(APPEND installed "uninstall.exe" "contents.txt")
list(JOIN installed "\r\n" contents)
file(WRITE "${OUT}/work/contents.txt" "${contents}\r\n")
run(makensis -V2 -WX -NOCD
  "-DVERSION=${VERSION}" "-DSTAGE=${stage}" "-DCONTENTS=${OUT}/work/contents.txt"
  "-DOUTFILE=${OUT}/${name}-setup.exe" "-DCLASS_ID=${QUILL_CLASS_ID}"
  "-DINTERFACE_ID=${QUILL_INTERFACE_ID}"
  "-DTYPE_LIBRARY_ID=${QUILL_LIBRARY_ID}" "-DTYPE_LIBRARY_VERSION=${QUILL_TYPE_LIBRARY_VERSION}"
  "${CMAKE_CURRENT_LIST_DIR}/installer.nsi")

include("${CMAKE_CURRENT_LIST_DIR}/bill_of_materials.cmake")

set(sums)
foreach(package "${name}-setup.exe" "${name}.spdx.json" "${name}.zip")
  file(SHA256 "${OUT}/${package}" sum)
  string(APPEND sums "${sum}  ${package}\n")
endforeach()
file(WRITE "${OUT}/SHA256SUMS" "${sums}")
file(REMOVE_RECURSE "${OUT}/work")
