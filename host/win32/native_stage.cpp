// The host, the operator and the eyes of a stage over the real library.
#include "host/win32/native_stage.h"

#include <algorithm>
#include <deque>
#include <exception>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "headless/shown_words.h"
#include "host/headless/button_pictures.h"
#include "host/story/operator_gestures.h"
#include "host/win32/host_folder.h"
#include "host/win32/plugin_session.h"
#include "host/win32/window_robot.h"
#include "support/runtime_error.h"
#include "win32/native_picture.h"

namespace quill::host {
namespace {

constexpr TextView kForm = u"frmrcBHDGS";
// Copies of the host's button pictures, to recognise them by when the host has lost its own.
constexpr TextView kKeptPictures = u"\\kept-pictures";

// Lets go of the button that a double click in a file dialog left down, and keeps the last menu.
class StageOperator final : public WindowRobot {
 public:
  using WindowRobot::WindowRobot;

  void Release(const Text& control, std::int16_t button) {
    held_button.reset();
    WindowRobot::Release(control, button);
  }
  void ChooseFromMenu(const Text& control, int row, const Text& item) {
    menu = WindowRobot::ChooseFromMenu(control, row, item);
  }

  std::optional<HeldKey> held_button;
  std::vector<Text> menu;
};

class NativeStage final : public Stage {
  // As in a host's own message loop, what was posted is handled before the next call.
  template <class Made>
  auto Call(Made&& call) {
    ++calls_;
    const auto loop = [this](void*) {
      if (--calls_ != 0 || !boxes_in_hand_.empty()) return;
      MSG message;
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
      }
    };
    const std::unique_ptr<void, decltype(loop)> after_call(this, loop);
    return session_.HostCall(call);
  }

 public:
  NativeStage(const PluginLibrary& library, ContractLog& contract)
      : root_(FreshHostFolder()), session_(library, contract, root_) {
    PutButtonPictures(Concat({root_, kKeptPictures}));
  }

  [[nodiscard]] std::string Name() const override { return "native"; }
  [[nodiscard]] Text HostRoot() override { return root_; }

  [[nodiscard]] FileStorage& storage() override { return session_.storage(); }
  void PutFile(const Text& path, std::string_view bytes) override {
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
    session_.storage().Replace(path, bytes);
  }
  [[nodiscard]] KitWatch& kit_watch() override { return session_.kit_watch(); }
  void SetClock(std::uint64_t) override {
    throw StageError("the library reads the machine's own clock");
  }

  Text DllVersion() override {
    return Call([](PluginClient& plugin) { return plugin.DllVersion(); });
  }
  Text PluginField(const Text& field) override {
    return Call([&](PluginClient& plugin) { return plugin.Field(field); });
  }
  void SetPrivis(const std::vector<Right>& rights, bool super_admin) override {
    Call([&](PluginClient& plugin) { plugin.SetPrivis(rights, super_admin); });
  }
  void LoadInterface(std::int32_t index, const std::vector<Text>& target,
                     const std::function<bool()>& go_on) override {
    displays_.push_back({go_on, nullptr, boxes_in_hand_.size()});
    std::exception_ptr failure;
    try {
      Call([&](PluginClient& plugin) { plugin.LoadInterface(index, target); });
    } catch (...) {
      failure = std::current_exception();
    }
    if (displays_.back().failure) failure = displays_.back().failure;
    displays_.pop_back();
    if (failure) std::rethrow_exception(failure);
  }
  void RemoteData(const Text& data) override {
    Call([&](PluginClient& plugin) { plugin.RemoteData(data); });
  }
  void HideInterface() override {
    Call([](PluginClient& plugin) { plugin.HideInterface(); });
  }

  void Make(TextView pattern, const Words& words) override { MakeGesture(person_, pattern, words); }
  void AnswerFileDialog(const std::vector<Text>& paths, bool by_double_click) override {
    answers_.push_back({paths, by_double_click});
  }
  void DuringNextBox(bool asks_for_file, const std::function<void()>& step) override {
    (asks_for_file ? during_next_file_dialog_ : during_next_box_) = step;
  }

