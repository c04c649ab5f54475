// The steps of a story, kind by kind.
#include "host/story/story_player.h"

#include <algorithm>
#include <optional>

#include "host/remote/wire.h"
#include "host/story/story_failure.h"
#include "support/code_page.h"
#include "support/number_text.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

// More rounds than any story needs.
constexpr std::int32_t kMostRounds = 10'000;

// Files are written in Windows-1252, so that every byte can be had.
std::string FileBytes(TextView text) {
  std::vector<std::uint8_t> bytes;
  CodePage::Windows1252().AppendBytes(text, bytes);
  return {bytes.begin(), bytes.end()};
}

std::string FileOfLines(const std::vector<Text>& lines) {
  Text text;
  for (const Text& line : lines) text += Concat({line, kLineBreak});
  return FileBytes(text);
}

// Bytes in hexadecimal, a word each.
std::string BytesOfWords(const std::vector<Text>& words) {
  std::string bytes;
  for (const Text& word : words) {
    const std::string digits = ToUtf8(word);
    std::size_t used = 0;
    int byte = -1;
    try {
      byte = std::stoi(digits, &used, 16);
    } catch (const std::exception&) {
    }
    if (digits.size() != 2 || used != 2 || byte < 0) {
      throw StoryFailure({u"a byte is two hexadecimal digits, not ", QuotedForStory(word)});
    }
    bytes += static_cast<char>(byte);
  }
  return bytes;
}

Button ButtonOf(TextView name) {
  if (name == u"right") return Button::kRight;
  return name == u"middle" ? Button::kMiddle : Button::kLeft;
}

// "Alt+Home", "Ctrl+Z", "Del".
ui::KeyStroke StrokeOf(TextView name) {
  struct Named {
    TextView name;
    ui::KeyStroke stroke;
  };
  constexpr Named kKeys[] = {{u"Enter", {ui::kEnterKey}}, {u"Up", {ui::kUpKey}},
                             {u"Down", {ui::kDownKey}},   {u"Home", {ui::kHomeKey}},
                             {u"End", {ui::kEndKey}},     {u"Del", {ui::kDeleteKey}}};
  if (name.starts_with(u"Alt+")) {
    ui::KeyStroke inner = StrokeOf(name.substr(4));
    inner.shift = static_cast<std::int16_t>(inner.shift | ui::kAltHeld);
    return inner;
  }
  if (name.size() == 6 && name.starts_with(u"Ctrl+")) return {ToUpper(name[5]), ui::kCtrlHeld};
  for (const Named& key : kKeys) {
    if (key.name == name) return key.stroke;
  }
  throw StoryFailure({u"there is no key ", QuotedForStory(name)});
}

// How often a key that is pressed once, or held, reaches the control.
int TimesOf(TextView held) {
  return held.empty() ? 1 : 5;
}

// What a person would have to do for it.
std::int64_t GesturesOf(const Step& step) {
  const std::vector<Text>& words = step.arguments;
  switch (step.kind) {
    case StepKind::kType:
      return std::ssize(words[1]);
    case StepKind::kErase:
    case StepKind::kScrollBy:
      return std::abs(ToInt32(words[1]));
    case StepKind::kSelect:  // a range is a click and another one with Shift
      return std::ssize(words) - 1 +
             std::count_if(words.begin() + 1, words.end(),
                           [](const Text& rows) { return rows.find(u'-') != Text::npos; });
    default:
      return 1;
  }
}

char16_t CharacterOf(const Text& text) {
  if (text.size() != 1) throw StoryFailure({u"a key is one character"});
  return text[0];
}

std::vector<Text> WithoutFirst(const std::vector<Text>& words, std::ptrdiff_t count) {
  return {words.begin() + count, words.end()};
}

// What went wrong with a step; to be called inside a catch block.
Text Reason() {
  try {
    throw;
  } catch (const StoryFailure& failure) {
    return failure.message();
  } catch (const StageError& error) {
    return Concat({u"it cannot be done: ", FromUtf8(error.what())});
  } catch (const RuntimeError& error) {
    return Text(error.description());
  } catch (const std::exception& error) {
    return FromUtf8(error.what());
  } catch (...) {
    return u"an unknown failure";
  }
}

}  // namespace

