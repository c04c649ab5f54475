// Matching lines with the forms of the grammar, and nesting them.
#include "host/story/story_parser.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "host/kit/text_file.h"
#include "host/remote/wire.h"
#include "host/story/story_words.h"

namespace quill::host {
namespace {

// How deep blocks may lie in blocks.
constexpr std::size_t kDeepest = 8;

TextView Stripped(TextView text) {
  const std::size_t begin = text.find_first_not_of(u" \t");
  if (begin == TextView::npos) return {};
  return text.substr(begin, text.find_last_not_of(u" \t") - begin + 1);
}

bool IsFilledIn(TextView word) {
  return word.size() > 1 && word[0] >= u'A' && word[0] <= u'Z' && word[1] >= u'A' &&
         word[1] <= u'Z';
}

bool IsOneOf(const StoryWord& word, std::initializer_list<TextView> choices) {
  return !word.is_quoted && std::find(choices.begin(), choices.end(), word.text) != choices.end();
}

bool IsName(const StoryWord& word) {
  return !word.is_quoted && std::all_of(word.text.begin(), word.text.end(), [](char16_t unit) {
    return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z') ||
           (unit >= u'a' && unit <= u'z') || unit == u'_';
  });
}

bool IsRowRange(TextView text) {
  const std::size_t dash = text.find(u'-');
  std::int32_t first = 0;
  std::int32_t last = 0;
  if (!ParseWholeNumber(text.substr(0, dash), first) || first < 0) return false;
  if (dash == TextView::npos) return true;
  return ParseWholeNumber(text.substr(dash + 1), last) && last >= first;
}

// What is wrong with a word that is filled in; empty when nothing is.
Text Complaint(TextView kind, const StoryWord& word) {
  const auto wanted = [&](TextView what) {
    return Concat({what, u" is wanted, not ", QuotedForStory(word.text)});
  };
  std::int32_t number = 0;
  if (kind == u"NAME" && !IsName(word)) return wanted(u"a name");
  if (kind == u"NUMBER" && (word.is_quoted || !ParseWholeNumber(word.text, number))) {
    return wanted(u"a whole number");
  }
  if (kind == u"BUTTON" && !IsOneOf(word, {u"left", u"right", u"middle"})) {
    return wanted(u"left, right or middle");
  }
  if (kind == u"HELD" && !IsOneOf(word, {u"held"})) return wanted(u"held, or nothing,");
  if (kind == u"IS" && !IsOneOf(word, {u"=", u"!=", u"contains", u"lacks"})) {
    return wanted(u"=, !=, contains or lacks");
  }
  if (kind == u"ROWS" && !IsOneOf(word, {u"none", u"all"}) && !IsRowRange(word.text)) {
    return wanted(u"a row, a range of rows, \"none\" or \"all\"");
  }
  if (kind != u"PATTERN" && word.text.find(kLineMark) != Text::npos) {
    return u"{line} can stand in expected boxes, log and report entries only";
  }
  return {};
}

// A line that has the words of a form.
struct Match {
  std::vector<Text> arguments;
  Text complaint;  // about the first word that is filled in wrongly
};

std::optional<Match> MatchForm(TextView pattern, const std::vector<StoryWord>& words) {
  Match match;
  const std::vector<TextView> wanted = Split(pattern, u" ");
  std::size_t at = 0;
  for (const TextView piece : wanted) {
    if (!IsFilledIn(piece)) {
      if (at == words.size() || words[at].is_quoted || words[at].text != piece) return std::nullopt;
      ++at;
      continue;
    }
    if (at == words.size() && (piece == u"BUTTON" || piece == u"HELD")) {
      match.arguments.emplace_back(piece == u"BUTTON" ? u"left" : u"");
      continue;
    }
    const bool takes_all = piece == u"TEXTS" || piece == u"ROWS";
    do {
      if (at == words.size()) return std::nullopt;
      if (match.complaint.empty()) match.complaint = Complaint(piece, words[at]);
      match.arguments.push_back(words[at++].text);
    } while (takes_all && at < words.size());
  }
  if (at != words.size()) return std::nullopt;
  return match;
}

class Parser {
 public:
  ParsedStory Run(std::string_view bytes) {
    const Text text = DecodeTextFile(bytes).text;
    TextView rest = text;
    while (!rest.empty()) {
      const std::size_t end = std::min(rest.find_first_of(u"\r\n"), rest.size());
      ++line_;
      try {
        ReadLine(Stripped(rest.substr(0, end)));
      } catch (const StorySyntaxError& error) {
        Fault(line_, FromUtf8(error.what()));
      }
      const bool has_both = rest.substr(end).starts_with(kLineBreak);
      rest.remove_prefix(std::min(rest.size(), end + (has_both ? 2 : 1)));
    }
    CloseBlock();
    for (const Step* open : open_) Fault(open->line, u"\"end\" is missing");
    if (parsed_.story.title.empty()) Fault(1, u"the story has no title");
    if (parsed_.story.steps.empty()) Fault(1, u"the story has no steps");
    return std::move(parsed_);
  }

