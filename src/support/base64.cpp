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

// Both directions work block by block through a buffer that stays in the nearest cache, because
// growing a text fills the new part with zeros, which would be a second pass over the whole result.
constexpr std::size_t kBlockGroups = 256;
constexpr std::size_t kBlockBytes = 3 * kBlockGroups;
constexpr std::size_t kBlockDigits = 4 * kBlockGroups;

// Encodes the low bytes of `groups` times three units. Returns all units or-ed together, so that
// the caller learns whether low bytes were all there is.
template <class Unit>
unsigned EncodeGroups(const Unit* in, std::size_t groups, char16_t* out) noexcept {
  unsigned seen = 0;
  for (; groups != 0; --groups, in += 3, out += 4) {
    const unsigned a = in[0];
    const unsigned b = in[1];
    const unsigned c = in[2];
    seen |= a | b | c;
    out[0] = kAlphabet[(a >> 2) & 63];
    out[1] = kAlphabet[((a & 3) << 4) | ((b >> 4) & 15)];
    out[2] = kAlphabet[((b & 15) << 2) | ((c >> 6) & 3)];
    out[3] = kAlphabet[c & 63];
  }
  return seen;
}

// Encodes up to kBlockBytes units into `out`; a count that is no multiple of 3 is padded. Returns
// the units or-ed together.
template <class Unit>
unsigned EncodeBlock(const Unit* in, std::size_t count, char16_t* out) noexcept {
  const std::size_t groups = count / 3;
  unsigned seen = EncodeGroups(in, groups, out);
  const std::size_t rest = count % 3;
  if (rest != 0) {
    in += 3 * groups;
    out += 4 * groups;
    const Unit last[3] = {in[0], rest == 2 ? in[1] : Unit{0}, 0};
    seen |= EncodeGroups(last, 1, out);
    out[3] = kPad;
    if (rest == 1) out[2] = kPad;
  }
  return seen;
}

// Appends the encoding of `count` units from `in`; `encode(in, count, out)` does one block.
template <class Unit, class Encode>
void AppendEncoded(const Unit* in, std::size_t count, Text& target, Encode encode) {
  char16_t digits[kBlockDigits];
  if (count > kBlockBytes) target.reserve(target.size() + (count + 2) / 3 * 4);
  while (count != 0) {
    const std::size_t taken = std::min(count, kBlockBytes);
    encode(in, taken, digits);
    target.append(digits, (taken + 2) / 3 * 4);
    in += taken;
    count -= taken;
  }
}

// Four units side by side, as they lie in memory. A decoded group is its three bytes, one to a
// unit, and a fourth unit that is not 0 when a digit was none.
using Lanes = std::uint64_t;

constexpr Lanes ToLanes(const std::array<char16_t, 4>& units) {
  return std::bit_cast<Lanes>(units);
}

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

// Decodes `groups` times four digits into units of one byte each; one unit beyond them is
// overwritten. Returns all lanes or-ed together.
Lanes DecodeGroups(const char16_t* in, std::size_t groups, char16_t* out) noexcept {
  Lanes all = 0;
  unsigned seen = 0;
  for (; groups != 0; --groups, in += 4, out += 3) {
    const unsigned a = in[0];
    const unsigned b = in[1];
    const unsigned c = in[2];
    const unsigned d = in[3];
    seen |= a | b | c | d;
    const Lanes lanes = kDigitLanes[0][a & 0xFF] | kDigitLanes[1][b & 0xFF] |
                        kDigitLanes[2][c & 0xFF] | kDigitLanes[3][d & 0xFF];
    std::memcpy(out, &lanes, sizeof lanes);
    all |= lanes;
  }
  return seen > 0xFF ? all | kBad : all;
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

// Decodes `encoded` block by block and hands each block to `sink(units, count, beyond_ascii)`, its
// bytes one to a unit. Calls `undo()` before it fails.
template <class Sink, class Undo>
void Decode(TextView encoded, Sink sink, Undo undo) {
  const auto require = [&](bool good) {
    if (good) return;
    undo();
    FailMalformed(encoded);
  };
  require(encoded.size() % 4 == 0);
  if (encoded.empty()) return;

  char16_t units[kBlockBytes + 1];
  const char16_t* in = encoded.data();
  std::size_t padding = 0;
  if (in[encoded.size() - 1] == kPad) padding = in[encoded.size() - 2] == kPad ? 2 : 1;
  std::size_t groups = encoded.size() / 4 - (padding != 0 ? 1 : 0);
  while (groups != 0) {
    const std::size_t taken = std::min(groups, kBlockGroups);
    const Lanes all = DecodeGroups(in, taken, units);
    require((all & kBad) == 0);
    sink(units, 3 * taken, (all & kBeyondAscii) != 0);
    in += 4 * taken;
    groups -= taken;
  }
  if (padding != 0) {
    const char16_t last[4] = {in[0], in[1], padding == 1 ? in[2] : kAlphabet[0], kAlphabet[0]};
    const Lanes all = DecodeGroups(last, 1, units);
    require((all & kBad) == 0);
    sink(units, 3 - padding, (all & kBeyondAscii) != 0);
  }
}

}  // namespace

void EncodeBase64(std::span<const std::uint8_t> bytes, Text& target) {
  AppendEncoded(bytes.data(), bytes.size(), target, EncodeBlock<std::uint8_t>);
}

void DecodeBase64(TextView encoded, std::vector<std::uint8_t>& target) {
  const std::size_t before = target.size();
  target.reserve(before + encoded.size() / 4 * 3);
  Decode(
      encoded,
      [&](const char16_t* units, std::size_t count, bool) {
        for (; count != 0; --count) target.push_back(static_cast<std::uint8_t>(*units++));
      },
      [&] { target.resize(before); });
}

Text Enc64(TextView text, const CodePage& page, MessageReporter& reporter) {
  Text encoded;
  AppendEnc64(text, page, reporter, encoded);
  return encoded;
}

void AppendEnc64(TextView text, const CodePage& page, MessageReporter& reporter, Text& target) {
  const std::size_t before = target.size();
  try {
    AppendEncoded(text.data(), text.size(), target,
                  [&page](const char16_t* in, std::size_t count, char16_t* out) {
                    if (EncodeBlock(in, count, out) < 0x80) return;
                    std::uint8_t bytes[kBlockBytes];
                    for (std::size_t i = 0; i < count; ++i) bytes[i] = page.ToByte(in[i]);
                    EncodeBlock(bytes, count, out);
                  });
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
  const std::size_t before = target.size();
  if (encoded.size() > kBlockDigits) target.reserve(before + encoded.size() / 4 * 3);
  Decode(
      encoded,
      [&](char16_t* units, std::size_t count, bool beyond_ascii) {
        if (beyond_ascii) {
          for (std::size_t i = 0; i < count; ++i) {
            units[i] = page.ToUnit(static_cast<std::uint8_t>(units[i]));
          }
        }
        target.append(units, count);
      },
      [&] { target.resize(before); });
}

}  // namespace quill
