# The versions and the library's file name, in one place: the version resource, what the library
# reports of itself, its type library, the registry, manifests and packages take them from here.

set(QUILL_VERSION 1.1.2)
# What hosts bind against; it changes with the interface only.
set(QUILL_TYPE_LIBRARY_VERSION 1.0)
set(QUILL_LIBRARY_FILE_NAME "kvrrcBHDGS.dll")
