// The reference host around the real library: the same command line as without a screen, and a
// window.
#include <windows.h>

#include <filesystem>
#include <iostream>
#include <optional>
#include <system_error>
#include <vector>

#include "host/cli/command_line.h"
#include "host/win32/endurance.h"
#include "host/win32/high_contrast.h"
#include "host/win32/host_folder.h"
#include "host/win32/host_window.h"
#include "host/win32/native_stage.h"
#include "host/win32/window_picture.h"
#include "host/win32/window_robot.h"
#include "host/win32/wine.h"
#include "support/number_text.h"
#include "support/runtime_error.h"
#include "win32/native_text.h"

namespace quill::host {
namespace {

constexpr TextView kPictures = u"--pictures";
constexpr TextView kHighContrast = u"--high-contrast";

constexpr TextView kOwnHelp =
    u"\nWith the real library also:\n"
    u"  window [SCENARIO]   a host with a window of its own; the same without any command;\n"
    u"      with --high-contrast in a scheme of high contrast\n"
    u"  run --pictures FOLDER SCENARIO   leaves pictures of the dialog there;\n"
    u"      with --high-contrast also those of such a scheme\n"
    u"  endure [--cycles N]   loads and opens the plug-in N times (1000) and sends it ten times "
    u"as\n"
    u"                        many replies; exit code 1: something leaked\n";

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

// Turns to each tab, takes it and turns back; the moment "empty" leaves empty-1-game-settings.png
// and so on in the folder, which is made when it is missing; the same in high contrast when asked
// for. Each tab is drawn anew before its picture is taken.
void TakeDialogPictures(const std::filesystem::path& folder, const Text& moment, bool high_contrast,
                        Console& console) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  const WindowRobot robot(u"frmrcBHDGS");
  const HWND form = robot.FormWindow();
  const Text before = robot.Read(u"tsMain", u"caption");
  const int count = ToInt32(robot.Read(u"tsMain", u"count"));
  for (int tab = 0; tab < count; ++tab) {
    const Text caption = robot.Read(u"tsMain", Concat({u"item ", Decimal(tab)}));
    robot.ClickTab(caption);
    RedrawWindow(form, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    const Text name = ReplaceAll(ToLower(caption), u" ", u"-");
    const auto file = folder / Concat({moment, u"-", Decimal(tab + 1), u"-", name, u".png"});
    WritePng(TakeWindow(form), file);
    console.PrintLine(Concat({u"picture: ", file.u16string()}));
  }
  robot.ClickTab(before);
  if (!high_contrast) return;
  const HighContrast scheme(GetModuleHandleW(L"kvrrcBHDGS.dll"), form);
  TakeDialogPictures(folder, Concat({u"high-contrast-", moment}), false, console);
}

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
      TakeDialogPictures(folder, moment, high_contrast, console);
    };
  }
  const int code = RunCommandLine(words, parts, console);
  if (words[0] == u"--help" || words[0] == u"-h") console.Print(kOwnHelp);
  return code;
}

int Perform(std::vector<Text> words, Console& console) {
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
