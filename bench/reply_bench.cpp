// Replies are handled by a fresh list of server maps each time, so growing it counts; the same
// holds for what the split by hand fills.
#include "bench/reply_bench.h"

#include <modp_b64.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "bench/base64_coders.h"
#include "bench/measurements.h"
#include "bench/plain_host.h"
#include "remote/replies.h"
#include "remote/request_file.h"
#include "support/base64.h"

namespace quill::bench {
namespace {

constexpr char kFieldSeparator = '_';
constexpr char kEntrySeparator = '|';
constexpr int kMapsField = 25;
constexpr TextView kFrame = u"1[-]Scorvane[-]x";

std::string Encoded(std::string_view plain) {
  return ToUtf8(EncodeBase64({reinterpret_cast<const std::uint8_t*>(plain.data()), plain.size()}));
}

// All names are of one length, so that a map costs the same in every reply.
std::string ServerMaps(int count) {
  std::string entries;
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(1'000'000 + i).substr(1);
    const std::string game_type = std::to_string(i % 9);
    if (i != 0) entries += kEntrySeparator;
    entries += Encoded("Valley " + number + " <V" + number + ".BMS>" + game_type);
  }
  return entries;
}

// With fixed values, as replies to operators with few rights are.
std::string Payload(int maps) {
  const std::string text = Encoded("Night Server");
  std::vector<std::string> fields = {text,
                                     text,
                                     text,
                                     text,
                                     "2",
                                     "24",
                                     "2",
                                     "1",
                                     "25",
                                     "30",
                                     "30",
                                     "40",
                                     "1",
                                     "1",
                                     "0",
                                     "1",
                                     Encoded("None|Team Sabre"),
                                     text,
                                     text,
                                     "",
                                     "1",
                                     "10",
                                     "0",
                                     "900",
                                     "17500",
                                     ServerMaps(maps),
                                     "1",
                                     "8",
                                     "None",
                                     "0",
                                     "0",
                                     "0",
                                     "0"};
  std::string payload;
  for (const std::string& field : fields) {
    if (&field != &fields.front()) payload += kFieldSeparator;
    payload += field;
  }
  return payload;
}

void HandleReply(benchmark::State& state, const std::string& payload) {
  PlainHost host;
  Session& session = host.session;
  host.kit->decompressed = FromUtf8(payload);
  const auto dialog = TakeDialog(host.session);
  auto& mods = dialog->Get<ui::ComboBox>(u"cboMods");
  session.PendingCommand = kLoadFormCommand;
  for (auto _ : state) {
    mods.Clear();
    host.session.maps.server = ServerMapList();
    TakeReply(session, kFrame);
    benchmark::ClobberMemory();
  }
}

// From the frame to the list of server maps.
void FillModel(benchmark::State& state, const std::string& payload) {
  PlainFileKit kit;
  kit.decompressed = FromUtf8(payload);
  const CodePage& page = CodePage::Windows1252();
  for (auto _ : state) {
    ServerMapList maps;
    ReplyFields fields;
    fields.Assign(DecodeFrame(kFrame, kit));
    maps.AppendField(fields[kMapsField], page);
    benchmark::DoNotOptimize(maps);
    benchmark::ClobberMemory();
  }
}

// The file kit's part.
void Decompress(benchmark::State& state, const std::string& payload) {
  PlainFileKit kit;
  kit.decompressed = FromUtf8(payload);
  for (auto _ : state) benchmark::DoNotOptimize(DecodeFrame(kFrame, kit));
}

struct MapByHand {
  std::string_view name;
  std::string_view file;
  char game_type;
};

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  return text;
}

// "NAME <FILE>TYPE"; the text is not even looked at where entries are not taken apart.
template <bool kTakesApart>
MapByHand MapOf(std::string_view text) {
  if constexpr (!kTakesApart) return {text, {}, 0};
  const auto* const sign = static_cast<const char*>(memrchr(text.data(), '<', text.size()));
  const auto name_size = static_cast<std::size_t>(sign - text.data());
  return {Trimmed(text.substr(0, name_size)),
          Trimmed(text.substr(name_size + 1, text.size() - name_size - 3)), text.back()};
}

// What somebody in a hurry would write: the entries' texts in one buffer, nothing checked.
template <bool kTakesApart>
void SplitByHand(benchmark::State& state, const std::string& payload) {
  for (auto _ : state) {
    std::vector<std::string_view> fields;
    fields.reserve(33);
    const char* at = payload.data();
    const char* const end = at + payload.size();
    const auto next = [](const char*& from, const char* to, char separator) {
      const auto* found =
          static_cast<const char*>(std::memchr(from, separator, static_cast<size_t>(to - from)));
      if (found == nullptr) found = to;
      const std::string_view piece(from, static_cast<std::size_t>(found - from));
      from = found == to ? nullptr : found + 1;
      return piece;
    };
    while (at != nullptr) fields.push_back(next(at, end, kFieldSeparator));

    const std::string_view field = fields[kMapsField];
    const auto texts = std::make_unique_for_overwrite<char[]>(modp_b64_decode_len(field.size()));
    std::vector<MapByHand> maps;
    maps.reserve(field.size() / 32);
    char* out = texts.get();
    at = field.empty() ? nullptr : field.data();
    while (at != nullptr) {
      const std::string_view entry = next(at, field.data() + field.size(), kEntrySeparator);
      const std::size_t count = modp_b64_decode(out, entry.data(), entry.size());
      maps.push_back(MapOf<kTakesApart>({out, count}));
      out += count;
    }
    benchmark::DoNotOptimize(maps.data());
    benchmark::ClobberMemory();
  }
}

void CopyPayload(benchmark::State& state, const std::string& payload) {
  std::string copy(payload.size(), '\0');
  for (auto _ : state) {
    std::memcpy(copy.data(), payload.data(), payload.size());
    benchmark::ClobberMemory();
  }
}

}  // namespace

void RegisterReplies() {
  for (const int maps : kMapCounts) {
    const auto payload = std::make_shared<const std::string>(Payload(maps));
    const auto measure = [&](const char* who, void (*work)(benchmark::State&, const std::string&)) {
      Measure(Name({"reply", std::to_string(maps), who}),
              [payload, work](benchmark::State& state) { work(state, *payload); });
    };
    measure(kOurs, FillModel);
    measure("dialog", HandleReply);
    measure("kit", Decompress);
    measure("by_hand", SplitByHand<false>);
    measure("by_hand_apart", SplitByHand<true>);
    measure(kFloor, CopyPayload);
  }
}

}  // namespace quill::bench
