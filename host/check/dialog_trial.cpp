// Opening and filling the dialog, and the operator's gestures.
#include "host/check/dialog_trial.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "host/remote/settings_reply.h"

namespace quill::host {
namespace {

constexpr TextView kFile = u"C:\\Host\\checked";
constexpr TextView kModOption = u"cboMods";

}  // namespace

void DialogTrial::WhileOpen(const std::function<void()>& use) {
  bool is_used = false;
  std::exception_ptr failure;
  host_.Open(conditions_.machine.index, HostTexts({u"", u"check"}), [&] {
    is_used = true;
    try {
      Fill();
      use();
    } catch (...) {
      failure = std::current_exception();
    }
  });
  if (failure) std::rethrow_exception(failure);
  if (!is_used) throw RuntimeError(ErrorNumber::kInternalError, u"the dialog has not opened");
}

void DialogTrial::Fill() {
  host_.plug_in().RemoteData(SettingsReply(conditions_.machine));
  if (!host_.watch.failures.empty()) {
    throw RuntimeError(ErrorNumber::kInvalidProcedureCall,
                       Concat({u"the dialog cannot be filled by the machine's reply: ",
                               host_.watch.failures.front().description}));
  }
  if (conditions_.mod) dialog().Get<ui::ComboBox>(kModOption).SetText(*conditions_.mod);
}

void DialogTrial::Push(TextView button) {
  host_.toolkit.AnswerNextFileDialog({Text(kFile)});
  host_.person.Press(button, 1);
  host_.person.Release(button, 1);
}

void DialogTrial::LoadSettings(std::string_view bytes,
                               const std::function<void(TextView entry)>& on_entry) {
  host_.memory.SetContents(kFile, bytes);
  host_.watch.before = [&](TextView operation, TextView entry) {
    if (operation == u"ParseIniKey") on_entry(entry);
    return true;
  };
  Push(u"cmdLoad");
  host_.watch.before = nullptr;
}

void DialogTrial::LoadMapList(std::string_view bytes) {
  host_.memory.SetContents(kFile, bytes);
  host_.person.ClickTab(u"Map Settings");
  Push(u"cmdLoadMaps");
}

std::unique_ptr<ByteReader> DialogTrial::Reader(std::string_view bytes) {
  host_.memory.SetContents(kFile, bytes);
  return host_.memory.OpenForReading(kFile);
}

bool DialogTrial::UsesTeamSabreMaps() const {
  return maps().catalogue.Count() == std::ssize(CatalogueRows());
}

const LoggedFailure* DialogTrial::FailureOf(TextView label) const {
  const auto found = std::ranges::find(failures(), label, &LoggedFailure::label);
  return found == failures().end() ? nullptr : &*found;
}

void DialogTrial::Conclude(FileAccount& account) {
  account.mod = dialog().Get<ui::ComboBox>(kModOption).text();
  account.with_team_sabre_maps = UsesTeamSabreMaps();
  if (account.maps.size() > std::size_t{kRotationLimit}) {
    account.Note(0, Concat({u"no map can be added before the rotation is shorter than ",
                            Decimal(kRotationLimit)}));
  }
}

}  // namespace quill::host
