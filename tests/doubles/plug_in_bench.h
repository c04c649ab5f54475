// The plug-in in a host without a screen, its operator, a remote machine's reply, and what comes of
// it in a few words.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dialog/option_table.h"
#include "host/headless/headless_host.h"
#include "host/remote/scenario.h"
#include "host/story/story_player.h"

namespace quill {

[[nodiscard]] inline Text InSettings(TextView file) {
  return Concat({u"C:\\Host\\profiles\\3\\settings\\", file});
}

struct PlugInBench : host::HeadlessHost {
  using Strings = std::vector<std::string>;

  PlugInBench() { static_cast<void>(plug_in()); }

  // The machine "Story Server" with the mods "None" and "Team Sabre".
  host::Scenario reply = host::StoryServer();

  // Opens the dialog for profile 3 and target "abc"; `use` is all that happens while it is shown.
  void Open(const std::function<void()>& use = [] {}) {
    HeadlessHost::Open(3, host::HostTexts({u"unused", u"abc"}), use);
  }
  void Reply() { plug_in().RemoteData(host::SettingsReply(reply)); }
  // Opens it, hands in the reply, and unloads it in the end.
  void OpenFilled(const std::function<void(frmrcBHDGS& dialog)>& use) {
    Open([&] {
      Reply();
      use(dialog());
    });
    if (module.dialog) dialog().Unload();
  }

  [[nodiscard]] frmrcBHDGS& dialog() { return *module.dialog; }
  // An option of the dialog, which is created when there is none.
  template <class T = ui::Control>
  [[nodiscard]] T& Option(TextView key) {
    return TakeDialog(module)->Get<T>(key);
  }
  // Its value as text: what is written, chosen (by position) or the state.
  [[nodiscard]] std::string Value(TextView key) {
    const ui::Control& option = Option(key);
    if (const auto* text = dynamic_cast<const ui::TextBox*>(&option)) return ToUtf8(text->text());
    if (const auto* combo = dynamic_cast<const ui::ComboBox*>(&option)) {
      return ToUtf8(combo->text());
    }
    const auto* list = dynamic_cast<const ui::ListBox*>(&option);
    return std::to_string(list ? list->ListIndex()
                               : dynamic_cast<const ui::CheckBox&>(option).value());
  }
  // Of every option, in the order of the option table.
  [[nodiscard]] Strings Values() {
    Strings values;
    for (const quill::Option& option : Options()) values.push_back(Value(option.key));
    return values;
  }

  // Presses and releases a button whose file dialog is answered by a file of the settings folder;
  // none for one that has no file dialog.
  void Push(TextView button, TextView file = {}) {
    if (!file.empty()) toolkit.AnswerNextFileDialog({InSettings(file)});
    person.Press(button, ui::kLeftButton);
    person.Release(button, ui::kLeftButton);
  }
  void Write(TextView file, std::string_view bytes) {
    memory.MakeFolders(InSettings(u""));
    memory.SetContents(InSettings(file), bytes);
  }
  [[nodiscard]] std::string Read(TextView file) { return ReadAt(InSettings(file)); }
  [[nodiscard]] std::string ReadAt(TextView path) {
    return memory.FileExists(path) ? memory.Contents(path) : "(none)";
  }

  // Puts maps into the rotation and shows it.
  void Select(std::initializer_list<SelectedMap> maps) {
    for (const SelectedMap& map : maps) module.maps.selected.Append(map);
    dialog().BuildMapList();
  }
  [[nodiscard]] const std::vector<SelectedMap>& rotation() const {
    return module.maps.selected.maps();
  }
  // The file names of the rotation, each with a blank behind it.
  [[nodiscard]] std::string RotationFiles() const {
    Text files_in_order;
    for (const SelectedMap& map : rotation()) files_in_order += Concat({map.file, u" "});
    return ToUtf8(files_in_order);
  }

  // "caption|text" of the boxes since the last call.
  [[nodiscard]] Strings Boxes() {
    Strings boxes;
    for (const headless::ShownMessage& box : toolkit.TakeMessages()) {
      boxes.push_back(ToUtf8(Concat({box.caption, u"|", box.text})));
    }
    return boxes;
  }
  // "label|number|description" of the failures since the last call, "(no line)" where it has none.
  [[nodiscard]] Strings Failures() {
    Strings told;
    for (const host::LoggedFailure& failure : std::exchange(watch.failures, {})) {
      told.push_back(ToUtf8(Concat({failure.label, u"|", Decimal(failure.number), u"|",
                                    failure.description, failure.line > 0 ? u"" : u" (no line)"})));
    }
    return told;
  }
};

}  // namespace quill
