// Packing and unpacking frames, naming and writing request files.
#include "remote/request_file.h"

#include "support/number_text.h"
#include "support/runtime_error.h"

namespace quill {
namespace {

constexpr TextView kFrameMarker = u"[-]Scorvane[-]";
constexpr TextView kRequestFolder = u"\\RCData";

}  // namespace

Text EncodeFrame(TextView payload, FileKit& file_kit) {
  return Concat({Decimal(static_cast<std::int64_t>(payload.size())), kFrameMarker,
                 file_kit.CompressString(payload)});
}

Text DecodeFrame(TextView frame, FileKit& file_kit) {
  const std::vector<TextView> parts = Split(frame, kFrameMarker);
  const std::int32_t size = ToInt32(parts[0]);
  if (parts.size() < 2) {
    throw RuntimeError(
        ErrorNumber::kSubscriptOutOfRange,
        Concat({u"Subscript out of range: no \"", kFrameMarker, u"\" in the reply"}));
  }
  return file_kit.DecompressString(parts[1], size);
}

Text RequestPath(TextView host_root, const RemoteCommand& command) {
  return Concat({host_root, kRequestFolder, u"\\reply_kvrBHDGS_", command.word, u".txt"});
}

Text RequestEnvelope(const Session& session, const RemoteCommand& command, TextView frame) {
  return Concat({u"Plugin_kvrBHDGS_", command.word, u"_", session.TargetId, u"_VB6_",
                 Decimal(session.Index), command.has_payload ? u"_" : u"",
                 command.has_payload ? frame : TextView()});
}

void WriteRequest(Session& session, const RemoteCommand& command, TextView envelope) {
  const Text path = RequestPath(session.HostRoot, command);
  const Text folder = Concat({session.HostRoot, kRequestFolder});
  if (!session.files.FolderExists(folder)) session.files.MakeFolder(folder);
  // Made anew: whatever the kit does with a file that is there, nothing of an earlier request
  // stays.
  if (session.files.FileExists(path)) session.files.RemoveFile(path);
  session.files.MakeEmptyFile(path);
  session.kit().WriteFile(path, envelope);
}

}  // namespace quill
