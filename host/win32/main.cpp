// The reference host around the real library: the same command line as without a screen, and a
// window.
#include <windows.h>

#include <iostream>
#include <optional>
#include <vector>

#include "host/cli/arguments.h"
#include "host/cli/command_line.h"
#include "host/win32/dialog_pictures.h"
#include "host/win32/endurance.h"
#include "host/win32/high_contrast.h"
#include "host/win32/host_folder.h"
#include "host/win32/host_window.h"
#include "host/win32/native_stage.h"
#include "host/win32/wine.h"
#include "support/number_text.h"
#include "support/runtime_error.h"
#include "win32/native_text.h"

namespace quill::host {
namespace {

constexpr TextView kPictures = u"--pictures";
constexpr TextView kHighContrast = u"--high-contrast";
constexpr TextView kManifest = u"--manifest";

constexpr TextView kOwnHelp =
    u"\nWith the real library also:\n"
    u"  window [SCENARIO]   a host with a window of its own; the same without any command;\n"
    u"      with --high-contrast in a scheme of high contrast\n"
    u"  run --pictures FOLDER SCENARIO   leaves pictures of the dialog there;\n"
    u"      with --high-contrast also those of such a scheme\n"
    u"  endure [--cycles N]   loads and opens the plug-in N times (1000) and sends it ten times "
    u"as\n"
    u"                        many replies; exit code 1: something leaked\n"
    u"With any of them --manifest FILE stands for this program's own manifest.\n";

constexpr CommandOption kEndureOptions[] = {{u"--cycles", u"N", u""}};

// Takes the option out of the words. On Windows it would change the colours of the whole session.
bool TakeHighContrast(std::vector<Text>& words) {
  if (std::erase(words, kHighContrast) == 0) return false;
  if (!IsWine()) throw UsageError(u"--high-contrast changes the whole session: under Wine only");
  return true;
}

// The option's value, taken out of the words.
std::optional<Text> TakeOption(std::vector<Text>& words, TextView option) {
  for (std::size_t at = 0; at + 1 < words.size(); ++at) {
    if (words[at] != option) continue;
    Text value = words[at + 1];
    words.erase(words.begin() + static_cast<std::ptrdiff_t>(at),
                words.begin() + static_cast<std::ptrdiff_t>(at) + 2);
    return value;
  }
  return std::nullopt;
}

class Apartment {
 public:
  Apartment() {
    if (FAILED(OleInitialize(nullptr))) throw RuntimeError(ErrorNumber::kCannotCreateObject);
  }
  ~Apartment() { OleUninitialize(); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

// The activation context that a manifest describes, for this thread.
class ManifestInForce {
 public:
  explicit ManifestInForce(const Text& file) {
    ACTCTXW described = {};
    described.cbSize = sizeof described;
    described.lpSource = win32::Wide(file);
    context_ = CreateActCtxW(&described);
    if (context_ == INVALID_HANDLE_VALUE || !ActivateActCtx(context_, &cookie_)) {
      throw UsageError(Concat({file, u" is no manifest"}));
    }
  }
  ~ManifestInForce() {
    DeactivateActCtx(0, cookie_);
    ReleaseActCtx(context_);
  }
  ManifestInForce(const ManifestInForce&) = delete;
  ManifestInForce& operator=(const ManifestInForce&) = delete;

 private:
  HANDLE context_;
  ULONG_PTR cookie_ = 0;
};

int PerformEndure(std::span<const Text> words, ContractLog& contract, Console& console) {
  constexpr std::int32_t kMost = 1'000'000;
  const Arguments arguments = ParseArguments(words, kEndureOptions);
  if (!arguments.positional.empty()) throw UsageError(u"endure takes options only");
  const Text cycles = arguments.Option(u"--cycles").value_or(u"1000");
  // Ten are the fewest that can be compared.
  if (!IsNumber(cycles) || ToInt32(cycles) < 10 || ToInt32(cycles) > kMost) {
    throw UsageError(u"--cycles wants a number from 10 to 1000000");
  }
  const bool is_flat = Endure(LibraryBesideProgram(), ToInt32(cycles), contract,
                              [&](const Text& line) { console.PrintLine(line); });
  return is_flat ? kExitGood : kExitBad;
}

int PerformWithLibrary(std::vector<Text> words, ContractLog& contract, Console& console) {
  const PluginLibrary library(LibraryBesideProgram());
  const auto tell = [&](const Text& line) { console.PrintLine(line); };
  if (words.empty() || words[0] == u"window") {
    std::optional<HighContrast> scheme;
    if (TakeHighContrast(words)) {
      scheme.emplace(GetModuleHandleW(L"kvrrcBHDGS.dll"), nullptr);
    }
    if (words.size() > 2) throw UsageError(u"window takes one scenario at most");
    ShowHostWindow(words.size() == 2 ? words[1] : Text(), library, contract, tell);
    return kExitGood;
  }
  CommandLineParts parts{[&] { return MakeNativeStage(library, contract); }, nullptr};
  if (const auto folder = TakeOption(words, kPictures)) {
    parts.look = [&, folder = *folder, high_contrast = TakeHighContrast(words)](
                     Stage&, const Text& moment) {
      TakeDialogPictures(folder, moment, high_contrast, tell);
    };
  }
  const int code = RunCommandLine(words, parts, console);
  if (words[0] == u"--help" || words[0] == u"-h") console.Print(kOwnHelp);
  return code;
}

int Perform(std::vector<Text> words, Console& console) {
  std::optional<ManifestInForce> manifest;
  if (const auto file = TakeOption(words, kManifest)) manifest.emplace(*file);
  const Apartment apartment;
  ContractLog contract;
  contract.on_breach = [&](const Breach& breach) {
    console.PrintLine(FromUtf8(BreachLine(breach)));
  };
  const int code = !words.empty() && words[0] == u"endure"
                       ? PerformEndure(std::span<const Text>(words).subspan(1), contract, console)
                       : PerformWithLibrary(std::move(words), contract, console);
  return code == kExitGood && !contract.breaches().empty() ? kExitBad : code;
}

int Main(std::vector<Text> words) {
  Console console(std::cout, std::cerr);
  SetConsoleOutputCP(CP_UTF8);
  try {
    if (const auto code = RunInHostFolder()) return *code;
    return Perform(std::move(words), console);
  } catch (const UsageError& error) {
    console.PrintError(error.message());
    return kExitUsage;
  } catch (const RuntimeError& error) {
    console.PrintError(error.description());
  } catch (const std::exception& error) {
    console.PrintError(FromUtf8(error.what()));
  }
  return kExitBad;
}

}  // namespace
}  // namespace quill::host

extern "C" int wmain(int count, wchar_t** arguments) {
  std::vector<quill::Text> words;
  for (int at = 1; at < count; ++at) words.push_back(quill::win32::FromWide(arguments[at]));
  return quill::host::Main(std::move(words));
}
