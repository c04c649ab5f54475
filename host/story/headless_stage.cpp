// The host, the operator and the eyes of a stage without a screen.
#include "host/story/headless_stage.h"

#include <utility>

#include "dialog/frmrcBHDGS.h"
#include "headless/fixed_process_paths.h"
#include "headless/headless_operator.h"
#include "headless/headless_toolkit.h"
#include "headless/memory_file_system.h"
#include "headless/settable_clock.h"
#include "host/kit/error_journal.h"
#include "host/kit/file_kit.h"
#include "host/kit/memory_kit.h"
#include "host/kit/memory_storage.h"
#include "host/story/breakable_file_kit.h"
#include "host/story/button_pictures.h"
#include "host/story/record_field.h"
#include "plugin/clsPlugin.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

constexpr TextView kRoot = u"C:\\Host";

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

class TargetArray final : public HostArray {
 public:
  explicit TargetArray(const std::vector<Text>& texts) : texts_(texts) {}
  [[nodiscard]] Text ElementText(std::int32_t index) const override {
    if (index < 0 || static_cast<std::size_t>(index) >= texts_.size()) {
      throw RuntimeError(ErrorNumber::kSubscriptOutOfRange);
    }
    return texts_[static_cast<std::size_t>(index)];
  }

 private:
  const std::vector<Text>& texts_;
};

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
          throw RuntimeError(ErrorNumber::kMemberNotFound);
      }
    }
    return std::nullopt;
  }

 private:
  std::vector<Right> rights_;
};

class HeadlessStage final : public Stage, private HostServices {
 public:
  HeadlessStage() {
    PutFile(Concat({kRoot, kReleasedPicturePath}), std::string(kReleasedPicture));
    PutFile(Concat({kRoot, kPressedPicturePath}), std::string(kPressedPicture));
  }

  [[nodiscard]] std::string Name() const override { return "headless"; }
  [[nodiscard]] Text HostRoot() override { return Text(kRoot); }

  void PutFile(const Text& path, const std::optional<std::string>& bytes) override {
    Checked([&] {
      if (bytes) {
        files_.MakeFolders(path.substr(0, path.find_last_of(u'\\')));
        files_.SetContents(path, *bytes);
      } else if (files_.FileExists(path)) {
        files_.RemoveFile(path);
      }
    });
  }
  [[nodiscard]] std::optional<std::string> FileContent(const Text& path) override {
    return Checked([&] { return storage_.ReadWhole(path); });
  }
  void BreakKit(const KitFault& fault) override { script_.Break(fault); }
  void MendKit() override { script_.Mend(); }
  void SetClock(std::uint64_t ticks) override { clock_.Set(ticks); }
  void Wait(int seconds) override {
    clock_.Advance(static_cast<std::uint64_t>(seconds) * 1000);
    Checked([&] { operator_.LetTimerRun(); });
  }

  Text DllVersion() override {
    return Checked([&] { return Plugin().dllVersion(u"kvrrcBHDGS"); });
  }
  Text PluginField(const Text& field) override {
    return Checked([&] { return RecordField(Plugin().GetData(), field); });
  }
  void SetPrivis(const std::vector<Right>& rights, bool super_admin) override {
    Checked([&] {
      Plugin().SetPrivis(std::make_shared<RightsCollection>(rights),
                         std::make_shared<RightsCollection>(std::vector<Right>()), super_admin);
    });
  }
  void LoadInterface(std::int32_t index, const std::vector<Text>& target,
                     const std::function<bool()>& go_on) override {
    auto outer = std::exchange(toolkit_.pump, go_on);
    const auto back = [&](void*) { toolkit_.pump = std::move(outer); };
    const std::unique_ptr<void, decltype(back)> restored(this, back);
    Checked([&] { Plugin().LoadInterface(index, 0, TargetArray(target)); });
  }
  void RemoteData(const Text& data) override {
    Checked([&] { Plugin().RemoteData(data); });
  }
  void HideInterface() override {
    Checked([&] { Plugin().HideInterface(); });
  }

