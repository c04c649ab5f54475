// The platform's modal message box with one OK button and no icon.
#pragma once

#include "support/text.h"

namespace quill {

// What a box shows of a text: a zero character, which would end it, becomes visible.
[[nodiscard]] inline Text VisibleText(TextView text) {
  return ReplaceAll(text, TextView(u"\0", 1), u"\uFFFD");
}

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  // Returns when the operator has closed the box. Host calls may arrive while it is open. Fails
  // when the box cannot be shown.
  virtual void ShowMessage(TextView caption, TextView text) = 0;
};

}  // namespace quill
