// Comparing what was expected with what came first.
#include "host/story/story_sightings.h"

#include <algorithm>
#include <utility>

#include "host/story/story_words.h"

namespace quill::host {
namespace {

constexpr std::array<TextView, 4> kNames = {u"box", u"log entry", u"report", u"file dialog"};

TextView NameOf(Sighting kind) {
  return kNames[static_cast<std::size_t>(kind)];
}

Text Shown(const SeenBox& seen) {
  if (seen.caption.empty()) return QuotedForStory(seen.text);
  return Concat({QuotedForStory(seen.caption), u" ", QuotedForStory(seen.text)});
}

// Whether `text` is `pattern` with one and the same line number for each mark, which is never 0.
// `line` is that number when it is known already, and afterwards.
bool Fits(TextView pattern, TextView text, std::optional<Text>& line) {
  for (const char16_t unit : pattern) {
    std::size_t length = 1;
    if (unit == kLineMark) {
      length = std::min(text.find_first_not_of(u"0123456789"), text.size());
      const TextView number = text.substr(0, length);
      if (number.empty() || number[0] == u'0' || line.value_or(Text(number)) != number)
        return false;
      line = number;
    } else if (!text.starts_with(unit)) {
      return false;
    }
    text.remove_prefix(length);
  }
  return text.empty();
}

// `wanted` may hold marks for line numbers.
void Check(const SeenBox& wanted, const SeenBox& seen, std::optional<Text>& line) {
  if (seen.caption == wanted.caption && Fits(wanted.text, seen.text, line)) return;
  throw StoryFailure({u"expected ", Shown(wanted), u", actual ", Shown(seen)});
}

}  // namespace

void StorySightings::Look() {
  for (SeenBox& box : stage_.TakeBoxes()) Of(Sighting::kBox).push_back(std::move(box));
  for (Text& entry : stage_.kit_watch().TakeLog()) {
    Of(Sighting::kLogEntry).push_back({{}, std::move(entry)});
  }
  for (Text& entry : stage_.kit_watch().TakeReports()) {
    Of(Sighting::kReport).push_back({{}, std::move(entry)});
  }
  for (SeenBox& dialog : stage_.TakeFileDialogs()) {
    Of(Sighting::kFileDialog).push_back(std::move(dialog));
    unused_answers_ > 0 ? --unused_answers_ : ++unanswered_;
  }
}

void StorySightings::FileDialogAnswered() {
  Look();
  ++unused_answers_;
}

// One that is another one than was expected is taken all the same.
SeenBox StorySightings::Take(Sighting kind) {
  SeenBox first = std::move(Of(kind).front());
  Of(kind).pop_front();
  return first;
}

void StorySightings::Expect(Sighting kind, TextView caption, std::optional<TextView> text) {
  Look();
  SeenBox wanted{Text(caption), Text(text.value_or(TextView()))};
  if (Of(kind).empty()) {
    throw StoryFailure(
        {u"expected the ", NameOf(kind), u" ", Shown(wanted), u", actual no ", NameOf(kind)});
  }
  const SeenBox seen = Take(kind);
  if (!text) wanted.text = seen.text;
  std::optional<Text> line;
  Check(wanted, seen, line);
}

void StorySightings::ExpectNone(Sighting kind) {
  Look();
  if (Of(kind).empty()) return;
  throw StoryFailure({u"there is an unexpected ", NameOf(kind), u" ", Shown(Of(kind).front())});
}

void StorySightings::ExpectTrapped(const Words& words, TextView report_sent) {
  Look();
  const auto article = [&](Sighting kind) { return Of(kind).empty() ? u"no " : u"a "; };
  constexpr Sighting kAll[] = {Sighting::kLogEntry, Sighting::kReport, Sighting::kBox};
  if (std::ranges::any_of(kAll, [&](Sighting kind) { return Of(kind).empty(); })) {
    throw StoryFailure({u"expected a trapped failure, actual ", article(kAll[0]), u"log entry, ",
                        article(kAll[1]), u"report and ", article(kAll[2]), u"box"});
  }
  const SeenBox entry = Take(kAll[0]);
  const SeenBox report = Take(kAll[1]);
  const SeenBox box = Take(kAll[2]);
  const Text& label = words[0];
  const Text& number = words[1];
  const Text& description = words[2];
  const TextView mark(&kLineMark, 1);
  std::optional<Text> line;
  Check({{}, LogLine(u"kvrrcBHDGS.dll", label, mark, number, description)}, entry, line);
  Check({{},
         Concat({number, u" | ", description, u" | kvrrcBHDGS.dll ", stage_.DllVersion(), u" | ",
                 label, u" | 0 | ", mark})},
        report, line);
  Check({u"DLL Error!",
         Concat({u"Error Line: ", mark, kLineBreak, u"Error ", number, u": ", description,
                 kLineBreak, u"DLL: kvrrcBHDGS.dll", kLineBreak, u"Function/Sub: ", label,
                 kLineBreak, kLineBreak, u"Error Report Sent: ", report_sent})},
        box, line);
}

void StorySightings::CheckEnd(const std::function<void(const Text& message)>& fail) {
  Look();
  for (const Sighting kind : {Sighting::kBox, Sighting::kLogEntry, Sighting::kReport}) {
    for (const SeenBox& seen : Of(kind)) {
      fail(Concat({u"there is an unexpected ", NameOf(kind), u" ", Shown(seen)}));
    }
  }
  if (unused_answers_ > 0) {
    fail(Concat({u"no file dialog has come for ", Decimal(unused_answers_), u" of the answers"}));
  }
  if (unanswered_ > 0) {
    fail(Concat({Decimal(unanswered_), u" of the file dialogs had no answer"}));
  }
}

}  // namespace quill::host
