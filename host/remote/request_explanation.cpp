// Plain-text tables of a request.
#include "host/remote/start_request.h"

#include <algorithm>

#include "host/remote/wire.h"
#include "maps/map_catalogue.h"

namespace quill::host {
namespace {

// `text` filled up with blanks; what comes from outside cannot break the table's lines.
Text Cell(TextView text, std::size_t width) {
  Text cell;
  cell.reserve(std::max(text.size(), width) + 2);
  for (const char16_t unit : text) cell += unit < 0x20 || unit == 0x7F ? u'?' : unit;
  if (cell.size() < width) cell.append(width - cell.size(), u' ');
  cell.append(2, u' ');
  return cell;
}

Text RightAligned(TextView text, std::size_t width) {
  Text cell(text.size() < width ? width - text.size() : 0, u' ');
  return cell.append(text);
}

// Without the blanks that end it.
Text Line(Text line) {
  line.erase(line.find_last_not_of(u' ') + 1);
  line += u'\n';
  return line;
}

Text Hex(std::uint32_t value) {
  Text digits;
  for (; value != 0 || digits.empty(); value >>= 4) {
    digits.insert(digits.begin(), TextView(u"0123456789ABCDEF")[value & 0xF]);
  }
  return digits;
}

void AddOptions(const StartRequest& request, Text& text) {
  std::size_t width = 24;
  constexpr std::size_t kWidest = 60;
  for (const StartField& field : request.fields) width = std::max(width, field.meaning.size());
  width = std::min(width, kWidest);
  text += u"Options\n";
  text += Line(Concat({u"  No  ", Cell(u"Option", 20), Cell(u"Meaning", width), u"Sent as"}));
  for (std::size_t at = 0; at < request.fields.size(); ++at) {
    const StartField& field = request.fields[at];
    const Text meaning = field.meaning.empty() ? Text(u"(not understood)") : field.meaning;
    text += Line(Concat({RightAligned(Decimal(static_cast<std::int64_t>(at)), 4), u"  ",
                         Cell(field.name, 20), Cell(meaning, width), Cell(field.sent, 0)}));
  }
}

void AddFlags(const StartRequest& request, Text& text) {
  if (request.flags.empty()) return;
  text += u"\nOption flags (3802 hex is always there)\n";
  for (const StartFlag& flag : request.flags) {
    text += Line(Concat({u"  ", Cell(flag.name, 24), Cell(flag.is_on ? u"on" : u"off", 4), u"bit ",
                         RightAligned(Hex(flag.bit), 5), flag.is_set ? u" set" : u" clear"}));
  }
}

void AddMaps(const StartRequest& request, Text& text) {
  text += Concat({u"\nRotation: ", Decimal(static_cast<std::int64_t>(request.maps.size())),
                  request.maps.size() == 1 ? u" map\n" : u" maps\n"});
  std::int64_t number = 0;
  for (const SelectedMap& map : request.maps) {
    text += Line(Concat({RightAligned(Decimal(++number), 4), u"  ",
                         Cell(kGameTypeNames[static_cast<std::size_t>(map.game_type)], 21),
                         Cell(map.name, 28), Cell(map.file, 14),
                         map.server_map ? u"the machine's own" : u"of the game"}));
  }
}

void AddFindings(const StartRequest& request, Text& text) {
  text += u"\nFindings\n";
  if (request.findings.empty()) text += u"  none: the request is in order\n";
  for (const StartFinding& finding : request.findings) {
    text += Line(Concat({finding.is_error ? u"  error: " : u"  warning: ", Cell(finding.text, 0)}));
  }
}

}  // namespace

Text ExplainEnvelope(const RequestEnvelope& envelope) {
  const TextView what =
      envelope.command == kStartCommand ? u"start the game" : u"tell the game settings";
  return Concat({Line(Concat({u"Request:  ", what, u" (", envelope.command, u")"})),
                 Line(Concat({u"Target:   ", Cell(envelope.target, 0)})),
                 Line(Concat({u"Profile:  ", Decimal(envelope.index)}))});
}

Text ExplainStartRequest(const StartRequest& request) {
  Text text;
  AddOptions(request, text);
  AddFlags(request, text);
  AddMaps(request, text);
  AddFindings(request, text);
  return text;
}

}  // namespace quill::host
