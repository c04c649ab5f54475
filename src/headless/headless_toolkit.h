// A windowing toolkit without a screen: mirroring peers, and boxes, dialogs and events that come
// from a script. Everything runs on the caller's thread.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <vector>

#include "headless/mirror_peer.h"
#include "support/file_system.h"
#include "ui/form.h"
#include "ui/toolkit.h"

namespace quill::headless {

struct ShownMessage {
  Text caption;
  Text text;
  friend bool operator==(const ShownMessage&, const ShownMessage&) = default;
};

class HeadlessToolkit final : public ui::Toolkit {
 public:
  // Pictures are read from `files`, which must outlive the toolkit, as must every form outlive its
  // use of it.
  explicit HeadlessToolkit(FileSystem& files, const ui::Metrics& metrics = {})
      : files_(files), metrics_(metrics) {}
  // Runs what is still deferred.
  ~HeadlessToolkit() override;

  // --- the script -----------------------------------------------------------------------------
  // The next event while a form is shown modally: a gesture, a host call. Called again and again;
  // returns false when there is none left, and the toolkit then hides the form that is shown.
  std::function<bool()> pump;
  // Runs while a message box or a file dialog is open; host calls may come in.
  std::function<void(const ShownMessage& message)> while_message_open;
  std::function<void(const ui::FileDialogRequest& request)> while_file_dialog_open;
  // The mouse buttons that the operator holds while the next message box or file dialog closes,
  // their numbers added up.
  std::int16_t held_while_box_closes = 0;
  // The caption of the item that the operator chooses in the next menu; one that is grey or not
  // there leaves it with nothing chosen, as an empty one does.
  Text menu_choice;
  // The full paths that the operator picks in the next file dialog that has no answer yet, none to
  // cancel. A file dialog without an answer is cancelled.
  void AnswerNextFileDialog(std::vector<Text> paths) { answers_.push_back(std::move(paths)); }
  // Told before each call of the toolkit and of its peers, for example "ReadPicture
  // C:\Host\imgs\butup.gif" or "Sync txtName"; the call fails when it throws, and does nothing.
  std::function<void(TextView call)> before_call;
  // Runs deferred tasks now. For the top level of a script; while a form is shown, the toolkit does
  // so itself between two events of the outermost display.
  void RunDeferred() noexcept;

  // --- what can be seen -----------------------------------------------------------------------
  [[nodiscard]] const std::vector<ShownMessage>& messages() const noexcept { return messages_; }
  [[nodiscard]] std::vector<ShownMessage> TakeMessages() { return std::exchange(messages_, {}); }
  [[nodiscard]] std::vector<ui::FileDialogRequest> TakeFileDialogs() {
    return std::exchange(file_dialogs_, {});
  }
  // The items of the last menu: "CAPTION | KEY", in parentheses when grey; "-" for a line.
  [[nodiscard]] const std::vector<Text>& menu() const noexcept { return menu_; }
  [[nodiscard]] std::size_t unused_answers() const noexcept { return answers_.size(); }
  [[nodiscard]] ui::Pointer screen_pointer() const noexcept { return screen_pointer_; }
  // The form that takes the operator's input, were no box open; null when none is shown.
  [[nodiscard]] ui::Form* ModalForm() const noexcept;
  // A message box or file dialog is open that belongs to a form. One that belongs to none gives way
  // to a form that is shown from inside it.
  [[nodiscard]] bool IsBoxOpen() const noexcept { return owned_boxes_ > 0; }
  // The colour source of a strip whose background is being drawn; null when it is not.
  [[nodiscard]] const ui::PictureBox* TabBackgroundOf(const ui::TabStrip& strip) const;

  // --- the toolkit ----------------------------------------------------------------------------
  void ShowMessage(TextView caption, TextView text) override;
  std::unique_ptr<ui::Peer> MakePeer(ui::Control& control) override;
  [[nodiscard]] ui::Metrics GetMetrics() const override { return metrics_; }
  // Looks at the signature only.
  ui::PicturePtr ReadPicture(TextView path) override;
  std::vector<Text> ShowFileDialog(ui::Form& owner, const ui::FileDialogRequest& request) override;
  int ShowMenu(ui::Control& control, ui::Twips x, ui::Twips y) override;
  void SetScreenPointer(ui::Pointer pointer) override;
  void RunModal(ui::Form& form) override;
  void EndModal(ui::Form& form) override;
  void Defer(std::function<void()> task) override;
  void HookTabBackground(ui::TabStrip& strip, ui::PictureBox& colour_source) override;
  void UnhookTabBackground(ui::TabStrip& strip) override;

 private:
  struct OpenBox;
  struct Display {
    ui::Form* form;
    bool ended = false;
  };

  void Called(std::initializer_list<TextView> call) const;
  [[nodiscard]] bool IsIdle() const noexcept {
    return displays_.empty() && owned_boxes_ + ownerless_boxes_ == 0;
  }

  FileSystem& files_;
  ui::Metrics metrics_;
  std::deque<std::vector<Text>> answers_;
  std::vector<ShownMessage> messages_;
  std::vector<ui::FileDialogRequest> file_dialogs_;
  std::vector<Text> menu_;
  ui::Pointer screen_pointer_ = ui::Pointer::kDefault;
  std::vector<Display*> displays_;  // the innermost last
  int owned_boxes_ = 0;
  int ownerless_boxes_ = 0;
  std::deque<std::function<void()>> deferred_;
  std::map<const ui::TabStrip*, const ui::PictureBox*> tab_backgrounds_;
};

}  // namespace quill::headless
