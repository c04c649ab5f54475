// Matching lines with the forms of the grammar, and nesting them; lists of differences.
#include "host/story/story.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "host/kit/text_file.h"
#include "host/kit/text_line.h"
#include "host/remote/wire.h"
#include "host/story/story_steps.h"

namespace quill::host {
namespace {

// How deep blocks may lie in blocks.
constexpr std::size_t kDeepest = 8;
// Ends the pattern of a step that takes lines with "|".
constexpr TextView kLines = u"LINES";

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

bool IsWholeNumber(const StoryWord& word) {
  std::int32_t number = 0;
  return !word.is_quoted && ParseWholeNumber(word.text, number);
}

// What the words in capitals take, where that is not any text.
struct FillIn {
  TextView name;
  TextView wanted;
  bool (*takes)(const StoryWord& word);
};
constexpr FillIn kFillIns[] = {
    {u"NAME", u"a name", IsName},
    {u"NUMBER", u"a whole number", IsWholeNumber},
    {u"BUTTON", u"left, right or middle",
     [](const StoryWord& word) {
       return IsOneOf(word, {u"left", u"right", u"middle"});
     }},
    {u"HELD", u"held, or nothing,", [](const StoryWord& word) { return IsOneOf(word, {u"held"}); }},
    {u"IS", u"=, !=, contains or lacks",
     [](const StoryWord& word) {
       return IsOneOf(word, {u"=", u"!=", u"contains", u"lacks"});
     }},
    {u"ROWS", u"a row, a range of rows, \"none\" or \"all\"",
     [](const StoryWord& word) {
       return IsOneOf(word, {u"none", u"all"}) || IsRowRange(word.text);
     }},
};

constexpr TextView kLineMarkComplaint =
    u"{line} can stand in expected boxes, log and report entries only";

// What is wrong with a word that is filled in; empty when nothing is.
Text Complaint(TextView name, const StoryWord& word) {
  const auto* fill_in = std::ranges::find(kFillIns, name, &FillIn::name);
  if (fill_in != std::end(kFillIns) && !fill_in->takes(word)) {
    return Concat({fill_in->wanted, u" is wanted, not ", QuotedForStory(word.text)});
  }
  const bool has_mark = name != u"PATTERN" && word.text.find(kLineMark) != Text::npos;
  return has_mark ? Text(kLineMarkComplaint) : Text();
}

// A line that has the words of a form.
struct Match {
  Words words;
  Text complaint;  // about the first word that is filled in wrongly
};

std::optional<Match> MatchForm(TextView pattern, const std::vector<StoryWord>& words) {
  Match match;
  std::size_t at = 0;
  for (const TextView piece : Split(pattern, u" ")) {
    if (piece.ends_with(kLines)) continue;
    if (!IsFilledIn(piece)) {
      if (at == words.size() || words[at].is_quoted || words[at].text != piece) return std::nullopt;
      ++at;
      continue;
    }
    if (at == words.size() && (piece == u"BUTTON" || piece == u"HELD")) {
      match.words.emplace_back(piece == u"BUTTON" ? u"left" : u"");
      continue;
    }
    const bool takes_all = piece == u"TEXTS" || piece == u"ROWS";
    do {
      if (at == words.size()) return std::nullopt;
      if (match.complaint.empty()) match.complaint = Complaint(piece, words[at]);
      match.words.push_back(words[at++].text);
    } while (takes_all && at < words.size());
  }
  if (at != words.size()) return std::nullopt;
  return match;
}

class Parser {
 public:
  ParsedStory Run(std::string_view bytes) {
    const Text text = DecodeTextFile(bytes).text;
    for (TextView rest = text; !rest.empty();) {
      ++line_;
      try {
        ReadLine(WithoutBlanks(TakeLine(rest).content));
      } catch (const StoryFailure& failure) {
        Fault(line_, failure.message());
      }
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
    Step step;
    step.line = line_;
    step.source = line;
    step.must_be_refused = !words[0].is_quoted && words[0].text == u"cannot";
    if (step.must_be_refused) words.erase(words.begin());
    ReadStep(words, step);
    Add(std::move(step));
  }

  // One blank behind the bar belongs to the bar.
  void ReadBlockLine(TextView line) {
    if (block_ == nullptr) throw StoryFailure({u"no line above takes lines with \"|\""});
    if (line.starts_with(u' ')) line.remove_prefix(1);
    Text text = ResolveBraces(line);
    const bool takes_marks = block_->form->pattern.ends_with(u"PATTERN-LINES");
    if (!takes_marks && text.find(kLineMark) != Text::npos) {
      throw StoryFailure({kLineMarkComplaint});
    }
    block_->block.push_back(std::move(text));
  }

  void CloseBlock() {
    if (block_ != nullptr && block_->block.empty()) {
      Fault(block_->line, u"lines that begin with \"|\" are missing below this one");
    }
    block_ = nullptr;
  }

  static void ReadStep(const std::vector<StoryWord>& words, Step& step) {
    Text complaint;
    for (const StepForm& form : StepForms()) {
      std::optional<Match> match = MatchForm(form.pattern, words);
      if (!match) continue;
      if (!match->complaint.empty()) {
        if (complaint.empty()) complaint = match->complaint;
        continue;
      }
      if (step.must_be_refused && form.kind != StepKind::kGesture) {
        throw StoryFailure({u"\"cannot\" takes a gesture of the operator"});
      }
      step.form = &form;
      step.words = std::move(match->words);
      return;
    }
    throw StoryFailure({complaint.empty() ? KnownForms(words) : complaint});
  }

  static Text KnownForms(const std::vector<StoryWord>& words) {
    Text known;
    for (const StepForm& form : StepForms()) {
      const TextView first = form.pattern.substr(0, form.pattern.find(u' '));
      if (words.empty() || words[0].is_quoted || words[0].text != first) continue;
      known += Concat({known.empty() ? u"this line is none of: " : u"; ", form.pattern});
    }
    return known.empty() ? Text(u"no line begins like this") : known;
  }

  void Add(Step step) {
    const StepForm& form = *step.form;
    if (form.kind == StepKind::kTitle) {
      if (!parsed_.story.title.empty()) throw StoryFailure({u"the story has a title already"});
      parsed_.story.title = step[0];
      return;
    }
    if (form.kind == StepKind::kEnd) {
      if (open_.empty()) throw StoryFailure({u"there is nothing to end here"});
      if (open_.back()->steps.empty()) Fault(open_.back()->line, u"the block is empty");
      open_.pop_back();
      return;
    }
    if (form.kind == StepKind::kBlock && open_.size() == kDeepest) {
      throw StoryFailure({u"blocks lie too deep in one another"});
    }
    auto& steps = open_.empty() ? parsed_.story.steps : open_.back()->steps;
    steps.push_back(std::move(step));
    // A vector that grows moves only steps that are complete: the open ones are its last.
    if (form.pattern.ends_with(kLines)) block_ = &steps.back();
    if (form.kind == StepKind::kBlock) open_.push_back(&steps.back());
  }

  ParsedStory parsed_;
  int line_ = 0;
  Step* block_ = nullptr;    // takes lines with "|"
  std::vector<Step*> open_;  // blocks, the innermost last
};

}  // namespace

ParsedStory ParseStory(std::string_view bytes) {
  return Parser().Run(bytes);
}

bool StoryDifference::Means(const Step& other) const {
  return step == other.source || step == Decimal(other.line);
}

ParsedDifferences ParseDifferences(std::string_view bytes) {
  ParsedDifferences parsed;
  const Text text = DecodeTextFile(bytes).text;
  TextView rest = text;
  for (int line = 1; !rest.empty(); ++line) {
    const auto fault = [&](TextView what) { parsed.faults.push_back({line, Text(what)}); };
    const TextView entry = WithoutBlanks(TakeLine(rest).content);
    if (entry.empty() || entry.starts_with(u'#')) continue;
    const std::size_t first = entry.find(u" | ");
    const std::size_t last = entry.rfind(u" | ");
    if (first == last) {
      fault(u"a difference is written: story file | step or line number | reason");
      continue;
    }
    StoryDifference difference{line, Text(WithoutBlanks(entry.substr(0, first))),
                               Text(WithoutBlanks(entry.substr(first + 3, last - first - 3))),
                               Text(WithoutBlanks(entry.substr(last + 3)))};
    if (difference.story.empty() || difference.step.empty() || difference.reason.empty()) {
      fault(u"a difference names a story file, a step and a reason");
      continue;
    }
    const bool is_known = std::any_of(
        parsed.differences.begin(), parsed.differences.end(), [&](const StoryDifference& other) {
          return other.story == difference.story && other.step == difference.step;
        });
    if (is_known) {
      fault(u"this difference is listed already");
      continue;
    }
    parsed.differences.push_back(std::move(difference));
  }
  return parsed;
}

}  // namespace quill::host
