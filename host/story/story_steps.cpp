// The table of steps, and what its longer rows do.
#include "host/story/story_steps.h"

#include <algorithm>
#include <array>
#include <utility>

#include "headless/headless_operator.h"
#include "host/kit/text_file.h"
#include "host/kit/text_line.h"
#include "host/remote/scenario.h"
#include "host/remote/start_request.h"
#include "host/remote/wire.h"
#include "host/story/operator_gestures.h"
#include "host/story/story_player.h"
#include "maps/map_entry.h"
#include "support/code_page.h"

namespace quill::host {
namespace {

// More rounds than any story needs.
constexpr std::int32_t kMostRounds = 10'000;

// What each row is handed.
using P = StoryPlayer&;
using S = const Step&;

Words From(S step, std::ptrdiff_t word) {
  return {step.words.begin() + word, step.words.end()};
}

// The text of a file that a block of lines describes.
Text FileOf(S step) {
  return Joined(step.block, kLineBreak) + Text(kLineBreak);
}

// Files are written in Windows-1252, so that every byte can be had.
std::string FileBytes(TextView text) {
  std::string bytes;
  for (const char16_t unit : text) {
    bytes += static_cast<char>(CodePage::Windows1252().ToByte(unit));
  }
  return bytes;
}

// Bytes in hexadecimal, a word each.
std::string BytesOf(const Words& words) {
  std::string bytes;
  for (const Text& word : words) {
    const TextView digits = u"0123456789ABCDEF";
    const std::size_t high = word.size() == 2 ? digits.find(ToUpper(word[0])) : Text::npos;
    const std::size_t low = word.size() == 2 ? digits.find(ToUpper(word[1])) : Text::npos;
    if (high == Text::npos || low == Text::npos) {
      throw StoryFailure({u"a byte is two hexadecimal digits, not ", QuotedForStory(word)});
    }
    bytes += static_cast<char>(high * 16 + low);
  }
  return bytes;
}

void BreakKit(P p, S s, bool from_now_on) {
  p.stage.kit_watch().Break({s[0], s.Number(1), s[2], from_now_on});
}

void AddRight(P p, S s, Right::Form form, TextView value) {
  p.rights.push_back({s[0], form, Text(value)});
}

void Answer(P p, const Words& paths, bool by_double_click) {
  p.stage.AnswerFileDialog(paths, by_double_click);
  p.sightings.FileDialogAnswered();
}

void Repeat(P p, S s) {
  const std::int32_t rounds = s.Number(0);
  if (rounds < 1 || rounds > kMostRounds) {
    throw StoryFailure({u"steps are repeated 1 to ", Decimal(kMostRounds), u" times"});
  }
  for (std::int32_t round = 0; round < rounds; ++round) p.PlayAll(s.steps);
}

void Require(bool holds, TextView otherwise) {
  if (!holds) throw StoryFailure({otherwise});
}

[[noreturn]] void FailExpected(TextView expected, TextView actual) {
  throw StoryFailure(
      {u"expected ", QuotedForStory(expected), u", actual ", QuotedForStory(actual)});
}

void CheckEqual(TextView expected, TextView actual) {
  if (expected != actual) FailExpected(expected, actual);
}

void CheckLines(const std::vector<Text>& expected, const std::vector<Text>& actual) {
  if (expected != actual) FailExpected(Joined(expected, kLineBreak), Joined(actual, kLineBreak));
}

// `relation` is one that IS stands for.
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

Text FileText(P p, const Text& path) {
  const auto bytes = p.stage.storage().ReadWhole(path);
  Require(bytes.has_value(), u"there is no such file");
  return DecodeTextFile(*bytes).text;
}

Text RequestText(P p, TextView command) {
  const auto bytes = p.stage.storage().ReadWhole(RequestPath(p.stage.HostRoot(), command));
  if (!bytes) throw StoryFailure({u"there is no request ", command});
  return DecodeTextFile(*bytes).text;
}

void ExpectNoRequest(P p, S s) {
  if (!p.stage.storage().ReadWhole(RequestPath(p.stage.HostRoot(), s[0]))) return;
  throw StoryFailure({u"there is a request ", QuotedForStory(RequestText(p, s[0]))});
}

Text PayloadText(P p) {
  return ReadFrame(ParseRequestEnvelope(RequestText(p, kStartCommand)).frame);
}
StartRequest Payload(P p) {
  return DecodeStartPayload(PayloadText(p));
}

template <class T>
const T& At(const std::vector<T>& items, std::int32_t index) {
  if (index >= 0 && index < std::ssize(items)) return items[static_cast<std::size_t>(index)];
  throw StoryFailure({u"the payload has only ", Decimal(std::ssize(items)), u" of them"});
}

void ExpectMap(P p, S s) {
  const StartRequest request = Payload(p);
  const SelectedMap& map = At(request.maps, s.Number(0));
  CheckEqual(s[1], Concat({JoinMapEntry(map.name, map.file), u" ", Decimal(map.game_type),
                           map.server_map ? u" True" : u" False"}));
}

void ExpectEnvelope(P p, S s) {
  const Text request = RequestText(p, s[0]);
  const Text head = Concat({s[1], kFieldSeparator});
  CheckEqual(head, TextView(request).substr(0, head.size()));
  static_cast<void>(ReadFrame(request.substr(head.size())));
}

void SetEncoded(P p, S s) {
  Words texts = From(s, 1);
  for (Text& text : texts) text = EncodeField(text);
  p.reply.SetRawField(s.Number(0), Joined(texts, kListSeparator));
}

void SetFieldCount(P p, S s) {
  if (s.Number(0) < 1 || s.Number(0) > 99) throw StoryFailure({u"a reply has 1 to 99 fields"});
  p.reply.field_count = s.Number(0);
}

void ExpectGestures(P p, S s) {
  if (p.gestures <= s.Number(0)) return;
  throw StoryFailure({u"expected at most ", s[0], u" gestures, actual ", Decimal(p.gestures)});
}

std::vector<Text> Rows(P p, const Text& control) {
  std::vector<Text> rows;
  for (int row = 0, count = ToInt32(p.stage.Read(control, u"count")); row < count; ++row) {
    rows.push_back(p.stage.Read(control, Concat({u"item ", Decimal(row)})));
  }
  return rows;
}

void ExpectRows(P p, S s) {
  CheckLines(s.block, Rows(p, s[0]));
}

void ExpectRowsInAnyOrder(P p, S s) {
  std::vector<Text> expected = s.block;
  std::vector<Text> actual = Rows(p, s[0]);
  std::ranges::sort(expected);
  std::ranges::sort(actual);
  CheckLines(expected, actual);
}

using enum StepKind;
constexpr StepKind kExpect = kExpectation;

constexpr StepForm kSteps[] = {
    {u"title TEXT", kTitle},

    {u"file TEXT = TEXT", kSetUp, [](P p, S s) { p.stage.PutFile(s[0], FileBytes(s[1])); }},
    {u"file TEXT bytes TEXTS", kSetUp,
     [](P p, S s) { p.stage.PutFile(s[0], BytesOf(From(s, 1))); }},
    {u"file TEXT missing", kSetUp, [](P p, S s) { p.stage.storage().Remove(s[0]); }},
    {u"file TEXT LINES", kSetUp, [](P p, S s) { p.stage.PutFile(s[0], FileBytes(FileOf(s))); }},
    {u"kit NAME fails from now on NUMBER TEXT", kSetUp, [](P p, S s) { BreakKit(p, s, true); }},
    {u"kit NAME fails NUMBER TEXT", kSetUp, [](P p, S s) { BreakKit(p, s, false); }},
    {u"kit refuses reports", kSetUp,
     [](P p, S) {
       p.stage.kit_watch().Break({u"SendErrorReport", 0, {}, true});
     }},
    {u"kit works", kSetUp, [](P p, S) { p.stage.kit_watch().faults.clear(); }},
    {u"clock NUMBER", kSetUp,
     [](P p, S s) { p.stage.SetClock(static_cast<std::uint64_t>(s.Number(0))); }},
    {u"right TEXT = number NUMBER", kSetUp,
     [](P p, S s) { AddRight(p, s, Right::Form::kNumber, s[1]); }},
    {u"right TEXT = TEXT", kSetUp, [](P p, S s) { AddRight(p, s, Right::Form::kText, s[1]); }},
    {u"right TEXT fails", kSetUp, [](P p, S s) { AddRight(p, s, Right::Form::kFails, {}); }},

    {u"reply new", kSetUp, [](P p, S) { p.reply = StoryServer(); }},
    {u"reply fixed TEXT = TEXT", kSetUp, [](P p, S s) { p.reply.SetFixed(s[0], s[1]); }},
    {u"reply no mods", kSetUp, [](P p, S) { p.reply.mods.clear(); }},
    {u"reply mods TEXTS", kSetUp, [](P p, S s) { p.reply.mods = s.words; }},
    {u"reply no maps", kSetUp, [](P p, S) { p.reply.maps.clear(); }},
    {u"reply map TEXT TEXT TEXT", kSetUp, [](P p, S s) { p.reply.AddMap(s[0], s[1], s[2]); }},
    {u"reply raw NUMBER = TEXT", kSetUp, [](P p, S s) { p.reply.SetRawField(s.Number(0), s[1]); }},
    {u"reply encodes NUMBER = TEXTS", kSetUp, SetEncoded},
    {u"reply has NUMBER fields", kSetUp, SetFieldCount},
    {u"reply TEXT = TEXT", kSetUp, [](P p, S s) { p.reply.Set(s[0], s[1]); }},

    {u"host sets rights of super-administrator", kSetUp,
     [](P p, S) { p.stage.SetPrivis(std::exchange(p.rights, {}), true); }},
    {u"host sets rights", kSetUp,
     [](P p, S) { p.stage.SetPrivis(std::exchange(p.rights, {}), false); }},
    {u"host opens profile NUMBER without target", kSetUp,
     [](P p, S s) { p.Open(s.Number(0), {u""}); }},
    {u"host opens profile NUMBER target TEXT", kSetUp,
     [](P p, S s) {
       p.Open(s.Number(0), Words{u"", s[1]});
     }},
    {u"host hides", kSetUp, [](P p, S) { p.stage.HideInterface(); }},
    {u"host replies with payload TEXT", kSetUp,
     [](P p, S s) { p.stage.RemoteData(WriteFrame(s[0])); }},
    {u"host replies with TEXT", kSetUp, [](P p, S s) { p.stage.RemoteData(s[0]); }},
    {u"host replies", kSetUp, [](P p, S) { p.stage.RemoteData(SettingsReply(p.reply)); }},

    {u"answer cancel", kSetUp, [](P p, S) { Answer(p, {}, false); }},
    {u"answer double-click TEXT", kSetUp, [](P p, S s) { Answer(p, s.words, true); }},
    {u"answer TEXTS", kSetUp, [](P p, S s) { Answer(p, s.words, false); }},

    {u"during box", kBlock, [](P p, S s) { p.PlayDuringBox(false, s); }},
    {u"during file dialog", kBlock, [](P p, S s) { p.PlayDuringBox(true, s); }},
    {u"repeat NUMBER times", kBlock, Repeat},
    {u"end", kEnd},

    {u"expect dialog shown", kExpect,
     [](P p, S) { Require(p.stage.DialogShown(), u"the dialog is not shown"); }},
    {u"expect dialog hidden", kExpect,
     [](P p, S) { Require(!p.stage.DialogShown(), u"the dialog is shown"); }},
    {u"expect dialog pointer = NAME", kExpect,
     [](P p, S s) { CheckEqual(s[0], p.stage.Read(u"frmrcBHDGS", u"pointer")); }},
    {u"expect screen pointer = NAME", kExpect,
     [](P p, S s) { CheckEqual(s[0], p.stage.ScreenPointer()); }},
    {u"expect pending = TEXT", kExpect,
     [](P p, S s) { CheckEqual(s[0], p.stage.PendingCommand().value_or(s[0])); }},
    {u"expect at most NUMBER gestures", kExpect, ExpectGestures},
    {u"expect menu LINES", kExpect, [](P p, S s) { CheckLines(s.block, p.stage.LastMenu()); }},
    {u"expect no box", kExpect, [](P p, S) { p.sightings.ExpectNone(Sighting::kBox); }},
    {u"expect box TEXT PATTERN-LINES", kExpect,
     [](P p, S s) { p.sightings.Expect(Sighting::kBox, s[0], Joined(s.block, kLineBreak)); }},
    {u"expect box TEXT PATTERN", kExpect,
     [](P p, S s) { p.sightings.Expect(Sighting::kBox, s[0], s[1]); }},
    {u"expect trapped TEXT NUMBER TEXT not sent", kExpect,
     [](P p, S s) { p.sightings.ExpectTrapped(s.words, u"Failed!"); }},
    {u"expect trapped TEXT NUMBER TEXT", kExpect,
     [](P p, S s) { p.sightings.ExpectTrapped(s.words, u"Yes"); }},
    {u"expect no log", kExpect, [](P p, S) { p.sightings.ExpectNone(Sighting::kLogEntry); }},
    {u"expect log PATTERN", kExpect,
     [](P p, S s) { p.sightings.Expect(Sighting::kLogEntry, {}, s[0]); }},
    {u"expect no report", kExpect, [](P p, S) { p.sightings.ExpectNone(Sighting::kReport); }},
    {u"expect report PATTERN", kExpect,
     [](P p, S s) { p.sightings.Expect(Sighting::kReport, {}, s[0]); }},
    {u"expect no file dialog", kExpect,
     [](P p, S) { p.sightings.ExpectNone(Sighting::kFileDialog); }},
    {u"expect file dialog TEXT in TEXT", kExpect,
     [](P p, S s) { p.sightings.Expect(Sighting::kFileDialog, s[0], s[1]); }},
    {u"expect file dialog TEXT", kExpect,
     [](P p, S s) { p.sightings.Expect(Sighting::kFileDialog, s[0], std::nullopt); }},
    {u"expect file TEXT missing", kExpect,
     [](P p, S s) { Require(!p.stage.storage().ReadWhole(s[0]), u"there is such a file"); }},
    {u"expect file TEXT LINES", kExpect,
     [](P p, S s) { CheckEqual(FileOf(s), FileText(p, s[0])); }},
    {u"expect file TEXT IS TEXT", kExpect,
     [](P p, S s) { CheckRelation(s[1], s[2], FileText(p, s[0])); }},
    {u"expect no request NAME", kExpect, ExpectNoRequest},
    {u"expect request NAME envelope TEXT", kExpect, ExpectEnvelope},
    {u"expect request NAME = TEXT", kExpect,
     [](P p, S s) { CheckEqual(s[1], RequestText(p, s[0])); }},
    {u"expect payload IS TEXT", kExpect,
     [](P p, S s) { CheckRelation(s[0], s[1], PayloadText(p)); }},
    {u"expect payload fields = NUMBER", kExpect,
     [](P p, S s) { CheckEqual(s[0], Decimal(std::ssize(Payload(p).fields))); }},
    {u"expect payload mod = TEXT", kExpect, [](P p, S s) { CheckEqual(s[0], Payload(p).mod); }},
    {u"expect payload maps = NUMBER", kExpect,
     [](P p, S s) { CheckEqual(s[0], Decimal(std::ssize(Payload(p).maps))); }},
    {u"expect payload map NUMBER = TEXT", kExpect, ExpectMap},
    {u"expect payload text NUMBER = TEXT", kExpect,
     [](P p, S s) { CheckEqual(s[1], DecodeField(At(Payload(p).fields, s.Number(0)).sent)); }},
    {u"expect payload NUMBER = TEXT", kExpect,
     [](P p, S s) { CheckEqual(s[1], At(Payload(p).fields, s.Number(0)).sent); }},
    {u"expect version = TEXT", kExpect, [](P p, S s) { CheckEqual(s[0], p.stage.DllVersion()); }},
    {u"expect record NAME = TEXT", kExpect,
     [](P p, S s) { CheckEqual(s[1], p.stage.PluginField(s[0])); }},
    {u"expect NAME no rows", kExpect, ExpectRows},
    {u"expect NAME rows in any order LINES", kExpect, ExpectRowsInAnyOrder},
    {u"expect NAME rows LINES", kExpect, ExpectRows},
    {u"expect NAME row NUMBER = TEXT", kExpect,
     [](P p, S s) {
       CheckEqual(s[2], p.stage.Read(s[0], Concat({u"item ", s[1]})));
     }},
    {u"expect NAME data NUMBER = NUMBER", kExpect,
     [](P p, S s) {
       CheckEqual(s[2], p.stage.Read(s[0], Concat({u"data ", s[1]})));
     }},
    {u"expect NAME NAME IS TEXT", kExpect,
     [](P p, S s) { CheckRelation(s[2], s[3], p.stage.Read(s[0], s[1])); }},
};

// "cannot" expects a refusal. A control that is not there does not count as one that refuses.
void PlayGesture(P p, S s) {
  const StepForm& form = *s.form;
  p.gestures += form.effort != nullptr ? form.effort(s.words) : 1;
  if (!s.must_be_refused) return p.stage.Make(form.pattern, s.words);
  if (form.pattern.find(u" NAME") != TextView::npos && p.stage.DialogShown()) {
    static_cast<void>(p.stage.Read(s[0], u"enabled"));
  }
  try {
    p.stage.Make(form.pattern, s.words);
  } catch (const RuntimeError&) {
    return;
  }
  throw StoryFailure({u"expected a gesture that cannot be made, actual it was made"});
}

// The patterns of gestures are the same for each kind of operator.
constexpr const auto& kOperatorRows = kGestures<headless::HeadlessOperator>;

constexpr auto kForms = [] {
  std::array<StepForm, std::size(kSteps) + std::size(kOperatorRows)> forms{};
  auto next = std::ranges::copy(kSteps, forms.begin()).out;
  for (const auto& row : kOperatorRows) {
    *next++ = {row.pattern, kGesture, PlayGesture, row.effort};
  }
  return forms;
}();

}  // namespace

std::span<const StepForm> StepForms() noexcept {
  return kForms;
}

}  // namespace quill::host
