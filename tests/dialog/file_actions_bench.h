// A dialog in a host without a screen, and an operator who picks files and presses buttons.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dialog/option_table.h"
#include "host/headless/headless_host.h"

namespace quill {

inline constexpr TextView kSettings = u"C:\\Host\\profiles\\3\\settings";

[[nodiscard]] inline Text InSettings(TextView file) {
  return Concat({kSettings, u"\\", file});
}

struct FileActionsBench : host::HeadlessHost {
  Session& context = module;

  FileActionsBench() {
    static_cast<void>(plug_in());
    context.Index = 3;
  }

  // Shows a fresh dialog, with the mods of a remote machine and the second of them picked, for as
  // long as `script` runs.
  void Show(const std::function<void(frmrcBHDGS& dialog)>& script) {
    context.maps.selected.Clear();
    const std::shared_ptr<frmrcBHDGS> dialog = TakeDialog(context);
    auto& mods = dialog->Get<ui::ComboBox>(u"cboMods");
    mods.AddItem(u"None");
    mods.AddItem(u"Team Sabre");
    mods.SetListIndex(1);
    bool played = false;
    toolkit.pump = [&] {
      if (std::exchange(played, true)) return false;
      script(*dialog);
      return true;
    };
    dialog->ShowModal();
    dialog->Unload();
  }

  // Presses and releases the button, with `picked` as the answer of its file dialog.
  void Use(TextView button, std::vector<Text> picked, std::int16_t mouse = ui::kLeftButton) {
    toolkit.AnswerNextFileDialog(std::move(picked));
    person.Press(button, mouse);
    person.Release(button, mouse);
  }
  void Save(TextView file) { Use(u"cmdSave", {InSettings(file)}); }
  void Load(TextView file) { Use(u"cmdLoad", {InSettings(file)}); }
  void LoadMaps(TextView file) {
    person.ClickTab(u"Map Settings");
    Use(u"cmdLoadMaps", {InSettings(file)});
  }

  void Write(TextView file, std::string_view bytes) {
    memory.MakeFolders(kSettings);
    memory.SetContents(InSettings(file), bytes);
  }
  [[nodiscard]] std::string Read(TextView file) const { return memory.Contents(InSettings(file)); }

  // Puts maps into the rotation and shows it.
  void Select(std::initializer_list<SelectedMap> maps) {
    for (const SelectedMap& map : maps) context.maps.selected.Append(map);
    context.dialog->BuildMapList();
  }
  [[nodiscard]] const std::vector<SelectedMap>& rotation() const {
    return context.maps.selected.maps();
  }
  // The file names of the rotation, each with a blank behind it.
  [[nodiscard]] std::string RotationFiles() const {
    Text files_in_order;
    for (const SelectedMap& map : rotation()) files_in_order += Concat({map.file, u" "});
    return ToUtf8(files_in_order);
  }
  // The value of every option as text, in the order of the option table.
  [[nodiscard]] std::vector<Text> Values() const {
    std::vector<Text> values;
    const frmrcBHDGS& dialog = *context.dialog;
    for (const Option& option : Options()) {
      const ui::Control* control = &dialog.At(option.key);
      if (const auto* text = dynamic_cast<const ui::TextBox*>(control)) {
        values.push_back(text->text());
      } else if (const auto* list = dynamic_cast<const ui::ListBox*>(control)) {
        values.push_back(Decimal(list->ListIndex()));
      } else if (const auto* check = dynamic_cast<const ui::CheckBox*>(control)) {
        values.push_back(Decimal(check->value()));
      } else {
        values.emplace_back(dynamic_cast<const ui::ComboBox&>(*control).text());
      }
    }
    return values;
  }

  // "caption|text" of the boxes since the last call.
  [[nodiscard]] std::vector<std::string> Boxes() {
    std::vector<std::string> boxes;
    for (const headless::ShownMessage& box : toolkit.TakeMessages()) {
      boxes.push_back(ToUtf8(Concat({box.caption, u"|", box.text})));
    }
    return boxes;
  }
  // "label|number|description" of the failures since the last call, "(no line)" where it has none.
  [[nodiscard]] std::vector<std::string> Failures() {
    std::vector<std::string> told;
    for (const host::LoggedFailure& failure : std::exchange(watch.failures, {})) {
      told.push_back(ToUtf8(Concat({failure.label, u"|", Decimal(failure.number), u"|",
                                    failure.description, failure.line > 0 ? u"" : u" (no line)"})));
    }
    return told;
  }
};

}  // namespace quill