StoryPlayer::StoryPlayer(const Story& story, Stage& stage, std::vector<StoryDifference> differences,
                         OnFailure on_failure)
    : story_(story),
      stage_(stage),
      differences_(std::move(differences)),
      on_failure_(std::move(on_failure)),
      expectations_(stage) {}

void StoryPlayer::Play() {
  PlayAll({story_.steps});
  try {
    expectations_.CheckEnd([&](const Text& message) { on_failure_(nullptr, message); });
  } catch (...) {
    on_failure_(nullptr, Reason());
  }
  for (const Step* block : awaiting_box_) on_failure_(block, u"no box has come");
  for (const StoryDifference& difference : differences_) {
    if (differing_.contains(difference.listed_at)) continue;
    on_failure_(nullptr, Concat({u"line ", Decimal(difference.listed_at),
                                 u" of the list of differences names a step that was not played: ",
                                 difference.step}));
  }
}

void StoryPlayer::PlayAll(Sequence sequence) {
  while (!sequence.IsOver()) {
    const Step& step = sequence.steps[sequence.next++];
    PlayStep(step, sequence);
  }
}

void StoryPlayer::PlayStep(const Step& step, Sequence& sequence) {
  std::optional<Text> failure;
  try {
    if (step.kind == StepKind::kDuringBox || step.kind == StepKind::kDuringFileDialog) {
      PlayDuringBox(step);
    } else if (step.kind == StepKind::kRepeat) {
      Repeat(step);
    } else {
      Perform(Resolved(step), sequence);
      if (!StoryExpectations::IsExpectation(step.kind)) {
        for (const Text& broken : stage_.Broken()) throw StoryFailure({broken});
      }
    }
  } catch (...) {
    failure = Reason();
  }
  const auto listed =
      std::find_if(differences_.begin(), differences_.end(),
                   [&](const StoryDifference& difference) { return difference.Means(step); });
  if (listed != differences_.end()) {
    differing_.insert(listed->listed_at);
    if (failure) return;
    failure = Concat({u"it is listed as a difference (", listed->reason, u"), but it holds now"});
  }
  if (failure) on_failure_(&step, *failure);
}

Step StoryPlayer::Resolved(const Step& step) const {
  Step resolved;
  resolved.kind = step.kind;
  resolved.line = step.line;
  resolved.source = step.source;
  resolved.must_be_refused = step.must_be_refused;
  const auto resolve = [&](const Text& text) {
    return text.find(kRootMark) == Text::npos
               ? text
               : ReplaceAll(text, TextView(&kRootMark, 1), stage_.HostRoot());
  };
  for (const Text& argument : step.arguments) resolved.arguments.push_back(resolve(argument));
  for (const Text& line : step.block) resolved.block.push_back(resolve(line));
  return resolved;
}

void StoryPlayer::Perform(const Step& step, Sequence& sequence) {
  if (step.kind == StepKind::kExpectGestures) {
    const std::int32_t most = ToInt32(step.arguments[0]);
    if (gestures_ <= most) return;
    throw StoryFailure(
        {u"expected at most ", Decimal(most), u" gestures, actual ", Decimal(gestures_)});
  }
  if (StoryExpectations::IsExpectation(step.kind)) return expectations_.Check(step);
  if (SetUp(step) || ChangeReply(step) || CallHost(step, sequence)) return;
  if (step.must_be_refused) return MakeRefused(step);
  Gesture(step);
}

