// The host's file kit (programmatic name rcFileKit.clsFileKit) as the plug-in calls it. The host
// owns the formats behind it: compressed texts, INI storage, the log. Every operation may fail with
// a RuntimeError that carries the kit's own number and description.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

#include "support/runtime_error.h"
#include "support/text.h"

namespace quill {

inline constexpr TextView kFileKitProgId = u"rcFileKit.clsFileKit";

// What SendErrorReport is handed, in the order of the array that crosses the boundary. Elements 0
// to 4 are texts, element 5 is a 32-bit integer.
struct ErrorReport {
  Text number;            // 0: the error number in decimal; empty without an error
  Text description;       // 1: empty without an error
  Text library;           // 2: library file name, a blank, the version
  Text label;             // 3: trap label
  Text reserved;          // 4: always "0"
  std::int32_t line = 0;  // 5
};

struct IniEntry {
  Text key;
  Text value;
};

// The elements of a section's array: lines key=value in file order, and a last one that is no
// entry.
struct IniElements {
  std::size_t count = 0;
  // The element as text. It is made text when it is asked for, which fails for one that has none.
  std::function<Text(std::size_t index)> element;
};

class FileKit {
 public:
  virtual ~FileKit() = default;

  // The host writes `text` into the file at `path`.
  virtual void WriteFile(TextView path, TextView text) = 0;

  // The compressed form of `text`: opaque, any 16-bit units.
  virtual Text CompressString(TextView text) = 0;

  // The text that was compressed; `length` is its length in 16-bit units.
  virtual Text DecompressString(TextView compressed, std::int32_t length) = 0;

  // Nothing when the section is missing (the kit's result was no array).
  virtual std::optional<IniElements> GetIniSection(TextView section, TextView path) = 0;

  // Key and value of one line (the kit's second argument is true).
  virtual IniEntry ParseIniKey(TextView line) = 0;
  // The value alone (the kit's second argument is false).
  virtual Text ParseIniValue(TextView line) = 0;

  // Writes or replaces one key; creates file and section when needed.
  virtual void WriteIniKey(TextView section, TextView key, TextView value, TextView path) = 0;

  virtual void LogError(TextView library, TextView label, const RuntimeError& error,
                        std::int32_t line) = 0;

  // True when the report was sent; a kit that answers false, empty or null has not sent it.
  virtual bool SendErrorReport(const ErrorReport& report) = 0;
};

}  // namespace quill
