// The plug-in as a host without a screen has loaded it, with a file kit that only keeps notes.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/headless/headless_host.h"
#include "tests/doubles/host_objects.h"
#include "tests/doubles/recording_file_kit.h"

namespace quill {

struct LoadedPlugIn : host::HeadlessHost {
  LoadedPlugIn() {
    make_file_kit = [] { return std::make_unique<RecordingFileKit>(); };
    static_cast<void>(plug_in());
  }

  // Opens the dialog for profile 3 and target "abc"; `while_shown` is all that happens until it is
  // closed.
  void Open(const std::function<void()>& while_shown = [] {}) {
    HeadlessHost::Open(3, host::HostTexts({u"unused", u"abc"}), while_shown);
  }

  [[nodiscard]] frmrcBHDGS& dialog() { return *module.dialog; }
  [[nodiscard]] RecordingFileKit& kit() {
    return dynamic_cast<RecordingFileKit&>(*module.file_kit);
  }

  // An option of the dialog, which is created when there is none.
  template <class T = ui::Control>
  [[nodiscard]] T& Option(TextView key) {
    return TakeDialog(module)->Get<T>(key);
  }
  // The value of an option as text.
  [[nodiscard]] std::string Value(TextView key) {
    const ui::Control& option = Option(key);
    if (const auto* text = dynamic_cast<const ui::TextBox*>(&option)) return ToUtf8(text->text());
    if (const auto* list = dynamic_cast<const ui::ListBox*>(&option)) {
      return std::to_string(list->ListIndex());
    }
    if (const auto* combo = dynamic_cast<const ui::ComboBox*>(&option)) {
      return ToUtf8(combo->text());
    }
    return std::to_string(dynamic_cast<const ui::CheckBox&>(option).value());
  }

  // Puts a map into the rotation and its row into the list.
  void SelectMap(SelectedMap map = {u"Dune", u"dune.bms", 0, false}) {
    module.maps.selected.Append(std::move(map));
    TakeDialog(module)->BuildMapList();
  }

  // Presses and releases a mouse button over a control.
  void Press(TextView control, std::int16_t button = ui::kLeftButton) {
    const std::shared_ptr<frmrcBHDGS> held = module.dialog;
    ui::MouseEvent event;
    event.button = button;
    held->At(control).Happened(ui::MousePressed{event});
    held->At(control).Happened(ui::MouseReleased{event});
  }

  // "caption|text" of every box so far.
  [[nodiscard]] std::vector<std::string> Boxes() const {
    std::vector<std::string> shown;
    for (const headless::ShownMessage& box : toolkit.messages()) {
      shown.push_back(ToUtf8(Concat({box.caption, u"|", box.text})));
    }
    return shown;
  }
  // "label|number|description" of every trapped failure that the file kit was told of. A failure
  // without a line, which nobody could find, shows as such.
  [[nodiscard]] std::vector<std::string> Reports() {
    std::vector<std::string> told;
    for (const auto& entry : kit().log) {
      told.push_back(ToUtf8(Concat({entry.label, u"|", Decimal(entry.number), u"|",
                                    entry.description, entry.line > 0 ? u"" : u" (no line)"})));
    }
    return told;
  }
};

}  // namespace quill
