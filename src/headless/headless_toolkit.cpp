// The scripted toolkit: modal displays, boxes, pictures and deferred tasks.
#include "headless/headless_toolkit.h"

#include <algorithm>
#include <array>
#include <ranges>
#include <string_view>
#include <utility>

#include "headless/spared_allocations.h"
#include "support/runtime_error.h"
#include "ui/controls.h"

namespace quill::headless {
namespace {

class HeadlessPicture final : public ui::Picture {
 public:
  explicit HeadlessPicture(Text path) : path_(std::move(path)) {}
  [[nodiscard]] TextView path() const noexcept override { return path_; }

 private:
  Text path_;
};

bool BeginsAsGif(ByteReader& reader) {
  std::array<char, 6> bytes{};
  std::size_t filled = 0;
  // A reader may give fewer bytes than there are.
  while (filled < bytes.size()) {
    const std::size_t read = reader.Read(std::span(bytes).subspan(filled));
    if (read == 0) return false;
    filled += read;
  }
  const std::string_view signature(bytes.data(), bytes.size());
  return signature == "GIF87a" || signature == "GIF89a";
}

}  // namespace

// While a box is open. What the operator still holds when it closes comes to the dialog as a
// release, which the model has to know for what it is.
struct HeadlessToolkit::OpenBox {
  ~OpenBox() {
    --count;
    toolkit.buttons_of_closed_box = std::exchange(toolkit.held_while_box_closes, 0);
  }
  HeadlessToolkit& toolkit;
  int& count;
};

HeadlessToolkit::~HeadlessToolkit() {
  RunDeferred();
}

void HeadlessToolkit::Called(std::initializer_list<TextView> call) const {
  const SparedAllocations spared;
  // May throw, which stands for a call of the platform that fails.
  if (before_call) before_call(Concat(call));
}

void HeadlessToolkit::RunDeferred() noexcept {
  while (!deferred_.empty()) {
    const std::function<void()> task = std::move(deferred_.front());
    deferred_.pop_front();
    try {
      task();
    } catch (...) {
      // A task has nobody to tell.
    }
  }
}

ui::Form* HeadlessToolkit::ModalForm() const noexcept {
  for (const auto& display : displays_ | std::views::reverse) {
    if (!display->ended) return display->form;
  }
  return nullptr;
}

const ui::PictureBox* HeadlessToolkit::TabBackgroundOf(const ui::TabStrip& strip) const {
  const auto found = tab_backgrounds_.find(&strip);
  return found != tab_backgrounds_.end() ? found->second : nullptr;
}

void HeadlessToolkit::ShowMessage(TextView caption, TextView text) {
  const SparedAllocations spared;
  Called({u"ShowMessage ", caption});
  // A copy of its own: the script may take the messages away while the box is open.
  const ShownMessage message{Text(caption), VisibleText(text)};
  messages_.push_back(message);
  const OpenBox open{*this, ++(ModalForm() != nullptr ? owned_boxes_ : ownerless_boxes_)};
  if (while_message_open) while_message_open(message);
}

std::unique_ptr<ui::Peer> HeadlessToolkit::MakePeer(ui::Control& control) {
  const SparedAllocations spared;
  Called({u"MakePeer ", control.name()});
  return std::make_unique<MirrorPeer>(control, [this](const ui::Control& synced) {
    Called({u"Sync ", synced.name()});
  });
}

ui::PicturePtr HeadlessToolkit::ReadPicture(TextView path) {
  const SparedAllocations spared;
  Called({u"ReadPicture ", path});
  const std::unique_ptr<ByteReader> reader = files_.OpenForReading(path);
  if (!BeginsAsGif(*reader)) throw RuntimeError(ErrorNumber::kInvalidPicture);
  return std::make_shared<HeadlessPicture>(Text(path));
}

std::vector<Text> HeadlessToolkit::ShowFileDialog(ui::Form&, const ui::FileDialogRequest& request) {
  const SparedAllocations spared;
  Called({u"ShowFileDialog ", request.title});
  file_dialogs_.push_back(request);
  // Taken first: an answer that is given while this dialog is open is for the next one.
  std::vector<Text> answer;
  if (!answers_.empty()) {
    answer = std::move(answers_.front());
    answers_.pop_front();
  }
  const OpenBox open{*this, ++(ModalForm() != nullptr ? owned_boxes_ : ownerless_boxes_)};
  if (while_file_dialog_open) while_file_dialog_open(request);
  return answer;
}

int HeadlessToolkit::ShowMenu(ui::Control& control, ui::Twips, ui::Twips) {
  const SparedAllocations spared;
  Called({u"ShowMenu ", control.name()});
  menu_.clear();
  const Text choice = std::exchange(menu_choice, {});
  int chosen = -1;
  for (const ui::MenuItem& item : control.menu) {
    if (item.begins_group) menu_.emplace_back(u"-");
    const bool usable = item.is_usable();
    if (usable && item.caption == choice) chosen = static_cast<int>(&item - control.menu.data());
    menu_.push_back(
        Concat({usable ? u"" : u"(", item.caption, u" | ", item.key_name, usable ? u"" : u")"}));
  }
  return chosen;
}

void HeadlessToolkit::SetScreenPointer(ui::Pointer pointer) {
  Called({u"SetScreenPointer ", pointer == ui::Pointer::kBusy ? u"busy" : u"default"});
  screen_pointer_ = pointer;
}

void HeadlessToolkit::RunModal(ui::Form& form) {
  // No event is being handled: a native message loop would have run the tasks by now.
  if (IsIdle()) RunDeferred();

  Display display{&form};
  {
    const SparedAllocations spared;
    displays_.push_back(&display);
  }
  // Also when the call below fails.
  const struct Left {
    ~Left() { displays.pop_back(); }
    std::vector<Display*>& displays;
  } left{displays_};
  Called({u"RunModal ", form.name()});
  // In an inner one an event of the outer one is still being handled, which tasks have to wait for.
  const bool is_outermost = displays_.size() == 1 && owned_boxes_ + ownerless_boxes_ == 0;
  while (!display.ended) {
    const bool goes_on = pump && pump();
    if (is_outermost) RunDeferred();
    // The script has ended, and nobody else would end the display.
    if (!goes_on && !display.ended) form.Hide();
  }
}

void HeadlessToolkit::EndModal(ui::Form& form) {
  Called({u"EndModal ", form.name()});
  const auto shows = [&](const Display* display) {
    return display->form == &form && !display->ended;
  };
  // A form may be shown again from inside its own display, which has then ended but not returned.
  const auto innermost = std::find_if(displays_.rbegin(), displays_.rend(), shows);
  if (innermost != displays_.rend()) (*innermost)->ended = true;
}

void HeadlessToolkit::Defer(std::function<void()> task) {
  const SparedAllocations spared;
  Called({u"Defer"});
  deferred_.push_back(std::move(task));
}

void HeadlessToolkit::HookTabBackground(ui::TabStrip& strip, ui::PictureBox& colour_source) {
  const SparedAllocations spared;
  Called({u"HookTabBackground ", strip.name()});
  tab_backgrounds_[&strip] = &colour_source;
}

void HeadlessToolkit::UnhookTabBackground(ui::TabStrip& strip) {
  Called({u"UnhookTabBackground ", strip.name()});
  tab_backgrounds_.erase(&strip);
}

}  // namespace quill::headless
