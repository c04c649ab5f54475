// The text conventions of the remote side: fields, lists, the compressed frame and the one line
// that a request file holds. Written from the remote side's point of view and shared with nothing
// of the plug-in, so that the two check each other.
#pragma once

#include <cstdint>

#include "support/text.h"

namespace quill::host {

inline constexpr TextView kFieldSeparator = u"_";
inline constexpr TextView kListSeparator = u"|";
inline constexpr TextView kFrameMarker = u"[-]Scorvane[-]";

inline constexpr TextView kQueryCommand = u"GetGameSettingsRem";
inline constexpr TextView kStartCommand = u"StartGameRem";

// Payloads beyond this many characters are taken for damage.
inline constexpr std::int32_t kMaxPayloadLength = 16'000'000;

// `text` in Base64 of its Windows-1252 bytes.
[[nodiscard]] Text EncodeField(TextView text);
// Fails with kInvalidProcedureCall for a text that is not Base64.
[[nodiscard]] Text DecodeField(TextView field);

// The whole number that `text` is: decimal digits without leading zeros, "-" before a negative one.
// False for anything else and for numbers beyond 32 bits.
[[nodiscard]] bool ParseWholeNumber(TextView text, std::int32_t& number);

// The payload with its length, compressed.
[[nodiscard]] Text WriteFrame(TextView payload);
// The payload of a frame. Fails with kInvalidProcedureCall and a description of what is wrong with
// a frame that has no marker, a length that is none, or a text that does not unpack to that length.
[[nodiscard]] Text ReadFrame(TextView frame);

// What is asked of which target for which profile.
struct RequestEnvelope {
  Text command;  // kQueryCommand or kStartCommand
  Text target;   // may hold anything, the markers of the envelope included
  std::int32_t index = 0;
  Text frame;  // the compressed frame; empty for a command without payload
};

// Fails with kInvalidProcedureCall and a description of what is wrong: another prefix or an unknown
// command, no index, a frame that is missing or not wanted. Of several places where the envelope
// could be divided the last one counts.
[[nodiscard]] RequestEnvelope ParseRequestEnvelope(TextView text);

// Where under the host's root the request file of a command lies.
[[nodiscard]] Text RequestPath(TextView host_root, TextView command);

}  // namespace quill::host
