// Naming and writing request files.
#include "remote/request_file.h"

namespace quill {
namespace {

constexpr TextView kRequestFolder = u"\\RCData";

}  // namespace

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
  if (session.files.FileExists(path)) session.files.RemoveFile(path);
  session.files.MakeEmptyFile(path);
  session.kit().WriteFile(path, envelope);
}

}  // namespace quill
