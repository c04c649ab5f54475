// Frames, fields and map entries: the plug-in reads out of a frame what the remote side's own
// reader reads, and the splitting of texts agrees with plain definitions.
#include "fuzz/fuzz_target.h"
#include "headless/memory_file_system.h"
#include "host/kit/file_kit.h"
#include "host/kit/file_storage.h"
#include "host/remote/wire.h"
#include "maps/map_entry.h"
#include "maps/server_map_list.h"
#include "remote/replies.h"
#include "remote/request_file.h"

namespace quill::fuzz {
namespace {

struct Kit {
  headless::MemoryFileSystem files;
  host::MemoryStorage storage{files};
  host::ErrorJournal journal{u"C:\\Host", files, storage};
  host::HostFileKit kit{storage, journal};
};

void CheckFrame(TextView text) {
  static Kit kit;
  const auto payload = Attempt([&] { return DecodeFrame(text, kit.kit); });
  const auto theirs = Attempt([&] { return host::ReadFrame(text); });
  // The plug-in takes more: looser numbers, and anything behind a second marker.
  if (theirs) Claim(payload == theirs);
  if (payload) Claim(DecodeFrame(EncodeFrame(*payload, kit.kit), kit.kit) == payload);
}

// What splitting means: pieces without the separator that, joined by it, are the text again.
std::vector<TextView> CheckedSplit(TextView text, TextView separator) {
  const std::vector<TextView> pieces = Split(text, separator);
  Text joined;
  for (const TextView& piece : pieces) {
    Claim(piece.find(separator) == TextView::npos);
    if (&piece != &pieces.front()) joined += separator;
    joined += piece;
  }
  Claim(joined == text);
  return pieces;
}

void CheckFields(TextView text) {
  CheckedSplit(text, u"[-]");
  const std::vector<TextView> pieces = CheckedSplit(text, u"_");
  const int count =
      static_cast<int>(std::min<std::size_t>(pieces.size(), ReplyFields::kMostFields));
  ReplyFields fields;
  fields.Assign(Text(text));
  Claim(fields.Count() == count);
  for (int i = 0; i < count; ++i) Claim(fields[i] == pieces[static_cast<std::size_t>(i)]);
  Claim(fields.ValueOrEmpty(count).empty() && fields.ValueOrEmpty(-1).empty());
}

// A server map is a map entry and a game type of one character.
void CheckServerMap(TextView text) {
  ServerMapList maps;
  const auto taken = Attempt([&] { return maps.AppendEntry(text), true; });
  Claim(maps.maps().size() == (taken ? 1U : 0U));
  if (text.empty()) return Claim(!taken);
  const TextView game_type = text.substr(text.size() - 1);
  const auto entry = Attempt([&] { return SplitMapEntry(text.substr(0, text.size() - 1)); });
  Claim(taken.has_value() == entry.has_value());
  if (!entry) return;
  const KnownMap& map = maps.maps().front();
  Claim(map.name == entry->name && map.file == entry->file && map.game_type == game_type.front());
  Claim(maps.Find(entry->file, game_type) == &map && maps.HasName(entry->name));
}

}  // namespace

void TakeInput(std::string_view input) {
  const Text text = TextOf(input);
  CheckFrame(text);
  CheckFields(text);
  CheckServerMap(text);
}

}  // namespace quill::fuzz
