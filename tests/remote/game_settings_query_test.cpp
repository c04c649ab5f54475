// A game-settings reply fills the dialog, step by step.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/doubles/loaded_plug_in.h"
#include "tests/doubles/settings_reply.h"

namespace quill {
namespace {

const std::map<std::string, std::string> kWholeReply = {
    {"txtMessage", "welcome"}, {"txtName", "Night Server"},
    {"txtCountry", "de"},      {"txtPassword", "secret"},
    {"lstSession", "1"},       {"lstMax", "23"},
    {"lstDelay", "2"},         {"chkLoop", "1"},
    {"lstKills", "24"},        {"lstScore", "24"},
    {"lstZone", "29"},         {"lstRespawn", "29"},
    {"lstTime", "39"},         {"chkNova", "1"},
    {"chkSkins", "1"},         {"chkWindow", "1"},
    {"chkDedi", "1"},          {"cboMods", "None"},
    {"txtBlue", "blue"},       {"txtRed", "red"},
    {"chkMinPing", "1"},       {"txtMinPing", "10"},
    {"chkMaxPing", "0"},       {"txtMaxPing", "900"},
    {"txtPort", "17500"}};

// A reply with one fault: what is reported, which option was the last to be filled and which the
// first to be left as it was.
struct Fault {
  std::size_t field;
  const char16_t* value;
  const char* report;
  const char* filled;
  const char* left;
};

void PrintTo(const Fault& fault, std::ostream* out) {
  *out << "field " << fault.field << " is " << ToUtf8(fault.value);
}

struct FaultyReply : testing::TestWithParam<Fault> {};

TEST_P(FaultyReply, EndsAtTheFaultAndKeepsWhatCameBefore) {
  const Fault& fault = GetParam();
  LoadedPlugIn host;
  const std::string untouched = fault.left ? host.Value(FromUtf8(fault.left)) : "";
  SettingsReply reply;
  reply.Set(fault.field, fault.value);
  host.Open([&] {
    host.plug_in().RemoteData(reply.Frame());
    EXPECT_EQ(host.dialog().pointer(), ui::Pointer::kDefault);
  });
  EXPECT_EQ(host.Reports(), std::vector<std::string>{fault.report});
  if (fault.filled) {
    EXPECT_EQ(host.Value(FromUtf8(fault.filled)), kWholeReply.at(fault.filled));
  }
  if (fault.left) {
    EXPECT_NE(untouched, kWholeReply.at(fault.left)) << "proves nothing";
    EXPECT_EQ(host.Value(FromUtf8(fault.left)), untouched);
  }
}

constexpr const char* kMismatch = "RemoteData|13|Type mismatch [0, 0]";
constexpr const char* kNoBase64Of1 =
    "RemoteData|5|Base64 text: the length 1 is not a multiple of 4";
constexpr const char* kNoBase64Of3 =
    "RemoteData|5|Base64 text: the length 3 is not a multiple of 4";
constexpr const char* kOutOfList = "RemoteData|380|Invalid property value";
constexpr const char* kTooLarge = "RemoteData|6|Overflow";

INSTANTIATE_TEST_SUITE_P(
    Fields, FaultyReply,
    testing::Values(Fault{25, u"=", kNoBase64Of1, nullptr, "txtMessage"},
                    Fault{25, u"QQ==", "RemoteData|5|Invalid procedure call or argument", nullptr,
                          "txtMessage"},
                    Fault{0, u"=", kNoBase64Of1, nullptr, "txtName"},
                    Fault{3, u" ", kNoBase64Of1, "txtCountry", "lstSession"},
                    Fault{4, u"", kMismatch, "txtPassword", "lstSession"},
                    Fault{4, u"4", kOutOfList, "txtPassword", "lstSession"},
                    Fault{5, u"60", kOutOfList, "lstSession", "lstMax"},
                    Fault{5, u"40000", kTooLarge, "lstSession", "lstMax"},
                    Fault{6, u"4", kOutOfList, "lstMax", "lstDelay"},
                    Fault{7, u"on", kMismatch, "lstDelay", "chkLoop"},
                    Fault{7, u"3", kOutOfList, "lstDelay", "chkLoop"},
                    Fault{8, u"1e2", kMismatch, "chkLoop", "lstKills"},
                    Fault{8, u"501", kOutOfList, "chkLoop", "lstKills"},
                    Fault{9, u"-1", kOutOfList, "lstScore", "lstZone"},
                    Fault{10, u"&H10", kMismatch, "lstZone", "lstRespawn"},
                    Fault{11, u"1,5", kMismatch, "lstRespawn", "lstTime"},
                    Fault{12, u"True", kMismatch, "lstTime", "chkNova"},
                    Fault{13, u"", kMismatch, "chkNova", "chkSkins"},
                    Fault{14, u"x", "RemoteData|13|Type mismatch [x, 0]", "chkSkins", "chkDedi"},
                    Fault{15, u"-1", kOutOfList, "chkSkins", "chkDedi"},
                    Fault{16, u"QQ=", kNoBase64Of3, "chkDedi", "cboMods"},
                    Fault{16, u"", kOutOfList, "chkDedi", "txtBlue"},
                    Fault{18, u"QQ=", kNoBase64Of3, "txtBlue", "txtRed"},
                    Fault{20, u"", kMismatch, "txtRed", "chkMinPing"},
                    Fault{22, u"?", kMismatch, "txtMinPing", "txtMaxPing"}));

}  // namespace
}  // namespace quill
