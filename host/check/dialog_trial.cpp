// Opening and filling the dialog, and the operator's gestures.
#include "host/check/dialog_trial.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "host/kit/memory_kit.h"
#include "host/remote/settings_reply.h"
#include "host/story/button_pictures.h"

namespace quill::host {
namespace {

constexpr TextView kRoot = u"C:\\Host";
constexpr TextView kFile = u"C:\\Host\\checked";
constexpr TextView kModOption = u"cboMods";

class NoTarget final : public HostArray {
 public:
  [[nodiscard]] Text ElementText(std::int32_t) const override { return u"check"; }
};

}  // namespace

TrialConditions OrdinaryConditions() {
  TrialConditions conditions;
  conditions.machine.mods = {u"None", u"Team Sabre"};
  return conditions;
}

DialogTrial::DialogTrial(const TrialConditions& conditions)
    : conditions_(conditions),
      files_(kRoot),
      journal_(kRoot, files_, storage_, SystemTime()),
      paths_(Concat({kRoot, u"\\host.exe"})) {
  files_.MakeFolders(Concat({kRoot, u"\\imgs"}));
  files_.MakeFolders(Concat({kRoot, u"\\RCData"}));
  files_.SetContents(Concat({kRoot, kReleasedPicturePath}), kReleasedPicture);
  files_.SetContents(Concat({kRoot, kPressedPicturePath}), kPressedPicture);
}

std::unique_ptr<FileKit> DialogTrial::CreateFileKit() {
  return std::make_unique<headless::WatchedFileKit>(kit_, watch_);
}

std::unique_ptr<MemoryKit> DialogTrial::CreateMemoryKit() {
  return std::make_unique<HostMemoryKit>();
}

void DialogTrial::WhileOpen(const std::function<void()>& use) {
  bool is_used = false;
  std::exception_ptr failure;
  toolkit_.pump = [&] {
    if (std::exchange(is_used, true)) return false;
    try {
      Fill();
      use();
    } catch (...) {
      failure = std::current_exception();
    }
    return false;
  };
  plugin_.LoadInterface(conditions_.machine.index, 0, NoTarget());
  toolkit_.pump = nullptr;
  if (failure) std::rethrow_exception(failure);
  if (!is_used) throw RuntimeError(ErrorNumber::kInternalError, u"the dialog has not opened");
}

void DialogTrial::Fill() {
  plugin_.RemoteData(SettingsReply(conditions_.machine));
  if (!watch_.failures.empty()) {
    throw RuntimeError(ErrorNumber::kInvalidProcedureCall,
                       Concat({u"the dialog cannot be filled by the machine's reply: ",
                               watch_.failures.front().description}));
  }
  if (conditions_.mod) dialog().Get<ui::ComboBox>(kModOption).SetText(*conditions_.mod);
}

void DialogTrial::Push(TextView button) {
  toolkit_.AnswerNextFileDialog({Text(kFile)});
  operator_.Press(button, 1);
  operator_.Release(button, 1);
}

void DialogTrial::LoadSettings(std::string_view bytes,
                               const std::function<void(TextView entry)>& on_entry) {
  files_.SetContents(kFile, bytes);
  watch_.before = [&](TextView operation, TextView entry) {
    if (operation == u"ParseIniKey") on_entry(entry);
    return true;
  };
  Push(u"cmdLoad");
  watch_.before = nullptr;
}

void DialogTrial::LoadMapList(std::string_view bytes) {
  files_.SetContents(kFile, bytes);
  operator_.ClickTab(u"Map Settings");
  Push(u"cmdLoadMaps");
}

std::unique_ptr<ByteReader> DialogTrial::Reader(std::string_view bytes) {
  files_.SetContents(kFile, bytes);
  return files_.OpenForReading(kFile);
}

bool DialogTrial::UsesTeamSabreMaps() const {
  return maps().catalogue.Count() == std::ssize(CatalogueRows());
}

const headless::LoggedFailure* DialogTrial::FailureOf(TextView label) const {
  const auto found =
      std::find_if(failures().begin(), failures().end(),
                   [&](const headless::LoggedFailure& f) { return f.label == label; });
  return found == failures().end() ? nullptr : &*found;
}

void Conclude(DialogTrial& trial, FileAccount& account) {
  account.mod = trial.dialog().Get<ui::ComboBox>(kModOption).text();
  account.with_team_sabre_maps = trial.UsesTeamSabreMaps();
  for (const AccountLine& line : account.lines) {
    using Kind = AccountLine::Kind;
    if (line.kind == Kind::kMapFound) ++account.maps;
    const bool is_lost =
        line.kind == Kind::kMapMissing || line.kind == Kind::kLeftOut || line.kind == Kind::kFailed;
    if (is_lost) account.left_out += line.count;
  }
  if (account.maps > std::size_t{kRotationLimit}) {
    account.lines.push_back({AccountLine::Kind::kNote, 0,
                             Concat({u"no map can be added before the rotation is shorter than ",
                                     Decimal(kRotationLimit)}),
                             u""});
  }
}

}  // namespace quill::host
