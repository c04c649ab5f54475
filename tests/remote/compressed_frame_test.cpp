// The frame of large payloads, both ways.
#include "remote/request_file.h"

#include <gtest/gtest.h>

#include "host/headless/headless_host.h"
#include "tests/doubles/failure_of.h"

namespace quill {
namespace {

TEST(CompressedFrame, CountsThePayloadAndTakesItsOwnOnly) {
  host::HeadlessHost host;
  FileKit& kit = host.host_kit;
  const Text payload = u"a_b|" + Text{u'\0', char16_t{0xD800}};
  const Text frame = EncodeFrame(payload, kit);
  EXPECT_TRUE(frame.starts_with(u"6[-]Scorvane[-]"));
  EXPECT_EQ(DecodeFrame(frame, kit), payload);
  EXPECT_EQ(DecodeFrame(EncodeFrame(u"", kit), kit), u"");
  const Text rest = frame.substr(1);
  EXPECT_EQ(DecodeFrame(u"\t6.0\r\n" + rest + u"[-]Scorvane[-]more", kit), payload);

  const std::pair<Text, ErrorNumber> damaged[] = {
      {ReplaceAll(frame, u"Sc", u"sc"), ErrorNumber::kTypeMismatch},
      {u"6[-]Scorvane[-", ErrorNumber::kTypeMismatch},
      // The file kit's own refusals pass through.
      {u"4" + rest, ErrorNumber::kInvalidProcedureCall},
      {u"-1" + rest, ErrorNumber::kInvalidProcedureCall},
      {u"6[-]Scorvane[-]abc", ErrorNumber::kInvalidProcedureCall}};
  for (const auto& [text, number] : damaged) {
    EXPECT_EQ(FailureOf([&] { static_cast<void>(DecodeFrame(text, kit)); }),
              static_cast<std::int32_t>(number))
        << ToUtf8(text);
  }
}

}  // namespace
}  // namespace quill