bool StoryPlayer::SetUp(const Step& step) {
  const std::vector<Text>& words = step.arguments;
  switch (step.kind) {
    case StepKind::kFile:
      stage_.PutFile(words[0], FileBytes(words[1]));
      return true;
    case StepKind::kFileOfLines:
      stage_.PutFile(words[0], FileOfLines(step.block));
      return true;
    case StepKind::kFileOfBytes:
      stage_.PutFile(words[0], BytesOfWords(WithoutFirst(words, 1)));
      return true;
    case StepKind::kFileMissing:
      stage_.PutFile(words[0], std::nullopt);
      return true;
    case StepKind::kKitFails:
    case StepKind::kKitFailsFromNowOn:
      stage_.BreakKit(
          {words[0], ToInt32(words[1]), words[2], step.kind == StepKind::kKitFailsFromNowOn});
      return true;
    case StepKind::kKitRefusesReports:
      stage_.BreakKit({u"SendErrorReport", 0, {}, true});
      return true;
    case StepKind::kKitWorks:
      stage_.RepairKit();
      return true;
    case StepKind::kClock:
      stage_.SetClock(static_cast<std::uint64_t>(ToInt32(words[0])));
      return true;
    case StepKind::kRight:
      rights_.push_back({words[0], Right::Form::kText, words[1]});
      return true;
    case StepKind::kNumberRight:
      rights_.push_back({words[0], Right::Form::kNumber, words[1]});
      return true;
    case StepKind::kFailingRight:
      rights_.push_back({words[0], Right::Form::kFails, {}});
      return true;
    case StepKind::kAnswer:
    case StepKind::kAnswerByDoubleClick:
    case StepKind::kAnswerCancel:
      stage_.AnswerFileDialog(words, step.kind == StepKind::kAnswerByDoubleClick);
      expectations_.FileDialogAnswered();
      return true;
    default:
      return false;
  }
}

bool StoryPlayer::ChangeReply(const Step& step) {
  const std::vector<Text>& words = step.arguments;
  switch (step.kind) {
    case StepKind::kReplyNew:
      reply_ = ReplyDraft();
      return true;
    case StepKind::kReplySetting:
      reply_.Set(words[0], words[1]);
      return true;
    case StepKind::kReplyFixed:
      reply_.SetFixed(words[0], words[1]);
      return true;
    case StepKind::kReplyMods:
    case StepKind::kReplyNoMods:
      reply_.SetMods(words);
      return true;
    case StepKind::kReplyMap:
      reply_.AddMap(words[0], words[1], words[2]);
      return true;
    case StepKind::kReplyNoMaps:
      reply_.RemoveMaps();
      return true;
    case StepKind::kReplyRaw:
      reply_.SetRaw(ToInt32(words[0]), words[1]);
      return true;
    case StepKind::kReplyEncodes:
      reply_.SetEncoded(ToInt32(words[0]), WithoutFirst(words, 1));
      return true;
    case StepKind::kReplyFieldCount:
      reply_.SetFieldCount(ToInt32(words[0]));
      return true;
    default:
      return false;
  }
}

bool StoryPlayer::CallHost(const Step& step, Sequence& sequence) {
  const std::vector<Text>& words = step.arguments;
  switch (step.kind) {
    case StepKind::kHostSetsRights:
    case StepKind::kHostSetsRightsOfSuperAdministrator:
      stage_.SetPrivis(std::exchange(rights_, {}),
                       step.kind == StepKind::kHostSetsRightsOfSuperAdministrator);
      return true;
    case StepKind::kHostOpens:
      Open(ToInt32(words[0]), {u"", words[1]}, sequence);
      return true;
    case StepKind::kHostOpensWithoutTarget:
      Open(ToInt32(words[0]), {u""}, sequence);
      return true;
    case StepKind::kHostHides:
      stage_.HideInterface();
      return true;
    case StepKind::kHostReplies:
      stage_.RemoteData(reply_.Frame());
      return true;
    case StepKind::kHostRepliesWith:
      stage_.RemoteData(words[0]);
      return true;
    case StepKind::kHostRepliesWithPayload:
      stage_.RemoteData(WriteFrame(words[0]));
      return true;
    default:
      return false;
  }
}

// The steps behind this one are played inside the display until it ends.
void StoryPlayer::Open(std::int32_t index, const std::vector<Text>& target, Sequence& sequence) {
  bool is_playing = false;
  stage_.LoadInterface(index, target, [&] {
    if (is_playing) return true;
    if (sequence.IsOver()) return false;
    is_playing = true;
    const Step& step = sequence.steps[sequence.next++];
    PlayStep(step, sequence);
    is_playing = false;
    return true;
  });
}

void StoryPlayer::PlayDuringBox(const Step& step) {
  awaiting_box_.push_back(&step);
  const auto play = [this, &step] {
    std::erase(awaiting_box_, &step);
    PlayAll({step.steps});
  };
  if (step.kind == StepKind::kDuringBox) return stage_.DuringNextBox(play);
  stage_.DuringNextFileDialog(play);
}

