// "quillhost run": the whole job from opening the plug-in to the start record.
#include <filesystem>
#include <system_error>
#include <utility>

#include "host/cli/commands.h"
#include "host/cli/main_job.h"
#include "host/kit/file_storage.h"
#include "host/kit/text_line.h"

namespace quill::host {
namespace {

namespace fs = std::filesystem;

Text PathText(const fs::path& path) {
  const std::u8string bytes = path.u8string();
  return FromUtf8(std::string(bytes.begin(), bytes.end()));
}

// The folder for what the job leaves, made where it is missing, with one for requests in it.
fs::path ResultFolder(const Arguments& arguments) {
  const fs::path folder = ArgumentPath(arguments.Option(u"--folder").value_or(u"quillhost-run"));
  std::error_code error;
  fs::create_directories(folder / "RCData", error);
  const fs::path whole = fs::canonical(folder, error);
  if (error || !fs::is_directory(whole / "RCData", error)) {
    throw UsageError(Concat({u"the folder \"", PathText(folder), u"\" cannot be used"}));
  }
  return whole;
}

}  // namespace

int RunMainJobCommand(const Arguments& arguments, const CommandLineParts& parts, Console& console) {
  const Scenario scenario = ReadScenario(arguments.positional[0]);
  const std::optional<Text> settings = arguments.Option(u"--settings");
  std::string settings_bytes = settings ? ReadArgumentFile(*settings) : std::string();
  const fs::path folder = ResultFolder(arguments);
  const std::unique_ptr<Stage> stage = parts.make_stage();
  const Text root = stage->HostRoot();
  // The job itself names the results, all of them below the host's root.
  const auto real_path = [&](TextView path) {
    return folder / ReplaceAll(path.substr(root.size() + 1), u"\\", u"/");
  };
  DiskStorage results(real_path);
  const Text record = PathText(real_path(Concat({root, kStartRecordPath})));
  MainJob job(
      scenario, *stage, results, record, [&](const Text& line) { console.PrintLine(line); },
      parts.look);
  if (settings) job.LoadSettingsFirst(FileName(*settings), std::move(settings_bytes));
  const bool is_started = job.Run();
  if (job.has_record()) {
    console.PrintLine(Concat({u"Start record: ", record}));
  } else {
    console.PrintLine(u"Start record: none, no start request was accepted");
  }
  return is_started ? kExitGood : kExitBad;
}

}  // namespace quill::host
