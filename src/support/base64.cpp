// Base64 group by group: three bytes are 24 bits, and these are four digits of 6 bits. A group is
// read and written in one piece of four units, as fields are many and short.
#include "support/base64.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "support/report_message.h"
#include "support/runtime_error.h"

namespace quill {
namespace {

constexpr TextView kAlphabet = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char16_t kPad = u'=';

// Four units side by side; the first of them is the lowest, as it lies in memory.
using Lanes = std::uint64_t;
static_assert(std::endian::native == std::endian::little);

constexpr Lanes ToLanes(const std::array<char16_t, 4>& units) {
  return std::bit_cast<Lanes>(units);
}

Lanes Load(const char16_t* units) noexcept {
  Lanes lanes;
  std::memcpy(&lanes, units, sizeof lanes);
  return lanes;
}

// The tables are made when the program or library is loaded, because they would be a large part of
// the library's file.

// Two digits side by side, by the 12 bits that they stand for.
using DigitPair = std::array<char16_t, 2>;
const auto kDigitPairs = [] {
  std::array<DigitPair, 4096> pairs;
  for (std::size_t bits = 0; bits < pairs.size(); ++bits) {
    pairs[bits] = {kAlphabet[bits >> 6], kAlphabet[bits & 63]};
  }
  return pairs;
}();

// Encodes the low bytes of the first three units.
void EncodeGroup(Lanes units, char16_t* out) noexcept {
  // Brings the three bytes together as the highest ones, the first of them on top.
  constexpr Lanes kGather = (Lanes{1} << 56) | (Lanes{1} << 32) | (Lanes{1} << 8);
  // The three products do not overlap, so nothing is carried; what lies below bit 40 is not used.
  const Lanes bytes = (units & ToLanes({0xFF, 0xFF, 0xFF, 0})) * kGather;
  std::memcpy(out, &kDigitPairs[static_cast<std::size_t>(bytes >> 52)], sizeof(DigitPair));
  std::memcpy(out + 2, &kDigitPairs[static_cast<std::size_t>(bytes >> 40) & 0xFFF],
              sizeof(DigitPair));
}

// Encodes the low bytes of `units` into `out`. Returns whether they were all ASCII.
bool Encode(TextView units, char16_t* out) noexcept {
  Lanes seen = 0;
  const char16_t* in = units.data();
  std::size_t left = units.size();
  // The last group is left to the code below: behind it there is no fourth unit to read.
  for (; left > 3; left -= 3, in += 3, out += 4) {
    const Lanes group = Load(in);  // one unit more than the group has
    seen |= group;
    EncodeGroup(group, out);
  }
  if (left != 0) {
    Lanes last = in[0];
    if (left > 1) last |= Lanes{in[1]} << 16;
    if (left > 2) last |= Lanes{in[2]} << 32;
    seen |= last;
    EncodeGroup(last, out);
    if (left < 3) out[3] = kPad;
    if (left < 2) out[2] = kPad;
  }
  return (seen & ToLanes({0xFF80, 0xFF80, 0xFF80, 0xFF80})) == 0;
}

// A decoded group is its three bytes, one to a unit, and a fourth unit that is not 0 when a digit
// was none.
constexpr Lanes kBad = ToLanes({0, 0, 0, 1});
constexpr Lanes kBeyondAscii = ToLanes({0x80, 0x80, 0x80, 0});

// What each digit adds to its group, by the digit's place and its low byte.
const auto kDigitLanes = [] {
  std::array<std::array<Lanes, 256>, 4> lanes;
  for (auto& place : lanes) place.fill(kBad);
  for (unsigned value = 0; value < 64; ++value) {
    const auto unit = [](unsigned byte) { return static_cast<char16_t>(byte & 0xFF); };
    const std::size_t digit = kAlphabet[value];
    lanes[0][digit] = ToLanes({unit(value << 2), 0, 0, 0});
    lanes[1][digit] = ToLanes({unit(value >> 4), unit(value << 4), 0, 0});
    lanes[2][digit] = ToLanes({0, unit(value >> 2), unit(value << 6), 0});
    lanes[3][digit] = ToLanes({0, 0, unit(value), 0});
  }
  return lanes;
}();

// Says what is wrong with a text that could not be decoded.
[[noreturn]] void FailMalformed(TextView encoded) {
  const auto failure = [](std::initializer_list<TextView> parts) {
    return RuntimeError(ErrorNumber::kInvalidProcedureCall, Concat(parts));
  };
  if (encoded.size() % 4 != 0) {
    throw failure({u"Base64 text: the length ", Decimal(static_cast<std::int64_t>(encoded.size())),
                   u" is not a multiple of 4"});
  }
  // Padding at the end may be right; whatever is wrong stands before it and is found first.
  const std::size_t bad = encoded.find_first_not_of(kAlphabet);
  const Text place = Decimal(static_cast<std::int64_t>(bad) + 1);
  if (encoded[bad] == kPad) {
    throw failure({u"Base64 text: \"=\" at position ", place, u", before the end"});
  }
  constexpr TextView kHexDigits = u"0123456789ABCDEF";
  Text code;
  for (int shift = 12; shift >= 0; shift -= 4) code += kHexDigits[(encoded[bad] >> shift) & 15];
  throw failure({u"Base64 text: the character U+", code, u" at position ", place,
                 u" is not in the alphabet"});
}

// Writes the bytes to `out`, one to a unit; `map(units, count)` is called when they are not all
// ASCII. Returns how many they are.
template <class Map>
std::size_t Decode(TextView encoded, char16_t* const out, Map map) {
  if (encoded.size() % 4 != 0) FailMalformed(encoded);
  if (encoded.empty()) return 0;
  Lanes all = 0;
  Lanes seen = 0;
  const auto decode = [&](const char16_t* in) {
    const auto digit = [&](std::size_t place) { return kDigitLanes[place][in[place] & 0xFF]; };
    const Lanes group = digit(0) | digit(1) | digit(2) | digit(3);
    seen |= Load(in);
    all |= group;
    return group;
  };
  const char16_t* in = encoded.data();
  const char16_t* const last = in + encoded.size() - 4;
  char16_t* to = out;
  for (; in != last; in += 4, to += 3) {
    const Lanes group = decode(in);
    std::memcpy(to, &group, sizeof group);  // the next group writes over the fourth unit
  }
  // The last group, with digits for the padding, whose bytes are then left out.
  const std::size_t padding = last[3] != kPad ? 0 : last[2] != kPad ? 1 : 2;
  std::array<char16_t, 4> digits = {last[0], last[1], last[2], last[3]};
  if (padding > 0) digits[3] = kAlphabet[0];
  if (padding > 1) digits[2] = kAlphabet[0];
  const Lanes group = decode(digits.data());
  to[0] = static_cast<char16_t>(group);
  if (padding < 2) to[1] = static_cast<char16_t>(group >> 16);
  if (padding < 1) to[2] = static_cast<char16_t>(group >> 32);
  // Looked at once, at the end, which keeps the loop short. A unit above 0xFF was looked up by its
  // low byte alone.
  if ((seen & ToLanes({0xFF00, 0xFF00, 0xFF00, 0xFF00})) != 0 || (all & kBad) != 0) {
    FailMalformed(encoded);
  }
  const std::size_t count = Dec64Room(encoded.size()) - padding;
  if ((all & kBeyondAscii) != 0) map(out, count);
  return count;
}

}  // namespace

Text EncodeBase64(std::span<const std::uint8_t> bytes) {
  Text encoded(Enc64Length(bytes.size()), kPad);
  Encode(Text(bytes.begin(), bytes.end()), encoded.data());
  return encoded;
}

std::vector<std::uint8_t> DecodeBase64(TextView encoded) {
  Text bytes(Dec64Room(encoded.size()), u'\0');
  bytes.resize(Decode(encoded, bytes.data(), [](char16_t*, std::size_t) {}));
  return {bytes.begin(), bytes.end()};
}

Text Enc64(TextView text, const CodePage& page, MessageReporter& reporter) {
  try {
    Text encoded(Enc64Length(text.size()), kPad);
    Enc64To(text, page, encoded.data());
    return encoded;
  } catch (...) {
    reporter.ReportTrapped(u"Enc64", CurrentRuntimeError(), 0);
    return {};
  }
}

Text Dec64(TextView encoded, const CodePage& page) {
  Text text(Dec64Room(encoded.size()), u'\0');
  text.resize(Dec64To(encoded, page, text.data()));
  return text;
}

void Enc64To(TextView text, const CodePage& page, char16_t* room) {
  // In ASCII a unit is its byte on every page, so most texts are done in one pass.
  if (Encode(text, room)) return;
  Text bytes(text);
  for (char16_t& unit : bytes) unit = page.ToByte(unit);
  Encode(bytes, room);
}

std::size_t Dec64To(TextView encoded, const CodePage& page, char16_t* room) {
  return Decode(encoded, room, [&page](char16_t* units, std::size_t count) {
    for (; count != 0; --count, ++units) *units = page.ToUnit(static_cast<std::uint8_t>(*units));
  });
}

}  // namespace quill
