// INI files of any bytes: encodings survive, entries can be found, and writing one entry changes
// that entry alone. The input is a section, a key and a value, a line each, and then the file.
#include "host/kit/ini_text.h"

#include <algorithm>
#include <array>

#include "fuzz/fuzz_target.h"

namespace quill::fuzz {
namespace {

using Entries = std::vector<Text>;

Entries OthersOf(TextView text, TextView section, TextView key) {
  Entries others = host::IniSection(text, section).value_or(Entries());
  std::erase_if(others, [&](const Text& entry) {
    return EqualIgnoringCase(host::SplitIniEntry(entry).key, key);
  });
  return others;
}

void CheckWriting(TextView text, TextView section, TextView key, TextView value) {
  const auto written = Attempt([&] { return host::WithIniEntry(text, section, key, value); });
  if (!written) return;
  const auto entries = host::IniSection(*written, section);
  Claim(entries && std::count(entries->begin(), entries->end(), Concat({key, u"=", value})) == 1);
  Claim(OthersOf(*written, section, key) == OthersOf(text, section, key));
  Claim(host::WithIniEntry(*written, section, key, value) == *written);
  // Nothing but that section changes.
  const auto all_before = host::OutlineIni(text, section);
  const auto all_after = host::OutlineIni(*written, section);
  const auto outside = [](const host::IniOutline& outline) {
    return std::count_if(outline.entries.begin(), outline.entries.end(),
                         [](const auto& entry) { return !entry.in_section; });
  };
  Claim(outside(all_before) == outside(all_after));
}

}  // namespace

void TakeInput(std::string_view input) {
  const host::DecodedFile file = host::DecodeTextFile(input);
  const std::string encoded = host::EncodeTextFile(file.text, file.encoding);
  Claim(host::DecodeTextFile(encoded).text == file.text);

  std::array<TextView, 3> lines;
  TextView rest = file.text;
  for (TextView& line : lines) {
    line = rest.substr(0, rest.find(u'\n'));
    rest.remove_prefix(std::min(rest.size(), line.size() + 1));
  }
  const auto& [section, key, value] = lines;
  const host::IniOutline outline = host::OutlineIni(rest, section);
  const auto entries = host::IniSection(rest, section);
  Claim(outline.has_section == entries.has_value());
  Entries of_outline;
  for (const auto& entry : outline.entries) {
    if (entry.in_section) of_outline.push_back(entry.text);
  }
  Claim(of_outline == entries.value_or(Entries()));
  CheckWriting(rest, section, key, value);
}

}  // namespace quill::fuzz
