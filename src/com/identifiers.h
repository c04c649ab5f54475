// The identifiers under which the class is registered and its interface is bound; the same as in
// the type library's source.
#pragma once

#include "com/automation.h"
#include "support/text.h"
#include "support/version.h"

namespace quill::com {

inline constexpr TextView kProgId = u"kvrrcBHDGS.clsPlugin";
inline constexpr TextView kClassName = u"Quillstart";

inline constexpr GUID kLibraryId = {
    0x7C3B9E52, 0x41D6, 0x4A0B, {0x9D, 0x5E, 0x6F, 0x2A, 0x8C, 0x10, 0xB7, 0xE1}};
inline constexpr GUID kRecordId = {
    0x2F6D1A94, 0x8B37, 0x4C5E, {0xA2, 0xF0, 0x93, 0xD4, 0xE7, 0xB6, 0x1C, 0x58}};
inline constexpr IID kInterfaceId = {
    0xA15D7F30, 0x2C84, 0x4E6B, {0xB3, 0xA9, 0x0D, 0x7E, 0x51, 0xC2, 0xF8, 0x46}};
inline constexpr CLSID kClassId = {
    0x5E08C6B1, 0xD9F2, 0x4773, {0x8A, 0x4C, 0x1B, 0x62, 0xF5, 0x0E, 0x93, 0xAD}};

inline constexpr WORD kLibraryMajor = QUILL_TYPE_LIBRARY_MAJOR;
inline constexpr WORD kLibraryMinor = QUILL_TYPE_LIBRARY_MINOR;

}  // namespace quill::com
