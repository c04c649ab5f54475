// The layout of the start payload as a table, and the reading of each form of field.
#include "host/remote/start_request.h"

#include <algorithm>
#include <array>
#include <span>

#include "host/remote/setting_table.h"
#include "host/remote/wire.h"
#include "maps/map_catalogue.h"
#include "support/number_text.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

constexpr std::array<TextView, 4> kDelays = {u"no delay", u"1 minute", u"2 minutes", u"3 minutes"};

class Decoder;

struct FieldLayout {
  TextView name;
  Text (Decoder::*meaning)(const FieldLayout& layout, TextView sent);
  // Of texts the fewest characters and the most that the dialog lets an operator type.
  int low = 0;
  int high = 0;
  std::span<const TextView> names = {};  // of the numbers from `low` on
};

struct FlagLayout {
  std::uint32_t bit;
  TextView name;
  bool set_means_on;
};

constexpr std::uint32_t kFixedFlags = 0x3802;
constexpr FlagLayout kFlagLayout[] = {
    {0x200, u"Friendly fire kills", false}, {0x400, u"Friendly tags", false},
    {0x8, u"Friendly fire warning", false}, {0x4, u"Auto balance", false},
    {0x1, u"Show tracers", false},          {0x8000, u"Show team clays", true},
    {0x10000, u"Allow auto range", true},
};

Text Quoted(TextView text) {
  return Concat({u"\"", text, u"\""});
}

class Decoder {
 public:
  explicit Decoder(const std::vector<SelectedMap>* own_maps) : own_maps_(own_maps) {}

  StartRequest Run(TextView payload);

 private:
  static const FieldLayout kLayout[26];

  // Notes what is wrong with the field at hand.
  void FieldFinding(bool is_error, TextView what) {
    request_.findings.push_back(
        {is_error, Concat({u"field ", Decimal(std::ssize(request_.fields) - 1), u" (",
                           request_.fields.back().name, u") ", what})});
  }
  void FieldError(TextView what) { FieldFinding(true, what); }
  void FieldWarning(TextView what) { FieldFinding(false, what); }

  Text SwitchMeaning(const FieldLayout&, TextView sent) {
    if (sent == u"1") return u"yes";
    if (sent == u"0") return u"no";
    FieldError(Concat({u"must be 0 or 1, not ", Quoted(sent)}));
    return {};
  }

  // The text of a Base64 field; false after an error.
  bool Decode(TextView sent, Text& text) {
    try {
      text = DecodeField(sent);
      return true;
    } catch (const RuntimeError& error) {
      FieldError(Concat({u"is no Base64 text: ", error.description()}));
      return false;
    }
  }

  // In Base64. A text of blanks is sent as none at all, unless one is required.
  Text TextMeaning(const FieldLayout& layout, TextView sent) {
    Text text;
    if (!Decode(sent, text)) return {};
    if (std::ssize(text) < layout.low) {
      FieldError(u"is empty");
    } else if (layout.low == 0 && !sent.empty() && IsBlank(text)) {
      FieldError(u"holds blanks only and should have been left empty");
    }
    if (std::ssize(text) > layout.high) {
      FieldWarning(Concat({u"is longer than ", Decimal(layout.high), u" characters"}));
    }
    return Quoted(text);
  }

  // One less than the lowest number: nothing chosen.
  Text NumberMeaning(const FieldLayout& layout, TextView sent) {
    std::int32_t number = 0;
    if (!ParseWholeNumber(sent, number)) {
      FieldError(Concat({u"is no whole number: ", Quoted(sent)}));
      return {};
    }
    if (number == layout.low - 1) {
      FieldWarning(u"has no value chosen");
      return u"nothing chosen";
    }
    if (number < layout.low || number > layout.high) return OutsideOf(layout, sent);
    if (layout.names.empty()) return Decimal(number);
    return Text(layout.names[static_cast<std::size_t>(number - layout.low)]);
  }