 private:
  void Fault(int line, Text message) { parsed_.faults.push_back({line, std::move(message)}); }

  void ReadLine(TextView line) {
    if (line.starts_with(u'|')) return ReadBlockLine(line.substr(1));
    std::vector<StoryWord> words = SplitStoryWords(line);
    if (words.empty()) return;
    CloseBlock();
    const bool must_be_refused = !words[0].is_quoted && words[0].text == u"cannot";
    if (must_be_refused) words.erase(words.begin());
    Step step = ReadStep(words, must_be_refused);
    step.source = line;
    Add(std::move(step));
  }

  // One blank behind the bar belongs to the bar.
  void ReadBlockLine(TextView line) {
    if (block_ == nullptr) throw StorySyntaxError(u"no line above takes lines with \"|\"");
    if (line.starts_with(u' ')) line.remove_prefix(1);
    Text text = ResolveBraces(line);
    if (block_->kind != StepKind::kExpectBoxOfLines && text.find(kLineMark) != Text::npos) {
      throw StorySyntaxError(u"{line} can stand in expected boxes, log and report entries only");
    }
    block_->block.push_back(std::move(text));
  }

  void CloseBlock() {
    if (block_ != nullptr && block_->block.empty()) {
      Fault(block_->line, u"lines that begin with \"|\" are missing below this one");
    }
    block_ = nullptr;
  }

  Step ReadStep(const std::vector<StoryWord>& words, bool must_be_refused) {
    Text complaint;
    for (const StepForm& form : StepForms()) {
      std::optional<Match> match = MatchForm(form.pattern, words);
      if (!match) continue;
      if (!match->complaint.empty()) {
        if (complaint.empty()) complaint = match->complaint;
        continue;
      }
      if (must_be_refused && !form.is_gesture) {
        throw StorySyntaxError(u"\"cannot\" takes a gesture of the operator");
      }
      body_ = form.body;
      Step step;
      step.kind = form.kind;
      step.line = line_;
      step.arguments = std::move(match->arguments);
      step.must_be_refused = must_be_refused;
      return step;
    }
    if (!complaint.empty()) throw StorySyntaxError(complaint);
    throw StorySyntaxError(KnownForms(words));
  }

  static Text KnownForms(const std::vector<StoryWord>& words) {
    Text known;
    for (const StepForm& form : StepForms()) {
      const TextView first = form.pattern.substr(0, form.pattern.find(u' '));
      if (words.empty() || words[0].is_quoted || words[0].text != first) continue;
      known += Concat({known.empty() ? u"" : u"; ", form.pattern});
    }
    if (known.empty()) return u"no line begins like this";
    return Concat({u"this line is none of: ", known});
  }

  void Add(Step step) {
    switch (step.kind) {
      case StepKind::kTitle:
        if (!parsed_.story.title.empty()) throw StorySyntaxError(u"the story has a title already");
        parsed_.story.title = step.arguments[0];
        return;
      case StepKind::kEnd:
        if (open_.empty()) throw StorySyntaxError(u"there is nothing to end here");
        if (open_.back()->steps.empty()) Fault(open_.back()->line, u"the block is empty");
        open_.pop_back();
        return;
      default:
        break;
    }
    if (body_ == StepBody::kSteps && open_.size() == kDeepest) {
      throw StorySyntaxError(u"blocks lie too deep in one another");
    }
    auto& steps = open_.empty() ? parsed_.story.steps : open_.back()->steps;
    steps.push_back(std::move(step));
    // A vector that grows moves only steps that are complete: the open ones are its last.
    if (body_ == StepBody::kLines) block_ = &steps.back();
    if (body_ == StepBody::kSteps) open_.push_back(&steps.back());
  }

  ParsedStory parsed_;
  int line_ = 0;
  StepBody body_ = StepBody::kNone;
  Step* block_ = nullptr;    // takes lines with "|"
  std::vector<Step*> open_;  // blocks, the innermost last
};

}  // namespace

ParsedStory ParseStory(std::string_view bytes) {
  return Parser().Run(bytes);
}

}  // namespace quill::host
