// The plug-in as a host has loaded it, on doubles: what the host calls, what the operator does, and
// what both see.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "dialog/frmrcBHDGS.h"
#include "headless/memory_file_system.h"
#include "plugin/clsPlugin.h"
#include "tests/doubles/host_objects.h"
#include "tests/doubles/recording_file_kit.h"
#include "tests/doubles/recording_toolkit.h"

namespace quill {

class StoppedClock final : public Clock {
 public:
  std::uint64_t Ticks() override { return 1; }
  std::uint64_t Milliseconds() override { return 1; }
};

class FixedProcessPaths final : public ProcessPaths {
 public:
  Text executable = u"C:\\Host\\host.exe";
  Text plugin_folder = u"C:\\Host\\Plugins";
  Text ExecutablePath(std::size_t) override { return executable; }
  Text PluginFolder() override { return plugin_folder; }
};

class RecordingHostServices final : public HostServices {
 public:
  // What was created, in order; an object that cannot be created is noted too.
  std::vector<std::string> journal;
  bool offers_file_kit = true;
  bool offers_memory_kit = true;

  std::unique_ptr<FileKit> CreateFileKit() override {
    return Create<RecordingFileKit>("file kit", offers_file_kit);
  }
  std::unique_ptr<MemoryKit> CreateMemoryKit() override {
    return Create<MemoryKit>("memory kit", offers_memory_kit);
  }

 private:
  template <class T>
  std::unique_ptr<T> Create(const char* what, bool offered) {
    journal.emplace_back(what);
    if (!offered) throw RuntimeError(ErrorNumber::kCannotCreateObject);
    return std::make_unique<T>();
  }
};

struct LoadedPlugIn {
  RecordingToolkit toolkit;
  headless::MemoryFileSystem files;
  FixedProcessPaths paths;
  StoppedClock clock;
  RecordingHostServices services;
  mdlBHDGS module{{toolkit, files, paths, clock, CodePage::Windows1252(), services}};
  clsPlugin plug_in{module};

  // Opens the dialog for profile 3 and target "abc"; `while_shown` is all that happens until it is
  // closed.
  void Open(std::function<void()> while_shown = [] {}) {
    toolkit.play = std::move(while_shown);
    plug_in.LoadInterface(3, 0, TextArray({u"unused", u"abc"}));
  }

  [[nodiscard]] frmrcBHDGS& dialog() { return *module.dialog.dialog; }
  [[nodiscard]] RecordingFileKit& kit() {
    return dynamic_cast<RecordingFileKit&>(*module.dialog.file_kit);
  }

  // An option of the dialog, which is created when there is none.
  template <class T = ui::Control>
  [[nodiscard]] T& Option(TextView key) {
    return TakeDialog(module.dialog)->Get<T>(key);
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
    module.dialog.maps.selected.Append(std::move(map));
    TakeDialog(module.dialog)->BuildMapList();
  }

  // Presses and releases a mouse button over a control.
  void Press(TextView control, std::int16_t button = ui::kLeftButton) {
    const std::shared_ptr<frmrcBHDGS> held = module.dialog.dialog;
    ui::MouseEvent event;
    event.button = button;
    held->At(control).Happened(ui::MousePressed{event});
    held->At(control).Happened(ui::MouseReleased{event});
  }

  // "caption|text" of every box so far.
  [[nodiscard]] std::vector<std::string> Boxes() const {
    std::vector<std::string> shown;
    for (const auto& box : toolkit.messages.boxes) {
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
  [[nodiscard]] ui::Pointer ScreenPointer() const {
    const auto& journal = toolkit.journal;
    const auto last = std::find_if(journal.rbegin(), journal.rend(), [](const std::string& entry) {
      return entry.starts_with("ScreenPointer");
    });
    return last != journal.rend() && *last == "ScreenPointer busy" ? ui::Pointer::kBusy
                                                                   : ui::Pointer::kDefault;
  }
};

}  // namespace quill
