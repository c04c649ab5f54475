// The platform's modal message box with one OK button and no icon.
#pragma once

#include "support/text.h"

namespace quill {

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  // Returns when the operator has closed the box. Host calls may arrive while it is open. Fails
  // when the box cannot be shown.
  virtual void ShowMessage(TextView caption, TextView text) = 0;
};

}  // namespace quill
