// Fields and frames of the remote side.
#include "host/remote/wire.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "host/kit/compression.h"
#include "support/base64.h"
#include "support/code_page.h"
#include "support/runtime_error.h"

namespace quill::host {

Text EncodeField(TextView text) {
  std::vector<std::uint8_t> bytes;
  CodePage::Windows1252().AppendBytes(text, bytes);
  Text field;
  EncodeBase64(bytes, field);
  return field;
}

Text DecodeField(TextView field) {
  std::vector<std::uint8_t> bytes;
  DecodeBase64(field, bytes);
  Text text;
  CodePage::Windows1252().AppendText(bytes, text);
  return text;
}

bool ParseWholeNumber(TextView text, std::int32_t& number) noexcept {
  const bool is_negative = text.starts_with(u'-');
  const TextView digits = text.substr(is_negative ? 1 : 0);
  constexpr std::size_t kMostDigits = 10;
  if (digits.empty() || digits.size() > kMostDigits) return false;
  if (digits[0] == u'0' && text.size() > 1) return false;
  std::int64_t value = 0;
  for (const char16_t digit : digits) {
    if (digit < u'0' || digit > u'9') return false;
    value = value * 10 + (digit - u'0');
  }
  if (is_negative) value = -value;
  if (value < std::numeric_limits<std::int32_t>::min() ||
      value > std::numeric_limits<std::int32_t>::max()) {
    return false;
  }
  number = static_cast<std::int32_t>(value);
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

}  // namespace quill::host
