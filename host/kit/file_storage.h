// Whole files as bytes: what the file kit and the relay need beyond quill::FileSystem, which writes
// no contents. Paths are host paths; failures are RuntimeErrors with the file system's numbers.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "support/text.h"

namespace quill::host {

class FileStorage {
 public:
  virtual ~FileStorage() = default;

  // Nothing when there is no such file.
  virtual std::optional<std::string> ReadWhole(TextView path) = 0;

  // Creates the file or replaces what it holds. A reader sees the old or the new contents and never
  // a part of them, and a failure leaves the old ones.
  virtual void Replace(TextView path, std::string_view bytes) = 0;

  // Adds to the end; creates the file when it is missing. The folder must exist.
  virtual void Append(TextView path, std::string_view bytes) = 0;

  // Removes the file; nothing happens when there is none.
  virtual void Remove(TextView path) = 0;
};

}  // namespace quill::host