  void Type(const Text& control, const Text& text) override {
    Checked([&] { operator_.Type(control, text); });
  }
  void Paste(const Text& control, const Text& text) override {
    Checked([&] { operator_.Paste(control, text); });
  }
  void EraseLast(const Text& control, int count) override {
    Checked([&] { operator_.EraseLast(control, count); });
  }
  void Choose(const Text& control, const Text& item) override {
    Checked([&] { operator_.Choose(control, item); });
  }
  void ScrollBy(const Text& control, int rows) override {
    Checked([&] { operator_.ScrollBy(control, rows); });
  }
  void ScrollTo(const Text& control, int row) override {
    Checked([&] { operator_.ScrollTo(control, row); });
  }
  void ClickTab(const Text& caption) override {
    Checked([&] { operator_.ClickTab(caption); });
  }
  void Click(const Text& control) override {
    Checked([&] { operator_.Click(control); });
  }
  void SelectRows(const Text& control, const std::vector<int>& rows) override {
    Checked([&] { operator_.SelectRows(control, rows); });
  }
  void DoubleClickRow(const Text& control, int row) override {
    Checked([&] { operator_.DoubleClickRow(control, row); });
  }
  void Key(const Text& control, char16_t character) override {
    Checked([&] { operator_.Key(control, character); });
  }
  void Press(const Text& control, Button button) override {
    Checked([&] { operator_.Press(control, static_cast<std::int16_t>(button)); });
  }
  void Release(const Text& control, Button button) override {
    Checked([&] { operator_.Release(control, static_cast<std::int16_t>(button)); });
  }
  void PressAccessKey(char16_t key) override {
    Checked([&] { operator_.PressAccessKey(key); });
  }
  void CloseWindow() override {
    Checked([&] { operator_.CloseForm(); });
  }
  void AnswerFileDialog(const std::vector<Text>& paths) override {
    toolkit_.AnswerNextFileDialog(paths);
  }
  void DuringNextBox(const std::function<void()>& step) override {
    toolkit_.while_message_open = [this, step](const headless::ShownMessage&) {
      const auto once = std::exchange(toolkit_.while_message_open, {});
      step();
    };
  }

  [[nodiscard]] Text Read(const Text& control, const Text& property) override {
    return Checked([&] {
      const Text value = operator_.Read(control, property);
      return property == u"picture" ? value.substr(value.find_last_of(u'\\') + 1) : value;
    });
  }
  [[nodiscard]] bool DialogShown() override { return toolkit_.ModalForm() != nullptr; }
  [[nodiscard]] Text DialogPointer() override { return Read(u"frmrcBHDGS", u"pointer"); }
  [[nodiscard]] Text ScreenPointer() override {
    return toolkit_.screen_pointer() == ui::Pointer::kBusy ? u"busy" : u"default";
  }
  [[nodiscard]] std::vector<SeenBox> TakeBoxes() override {
    std::vector<SeenBox> boxes;
    for (headless::ShownMessage& message : toolkit_.TakeMessages()) {
      boxes.push_back({std::move(message.caption), std::move(message.text)});
    }
    return boxes;
  }
  [[nodiscard]] std::vector<Text> TakeFileDialogs() override {
    std::vector<Text> titles;
    const auto& dialogs = toolkit_.file_dialogs();
    for (; told_dialogs_ < dialogs.size(); ++told_dialogs_) {
      titles.push_back(dialogs[told_dialogs_].title);
    }
    return titles;
  }
  [[nodiscard]] std::vector<Text> TakeLog() override { return script_.TakeLog(); }
  [[nodiscard]] std::vector<Text> TakeReports() override { return script_.TakeReports(); }
  [[nodiscard]] std::optional<Text> PendingCommand() override {
    return module_.remote.PendingCommand;
  }

 private:
  std::unique_ptr<FileKit> CreateFileKit() override {
    if (script_.TakeFault(u"CreateFileKit")) FailCreation(kFileKitProgId);
    return std::make_unique<BreakableFileKit>(kit_, script_);
  }
  std::unique_ptr<MemoryKit> CreateMemoryKit() override {
    if (script_.TakeFault(u"CreateMemoryKit")) FailCreation(kMemoryKitProgId);
    return std::make_unique<HostMemoryKit>();
  }

  clsPlugin& Plugin() {
    if (!plugin_) plugin_ = std::make_unique<clsPlugin>(module_);
    return *plugin_;
  }

  headless::MemoryFileSystem files_{kRoot};
  MemoryStorage storage_{files_};
  ErrorJournal journal_{kRoot, files_, storage_, SystemTime()};
  HostFileKit kit_{storage_, journal_};
  KitScript script_;
  headless::FixedProcessPaths paths_{Concat({kRoot, u"\\host.exe"})};
  headless::SettableClock clock_;
  headless::HeadlessToolkit toolkit_{files_};
  mdlBHDGS module_{{toolkit_, files_, paths_, clock_, CodePage::Windows1252(), *this}};
  std::unique_ptr<clsPlugin> plugin_;
  headless::HeadlessOperator operator_{
      toolkit_, [this]() -> ui::Form* { return module_.dialog.dialog.get(); }};
  std::size_t told_dialogs_ = 0;
};

}  // namespace

std::unique_ptr<Stage> MakeHeadlessStage() {
  return std::make_unique<HeadlessStage>();
}

}  // namespace quill::host
