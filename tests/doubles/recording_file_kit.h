// A file kit in memory that keeps what it was asked to do and fails where it is told to.
//
// INI files are lists of lines per section and path. Compression puts a mark before the text, and
// decompression insists on the mark and the length.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "support/file_kit.h"
#include "support/text.h"

namespace quill {

class RecordingFileKit final : public FileKit {
 public:
  struct WrittenFile {
    Text path;
    Text text;
    bool operator==(const WrittenFile&) const = default;
  };
  struct LogEntry {
    Text library;
    Text label;
    std::int32_t number;
    Text description;
    std::int32_t line;
    bool operator==(const LogEntry&) const = default;
  };

  std::vector<WrittenFile> files;
  std::vector<LogEntry> log;
  std::vector<ErrorReport> reports;
  // The lines of each section, by path and section name.
  std::map<std::pair<Text, Text>, std::vector<Text>> ini;
  // What SendErrorReport answers.
  bool sends = true;
  // Runs at the start of every operation with its name, for example "WriteFile"; throws to make the
  // operation fail.
  std::function<void(const std::string& operation)> before;
  // Where set, each operation adds its name to it.
  std::vector<std::string>* journal = nullptr;

  // Makes one operation fail with `error` from now on.
  void FailAt(std::string operation, RuntimeError error) {
    before = [operation = std::move(operation), error = std::move(error)](const std::string& name) {
      if (name == operation) throw error;
    };
  }

  void WriteFile(TextView path, TextView text) override {
    Begin("WriteFile");
    files.push_back({Text(path), Text(text)});
  }
  Text CompressString(TextView text) override {
    Begin("CompressString");
    return Concat({kCompressionMark, text});
  }
  Text DecompressString(TextView compressed, std::int32_t length) override {
    Begin("DecompressString");
    if (!compressed.starts_with(kCompressionMark)) {
      throw RuntimeError(ErrorNumber::kInvalidProcedureCall, u"not a compressed text");
    }
    compressed.remove_prefix(kCompressionMark.size());
    if (length < 0 || compressed.size() != static_cast<std::size_t>(length)) {
      throw RuntimeError(ErrorNumber::kInvalidProcedureCall, u"wrong length of a compressed text");
    }
    return Text(compressed);
  }
  std::optional<IniElements> GetIniSection(TextView section, TextView path) override {
    Begin("GetIniSection");
    const auto found = ini.find({Text(path), Text(section)});
    if (found == ini.end()) return std::nullopt;
    std::vector<Text> lines = found->second;
    lines.emplace_back();
    return IniElementsOf(std::move(lines));
  }
  IniEntry ParseIniKey(TextView line) override {
    Begin("ParseIniKey");
    const std::size_t equals = line.find(u'=');
    if (equals == TextView::npos) return {Text(line), {}};
    return {Text(line.substr(0, equals)), Text(line.substr(equals + 1))};
  }
  Text ParseIniValue(TextView line) override {
    Begin("ParseIniValue");
    const std::size_t equals = line.find(u'=');
    return equals == TextView::npos ? Text() : Text(line.substr(equals + 1));
  }
  void WriteIniKey(TextView section, TextView key, TextView value, TextView path) override {
    Begin("WriteIniKey");
    std::vector<Text>& lines = ini[{Text(path), Text(section)}];
    const Text start = Concat({key, u"="});
    Text written = Concat({start, value});
    for (Text& line : lines) {
      if (line.starts_with(start)) {
        line = std::move(written);
        return;
      }
    }
    lines.push_back(std::move(written));
  }
  void LogError(TextView library, TextView label, const RuntimeError& error,
                std::int32_t line) override {
    Begin("LogError");
    log.push_back({Text(library), Text(label), error.number(), Text(error.description()), line});
  }
  bool SendErrorReport(const ErrorReport& report) override {
    Begin("SendErrorReport");
    reports.push_back(report);
    return sends;
  }

 private:
  static constexpr TextView kCompressionMark = u"compressed:";

  void Begin(const char* operation) {
    if (journal != nullptr) journal->push_back(operation);
    if (before) before(operation);
  }
};

}  // namespace quill
