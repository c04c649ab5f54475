// A dialog with all that it works with, on doubles, and the gestures of an operator at it.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "dialog/frmrcBHDGS.h"
#include "headless/memory_file_system.h"
#include "tests/doubles/recording_file_kit.h"
#include "tests/doubles/recording_toolkit.h"

namespace quill {

class StandingClock final : public Clock {
 public:
  std::uint64_t ticks = 1;
  std::uint64_t Ticks() override { return ticks; }
};

struct DialogBench {
  RecordingToolkit toolkit;
  headless::MemoryFileSystem files;
  StandingClock clock;
  DialogContext context{toolkit, files, clock, CodePage::Windows1252()};
  RecordingFileKit* kit = nullptr;

  DialogBench() {
    auto recording = std::make_unique<RecordingFileKit>();
    kit = recording.get();
    context.file_kit = std::move(recording);
    context.HostRoot = u"C:\\Host";
    context.Index = 3;
  }

  // Shows the dialog, made when there is none, for as long as `script` runs.
  void Show(const std::function<void(frmrcBHDGS& dialog)>& script) {
    const auto dialog = TakeDialog(context);
    toolkit.play = [&] { script(*dialog); };
    dialog->ShowModal();
    dialog->Hide();
  }

  // Fills the list of mods as a reply of the remote side does, and picks one.
  static void PickMod(frmrcBHDGS& dialog, TextView mod) {
    auto& mods = dialog.Get<ui::ComboBox>(u"cboMods");
    mods.Clear();
    mods.AddItem(mod);
    mods.Happened(ui::ItemChosen{0});
  }

  static void Press(frmrcBHDGS& dialog, TextView name, std::int16_t button = ui::kLeftButton) {
    ui::MouseEvent event;
    event.button = button;
    dialog.At(name).Happened(ui::MousePressed{event});
  }
  static void Release(frmrcBHDGS& dialog, TextView name, std::int16_t button = ui::kLeftButton) {
    ui::MouseEvent event;
    event.button = button;
    dialog.At(name).Happened(ui::MouseReleased{event});
  }

  void Select(int count, SelectedMap map = {u"Somewhere", u"SW.BMS", 0, false}) {
    for (int i = 0; i < count; ++i) context.maps.selected.Append(map);
  }
};

}  // namespace quill