void StoryPlayer::Repeat(const Step& step) {
  const std::int32_t rounds = ToInt32(step.arguments[0]);
  if (rounds < 1 || rounds > kMostRounds) {
    throw StoryFailure({u"steps are repeated 1 to ", Decimal(kMostRounds), u" times"});
  }
  for (std::int32_t round = 0; round < rounds; ++round) PlayAll({step.steps});
}

void StoryPlayer::Gesture(const Step& step) {
  gestures_ += GesturesOf(step);
  const std::vector<Text>& words = step.arguments;
  switch (step.kind) {
    case StepKind::kType:
      return stage_.Type(words[0], words[1]);
    case StepKind::kPaste:
      return stage_.Paste(words[0], words[1]);
    case StepKind::kErase:
      return stage_.EraseLast(words[0], ToInt32(words[1]));
    case StepKind::kChoose:
      return stage_.Choose(words[0], words[1]);
    case StepKind::kScrollBy:
      return stage_.ScrollBy(words[0], ToInt32(words[1]));
    case StepKind::kScrollTo:
      return stage_.ScrollTo(words[0], ToInt32(words[1]));
    case StepKind::kTab:
      return stage_.ClickTab(words[0]);
    case StepKind::kClick:
      return stage_.Click(words[0]);
    case StepKind::kSelect:
      return SelectRows(step);
    case StepKind::kDoubleClick:
      return stage_.DoubleClickRow(words[0], ToInt32(words[1]));
    case StepKind::kDoubleClickBelow:
      return stage_.DoubleClickRow(words[0], -1);
    case StepKind::kKey:
      return stage_.Key(words[0], CharacterOf(words[1]));
    case StepKind::kStrike:
      return stage_.Strike(words[0], StrokeOf(words[1]), TimesOf(words[2]));
    case StepKind::kMenu:
      return stage_.ChooseFromMenu(words[0], -1, words[1]);
    case StepKind::kMenuAtRow:
      return stage_.ChooseFromMenu(words[0], ToInt32(words[1]), words[2]);
    case StepKind::kMenuLeft:
      return stage_.ChooseFromMenu(words[0], -1, {});
    case StepKind::kAccessKey:
      return stage_.PressAccessKey(CharacterOf(words[0]), TimesOf(words[1]));
    case StepKind::kPress:
      return stage_.Press(words[0], ButtonOf(words[1]));
    case StepKind::kRelease:
      return stage_.Release(words[0], ButtonOf(words[1]));
    case StepKind::kPush:
      stage_.Press(words[0], ButtonOf(words[1]));
      return stage_.Release(words[0], ButtonOf(words[1]));
    case StepKind::kClose:
      return stage_.CloseWindow();
    default:
      throw StoryFailure({u"this is no step"});
  }
}

// A control that is not there does not count as one that refuses.
void StoryPlayer::MakeRefused(const Step& step) {
  const bool names_control = step.kind != StepKind::kTab && step.kind != StepKind::kClose &&
                             step.kind != StepKind::kAccessKey;
  if (names_control && stage_.DialogShown()) {
    static_cast<void>(stage_.Read(step.arguments[0], u"enabled"));
  }
  try {
    Gesture(step);
  } catch (const StageError&) {
    return;
  }
  throw StoryFailure({u"expected a gesture that cannot be made, actual it was made"});
}

void StoryPlayer::SelectRows(const Step& step) {
  const Text& control = step.arguments[0];
  std::vector<int> rows;
  for (const Text& word : WithoutFirst(step.arguments, 1)) {
    if (word == u"none") continue;
    if (word == u"all") {
      const std::int32_t count = ToInt32(stage_.Read(control, u"count"));
      for (std::int32_t row = 0; row < count; ++row) rows.push_back(row);
      continue;
    }
    const std::size_t dash = word.find(u'-');
    const std::int32_t first = ToInt32(word.substr(0, dash));
    const std::int32_t last = dash == Text::npos ? first : ToInt32(word.substr(dash + 1));
    if (last - first >= kMostRounds) throw StoryFailure({u"the range is too long"});
    for (std::int32_t row = first; row <= last; ++row) rows.push_back(row);
  }
  stage_.SelectRows(control, rows);
}

}  // namespace quill::host
