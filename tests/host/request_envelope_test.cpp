// Envelopes come apart rightly whatever the target holds.
#include "host/remote/request_envelope.h"

#include <gtest/gtest.h>

#include "host/remote/wire.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

Text Query(TextView target) {
  return Concat({u"Plugin_kvrBHDGS_GetGameSettingsRem_", target, u"_VB6_3"});
}

Text Start(TextView target) {
  return Concat({u"Plugin_kvrBHDGS_StartGameRem_", target, u"_VB6_-7_", WriteFrame(u"a_b|c")});
}

TEST(RequestEnvelope, ComesApartAroundAnyTarget) {
  for (const TextView target :
       {u"abc", u"", u"a_b", u"_VB6_", u"x_VB6_3", u"_", u"a_VB6", u"VB6_",
        u"_VB6_1_5[-]Scorvane[-]x", u"Plugin_kvrBHDGS_StartGameRem_x_VB6_1_2[-]Scorvane[-]",
        u"\u00E4\xD800\r\n|-", u"x_VB6_3_VB6_4_"}) {
    const RequestEnvelope query = ParseRequestEnvelope(Query(target));
    EXPECT_EQ(query.command, kQueryCommand);
    EXPECT_EQ(query.target, target);
    EXPECT_EQ(query.index, 3);
    EXPECT_EQ(query.frame, u"");
    const RequestEnvelope start = ParseRequestEnvelope(Start(target));
    EXPECT_EQ(start.command, kStartCommand);
    EXPECT_EQ(start.target, target);
    EXPECT_EQ(start.index, -7);
    EXPECT_EQ(ReadFrame(start.frame), u"a_b|c");
  }
}

TEST(RequestEnvelope, IsRefusedWhereAPartIsWrong) {
  for (const TextView text :
       {u"", u"Plugin_kvrBHDGS_", u"plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3",
        u"Plugin_kvrBHDGS_StopGameRem_abc_VB6_3", u"Plugin_kvrBHDGS_GetGameSettingsRem_abc",
        u"Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_",
        u"Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_x",
        u"Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_03",
        u"Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3\r\n",
        u"Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_99999999999",
        u"Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3_5[-]Scorvane[-]x",
        u"Plugin_kvrBHDGS_StartGameRem_abc_VB6_3", u"Plugin_kvrBHDGS_StartGameRem_abc_VB6_3_",
        u"Plugin_kvrBHDGS_StartGameRem_abc_VB6_3_5-Scorvane-x",
        u"Plugin_kvrBHDGS_StartGameRem_abc_VB6_3_x[-]Scorvane[-]x"}) {
    EXPECT_THROW(static_cast<void>(ParseRequestEnvelope(text)), RuntimeError) << ToUtf8(text);
  }
}

TEST(RequestEnvelope, AFrameClaimsNoMoreThanItHolds) {
  for (const TextView frame : {u"", u"5", u"5[-]Scorvane[-]", u"[-]Scorvane[-]x",
                               u"-5[-]Scorvane[-]x", u"2000000000[-]Scorvane[-]eJxLBAAAYgBi"}) {
    EXPECT_THROW(static_cast<void>(ReadFrame(frame)), RuntimeError) << ToUtf8(frame);
  }
}

}  // namespace
}  // namespace quill::host