  [[nodiscard]] Text Read(const Text& control, const Text& property) override {
    // Without a window nothing is busy.
    if (property == u"pointer" && person_.FormWindow() == nullptr) {
      return Text(headless::PointerWord(false));
    }
    const bool is_picture = property == u"picture";
    return person_.Read(control, property, is_picture ? ReadablePictures() : std::vector<Text>());
  }
  [[nodiscard]] bool DialogShown() override { return person_.FormShown(); }
  // Over a window of the dialog its own pointer and the screen's look the same.
  [[nodiscard]] Text ScreenPointer() override { return Read(Text(kForm), u"pointer"); }
  [[nodiscard]] std::vector<Text> LastMenu() override { return person_.menu; }
  [[nodiscard]] std::vector<SeenBox> TakeBoxes() override { return std::exchange(boxes_, {}); }
  [[nodiscard]] std::vector<SeenBox> TakeFileDialogs() override {
    return std::exchange(file_dialogs_, {});
  }

 private:
  struct Answer {
    std::vector<Text> paths;
    bool by_double_click = false;
  };
  struct Display {
    std::function<bool()> go_on;
    std::exception_ptr failure;
    std::size_t boxes = 0;  // in hand when it began
  };

  [[nodiscard]] std::vector<Text> ReadablePictures() const {
    std::vector<Text> readable;
    for (const TextView folder : {TextView(), kKeptPictures}) {
      for (const TextView picture : {kReleasedPicturePath, kPressedPicturePath}) {
        const Text path = Concat({root_, folder, picture});
        try {
          static_cast<void>(win32::NativePicture(path));
          readable.push_back(path);
        } catch (const RuntimeError&) {
          // Then no window shows it.
        }
      }
    }
    return readable;
  }

  // From within whatever message loop is running.
  void Turn() {
    const OpenBox box = FindOpenBox();
    if (box.window == nullptr || std::ranges::count(boxes_in_hand_, box.window) != 0) return GoOn();
    boxes_in_hand_.push_back(box.window);
    Handle(box);
    boxes_in_hand_.pop_back();
  }

  void Handle(const OpenBox& box) {
    if (box.asks_for_file) {
      file_dialogs_.push_back({box.caption, box.text});
      if (const auto step = std::exchange(during_next_file_dialog_, nullptr)) step();
      Answer answer;
      if (!answers_.empty()) {
        answer = std::move(answers_.front());
        answers_.pop_front();
      }
      if (answer.by_double_click) person_.held_button.emplace(VK_LBUTTON);
      return AnswerBox(box, answer.paths);
    }
    boxes_.push_back({box.caption, box.text});
    if (const auto step = std::exchange(during_next_box_, nullptr)) step();
    AnswerBox(box);
  }

  // A disabled dialog waits for a box that is about to show, or for the one inside which it was
  // shown.
  void GoOn() {
    if (displays_.empty() || displays_.back().boxes != boxes_in_hand_.size()) return;
    const HWND form = person_.FormWindow();
    if (form == nullptr || !IsWindowVisible(form)) return;
    if (boxes_in_hand_.empty() && !IsWindowEnabled(form)) return;
    const std::size_t depth = displays_.size();
    const auto go_on = displays_.back().go_on;
    bool has_more = false;
    std::exception_ptr failure;
    try {
      has_more = go_on();
    } catch (...) {
      failure = std::current_exception();
    }
    if (has_more) return;
    displays_.at(depth - 1).failure = failure;
    HideInterface();
  }

  const Text root_;
  PluginSession session_;
  StageOperator person_{Text(kForm)};
  std::deque<Answer> answers_;
  std::function<void()> during_next_box_;
  std::function<void()> during_next_file_dialog_;
  std::vector<SeenBox> boxes_;
  std::vector<SeenBox> file_dialogs_;
  std::vector<Display> displays_;  // the innermost last
  std::vector<HWND> boxes_in_hand_;
  int calls_ = 0;  // of the host, one inside the other
  Heartbeat heartbeat_{[this] { Turn(); }};
};

}  // namespace

std::unique_ptr<Stage> MakeNativeStage(const PluginLibrary& library, ContractLog& contract) {
  return std::make_unique<NativeStage>(library, contract);
}

}  // namespace quill::host
