#include "support/base64.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "support/runtime_error.h"
#include "support/trap.h"

namespace quill {
namespace {

constexpr char16_t kAlphabet[] =
    u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char16_t kPad = u'=';

// Four units side by side; the first of them is the lowest, as it lies in memory.
using Lanes = std::uint64_t;
static_assert(std::endian::native == std::endian::little);

constexpr Lanes ToLanes(const std::array<char16_t, 4>& units) {
  return std::bit_cast<Lanes>(units);
}

Lanes LoadLanes(const char16_t* units) noexcept {
  Lanes lanes;
  std::memcpy(&lanes, units, sizeof lanes);
  return lanes;
}

// Both directions work block by block. A block's place in the result is filled from here and then
// written over: growing a text with zeros would be a second pass over the whole result, and so
// would be a buffer that is appended.
constexpr std::size_t kBlockGroups = 128;
constexpr std::size_t kBlockBytes = 3 * kBlockGroups;
constexpr std::size_t kBlockDigits = 4 * kBlockGroups;
constexpr char16_t kFiller[kBlockDigits] = {};

// The place for `count` (at most kBlockDigits) more units of `target`.
char16_t* Extend(Text& target, std::size_t count) {
  target.append(kFiller, count);
  return target.data() + (target.size() - count);
}

// Two digits side by side, by the 12 bits that they stand for.
using DigitPair = std::array<char16_t, 2>;

constexpr std::array<DigitPair, 4096> MakeDigitPairs() {
  std::array<DigitPair, 4096> pairs{};
  for (std::size_t bits = 0; bits < pairs.size(); ++bits) {
    pairs[bits] = {kAlphabet[bits >> 6], kAlphabet[bits & 63]};
  }
  return pairs;
}

constexpr std::array<DigitPair, 4096> kDigitPairs = MakeDigitPairs();

void PutDigits(std::size_t first_12_bits, std::size_t last_12_bits, char16_t* out) noexcept {
  std::memcpy(out, &kDigitPairs[first_12_bits], sizeof(DigitPair));
  std::memcpy(out + 2, &kDigitPairs[last_12_bits], sizeof(DigitPair));
}

void EncodeGroup(unsigned a, unsigned b, unsigned c, char16_t* out) noexcept {
  PutDigits((a << 4) | (b >> 4), ((b & 15) << 8) | c, out);
}

// The same for the low bytes of the first three lanes.
void EncodeGroup(Lanes units, char16_t* out) noexcept {
  // Brings the three bytes together as the highest ones, the first of them on top.
  constexpr Lanes kGather = (Lanes{1} << 56) | (Lanes{1} << 32) | (Lanes{1} << 8);
  const Lanes bytes = (units & ToLanes({0xFF, 0xFF, 0xFF, 0})) * kGather;
  PutDigits(static_cast<std::size_t>(bytes >> 52), static_cast<std::size_t>(bytes >> 40) & 0xFFF,
            out);
}

// Encodes `count` bytes into `out`; a count that is no multiple of 3 is padded.
void EncodeBytes(const std::uint8_t* in, std::size_t count, char16_t* out) noexcept {
  for (; count >= 3; count -= 3, in += 3, out += 4) EncodeGroup(in[0], in[1], in[2], out);
  if (count == 0) return;
  EncodeGroup(in[0], count == 2 ? in[1] : 0, 0, out);
  out[3] = kPad;
  if (count == 1) out[2] = kPad;
}

// Encodes `count` (not 0) units into `out` as if they were bytes. Returns whether they were all
// ASCII, without which `out` holds rubbish.
bool EncodeAscii(const char16_t* in, std::size_t count, char16_t* out) noexcept {
  Lanes seen = 0;
  for (; count > 3; count -= 3, in += 3, out += 4) {
    const Lanes units = LoadLanes(in);  // one more than the group has
    seen |= units;
    EncodeGroup(units, out);
  }
  const Lanes last = ToLanes({in[0], count > 1 ? in[1] : u'\0', count > 2 ? in[2] : u'\0', 0});
  seen |= last;
  EncodeGroup(last, out);
  if (count < 3) out[3] = kPad;
  if (count < 2) out[2] = kPad;
  return (seen & ToLanes({0xFF80, 0xFF80, 0xFF80, 0xFF80})) == 0;
}

// Appends the encoding of `count` units from `in`; `encode(in, count, out)` does one block.
template <class Unit, class Encode>
void AppendEncoded(const Unit* in, std::size_t count, Text& target, Encode encode) {
  if (count > kBlockBytes) target.reserve(target.size() + (count + 2) / 3 * 4);
  while (count != 0) {
    const std::size_t taken = std::min(count, kBlockBytes);
    encode(in, taken, Extend(target, (taken + 2) / 3 * 4));
    in += taken;
    count -= taken;
  }
}

// A decoded group is its three bytes, one to a unit, and a fourth unit that is not 0 when a digit
// was none.
constexpr Lanes kBad = ToLanes({0, 0, 0, 1});
constexpr Lanes kBeyondAscii = ToLanes({0x80, 0x80, 0x80, 0});

// What each digit adds to its group, by the digit's place and its low byte.
using DigitLanes = std::array<std::array<Lanes, 256>, 4>;

constexpr DigitLanes MakeDigitLanes() {
  DigitLanes lanes{};
  for (auto& place : lanes) place.fill(kBad);
  for (unsigned v = 0; v < 64; ++v) {
    const auto unit = [](unsigned byte) { return static_cast<char16_t>(byte & 0xFF); };
    const std::size_t digit = kAlphabet[v];
    lanes[0][digit] = ToLanes({unit(v << 2), 0, 0, 0});
    lanes[1][digit] = ToLanes({unit(v >> 4), unit(v << 4), 0, 0});
    lanes[2][digit] = ToLanes({0, unit(v >> 2), unit(v << 6), 0});
    lanes[3][digit] = ToLanes({0, 0, unit(v), 0});
  }
  return lanes;
}

constexpr DigitLanes kDigitLanes = MakeDigitLanes();

Lanes DecodeGroup(const char16_t* digits) noexcept {
  return kDigitLanes[0][digits[0] & 0xFF] | kDigitLanes[1][digits[1] & 0xFF] |
         kDigitLanes[2][digits[2] & 0xFF] | kDigitLanes[3][digits[3] & 0xFF];
}

// Decodes `groups` (not 0) times four digits, the last `padding` of which are "=", into units of
// one byte each. Returns all groups or-ed together.
Lanes DecodeBlock(const char16_t* in, std::size_t groups, std::size_t padding,
                  char16_t* out) noexcept {
  Lanes all = 0;
  Lanes seen = 0;
  for (; groups != 1; --groups, in += 4, out += 3) {
    seen |= LoadLanes(in);
    const Lanes group = DecodeGroup(in);
    all |= group;
    std::memcpy(out, &group, sizeof group);  // the next group writes over the fourth unit
  }
  // Zero digits stand in for the padding.
  const char16_t last[4] = {in[0], in[1], padding == 2 ? kAlphabet[0] : in[2],
                            padding != 0 ? kAlphabet[0] : in[3]};
  seen |= ToLanes({last[0], last[1], last[2], last[3]});
  const Lanes group = DecodeGroup(last);
  all |= group;
  out[0] = static_cast<char16_t>(group);
  if (padding < 2) out[1] = static_cast<char16_t>(group >> 16);
  if (padding < 1) out[2] = static_cast<char16_t>(group >> 32);
  return (seen & ToLanes({0xFF00, 0xFF00, 0xFF00, 0xFF00})) == 0 ? all : all | kBad;
}

// Says what is wrong with a text that could not be decoded.
[[noreturn]] void FailMalformed(TextView encoded) {
  const auto failure = [](std::initializer_list<TextView> parts) {
    return RuntimeError(ErrorNumber::kInvalidProcedureCall, Concat(parts));
  };
  if (encoded.size() % 4 != 0) {
    throw failure({u"Base64 text: the length ", Decimal(static_cast<std::int64_t>(encoded.size())),
                   u" is not a multiple of 4"});
  }
  const std::size_t bad = encoded.find_first_not_of(TextView(kAlphabet));
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

// Appends the bytes that `encoded` stands for, one to a unit; `map(units, count)` is called for the
// blocks that are not all ASCII. On failure `target` keeps what it held.
template <class Map>
void AppendDecoded(TextView encoded, Text& target, Map map) {
  if (encoded.size() % 4 != 0) FailMalformed(encoded);
  if (encoded.empty()) return;
  const std::size_t before = target.size();
  if (encoded.size() > kBlockDigits) target.reserve(before + encoded.size() / 4 * 3);

  const char16_t* in = encoded.data();
  const char16_t* const end = in + encoded.size();
  const std::size_t padding = end[-1] != kPad ? 0 : end[-2] != kPad ? 1 : 2;
  while (in != end) {
    const std::size_t taken = std::min<std::size_t>(end - in, kBlockDigits);
    const std::size_t dropped = in + taken == end ? padding : 0;
    const std::size_t count = taken / 4 * 3 - dropped;
    char16_t* const out = Extend(target, count);
    const Lanes all = DecodeBlock(in, taken / 4, dropped, out);
    if ((all & kBad) != 0) {
      target.resize(before);
      FailMalformed(encoded);
    }
    if ((all & kBeyondAscii) != 0) map(out, count);
    in += taken;
  }
}

}  // namespace

void EncodeBase64(std::span<const std::uint8_t> bytes, Text& target) {
  AppendEncoded(bytes.data(), bytes.size(), target, EncodeBytes);
}

void DecodeBase64(TextView encoded, std::vector<std::uint8_t>& target) {
  Text bytes;
  AppendDecoded(encoded, bytes, [](char16_t*, std::size_t) {});
  target.insert(target.end(), bytes.begin(), bytes.end());
}

Text Enc64(TextView text, const CodePage& page, MessageReporter& reporter) {
  Text encoded;
  AppendEnc64(text, page, reporter, encoded);
  return encoded;
}

void AppendEnc64(TextView text, const CodePage& page, MessageReporter& reporter, Text& target) {
  const std::size_t before = target.size();
  try {
    // After the first block that is not ASCII the others are converted at once.
    bool ascii = true;
    const auto encode = [&](const char16_t* in, std::size_t count, char16_t* out) {
      ascii = ascii && EncodeAscii(in, count, out);
      if (ascii) return;
      std::uint8_t bytes[kBlockBytes];
      page.ToBytes(TextView(in, count), bytes);
      EncodeBytes(bytes, count, out);
    };
    AppendEncoded(text.data(), text.size(), target, encode);
  } catch (...) {
    target.resize(before);
    ReportTrapped(reporter, u"Enc64", CurrentRuntimeError(), 0);
  }
}

Text Dec64(TextView encoded, const CodePage& page) {
  Text text;
  AppendDec64(encoded, page, text);
  return text;
}

void AppendDec64(TextView encoded, const CodePage& page, Text& target) {
  AppendDecoded(encoded, target, [&page](char16_t* units, std::size_t count) {
    for (; count != 0; --count, ++units) *units = page.ToUnit(static_cast<std::uint8_t>(*units));
  });
}

}  // namespace quill
