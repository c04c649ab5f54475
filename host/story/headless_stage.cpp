// The host, the operator and the eyes of a stage without a screen.
#include "host/story/headless_stage.h"

#include <utility>

#include "host/headless/headless_host.h"
#include "host/story/breakable_file_kit.h"
#include "host/story/record_field.h"
#include "host/watch/plugin_invariants.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

// The host's side of a call fails as the plug-in's caller would see it.
template <class Call>
auto Checked(Call&& call) {
  try {
    return call();
  } catch (const RuntimeError& error) {
    throw StageError(ToUtf8(error.description()));
  }
}

// In the words of the native layer.
[[noreturn]] void FailCreation(TextView object) {
  constexpr auto kNumber = ErrorNumber::kCannotCreateObject;
  throw RuntimeError(
      kNumber, Concat({DefaultDescription(static_cast<std::int32_t>(kNumber)), u": ", object}));
}

class RightsCollection final : public HostCollection {
 public:
  explicit RightsCollection(std::vector<Right> rights) : rights_(std::move(rights)) {}

  [[nodiscard]] std::int64_t Count() override { return std::ssize(rights_); }
  [[nodiscard]] std::optional<HostItem> Find(TextView key) override {
    for (const Right& right : rights_) {
      if (!EqualIgnoringCase(right.name, key)) continue;
      switch (right.form) {
        case Right::Form::kText:
          return HostItem{.kind = HostItem::Kind::kText, .text = right.value};
        case Right::Form::kNumber:
          return HostItem{.kind = HostItem::Kind::kNumber,
                          .text = {},
                          .number = std::stod(ToUtf8(right.value))};
        case Right::Form::kFails:
          throw RuntimeError(ErrorNumber::kTypeMismatch);
      }
    }
    return std::nullopt;
  }

 private:
  std::vector<Right> rights_;
};

class HeadlessStage final : public Stage {
 public:
  HeadlessStage() {
    host_.before_create = [this](TextView call) {
      if (!script_.TakeFault(call)) return;
      FailCreation(call == u"CreateFileKit" ? kFileKitProgId : kMemoryKitProgId);
    };
    host_.make_file_kit = [this] {
      return std::make_unique<BreakableFileKit>(host_.host_kit, script_);
    };
  }

  [[nodiscard]] std::string Name() const override { return "headless"; }
  [[nodiscard]] Text HostRoot() override { return Text(HeadlessHost::kRoot); }

  void PutFile(const Text& path, const std::optional<std::string>& bytes) override {
    Checked([&] {
      if (bytes) {
        host_.memory.MakeFolders(path.substr(0, path.find_last_of(u'\\')));
        host_.memory.SetContents(path, *bytes);
      } else if (host_.memory.FileExists(path)) {
        host_.memory.RemoveFile(path);
      }
    });
  }
  [[nodiscard]] std::optional<std::string> FileContent(const Text& path) override {
    return Checked([&] { return host_.storage.ReadWhole(path); });
  }
  void BreakKit(const KitFault& fault) override { script_.Break(fault); }
  void RepairKit() override { script_.Repair(); }
  void SetClock(std::uint64_t ticks) override { host_.clock.Set(ticks); }

  Text DllVersion() override {
    return Checked([&] { return host_.plug_in().dllVersion(u"kvrrcBHDGS"); });
  }
  Text PluginField(const Text& field) override {
    return Checked([&] { return RecordField(host_.plug_in().GetData(), field); });
  }
  void SetPrivis(const std::vector<Right>& rights, bool super_admin) override {
    Checked([&] {
      host_.plug_in().SetPrivis(std::make_shared<RightsCollection>(rights),
                                std::make_shared<RightsCollection>(std::vector<Right>()),
                                super_admin);
    });
  }
  void LoadInterface(std::int32_t index, const std::vector<Text>& target,
                     const std::function<bool()>& go_on) override {
    view_may_be_older_ = true;  // a hidden dialog keeps it
    auto outer = std::exchange(host_.toolkit.pump, go_on);
    const auto back = [&](void*) { host_.toolkit.pump = std::move(outer); };
    const std::unique_ptr<void, decltype(back)> restored(this, back);
    Checked([&] { host_.plug_in().LoadInterface(index, 0, HostTexts(target)); });
  }
  void RemoteData(const Text& data) override {
    Checked([&] { host_.plug_in().RemoteData(data); });
  }
  void HideInterface() override {
    view_may_be_older_ = true;  // it makes a dialog where there is none
    Checked([&] { host_.plug_in().HideInterface(); });
  }

