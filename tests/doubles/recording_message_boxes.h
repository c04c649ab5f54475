// Message boxes that close at once and keep what they said.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/message_box.h"
#include "support/text.h"

namespace quill {

class RecordingMessageBoxes final : public MessageBoxes {
 public:
  struct Box {
    Text caption;
    Text text;
    bool operator==(const Box&) const = default;
  };

  std::vector<Box> boxes;
  // Runs while a box is open, for example a further host call; may throw, as a box may that cannot
  // be shown.
  std::function<void()> while_open;
  // Where set, each box adds "box" to it, so that the order among several doubles can be told.
  std::vector<std::string>* journal = nullptr;

  void ShowMessage(TextView caption, TextView text) override {
    if (journal != nullptr) journal->push_back("box");
    boxes.push_back({Text(caption), Text(text)});
    if (while_open) while_open();
  }
};

}  // namespace quill
