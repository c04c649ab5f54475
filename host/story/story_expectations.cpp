// The expectations, kind by kind.
#include "host/story/story_expectations.h"

#include <algorithm>

#include "host/kit/text_file.h"
#include "host/remote/request_envelope.h"
#include "host/remote/wire.h"
#include "host/story/sent_payload.h"
#include "host/story/story_failure.h"
#include "support/number_text.h"

namespace quill::host {
namespace {

void CheckEqual(TextView expected, TextView actual) {
  if (expected != actual) FailExpected(expected, actual);
}

// `relation` is one of those that the grammar knows.
void CheckRelation(TextView relation, TextView expected, TextView actual) {
  if (relation == u"=") return CheckEqual(expected, actual);
  const bool is_part = actual.find(expected) != TextView::npos;
  const bool holds = relation == u"!="         ? actual != expected
                     : relation == u"contains" ? is_part
                                               : !is_part;
  if (holds) return;
  throw StoryFailure({u"expected ", relation, u" ", QuotedForStory(expected), u", actual ",
                      QuotedForStory(actual)});
}

Text Joined(const std::vector<Text>& lines) {
  Text joined;
  for (const Text& line : lines) {
    if (&line != lines.data()) joined += kLineBreak;
    joined += line;
  }
  return joined;
}

// The text of a file that a block of lines describes.
Text FileOfLines(const std::vector<Text>& lines) {
  return Joined(lines) + Text(kLineBreak);
}

// Decimal digits that are not those of 0, from `at` on.
std::optional<TextView> LineNumberAt(TextView text, std::size_t at) {
  if (at > text.size()) return std::nullopt;
  const TextView digits =
      text.substr(at, std::min(text.find_first_not_of(u"0123456789", at), text.size()) - at);
  if (digits.empty() || digits.front() == u'0') return std::nullopt;
  return digits;
}

// Whether `text` is `pattern` with one and the same line number for each mark, which is never 0.
// `line` is that number when it is known already, and afterwards.
bool Fits(TextView pattern, TextView text, std::optional<Text>& line) {
  std::size_t at = 0;
  for (const char16_t unit : pattern) {
    if (unit != kLineMark) {
      if (at >= text.size() || text[at] != unit) return false;
      ++at;
      continue;
    }
    const std::optional<TextView> number = LineNumberAt(text, at);
    if (!number || (line && *line != *number)) return false;
    line = Text(*number);
    at += number->size();
  }
  return at == text.size();
}

void CheckFits(TextView pattern, TextView text, std::optional<Text>& line) {
  if (!Fits(pattern, text, line)) FailExpected(pattern, text);
}

Text BoxText(const SeenBox& box) {
  return Concat({QuotedForStory(box.caption), u" ", QuotedForStory(box.text)});
}

template <class T>
T TakeFirst(std::deque<T>& queue) {
  T first = std::move(queue.front());
  queue.pop_front();
  return first;
}

void CheckNone(const std::deque<Text>& entries, TextView what) {
  if (entries.empty()) return;
  throw StoryFailure({u"there is an unexpected ", what, u" ", QuotedForStory(entries.front())});
}

}  // namespace

void StoryExpectations::Look() {
  for (SeenBox& box : stage_.TakeBoxes()) boxes_.push_back(std::move(box));
  for (Text& entry : stage_.TakeLog()) log_.push_back(std::move(entry));
  for (Text& entry : stage_.TakeReports()) reports_.push_back(std::move(entry));
  for (SeenBox& dialog : stage_.TakeFileDialogs()) {
    file_dialogs_.push_back(std::move(dialog.caption));
    folders_.push_back(std::move(dialog.text));
    if (unused_answers_ > 0) {
      --unused_answers_;
    } else {
      ++unanswered_;
    }
  }
}

void StoryExpectations::FileDialogAnswered() {
  Look();
  ++unused_answers_;
}

void StoryExpectations::Check(const Step& step) {
  Look();
  const std::vector<Text>& words = step.arguments;
  switch (step.kind) {
    case StepKind::kExpectDialogShown:
      if (!stage_.DialogShown()) throw StoryFailure({u"the dialog is not shown"});
      return;
    case StepKind::kExpectDialogHidden:
      if (stage_.DialogShown()) throw StoryFailure({u"the dialog is shown"});
      return;
    case StepKind::kExpectDialogPointer:
      return CheckEqual(words[0], stage_.DialogPointer());
    case StepKind::kExpectScreenPointer:
      return CheckEqual(words[0], stage_.ScreenPointer());
    case StepKind::kExpectPending:
      if (const auto pending = stage_.PendingCommand()) CheckEqual(words[0], *pending);
      return;
    case StepKind::kExpectNoBox:
      if (boxes_.empty()) return;
      throw StoryFailure({u"there is an unexpected box ", BoxText(boxes_.front())});
    case StepKind::kExpectBox:
      return CheckBox(words[0], words[1]);
    case StepKind::kExpectBoxOfLines:
      return CheckBox(words[0], Joined(step.block));
    case StepKind::kExpectTrapped:
      return CheckTrapped(step, true);
    case StepKind::kExpectTrappedNotSent:
      return CheckTrapped(step, false);
    case StepKind::kExpectNoLog:
      return CheckNone(log_, u"log entry");
    case StepKind::kExpectLog:
      return CheckEntry(log_, u"log entry", words[0]);
    case StepKind::kExpectNoReport:
      return CheckNone(reports_, u"report");
    case StepKind::kExpectReport:
      return CheckEntry(reports_, u"report", words[0]);
    case StepKind::kExpectNoFileDialog:
      return CheckNone(file_dialogs_, u"file dialog");
    case StepKind::kExpectFileDialog:
    case StepKind::kExpectFileDialogIn: {
      CheckEntry(file_dialogs_, u"file dialog", words[0]);
      const Text folder = TakeFirst(folders_);
      if (step.kind == StepKind::kExpectFileDialogIn) CheckEqual(words[1], folder);
      return;
    }
    case StepKind::kExpectFileMissing:
    case StepKind::kExpectFile:
    case StepKind::kExpectFileOfLines:
      return CheckFile(step);
    case StepKind::kExpectNoRequest:
    case StepKind::kExpectRequest:
    case StepKind::kExpectRequestEnvelope:
      return CheckRequest(step);
    case StepKind::kExpectPayload:
    case StepKind::kExpectPayloadFieldCount:
    case StepKind::kExpectPayloadMod:
    case StepKind::kExpectPayloadMapCount:
    case StepKind::kExpectPayloadMap:
    case StepKind::kExpectPayloadField:
    case StepKind::kExpectPayloadText:
      return CheckPayload(step);
    case StepKind::kExpectVersion:
      return CheckEqual(words[0], stage_.DllVersion());
    case StepKind::kExpectRecord:
      return CheckEqual(words[1], stage_.PluginField(words[0]));
    case StepKind::kExpectMenu:
      return CheckEqual(Joined(step.block), Joined(stage_.LastMenu()));
    case StepKind::kExpectNoRows:
    case StepKind::kExpectRows:
    case StepKind::kExpectRowsInAnyOrder:
      return CheckRows(step);
    case StepKind::kExpectRow:
      return CheckEqual(words[2], stage_.Read(words[0], Concat({u"item ", words[1]})));
    case StepKind::kExpectRowData:
      return CheckEqual(words[2], stage_.Read(words[0], Concat({u"data ", words[1]})));
    case StepKind::kExpectProperty:
      return CheckProperty(step);
    default:
      throw StoryFailure({u"this is no expectation"});
  }
}

// A box that is another one than was expected has been expected all the same: it is taken.
void StoryExpectations::CheckBox(const Text& caption, const Text& text) {
  const SeenBox wanted{caption, text};
  if (boxes_.empty()) {
    throw StoryFailure({u"expected the box ", BoxText(wanted), u", actual no box"});
  }
  const SeenBox box = TakeFirst(boxes_);
  std::optional<Text> line;
  if (box.caption != caption || !Fits(text, box.text, line)) {
    throw StoryFailure({u"expected the box ", BoxText(wanted), u", actual ", BoxText(box)});
  }
}

void StoryExpectations::CheckEntry(std::deque<Text>& entries, TextView what, const Text& pattern) {
  if (entries.empty()) {
    throw StoryFailure(
        {u"expected the ", what, u" ", QuotedForStory(pattern), u", actual no ", what});
  }
  std::optional<Text> line;
  CheckFits(pattern, TakeFirst(entries), line);
}

// The log entry, the report and the box that belong together, with one and the same line.
void StoryExpectations::CheckTrapped(const Step& step, bool is_sent) {
  const Text& label = step.arguments[0];
  const Text& number = step.arguments[1];
  const Text& description = step.arguments[2];
  if (log_.empty() || reports_.empty() || boxes_.empty()) {
    throw StoryFailure({u"expected a trapped failure, actual ", log_.empty() ? u"no " : u"a ",
                        u"log entry, ", reports_.empty() ? u"no " : u"a ", u"report and ",
                        boxes_.empty() ? u"no " : u"a ", u"box"});
  }
  const Text entry = TakeFirst(log_);
  const Text report = TakeFirst(reports_);
  const SeenBox box = TakeFirst(boxes_);
  const TextView mark(&kLineMark, 1);
  std::optional<Text> line;
  CheckFits(Concat({u"kvrrcBHDGS.dll, ", label, u", line ", mark, u": error ", number, u", ",
                    description}),
            entry, line);
  CheckFits(Concat({number, u" | ", description, u" | kvrrcBHDGS.dll ", stage_.DllVersion(), u" | ",
                    label, u" | 0 | ", mark}),
            report, line);
  CheckEqual(u"DLL Error!", box.caption);
  CheckFits(Concat({u"Error Line: ", mark, kLineBreak, u"Error ", number, u": ", description,
                    kLineBreak, u"DLL: kvrrcBHDGS.dll", kLineBreak, u"Function/Sub: ", label,
                    kLineBreak, kLineBreak, u"Error Report Sent: ", is_sent ? u"Yes" : u"Failed!"}),
            box.text, line);
}

std::optional<Text> StoryExpectations::FileText(const Text& path) {
  const std::optional<std::string> bytes = stage_.FileContent(path);
  if (!bytes) return std::nullopt;
  return DecodeTextFile(*bytes).text;
}

void StoryExpectations::CheckFile(const Step& step) {
  const std::optional<Text> text = FileText(step.arguments[0]);
  if (step.kind == StepKind::kExpectFileMissing) {
    if (text) throw StoryFailure({u"there is such a file"});
    return;
  }
  if (!text) throw StoryFailure({u"there is no such file"});
  if (step.kind == StepKind::kExpectFileOfLines) return CheckEqual(FileOfLines(step.block), *text);
  CheckRelation(step.arguments[1], step.arguments[2], *text);
}

Text StoryExpectations::RequestText(TextView command) {
  const std::optional<Text> text = FileText(RequestPath(stage_.HostRoot(), command));
  if (!text) throw StoryFailure({u"there is no request ", command});
  return *text;
}

void StoryExpectations::CheckRequest(const Step& step) {
  const Text& command = step.arguments[0];
  if (step.kind == StepKind::kExpectNoRequest) {
    if (!stage_.FileContent(RequestPath(stage_.HostRoot(), command))) return;
    throw StoryFailure({u"there is a request ", QuotedForStory(RequestText(command))});
  }
  const Text text = RequestText(command);
  if (step.kind == StepKind::kExpectRequest) return CheckEqual(step.arguments[1], text);
  static_cast<void>(PayloadBehind(step.arguments[1], text));
}

void StoryExpectations::CheckPayload(const Step& step) {
  const RequestEnvelope envelope = ParseRequestEnvelope(RequestText(kStartCommand));
  const SentPayload payload(ReadFrame(envelope.frame));
  const std::vector<Text>& words = step.arguments;
  switch (step.kind) {
    case StepKind::kExpectPayload:
      return CheckRelation(words[0], words[1], payload.whole());
    case StepKind::kExpectPayloadFieldCount:
      return CheckEqual(words[0], Decimal(payload.FieldCount()));
    case StepKind::kExpectPayloadMod:
      return CheckEqual(words[0], payload.FieldText(25));
    case StepKind::kExpectPayloadMapCount:
      return CheckEqual(words[0], Decimal(payload.MapCount()));
    case StepKind::kExpectPayloadMap:
      return CheckEqual(words[1], payload.Map(ToInt32(words[0])));
    case StepKind::kExpectPayloadText:
      return CheckEqual(words[1], payload.FieldText(ToInt32(words[0])));
    default:
      return CheckEqual(words[1], payload.Field(ToInt32(words[0])));
  }
}

std::vector<Text> StoryExpectations::Rows(const Text& control) {
  const std::int32_t count = ToInt32(stage_.Read(control, u"count"));
  std::vector<Text> rows;
  rows.reserve(static_cast<std::size_t>(std::max(count, 0)));
  for (std::int32_t row = 0; row < count; ++row) {
    rows.push_back(stage_.Read(control, Concat({u"item ", Decimal(row)})));
  }
  return rows;
}

void StoryExpectations::CheckRows(const Step& step) {
  std::vector<Text> actual = Rows(step.arguments[0]);
  std::vector<Text> expected = step.block;
  if (step.kind == StepKind::kExpectRowsInAnyOrder) {
    std::sort(actual.begin(), actual.end());
    std::sort(expected.begin(), expected.end());
  }
  if (expected != actual) FailExpected(Joined(expected), Joined(actual));
}

void StoryExpectations::CheckProperty(const Step& step) {
  CheckRelation(step.arguments[2], step.arguments[3],
                stage_.Read(step.arguments[0], step.arguments[1]));
}

void StoryExpectations::CheckEnd(const std::function<void(const Text& message)>& fail) {
  Look();
  for (const SeenBox& box : boxes_) fail(Concat({u"there is an unexpected box ", BoxText(box)}));
  for (const Text& entry : log_) {
    fail(Concat({u"there is an unexpected log entry ", QuotedForStory(entry)}));
  }
  for (const Text& entry : reports_) {
    fail(Concat({u"there is an unexpected report ", QuotedForStory(entry)}));
  }
  if (unused_answers_ > 0) {
    fail(Concat({u"no file dialog has come for ", Decimal(unused_answers_), u" of the answers"}));
  }
  if (unanswered_ > 0) {
    fail(Concat({Decimal(unanswered_), u" of the file dialogs had no answer"}));
  }
}

}  // namespace quill::host
