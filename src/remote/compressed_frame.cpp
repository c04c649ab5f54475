// Packing and unpacking the compressed frame.
#include "remote/compressed_frame.h"

#include "support/number_text.h"
#include "support/runtime_error.h"
#include "support/text_pieces.h"

namespace quill {

Text EncodeFrame(TextView payload, FileKit& file_kit) {
  return Concat({Decimal(static_cast<std::int64_t>(payload.size())), kFrameMarker,
                 file_kit.CompressString(payload)});
}

Text DecodeFrame(TextView frame, FileKit& file_kit) {
  PieceCursor parts(frame, kFrameMarker);
  TextView length;
  TextView compressed;
  parts.Next(length);
  const std::int32_t size = ToInt32(length);
  if (!parts.Next(compressed)) {
    throw RuntimeError(
        ErrorNumber::kSubscriptOutOfRange,
        Concat({u"Subscript out of range: no \"", kFrameMarker, u"\" in the reply"}));
  }
  return file_kit.DecompressString(compressed, size);
}

}  // namespace quill
