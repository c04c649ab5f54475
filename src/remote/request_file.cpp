// Naming and writing request files.
#include "remote/request_file.h"

namespace quill {
namespace {

constexpr TextView kRequestFolder = u"\\RCData";

}  // namespace

Text RequestPath(TextView host_root, const RemoteCommand& command) {
  return Concat({host_root, kRequestFolder, u"\\reply_kvrBHDGS_", command.word, u".txt"});
}

Text RequestEnvelope(const RemoteContext& context, const RemoteCommand& command, TextView frame) {
  return Concat({u"Plugin_kvrBHDGS_", command.word, u"_", context.TargetId, u"_VB6_",
                 Decimal(context.dialog.Index), command.has_payload ? u"_" : u"",
                 command.has_payload ? frame : TextView()});
}

void WriteRequest(DialogContext& context, const RemoteCommand& command, TextView envelope) {
  const Text path = RequestPath(context.HostRoot, command);
  const Text folder = Concat({context.HostRoot, kRequestFolder});
  if (!context.files.FolderExists(folder)) context.files.MakeFolder(folder);
  if (context.files.FileExists(path)) context.files.RemoveFile(path);
  context.files.MakeEmptyFile(path);
  context.file_kit->WriteFile(path, envelope);
}

}  // namespace quill
