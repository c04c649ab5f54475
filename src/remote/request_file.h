// Request files: how a command reaches the host, which relays it to the remote side; and the
// compressed frame that large payloads travel in, both ways.
#pragma once

#include "dialog/session.h"
#include "support/text.h"

namespace quill {

inline constexpr TextView kLoadFormCommand = u"LoadForm";
inline constexpr TextView kStartGameCommand = u"StartGame";

struct RemoteCommand {
  TextView word;          // in the envelope and in the file name
  TextView pending_name;  // PendingCommand while the reply is awaited
  bool has_payload;
};

inline constexpr RemoteCommand kGameSettingsQuery = {u"GetGameSettingsRem", kLoadFormCommand,
                                                     false};
inline constexpr RemoteCommand kStartGame = {u"StartGameRem", kStartGameCommand, true};

// The frame is the payload's length in 16-bit units, a marker, and the payload as the file kit
// compresses it.
[[nodiscard]] Text EncodeFrame(TextView payload, FileKit& file_kit);
// The payload of `frame`. What follows a second marker is ignored. Fails with kTypeMismatch or
// kOverflow when it does not begin with a 32-bit number, then with kSubscriptOutOfRange when there
// is no marker, and as the file kit does.
[[nodiscard]] Text DecodeFrame(TextView frame, FileKit& file_kit);

// `host_root` without a trailing backslash.
[[nodiscard]] Text RequestPath(TextView host_root, const RemoteCommand& command);

// The one line that the host relays. `frame` is the compressed frame of the payload; a command
// without a payload ignores it.
[[nodiscard]] Text RequestEnvelope(const Session& session, const RemoteCommand& command,
                                   TextView frame = {});

// Replaces the command's request file by one that holds `envelope`, creating the request folder
// when it is missing. The caller has set PendingCommand. Fails as the file system and the file kit
// do.
void WriteRequest(Session& session, const RemoteCommand& command, TextView envelope);

}  // namespace quill
