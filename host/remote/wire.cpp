// Fields, frames and requests of the remote side.
#include "host/remote/wire.h"

#include <charconv>
#include <optional>
#include <string>
#include <vector>

#include "host/kit/compression.h"
#include "support/base64.h"
#include "support/code_page.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

constexpr TextView kPrefix = u"Plugin_kvrBHDGS_";
constexpr TextView kIndexMarker = u"_VB6_";

[[noreturn]] void FailRequest(TextView what) {
  throw RuntimeError(ErrorNumber::kInvalidProcedureCall, Concat({u"The request ", what}));
}

struct Tail {
  std::int32_t index = 0;
  TextView frame;
};

// What follows the index marker, or nothing when it is not of the command's form.
std::optional<Tail> ParseTail(TextView text, bool has_payload) {
  Tail tail;
  if (!has_payload) {
    if (!ParseWholeNumber(text, tail.index)) return std::nullopt;
    return tail;
  }
  const std::size_t end = text.find(kFieldSeparator);
  if (end == TextView::npos || !ParseWholeNumber(text.substr(0, end), tail.index)) {
    return std::nullopt;
  }
  tail.frame = text.substr(end + kFieldSeparator.size());
  // A long compressed text is not searched for its end, only looked at where it begins.
  constexpr std::size_t kLongestLength = 11;
  const TextView head = tail.frame.substr(0, kLongestLength + kFrameMarker.size());
  std::int32_t length = 0;
  if (!ParseWholeNumber(head.substr(0, head.find(kFrameMarker)), length)) return std::nullopt;
  return tail;
}

}  // namespace

Text EncodeField(TextView text) {
  std::vector<std::uint8_t> bytes;
  for (const char16_t unit : text) bytes.push_back(CodePage::Windows1252().ToByte(unit));
  return EncodeBase64(bytes);
}

Text DecodeField(TextView field) {
  Text text;
  for (const std::uint8_t byte : DecodeBase64(field)) text += CodePage::Windows1252().ToUnit(byte);
  return text;
}

bool ParseWholeNumber(TextView text, std::int32_t& number) {
  constexpr std::size_t kLongest = 11;
  if (text.size() > kLongest) return false;
  const std::string digits = ToUtf8(text);
  std::int32_t value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (Decimal(value) != text) return false;
  number = value;
  return true;
}

Text WriteFrame(TextView payload) {
  return Concat(
      {Decimal(static_cast<std::int64_t>(payload.size())), kFrameMarker, CompressText(payload)});
}

Text ReadFrame(TextView frame) {
  const auto fail = [](TextView what) {
    throw RuntimeError(ErrorNumber::kInvalidProcedureCall, Concat({u"The payload ", what}));
  };
  const std::size_t marker = frame.find(kFrameMarker);
  if (marker == TextView::npos) fail(u"has no frame marker");
  std::int32_t length = 0;
  if (!ParseWholeNumber(frame.substr(0, marker), length) || length < 0) {
    fail(Concat({u"has the length \"", frame.substr(0, marker), u"\", which is none"}));
  }
  if (length > kMaxPayloadLength) {
    fail(Concat({u"claims ", Decimal(length), u" characters, which is too much to believe"}));
  }
  return DecompressText(frame.substr(marker + kFrameMarker.size()), length);
}

// Taken apart from its end, because only the target may hold anything.
RequestEnvelope ParseRequestEnvelope(TextView text) {
  if (!text.starts_with(kPrefix)) FailRequest(u"does not begin with \"Plugin_kvrBHDGS_\"");
  TextView rest = text.substr(kPrefix.size());
  const std::size_t command_end = rest.find(kFieldSeparator);
  if (command_end == TextView::npos) FailRequest(u"names no command");
  const TextView command = rest.substr(0, command_end);
  if (command != kQueryCommand && command != kStartCommand) {
    FailRequest(Concat({u"has the unknown command \"", command, u"\""}));
  }
  rest.remove_prefix(command_end + kFieldSeparator.size());

  const bool has_payload = command == kStartCommand;
  std::size_t marker = rest.rfind(kIndexMarker);
  while (marker != TextView::npos) {
    if (const auto tail = ParseTail(rest.substr(marker + kIndexMarker.size()), has_payload)) {
      return {Text(command), Text(rest.substr(0, marker)), tail->index, Text(tail->frame)};
    }
    // Only a payload can hold the marker behind the one that counts.
    if (!has_payload || marker == 0) break;
    marker = rest.rfind(kIndexMarker, marker - 1);
  }
  FailRequest(has_payload ? u"does not end in \"_VB6_\", an index and a framed payload"
                          : u"does not end in \"_VB6_\" and an index");
}

Text RequestPath(TextView host_root, TextView command) {
  return Concat({host_root, u"\\RCData\\reply_kvrBHDGS_", command, u".txt"});
}

}  // namespace quill::host
