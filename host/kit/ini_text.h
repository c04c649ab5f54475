// INI text: finding sections and entries, and changing one entry without touching anything else.
//
// A line ends with CR LF, LF or CR. A line whose first character that is no blank or tab is ";" or
// "#" is a comment; "[name]" begins a section, and of several sections of one name the first
// counts. Every other line that is not blank is an entry, in the form key=value; blanks and tabs
// around the key do not belong to it, everything behind the first "=" is the value, blanks
// included. Names and keys match in any letter case. All work is linear in the length of the text.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "support/file_kit.h"
#include "support/text.h"

namespace quill::host {

// All entries of a text, each in the form in which IniSection gives it, and which of them are the
// section's.
struct IniOutline {
  struct Entry {
    std::size_t line;  // from 1
    bool in_section;
    Text text;
  };
  bool has_section = false;
  std::vector<Entry> entries;  // in file order
};
[[nodiscard]] IniOutline OutlineIni(TextView text, TextView section);

// The entries of a section, each as key=value and in file order; an entry without "=" is just its
// key. Nothing when there is no such section.
[[nodiscard]] std::optional<std::vector<Text>> IniSection(TextView text, TextView section);

// An entry split at its first "="; without one the key is the whole entry and the value empty.
[[nodiscard]] IniEntry SplitIniEntry(TextView entry);

// `text` with the entry in it: in place of the section's first entry of that key (further ones of
// the same key in that section go, or they would win over the new value), or else behind the
// section's last entry, or else in a new section at the end. New lines end as the text's first line
// does, in an empty text with CR LF.
//
// Fails with kInvalidProcedureCall for what could not be read back: a value with a line break; a
// key that is blank, has a line break or "=" in it, begins like a comment or a section, or has
// blanks at its ends; a section name that is blank or has a line break or "]" in it.
[[nodiscard]] Text WithIniEntry(TextView text, TextView section, TextView key, TextView value);

}  // namespace quill::host