  void Type(const Text& control, const Text& text) override {
    Checked([&] { host_.person.Type(control, text); });
  }
  void Paste(const Text& control, const Text& text) override {
    Checked([&] { host_.person.Paste(control, text); });
  }
  void EraseLast(const Text& control, int count) override {
    Checked([&] { host_.person.EraseLast(control, count); });
  }
  void Choose(const Text& control, const Text& item) override {
    Checked([&] { host_.person.Choose(control, item); });
  }
  void ScrollBy(const Text& control, int rows) override {
    Checked([&] { host_.person.ScrollBy(control, rows); });
  }
  void ScrollTo(const Text& control, int row) override {
    Checked([&] { host_.person.ScrollTo(control, row); });
  }
  void ClickTab(const Text& caption) override {
    Checked([&] { host_.person.ClickTab(caption); });
  }
  void Click(const Text& control) override {
    Checked([&] { host_.person.Click(control); });
  }
  void SelectRows(const Text& control, const std::vector<int>& rows) override {
    Checked([&] { host_.person.SelectRows(control, rows); });
  }
  void DoubleClickRow(const Text& control, int row) override {
    Checked([&] { host_.person.DoubleClickRow(control, row); });
  }
  void Key(const Text& control, char16_t character) override {
    Checked([&] { host_.person.Key(control, character); });
  }
  void Press(const Text& control, Button button) override {
    Checked([&] { host_.person.Press(control, static_cast<std::int16_t>(button)); });
  }
  void Release(const Text& control, Button button) override {
    Checked([&] { host_.person.Release(control, static_cast<std::int16_t>(button)); });
  }
  void Strike(const Text& control, ui::KeyStroke stroke, int times) override {
    Checked([&] { host_.person.Strike(control, stroke, times); });
  }
  void ChooseFromMenu(const Text& control, int row, const Text& item) override {
    Checked([&] { host_.person.ChooseFromMenu(control, row, item); });
  }
  [[nodiscard]] std::vector<Text> LastMenu() override { return host_.toolkit.menu(); }
  void PressAccessKey(char16_t key, int times) override {
    Checked([&] { host_.person.PressAccessKey(key, times); });
  }
  void CloseWindow() override {
    Checked([&] { host_.person.CloseForm(); });
  }
  void AnswerFileDialog(const std::vector<Text>& paths, bool by_double_click) override {
    host_.toolkit.AnswerNextFileDialog(paths);
    if (by_double_click) host_.toolkit.held_while_box_closes = ui::kLeftButton;
  }
  void DuringNextBox(const std::function<void()>& step) override {
    host_.toolkit.while_message_open = [this, step](const headless::ShownMessage&) {
      const auto once = std::exchange(host_.toolkit.while_message_open, {});
      ++open_boxes_;
      step();
      --open_boxes_;
    };
  }

  void DuringNextFileDialog(const std::function<void()>& step) override {
    host_.toolkit.while_file_dialog_open = [this, step](const ui::FileDialogRequest&) {
      const auto once = std::exchange(host_.toolkit.while_file_dialog_open, {});
      step();
    };
  }

  [[nodiscard]] Text Read(const Text& control, const Text& property) override {
    return Checked([&] {
      const Text value = host_.person.Read(control, property);
      return property == u"picture" ? value.substr(value.find_last_of(u'\\') + 1) : value;
    });
  }
  [[nodiscard]] bool DialogShown() override { return host_.toolkit.ModalForm() != nullptr; }
  [[nodiscard]] Text DialogPointer() override { return Read(u"frmrcBHDGS", u"pointer"); }
  [[nodiscard]] Text ScreenPointer() override {
    return host_.toolkit.screen_pointer() == ui::Pointer::kBusy ? u"busy" : u"default";
  }
  [[nodiscard]] std::vector<SeenBox> TakeBoxes() override {
    std::vector<SeenBox> boxes;
    for (headless::ShownMessage& message : host_.toolkit.TakeMessages()) {
      boxes.push_back({std::move(message.caption), std::move(message.text)});
    }
    return boxes;
  }
  [[nodiscard]] std::vector<SeenBox> TakeFileDialogs() override {
    std::vector<SeenBox> seen;
    for (const auto& dialog : host_.toolkit.TakeFileDialogs()) {
      seen.push_back({dialog.title, dialog.initial_folder});
    }
    return seen;
  }
  [[nodiscard]] std::vector<Text> TakeLog() override { return script_.TakeLog(); }
  [[nodiscard]] std::vector<Text> TakeReports() override { return script_.TakeReports(); }
  [[nodiscard]] std::vector<Text> Broken() override {
    if (open_boxes_ > 0) return {};  // an operation may be half done
    view_may_be_older_ = view_may_be_older_ || script_.HasLogged();
    const auto look = [&](bool all) {
      return host::BrokenInvariants(host_.module, host_.toolkit,
                                    {.rotation_is_shown = all, .available_maps_are_shown = all});
    };
    try {
      auto broken = look(true);
      if (!broken.empty() && view_may_be_older_) return look(false);
      view_may_be_older_ = false;
      return broken;
    } catch (const RuntimeError&) {
      return look(false);  // a server map whose game type is no number cannot be looked for
    }
  }
  [[nodiscard]] std::optional<Text> PendingCommand() override {
    return host_.module.PendingCommand;
  }

 private:
  KitScript script_;
  HeadlessHost host_;
  int open_boxes_ = 0;
  bool view_may_be_older_ = false;  // after these and a failure, until it agrees again
};

}  // namespace

std::unique_ptr<Stage> MakeHeadlessStage() {
  return std::make_unique<HeadlessStage>();
}

}  // namespace quill::host
