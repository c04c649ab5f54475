// The pieces of a separated text one after the other, without an allocation.
#pragma once

#include "support/text.h"

namespace quill {

//   PieceCursor fields(payload, u"_");
//   for (TextView field; fields.Next(field);) ...
class PieceCursor {
 public:
  // Both texts must outlive the cursor and the pieces. `separator` is not empty.
  PieceCursor(TextView text, TextView separator) noexcept : rest_(text), separator_(separator) {}

  // Gives the next piece; false, leaving `piece` alone, after the last one. There is at least one.
  bool Next(TextView& piece) noexcept;

 private:
  TextView rest_;
  TextView separator_;
  bool ended_ = false;
};

}  // namespace quill
