// The frame of large payloads, both ways.
#include "remote/compressed_frame.h"

#include <gtest/gtest.h>

#include "tests/doubles/recording_file_kit.h"

namespace quill {
namespace {

TEST(CompressedFrame, CountsThePayloadAndComesBackUnchanged) {
  RecordingFileKit kit;
  Text payload = u"a_b|";
  payload += char16_t{0};
  payload += char16_t{0xD800};
  const Text frame = EncodeFrame(payload, kit);
  EXPECT_TRUE(frame.starts_with(u"6[-]Scorvane[-]"));
  EXPECT_EQ(DecodeFrame(frame, kit), payload);
  EXPECT_EQ(DecodeFrame(EncodeFrame(u"", kit), kit), u"");
}

TEST(CompressedFrame, IgnoresWhatFollowsASecondMarker) {
  RecordingFileKit kit;
  const Text frame = EncodeFrame(u"abc", kit);
  EXPECT_EQ(DecodeFrame(frame + u"[-]Scorvane[-]more", kit), u"abc");
  EXPECT_EQ(DecodeFrame(u"\t3.0\r\n" + frame.substr(1), kit), u"abc");
}

TEST(CompressedFrame, FailsOnWhatIsNoFrame) {
  const struct {
    TextView frame;
    ErrorNumber number;
  } cases[] = {
      {u"", ErrorNumber::kTypeMismatch},
      {u"oops", ErrorNumber::kTypeMismatch},
      {u"12", ErrorNumber::kSubscriptOutOfRange},
      {u"3[-]scorvane[-]compressed:abc", ErrorNumber::kTypeMismatch},
      {u"3[-]Scorvane[-", ErrorNumber::kTypeMismatch},
      {u"[-]Scorvane[-]compressed:abc", ErrorNumber::kTypeMismatch},
      {u"abc[-]Scorvane[-]compressed:abc", ErrorNumber::kTypeMismatch},
      {u"3000000000[-]Scorvane[-]compressed:abc", ErrorNumber::kOverflow},
      // The file kit's own refusals pass through.
      {u"4[-]Scorvane[-]compressed:abc", ErrorNumber::kInvalidProcedureCall},
      {u"-1[-]Scorvane[-]compressed:abc", ErrorNumber::kInvalidProcedureCall},
      {u"3[-]Scorvane[-]abc", ErrorNumber::kInvalidProcedureCall},
  };
  for (const auto& c : cases) {
    RecordingFileKit kit;
    try {
      static_cast<void>(DecodeFrame(c.frame, kit));
      ADD_FAILURE() << ToUtf8(c.frame) << " was taken";
    } catch (const RuntimeError& error) {
      EXPECT_TRUE(error.Is(c.number)) << ToUtf8(c.frame) << ": " << error.what();
    }
  }
}

}  // namespace
}  // namespace quill
