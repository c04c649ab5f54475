// The host, the operator and the eyes of a stage without a screen.
#include "host/story/stage.h"

#include <utility>
#include <variant>

#include "headless/shown_words.h"
#include "host/headless/headless_host.h"
#include "host/kit/text_line.h"
#include "host/story/operator_gestures.h"
#include "host/watch/plugin_invariants.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

using Texts = std::optional<std::vector<Text>>;

struct Field {
  TextView name;
  std::variant<Text PLUGIN::*, bool PLUGIN::*, Texts PLUGIN::*> value;
};
constexpr Field kFields[] = {
    {u"Name", &PLUGIN::Name},
    {u"File", &PLUGIN::File},
    {u"Version", &PLUGIN::Version},
    {u"Author", &PLUGIN::Author},
    {u"Description", &PLUGIN::Description},
    {u"Game", &PLUGIN::Game},
    {u"HasInterface", &PLUGIN::HasInterface},
    {u"ProfileMenu", &PLUGIN::ProfileMenu},
    {u"ServerMenu", &PLUGIN::ServerMenu},
    {u"MainMenu", &PLUGIN::MainMenu},
    {u"ProfileMenuItems", &PLUGIN::ProfileMenuItems},
    {u"ServerMenuItems", &PLUGIN::ServerMenuItems},
    {u"MainMenuItems", &PLUGIN::MainMenuItems},
    {u"MinRCVer", &PLUGIN::MinRCVer},
    {u"MinMemKitVer", &PLUGIN::MinMemKitVer},
    {u"MinFileKitVer", &PLUGIN::MinFileKitVer},
    {u"MinKVRVer", &PLUGIN::MinKVRVer},
    {u"MinRCCVer", &PLUGIN::MinRCCVer},
};

Text Shown(const Text& text) {
  return text;
}

Text Shown(bool value) {
  return Text(headless::TruthWord(value));
}

Text Shown(const Texts& texts) {
  return texts ? Joined(*texts, u"|") : Text(u"empty");
}

// A field of the plug-in's information record, as Stage::PluginField gives it.
Text RecordField(const PLUGIN& record, TextView field) {
  for (const auto& [name, value] : kFields) {
    if (name != field) continue;
    return std::visit([&](auto member) { return Shown(record.*member); }, value);
  }
  throw RuntimeError(ErrorNumber::kMemberNotFound,
                     Concat({u"the record has no field \"", field, u"\""}));
}

class HeadlessStage final : public Stage {
 public:
  [[nodiscard]] std::string Name() const override { return "headless"; }
  [[nodiscard]] Text HostRoot() override { return Text(HeadlessHost::kRoot); }
  [[nodiscard]] FileStorage& storage() override { return host_.storage; }
  void PutFile(const Text& path, std::string_view bytes) override {
    host_.memory.MakeFolders(path.substr(0, path.find_last_of(u'\\')));
    host_.memory.SetContents(path, bytes);
  }
  [[nodiscard]] KitWatch& kit_watch() override { return host_.watch; }
  void SetClock(std::uint64_t ticks) override { host_.clock.Set(ticks); }

  Text DllVersion() override { return host_.plug_in().dllVersion(u"kvrrcBHDGS"); }
  Text PluginField(const Text& field) override {
    return RecordField(host_.plug_in().GetData(), field);
  }
  void SetPrivis(const std::vector<Right>& rights, bool super_admin) override {
    host_.plug_in().SetPrivis(std::make_shared<HostRights>(rights),
                              std::make_shared<HostRights>(std::vector<Right>()), super_admin);
  }
  void LoadInterface(std::int32_t index, const std::vector<Text>& target,
                     const std::function<bool()>& go_on) override {
    view_may_be_older_ = true;  // a hidden dialog keeps it
    host_.Display(index, HostTexts(target), go_on);
  }
  void RemoteData(const Text& data) override { host_.plug_in().RemoteData(data); }
  void HideInterface() override {
    view_may_be_older_ = true;  // it makes a dialog where there is none
    host_.plug_in().HideInterface();
  }

  void Make(TextView pattern, const Words& words) override {
    MakeGesture(host_.person, pattern, words);
  }
  void AnswerFileDialog(const std::vector<Text>& paths, bool by_double_click) override {
    host_.toolkit.AnswerNextFileDialog(paths);
    if (by_double_click) host_.toolkit.held_while_box_closes = ui::kLeftButton;
  }
  void DuringNextBox(bool asks_for_file, const std::function<void()>& step) override {
    if (asks_for_file) {
      host_.toolkit.while_file_dialog_open = [this, step](const ui::FileDialogRequest&) {
        const auto once = std::exchange(host_.toolkit.while_file_dialog_open, {});
        step();
      };
      return;
    }
    host_.toolkit.while_message_open = [this, step](const headless::ShownMessage&) {
      const auto once = std::exchange(host_.toolkit.while_message_open, {});
      ++open_boxes_;
      step();
      --open_boxes_;
    };
  }

  [[nodiscard]] Text Read(const Text& control, const Text& property) override {
    const Text value = host_.person.Read(control, property);
    return property == u"picture" ? value.substr(value.find_last_of(u'\\') + 1) : value;
  }
  [[nodiscard]] bool DialogShown() override { return host_.toolkit.ModalForm() != nullptr; }
  [[nodiscard]] Text ScreenPointer() override {
    return Text(headless::PointerWord(host_.toolkit.screen_pointer() == ui::Pointer::kBusy));
  }
  [[nodiscard]] std::vector<Text> LastMenu() override { return host_.toolkit.menu(); }
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
  [[nodiscard]] std::vector<Text> Broken() override {
    if (open_boxes_ > 0) return {};  // an operation may be half done
    view_may_be_older_ = view_may_be_older_ || !host_.watch.failures.empty();
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
  HeadlessHost host_;
  int open_boxes_ = 0;
  bool view_may_be_older_ = false;  // after these and a failure, until it agrees again
};

}  // namespace

std::unique_ptr<Stage> MakeHeadlessStage() {
  return std::make_unique<HeadlessStage>();
}

}  // namespace quill::host