  // As the operator typed it.
  Text TypedNumberMeaning(const FieldLayout& layout, TextView sent) {
    if (!IsNumber(sent)) {
      FieldError(Concat({u"is no number: ", Quoted(sent)}));
      return {};
    }
    std::int32_t number = layout.low - 1;
    try {
      number = ToInt32(sent);
    } catch (const RuntimeError&) {
      // Beyond 32 bits: out of range like any other number that is too large.
    }
    if (number < layout.low || number > layout.high) return OutsideOf(layout, sent);
    const Text meaning = Decimal(number);
    if (meaning != sent) FieldWarning(Concat({u"is ", Quoted(sent), u", taken as ", meaning}));
    return meaning;
  }

  Text OutsideOf(const FieldLayout& layout, TextView sent) {
    FieldError(
        Concat({u"is ", sent, u", outside ", Decimal(layout.low), u" to ", Decimal(layout.high)}));
    return {};
  }

  Text FlagsMeaning(const FieldLayout&, TextView sent) {
    std::int32_t number = 0;
    if (!ParseWholeNumber(sent, number) || number < 0) {
      FieldError(Concat({u"is no set of flags: ", Quoted(sent)}));
      return {};
    }
    const auto flags = static_cast<std::uint32_t>(number);
    if ((flags & kFixedFlags) != kFixedFlags) {
      FieldError(u"lacks bits of 3802 (hex), which are always there");
    }
    std::uint32_t known = kFixedFlags;
    for (const FlagLayout& layout : kFlagLayout) {
      const bool is_set = (flags & layout.bit) != 0;
      request_.flags.push_back({layout.bit, layout.name, is_set, is_set == layout.set_means_on});
      known |= layout.bit;
    }
    if ((flags & ~known) != 0) {
      FieldError(Concat({u"has unknown bits: ", Decimal(flags & ~known)}));
    }
    return u"see below";
  }

  Text ModMeaning(const FieldLayout&, TextView sent) {
    if (!Decode(sent, request_.mod)) return {};
    if (request_.mod.empty()) FieldWarning(u"names no mod");
    return Quoted(request_.mod);
  }

  void ReadMaps(TextView list) {
    if (list.empty()) return request_.AddError(u"there are no maps in the request");
    if (list[0] != u'-') request_.AddError(u"the map list does not begin with \"-\"");
    const std::vector<TextView> entries = Split(list.substr(list[0] == u'-' ? 1 : 0), u"-");
    for (std::size_t at = 0; at < entries.size(); ++at) {
      const Text label = Concat({u"map ", Decimal(std::int64_t(at) + 1), u" "});
      SelectedMap map;
      if (const Text error = ReadMap(entries[at], map); !error.empty()) {
        request_.AddError(Concat({label, error}));
        continue;
      }
      if (const Text doubt = Doubt(map); !doubt.empty()) {
        request_.AddWarning(Concat({label, u"is doubtful: ", doubt}));
      }
      request_.maps.push_back(std::move(map));
    }
    if (std::ssize(entries) > kRotationLimit) {
      request_.AddError(
          Concat({u"there are ", Decimal(std::ssize(entries)), u" maps, more than 255"}));
    }
  }

  // What is doubtful about the map under the mod; empty when nothing is.
  [[nodiscard]] Text Doubt(const SelectedMap& map) const {
    const auto is_meant = [&](TextView file, int type) {
      return type == map.game_type && EqualIgnoringCase(file, map.file);
    };
    if (map.server_map) {
      const bool is_there =
          own_maps_ == nullptr || std::ranges::any_of(*own_maps_, [&](const SelectedMap& own) {
            return is_meant(own.file, own.game_type);
          });
      if (is_there) return {};
      return Concat({u"the machine has no own map ", map.file, u" of that game type"});
    }
    Text doubt = Concat({u"the game has no map ", map.file, u" of that game type"});
    for (const KnownMap& row : CatalogueRows()) {
      if (!is_meant(row.file, row.game_type - u'0')) continue;
      if (!row.team_sabre_only || request_.mod != u"None") return {};
      doubt = Concat({map.file, u" comes with Team Sabre only"});
    }
    return doubt;
  }

