// Saving and loading host settings, step by step.
#include "dialog/settings_file.h"

#include <optional>
#include <utility>
#include <vector>

#include "dialog/frmrcBHDGS.h"
#include "dialog/option_table.h"
#include "dialog/previous_settings.h"
#include "dialog/profile_folders.h"
#include "dialog/stored_map.h"
#include "support/number_text.h"
#include "support/trap.h"

namespace quill {
namespace {

constexpr TextView kFilter = u"Host Settings File (*.hsf)|*.hsf";
constexpr TextView kDefaultTitle = u"kvrrcBHDGS";
constexpr int kNoMap = -1;

// The value of an option as the file holds it. An empty text is replaced in the dialog first.
Text ValueToSave(frmrcBHDGS& dialog, const Option& option) {
  switch (option.kind) {
    case ui::ControlKind::kTextBox: {
      auto& box = dialog.Get<ui::TextBox>(option.key);
      if (box.text().empty()) box.SetText(option.blank_replacement);
      return box.text();
    }
    case ui::ControlKind::kCheckBox:
      return Decimal(dialog.Get<ui::CheckBox>(option.key).value());
    case ui::ControlKind::kListBox:
      return Decimal(dialog.Get<ui::ListBox>(option.key).ListIndex());
    default:
      return Text(dialog.Get<ui::ComboBox>(option.key).text());
  }
}

void WriteOption(frmrcBHDGS& dialog, const Option& option, TextView file) {
  dialog.context().file_kit->WriteIniKey(kSettingsSection, option.key, ValueToSave(dialog, option),
                                         file);
}

void TellResult(DialogContext& context, TextView file) {
  if (!context.files.FileExists(file)) {
    context.reporter.Show(MessageKind::kFailed, u"Failed to Save Host Settings!.");
  } else if (context.files.FileSize(file) == 0) {
    context.reporter.Show(MessageKind::kFailed, u"Failed to Write Data to Host Settings File!.");
  } else {
    context.reporter.Show(MessageKind::kSuccess, u"Host Settings Saved Successfully.");
  }
}

// Of the items with this text the first is chosen; a text that is no item changes nothing.
void ChooseItem(ui::ComboBox& box, TextView text) {
  for (int i = 0; i < box.Count(); ++i) {
    if (box.Item(i) == text) return box.SetListIndex(i);
  }
}

// Sets the control that the key names, if there is one that has a value.
void SetControl(frmrcBHDGS& dialog, const IniEntry& entry) {
  ui::Control* control = dialog.Find(ControlNameOf(entry.key));
  if (control == nullptr) return;
  if (auto* text_box = dynamic_cast<ui::TextBox*>(control)) {
    text_box->SetText(entry.value);
  } else if (auto* combo_box = dynamic_cast<ui::ComboBox*>(control)) {
    ChooseItem(*combo_box, entry.value);
  } else if (auto* check_box = dynamic_cast<ui::CheckBox*>(control)) {
    check_box->SetValue(ToInt16(entry.value));
  } else if (auto* list_box = dynamic_cast<ui::ListBox*>(control)) {
    list_box->SetListIndex(ToInt16(entry.value));
  }
}

// Adds the map to the rotation, or its file name to the missing ones.
void TakeMap(MapLists& maps, TextView value, Text& missing) {
  const StoredMapFields fields = SplitStoredMap(value);
  if (fields.count < 3) throw RuntimeError(ErrorNumber::kSubscriptOutOfRange);
  const TextView file = TrimBlanks(fields.first[fields.count == 4 ? 3 : 2]);
  if (auto map = FindStoredMap(maps, fields.first[0], fields.first[1], file)) {
    maps.selected.Append(std::move(*map));
  } else {
    missing += file;
    missing += kLineBreak;
  }
}

}  // namespace

void SaveSettings(frmrcBHDGS& dialog) {
  DialogContext& context = dialog.context();
  int map_being_read = kNoMap;
  Trapped(
      context.reporter, u"cmdSave",
      [&](Line& at) {
        Text file;
        at(), MakeSettingsFolders(context);
        at(), file = AskForFileToSave(dialog, u"Save Host Settings", kFilter);
        if (file.empty()) return;

        const int map_count = dialog.lstSelMaps.Count();
        bool outlives = false;
        at(), outlives =
                  context.files.FileExists(file) && WouldOutliveSaving(dialog, file, map_count);
        if (outlives) at(), context.files.RenameFile(file, PreviousVersionName(file));

        for (const Option& option : Options()) at(), WriteOption(dialog, option, file);
        for (int n = 0; n < map_count; ++n) {
          Text value;
          map_being_read = n;
          at(), value = StoredMapText(context.maps.selected.At(n + 1));
          map_being_read = kNoMap;
          at(), context.file_kit->WriteIniKey(kSettingsSection, Concat({kMapKey, Decimal(n)}),
                                              value, file);
        }
        at(), TellResult(context, file);
      },
      [&](RuntimeError& error) {
        if (map_being_read == kNoMap || !error.Is(ErrorNumber::kInvalidProcedureCall)) return;
        error.AppendToDescription(Concat({u" [", Decimal(map_being_read), u"]"}));
      });
}

void LoadSettings(frmrcBHDGS& dialog) {
  DialogContext& context = dialog.context();
  Trapped(
      context.reporter, u"cmdLoad",
      [&](Line& at) {
        Text file;
        at(), MakeSettingsFolders(context);
        at(), file = AskForFileToOpen(dialog, u"Load Saved Host Settings", kFilter);
        // A dialog that the host has closed meanwhile has no say in the rotation any more.
        if (file.empty() || dialog.unloaded()) return;

        at(), dialog.SetPointer(ui::Pointer::kBusy);
        at(), context.maps.selected.Clear();
        Text missing;
        std::optional<std::vector<Text>> entries;
        at(), entries = context.file_kit->GetIniSection(kSettingsSection, file);
        // The last element is no entry, and fewer than two entries are no settings.
        const std::size_t count = entries && entries->size() >= 3 ? entries->size() - 1 : 0;
        for (std::size_t i = 0; i < count; ++i) {
          const Text& entry = (*entries)[i];
          IniEntry parsed;
          at(), parsed = context.file_kit->ParseIniKey(entry);
          at(), SetControl(dialog, parsed);
          if (!entry.starts_with(kMapKey)) continue;
          Text value;
          at(), value = context.file_kit->ParseIniValue(entry);
          at(), TakeMap(context.maps, value, missing);
        }
        at(), dialog.BuildMapList();
        at(), dialog.SetPointer(ui::Pointer::kDefault);
        if (missing.empty()) return;
        at(), context.toolkit.ShowMessage(
                  kDefaultTitle, Concat({u"The following map files do not appear to exist: ",
                                         kLineBreak, kLineBreak, missing}));
      },
      [&](RuntimeError&) { dialog.SetPointer(ui::Pointer::kDefault); });
}

}  // namespace quill
