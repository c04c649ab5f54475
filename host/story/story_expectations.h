// What a story expects, compared with what its stage shows.
//
// Boxes, log and report entries and file dialogs are kept in the order in which they came until
// they are expected, and each must be.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "host/story/stage.h"
#include "host/story/story.h"

namespace quill::host {

class StoryExpectations {
 public:
  explicit StoryExpectations(Stage& stage) : stage_(stage) {}

  // True for the steps that Check takes.
  [[nodiscard]] static bool IsExpectation(StepKind kind) noexcept {
    return kind >= StepKind::kExpectDialogShown;
  }
  // The step's arguments have their marks for the root resolved. Throws StoryFailure, or what the
  // stage throws.
  void Check(const Step& step);

  // The operator has been told what to do in one more file dialog.
  void FileDialogAnswered();

  // Tells what has been seen and not expected.
  void CheckEnd(const std::function<void(const Text& message)>& fail);

 private:
  void Look();
  void CheckBox(const Text& caption, const Text& text);
  void CheckTrapped(const Step& step, bool is_sent);
  void CheckEntry(std::deque<Text>& entries, TextView what, const Text& pattern);
  void CheckFile(const Step& step);
  void CheckRequest(const Step& step);
  void CheckPayload(const Step& step);
  void CheckRows(const Step& step);
  void CheckProperty(const Step& step);
  [[nodiscard]] std::optional<Text> FileText(const Text& path);
  [[nodiscard]] Text RequestText(TextView command);
  [[nodiscard]] std::vector<Text> Rows(const Text& control);

  Stage& stage_;
  std::deque<SeenBox> boxes_;
  std::deque<Text> log_;
  std::deque<Text> reports_;
  std::deque<Text> file_dialogs_;
  std::deque<Text> folders_;  // of the file dialogs
  int unused_answers_ = 0;
  int unanswered_ = 0;  // file dialogs that came without an answer for them
};

}  // namespace quill::host
