// Quotes and braces.
#include "host/story/story_words.h"

#include <algorithm>
#include <optional>

namespace quill::host {
namespace {

struct Brace {
  TextView name;
  TextView text;
};
// Where a text could be written in several ways, the first row counts.
constexpr Brace kBraces[] = {
    {u"crlf", u"\r\n"},
    {u"cr", u"\r"},
    {u"lf", u"\n"},
    {u"tab", u"\t"},
    {u"quote", u"\""},
    {u"brace", u"{"},
    {u"nul", TextView(u"\0", 1)},
    {u"root", TextView(&kRootMark, 1)},
    {u"line", TextView(&kLineMark, 1)},
};

constexpr TextView kHexDigits = u"0123456789ABCDEF";

std::optional<char16_t> UnitByCode(TextView name) {
  if (!name.starts_with(u"u+") || name.size() < 3 || name.size() > 6) return std::nullopt;
  unsigned code = 0;
  for (const char16_t digit : name.substr(2)) {
    const std::size_t value = kHexDigits.find(ToUpper(digit));
    if (value == TextView::npos) return std::nullopt;
    code = code * 16 + static_cast<unsigned>(value);
  }
  return static_cast<char16_t>(code);
}

void AppendBrace(TextView name, Text& target) {
  const auto* brace = std::ranges::find(kBraces, name, &Brace::name);
  if (brace != std::end(kBraces)) {
    target += brace->text;
    return;
  }
  const std::optional<char16_t> unit = UnitByCode(name);
  if (!unit) throw StoryFailure({u"{", name, u"} stands for nothing"});
  if (*unit == kRootMark || *unit == kLineMark) {
    throw StoryFailure({u"{", name, u"} cannot be used in a story"});
  }
  target += *unit;
}

bool IsBlankOrTab(char16_t unit) {
  return unit == u' ' || unit == u'\t';
}

}  // namespace

Text ResolveBraces(TextView text) {
  Text resolved;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == kRootMark || text[at] == kLineMark) {
      throw StoryFailure({u"the characters U+E000 and U+E001 cannot be used in a story"});
    }
    if (text[at] != u'{') {
      resolved += text[at];
      continue;
    }
    const std::size_t end = text.find(u'}', at);
    if (end == TextView::npos) {
      throw StoryFailure({u"a brace is not closed; write {brace} for one that stands for itself"});
    }
    AppendBrace(text.substr(at + 1, end - at - 1), resolved);
    at = end;
  }
  return resolved;
}

std::vector<StoryWord> SplitStoryWords(TextView line) {
  std::vector<StoryWord> words;
  std::size_t at = 0;
  for (;;) {
    while (at < line.size() && IsBlankOrTab(line[at])) ++at;
    if (at == line.size() || line[at] == u'#') return words;
    const bool is_quoted = line[at] == u'"';
    std::size_t end = 0;
    TextView text;
    if (is_quoted) {
      const std::size_t quote = line.find(u'"', at + 1);
      if (quote == TextView::npos) throw StoryFailure({u"a quote is not closed"});
      text = line.substr(at + 1, quote - at - 1);
      end = quote + 1;
      if (end < line.size() && !IsBlankOrTab(line[end])) {
        throw StoryFailure({u"a blank is missing behind a quote; write {quote} inside of one"});
      }
    } else {
      end = std::min(line.find_first_of(u" \t", at), line.size());
      text = line.substr(at, end - at);
      if (text.find(u'"') != TextView::npos) {
        throw StoryFailure({u"a quote stands inside a word; write {quote} for one"});
      }
    }
    words.push_back({ResolveBraces(text), is_quoted});
    at = end;
  }
}

Text QuotedForStory(TextView text) {
  Text quoted = u"\"";
  while (!text.empty()) {
    const auto* found = std::ranges::find_if(
        kBraces, [&](const Brace& brace) { return text.starts_with(brace.text); });
    if (found != std::end(kBraces)) {
      quoted += Concat({u"{", found->name, u"}"});
      text.remove_prefix(found->text.size());
      continue;
    }
    const char16_t unit = text.front();
    const bool is_plain = unit >= 0x20 && (unit < 0xD800 || unit > 0xF8FF) && unit != 0x7F;
    if (is_plain) {
      quoted += unit;
    } else {
      quoted += u"{u+";
      for (int shift = 12; shift >= 0; shift -= 4) quoted += kHexDigits[(unit >> shift) & 15];
      quoted += u'}';
    }
    text.remove_prefix(1);
  }
  return quoted + u'"';
}

}  // namespace quill::host
