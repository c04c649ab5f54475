#include "host/win32/native_stage.h"

#include <algorithm>
#include <deque>
#include <exception>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "host/story/button_pictures.h"
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

template <class Call>
auto Checked(Call&& call) {
  try {
    return call();
  } catch (const RuntimeError& error) {
    throw StageError(ToUtf8(error.description()));
  }
}

Text TruthName(const Text& shown) {
  return shown == u"1" ? u"true" : u"false";
}

class NativeStage final : public Stage {
  // As in a host's own message loop, what was posted is handled before the next call.
  class LoopAfterCall {
   public:
    explicit LoopAfterCall(NativeStage& stage) : stage_(stage) { ++stage_.calls_; }
    ~LoopAfterCall() {
      if (--stage_.calls_ != 0 || !stage_.boxes_in_hand_.empty()) return;
      MSG message;
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
      }
    }
    LoopAfterCall(const LoopAfterCall&) = delete;
    LoopAfterCall& operator=(const LoopAfterCall&) = delete;

   private:
    NativeStage& stage_;
  };

  template <class Made>
  auto Call(Made&& call) {
    const LoopAfterCall loop(*this);
    return Checked([&] { return session_.HostCall(call); });
  }

 public:
  NativeStage(const PluginLibrary& library, ContractLog& contract)
      : root_(FreshHostFolder()), session_(library, contract, root_) {
    PutButtonPictures(Concat({root_, kKeptPictures}));
  }

  [[nodiscard]] std::string Name() const override { return "native"; }
  [[nodiscard]] Text HostRoot() override { return root_; }

  void PutFile(const Text& path, const std::optional<std::string>& bytes) override {
    Checked([&] {
      if (bytes) {
        std::error_code error;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
        session_.storage().Replace(path, *bytes);
      } else {
        session_.storage().Remove(path);
      }
    });
  }
  [[nodiscard]] std::optional<std::string> FileContent(const Text& path) override {
    return Checked([&] { return session_.storage().ReadWhole(path); });
  }
  void BreakKit(const KitFault& fault) override { session_.script().Break(fault); }
  void RepairKit() override { session_.script().Repair(); }
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

  void Type(const Text& control, const Text& text) override { robot_.Type(control, text); }
  void Paste(const Text& control, const Text& text) override { robot_.Paste(control, text); }
  void EraseLast(const Text& control, int count) override { robot_.EraseLast(control, count); }
  void Choose(const Text& control, const Text& item) override { robot_.Choose(control, item); }
  void ScrollBy(const Text& control, int rows) override { robot_.ScrollBy(control, rows); }
  void ScrollTo(const Text& control, int row) override { robot_.ScrollTo(control, row); }
  void ClickTab(const Text& caption) override { robot_.ClickTab(caption); }
  void Click(const Text& control) override { robot_.Click(control); }
  void SelectRows(const Text& control, const std::vector<int>& rows) override {
    robot_.SelectRows(control, rows);
  }
  void DoubleClickRow(const Text& control, int row) override {
    robot_.DoubleClickRow(control, row);
  }
  void Key(const Text& control, char16_t character) override { robot_.Key(control, character); }
  void Press(const Text& control, Button button) override { robot_.Press(control, button); }
  void Release(const Text& control, Button button) override {
    held_button_.reset();
    robot_.Release(control, button);
  }
  void Strike(const Text& control, ui::KeyStroke stroke, int times) override {
    robot_.Strike(control, stroke, times);
  }
  void ChooseFromMenu(const Text& control, int row, const Text& item) override {
    menu_ = robot_.ChooseFromMenu(control, row, item);
  }
  [[nodiscard]] std::vector<Text> LastMenu() override { return menu_; }
  void PressAccessKey(char16_t key, int times) override { robot_.PressAccessKey(key, times); }
  void CloseWindow() override { robot_.CloseForm(); }
  void AnswerFileDialog(const std::vector<Text>& paths, bool by_double_click) override {
    answers_.push_back({paths, by_double_click});
  }
  void DuringNextBox(const std::function<void()>& step) override { during_next_box_ = step; }
  void DuringNextFileDialog(const std::function<void()>& step) override {
    during_next_file_dialog_ = step;
  }

  [[nodiscard]] Text Read(const Text& control, const Text& property) override {
    return Checked([&] {
      const Text shown = robot_.Read(control, property, ReadablePictures());
      const bool is_truth =
          property == u"enabled" || property == u"visible" || property == u"shown";
      return is_truth ? TruthName(shown) : shown;
    });
  }
  [[nodiscard]] bool DialogShown() override { return robot_.FormShown(); }
  [[nodiscard]] Text DialogPointer() override {
    return robot_.FormWindow() == nullptr ? Text(u"default") : Read(Text(kForm), u"pointer");
  }
  // Over a window of the dialog both pointers look the same.
  [[nodiscard]] Text ScreenPointer() override { return DialogPointer(); }
  [[nodiscard]] std::vector<SeenBox> TakeBoxes() override { return std::exchange(boxes_, {}); }
  [[nodiscard]] std::vector<SeenBox> TakeFileDialogs() override {
    return std::exchange(file_dialogs_, {});
  }
  [[nodiscard]] std::vector<Text> TakeLog() override { return session_.script().TakeLog(); }
  [[nodiscard]] std::vector<Text> TakeReports() override { return session_.script().TakeReports(); }
  [[nodiscard]] std::optional<Text> PendingCommand() override { return std::nullopt; }

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
          static_cast<void>(win32::ReadGifPicture(path));
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
      if (answer.by_double_click) held_button_.emplace(VK_LBUTTON);
      return AnswerFileBox(box, answer.paths);
    }
    boxes_.push_back({box.caption, box.text});
    if (const auto step = std::exchange(during_next_box_, nullptr)) step();
    AcknowledgeBox(box);
  }

  // A disabled dialog waits for a box that is about to show, or for the one inside which it was
  // shown.
  void GoOn() {
    if (displays_.empty() || displays_.back().boxes != boxes_in_hand_.size()) return;
    const HWND form = robot_.FormWindow();
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
  WindowRobot robot_{Text(kForm)};
  std::deque<Answer> answers_;
  std::optional<HeldKey> held_button_;
  std::function<void()> during_next_box_;
  std::function<void()> during_next_file_dialog_;
  std::vector<Text> menu_;
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
