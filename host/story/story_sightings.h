// What a story has to expect: boxes, log and report entries and file dialogs, kept in the order in
// which they came.
#pragma once

#include <array>
#include <deque>
#include <functional>
#include <optional>

#include "host/story/stage.h"

namespace quill::host {

enum class Sighting : std::uint8_t { kBox, kLogEntry, kReport, kFileDialog };

class StorySightings {
 public:
  explicit StorySightings(Stage& stage) : stage_(stage) {}

  // Takes the first one of its kind, which has to be this one. A text may hold marks for line
  // numbers; without a text any will do. A log entry and a report have no caption. Throws
  // StoryFailure.
  void Expect(Sighting kind, TextView caption, std::optional<TextView> text);
  void ExpectNone(Sighting kind);
  // The log entry, the report and the box of one failure, with one and the same line.
  void ExpectTrapped(const Words& words, TextView report_sent);

  // The operator has been told what to do in one more file dialog.
  void FileDialogAnswered();

  // Tells what has been seen and not expected. A file dialog needs no expectation, but an answer.
  void CheckEnd(const std::function<void(const Text& message)>& fail);

 private:
  void Look();
  [[nodiscard]] SeenBox Take(Sighting kind);
  [[nodiscard]] std::deque<SeenBox>& Of(Sighting kind) {
    return seen_[static_cast<std::size_t>(kind)];
  }

  Stage& stage_;
  std::array<std::deque<SeenBox>, 4> seen_;
  int unused_answers_ = 0;
  int unanswered_ = 0;  // file dialogs that came without an answer for them
};

}  // namespace quill::host