  // What is wrong with the entry; empty when it is in `map`.
  static Text ReadMap(TextView entry, SelectedMap& map) {
    const std::vector<TextView> parts = Split(entry, kFieldSeparator);
    if (parts.size() != 4) return u"does not have the four parts of a map";
    try {
      map.name = DecodeField(parts[0]);
      map.file = DecodeField(parts[1]);
    } catch (const RuntimeError& error) {
      return Concat({u"has a part that is no Base64 text: ", error.description()});
    }
    if (IsBlank(map.file)) return u"has no file name";
    std::int32_t type = 0;
    if (!ParseWholeNumber(parts[2], type) || type < 0 || type >= kNoGameType) {
      return Concat({u"has no game type: ", Quoted(parts[2])});
    }
    map.game_type = type;
    if (parts[3] != u"True" && parts[3] != u"False") {
      return Concat({u"has neither True nor False at its end: ", Quoted(parts[3])});
    }
    map.server_map = parts[3] == u"True";
    return {};
  }

  const std::vector<SelectedMap>* own_maps_;
  StartRequest request_;
};

const FieldLayout Decoder::kLayout[] = {
    {u"Host message", &Decoder::TextMeaning, 0, 85},
    {u"Server name", &Decoder::TextMeaning, 1, 26},
    {u"Country code", &Decoder::TextMeaning, 0, 2},
    {u"Password", &Decoder::TextMeaning, 0, 16},
    {u"Session type", &Decoder::NumberMeaning, 1, 2, kSessionTypes},
    {u"Max players", &Decoder::NumberMeaning, 1, 50},
    {u"Start delay", &Decoder::NumberMeaning, 0, 3, kDelays},
    {u"Loop maps", &Decoder::SwitchMeaning},
    {u"Max kills", &Decoder::NumberMeaning, 1, 500},
    {u"Game score", &Decoder::NumberMeaning, 1, 500},
    {u"Zone timer", &Decoder::NumberMeaning, 1, 60},
    {u"Respawn time", &Decoder::NumberMeaning, 0, 120},
    {u"Time limit", &Decoder::NumberMeaning, 0, 100},
    {u"Nova login required", &Decoder::SwitchMeaning},
    {u"Custom skins", &Decoder::SwitchMeaning},
    {u"Run windowed", &Decoder::SwitchMeaning},
    {u"Run dedicated", &Decoder::SwitchMeaning},
    {u"Blue team password", &Decoder::TextMeaning, 0, 16},
    {u"Red team password", &Decoder::TextMeaning, 0, 16},
    {u"Min ping check", &Decoder::SwitchMeaning},
    {u"Min ping", &Decoder::TypedNumberMeaning, 0, 65535},
    {u"Max ping check", &Decoder::SwitchMeaning},
    {u"Max ping", &Decoder::TypedNumberMeaning, 0, 65535},
    {u"Option flags", &Decoder::FlagsMeaning},
    {u"Game port", &Decoder::TypedNumberMeaning, 1, 65535},
    {u"Mod and maps", &Decoder::ModMeaning},
};

StartRequest Decoder::Run(TextView payload) {
  const std::size_t bar = payload.find(kListSeparator);
  if (bar == TextView::npos) request_.AddError(u"the payload has no \"|\" before the map list");
  const std::vector<TextView> fields = Split(payload.substr(0, bar), kFieldSeparator);
  if (fields.size() != std::size(kLayout)) {
    request_.AddError(
        Concat({u"the payload has ", Decimal(std::ssize(fields)), u" fields instead of 26"}));
  }
  for (std::size_t at = 0; at < fields.size(); ++at) {
    const bool is_known = at < std::size(kLayout);
    request_.fields.push_back({is_known ? kLayout[at].name : TextView(), Text(fields[at]), {}});
    if (!is_known) continue;
    Text meaning = (this->*kLayout[at].meaning)(kLayout[at], fields[at]);
    request_.fields.back().meaning = std::move(meaning);
  }
  if (bar != TextView::npos) ReadMaps(payload.substr(bar + 1));
  return std::move(request_);
}

}  // namespace

bool StartRequest::HasErrors() const noexcept {
  return std::any_of(findings.begin(), findings.end(),
                     [](const StartFinding& finding) { return finding.is_error; });
}

StartRequest DecodeStartPayload(TextView payload, const std::vector<SelectedMap>* own_maps) {
  return Decoder(own_maps).Run(payload);
}

}  // namespace quill::host
