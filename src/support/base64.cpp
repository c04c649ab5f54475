#include "support/base64.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <new>

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

// Texts grow block by block. A block's place is filled from here and then written over: growing a
// text with zeros would be a second pass over the whole result, and a block of its own, copied
// over, would be read before its writes have come through.
constexpr std::size_t kBlockGroups = 128;
constexpr std::size_t kBlockBytes = 3 * kBlockGroups;
constexpr std::size_t kBlockDigits = 4 * kBlockGroups;
constexpr char16_t kFiller[kBlockDigits] = {};

// The place for `count` (at most kBlockDigits) more units of `target`.
char16_t* Extend(Text& target, std::size_t count) {
  target.append(kFiller, count);
  return target.data() + (target.size() - count);
}

// The tables are made when the program or library is loaded, because they would be a large part of
// the library's file.

// Two digits side by side, by the 12 bits that they stand for.
using DigitPair = std::array<char16_t, 2>;

std::array<DigitPair, 4096> MakeDigitPairs() noexcept {
  std::array<DigitPair, 4096> pairs;
  for (std::size_t bits = 0; bits < pairs.size(); ++bits) {
    pairs[bits] = {kAlphabet[bits >> 6], kAlphabet[bits & 63]};
  }
  return pairs;
}

const std::array<DigitPair, 4096> kDigitPairs = MakeDigitPairs();

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
  Lanes last = in[0];
  if (count > 1) last |= Lanes{in[1]} << 16;
  if (count > 2) last |= Lanes{in[2]} << 32;
  seen |= last;
  EncodeGroup(last, out);
  if (count < 3) out[3] = kPad;
  if (count < 2) out[2] = kPad;
  return (seen & ToLanes({0xFF80, 0xFF80, 0xFF80, 0xFF80})) == 0;
}

// A decoded group is its three bytes, one to a unit, and a fourth unit that is not 0 when a digit
// was none.
constexpr Lanes kBad = ToLanes({0, 0, 0, 1});
constexpr Lanes kBeyondAscii = ToLanes({0x80, 0x80, 0x80, 0});

// What each digit adds to its group, by the digit's place and its low byte.
using DigitLanes = std::array<std::array<Lanes, 256>, 4>;

DigitLanes MakeDigitLanes() noexcept {
  DigitLanes lanes;
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

const DigitLanes kDigitLanes = MakeDigitLanes();

Lanes Digit(std::size_t place, const char16_t* group) noexcept {
  return kDigitLanes[place][group[place] & 0xFF];
}

// How many characters of padding end the text; it is not empty.
inline std::size_t PaddingOf(TextView encoded) noexcept {
  const char16_t* const end = encoded.data() + encoded.size();
  return end[-1] != kPad ? 0 : end[-2] != kPad ? 1 : 2;
}

// Decodes a whole number of groups (not 0), the last `padding` characters of which are "=", to
// `out`, one byte to a unit. Returns all groups or-ed together.
inline Lanes DecodeGroups(TextView encoded, std::size_t padding, char16_t* out) noexcept {
  const char16_t* in = encoded.data();
  const char16_t* const last = in + (encoded.size() - 4);
  Lanes all = 0;
  Lanes seen = 0;
  for (; in != last; in += 4, out += 3) {
    seen |= LoadLanes(in);
    const Lanes group = Digit(0, in) | Digit(1, in) | Digit(2, in) | Digit(3, in);
    all |= group;
    std::memcpy(out, &group, sizeof group);  // the next group writes over the fourth unit
  }
  seen |= LoadLanes(in);
  Lanes group = Digit(0, in) | Digit(1, in);
  if (padding < 2) group |= Digit(2, in);
  if (padding < 1) group |= Digit(3, in);
  all |= group;
  out[0] = static_cast<char16_t>(group);
  if (padding < 2) out[1] = static_cast<char16_t>(group >> 16);
  if (padding < 1) out[2] = static_cast<char16_t>(group >> 32);
  return (seen & ToLanes({0xFF00, 0xFF00, 0xFF00, 0xFF00})) == 0 ? all : all | kBad;
}

void MapBytes(const CodePage& page, char16_t* units, std::size_t count) noexcept {
  for (; count != 0; --count, ++units) *units = page.ToUnit(static_cast<std::uint8_t>(*units));
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
  const std::size_t before = target.size();
  if (encoded.size() > kBlockDigits) target.reserve(before + encoded.size() / 4 * 3);
  for (TextView rest = encoded; !rest.empty();) {
    const TextView taken = rest.substr(0, kBlockDigits);
    rest.remove_prefix(taken.size());
    const std::size_t padding = rest.empty() ? PaddingOf(taken) : 0;
    const std::size_t count = taken.size() / 4 * 3 - padding;
    char16_t* const out = Extend(target, count);
    const Lanes all = DecodeGroups(taken, padding, out);
    if ((all & kBad) != 0) {
      target.resize(before);
      FailMalformed(encoded);
    }
    if ((all & kBeyondAscii) != 0) map(out, count);
  }
}

}  // namespace

void EncodeBase64(std::span<const std::uint8_t> bytes, Text& target) {
  target.reserve(target.size() + (bytes.size() + 2) / 3 * 4);
  while (!bytes.empty()) {
    const std::size_t taken = std::min(bytes.size(), kBlockBytes);
    EncodeBytes(bytes.data(), taken, Extend(target, (taken + 2) / 3 * 4));
    bytes = bytes.subspan(taken);
  }
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
    // More than a text can ever hold counts as out of memory too.
    if (text.size() > (target.max_size() - before) / 2) throw std::bad_alloc();
    if (text.size() > kBlockBytes) target.reserve(before + Enc64Length(text.size()));
    while (!text.empty()) {
      const TextView taken = text.substr(0, kBlockBytes);
      Enc64To(taken, page, Extend(target, Enc64Length(taken.size())));
      text.remove_prefix(taken.size());
    }
  } catch (...) {
    target.resize(before);
    ReportTrapped(reporter, u"Enc64", CurrentRuntimeError(), 0);
  }
}

void Enc64To(TextView text, const CodePage& page, char16_t* room) noexcept {
  if (text.empty() || EncodeAscii(text.data(), text.size(), room)) return;
  while (!text.empty()) {
    const TextView taken = text.substr(0, kBlockBytes);
    std::uint8_t bytes[kBlockBytes];
    page.ToBytes(taken, bytes);
    EncodeBytes(bytes, taken.size(), room);
    room += kBlockDigits;
    text.remove_prefix(taken.size());
  }
}

Text Dec64(TextView encoded, const CodePage& page) {
  Text text;
  AppendDec64(encoded, page, text);
  return text;
}

void AppendDec64(TextView encoded, const CodePage& page, Text& target) {
  AppendDecoded(encoded, target,
                [&page](char16_t* units, std::size_t count) { MapBytes(page, units, count); });
}

std::size_t Dec64To(TextView encoded, const CodePage& page, char16_t* room) {
  if (encoded.size() % 4 != 0) FailMalformed(encoded);
  if (encoded.empty()) return 0;
  const std::size_t padding = PaddingOf(encoded);
  const std::size_t count = encoded.size() / 4 * 3 - padding;
  const Lanes all = DecodeGroups(encoded, padding, room);
  if ((all & kBad) != 0) FailMalformed(encoded);
  if ((all & kBeyondAscii) != 0) MapBytes(page, room, count);
  return count;
}

}  // namespace quill
