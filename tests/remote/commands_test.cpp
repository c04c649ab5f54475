// The two commands to the remote side: where a faulty reply ends, and what a start repairs.
#include <gtest/gtest.h>

#include "tests/doubles/plug_in_bench.h"

namespace quill {
namespace {

using Strings = PlugInBench::Strings;

constexpr const char* kNoBase64 = "RemoteData|5|Base64 text: the length 1 is not a multiple of 4";
constexpr const char* kMismatch = "RemoteData|13|Type mismatch";
constexpr const char* kOutOfList = "RemoteData|380|Invalid property value";
constexpr const char* kTooLarge = "RemoteData|6|Overflow";

// A reply with one fault: what is reported, which option was the last to be filled and which the
// first to be left as it was.
TEST(SettingsReply, EndsAtItsFaultAndKeepsWhatCameBefore) {
  const struct {
    int field;
    const char16_t* value;
    const char* report;
    const char16_t* filled;
    const char16_t* left;
  } faults[] = {{25, u"=", kNoBase64, nullptr, u"txtMessage"},
                {25, u"QQ==", "RemoteData|5|Invalid", nullptr, u"txtMessage"},
                {0, u"=", kNoBase64, nullptr, u"txtName"},
                {3, u" ", kNoBase64, u"txtCountry", u"lstSession"},
                {4, u"", kMismatch, u"txtPassword", u"lstSession"},
                {5, u"60", kOutOfList, u"lstSession", u"lstMax"},
                {6, u"4", kOutOfList, u"lstMax", u"lstDelay"},
                {7, u"on", kMismatch, u"lstDelay", u"chkLoop"},
                {7, u"3", kOutOfList, u"lstDelay", u"chkLoop"},
                {8, u"1e2", kMismatch, u"chkLoop", u"lstKills"},
                {9, u"-1", kOutOfList, u"lstScore", u"lstZone"},
                {10, u"&H10", kMismatch, u"lstZone", u"lstRespawn"},
                {11, u"1,5", kMismatch, u"lstRespawn", u"lstTime"},
                {12, u"True", kMismatch, u"lstTime", u"chkNova"},
                {13, u"", kMismatch, u"chkNova", u"chkSkins"},
                {14, u"x", "RemoteData|13|Type mismatch [x, 0]", u"chkSkins", u"chkDedi"},
                {15, u"-1", kOutOfList, u"chkSkins", u"chkDedi"},
                {16, u"=", kNoBase64, u"chkDedi", u"cboMods"},
                {16, u"", kOutOfList, u"chkDedi", u"txtBlue"},
                {18, u"=", kNoBase64, u"txtBlue", u"txtRed"},
                {20, u"", kMismatch, u"txtRed", u"chkMinPing"},
                {22, u"?", kMismatch, u"txtMinPing", u"txtMaxPing"}};
  for (const auto& fault : faults) {
    SCOPED_TRACE(std::to_string(fault.field) + " is " + ToUtf8(fault.value));
    PlugInBench bench;
    for (const int text : {0, 1, 2, 3, 17, 18}) bench.reply.SetRawField(text, u"WFg=");
    for (const int number : {5, 6, 7, 8, 9, 10, 11, 12, 13, 15, 20, 21, 22, 23, 24}) {
      bench.reply.SetRawField(number, u"1");
    }
    bench.reply.SetFixed(u"Windowed", u"0");
    bench.reply.SetRawField(fault.field, fault.value);
    bench.Open([&] {
      const Strings before = {fault.filled ? bench.Value(fault.filled) : "",
                              bench.Value(fault.left)};
      bench.Reply();
      EXPECT_TRUE(!fault.filled || bench.Value(fault.filled) != before[0]);
      EXPECT_EQ(bench.Value(fault.left), before[1]);
      EXPECT_EQ(bench.dialog().pointer(), ui::Pointer::kDefault);
    });
    ASSERT_EQ(bench.watch.failures.size(), 1u);
    const std::string report = bench.Failures()[0];
    EXPECT_TRUE(report.starts_with(fault.report)) << report;
  }
}

// The failure of a reply that awaits a dialog; "" for none.
std::string Failure(PlugInBench& bench) {
  bench.module.PendingCommand = kLoadFormCommand;
  bench.Reply();
  const Strings failures = bench.Failures();
  return failures.empty() ? "" : failures.front();
}

TEST(SettingsReply, TakesItsFieldsUpToTheirLimits) {
  for (const auto& [count, taken] :
       {std::pair(25, false), {26, true}, {27, false}, {32, false}, {33, true}, {34, true}}) {
    PlugInBench bench;
    bench.reply.SetFixed(u"Windowed", u"0");
    bench.reply.field_count = count;
    EXPECT_EQ(Failure(bench).starts_with("RemoteData|9|"), !taken) << count;
  }
  // The first position that a field can choose, none at all, and its last one.
  const struct {
    int field, none, last;
  } lists[] = {{4, 0, 2},  {5, 0, 50},   {6, -1, 3},  {8, 0, 500},
               {9, 0, 60}, {10, 0, 121}, {11, 0, 101}};
  for (const auto& [field, none, last] : lists) {
    PlugInBench bench;
    const auto answer = [&, field = field](int value) {
      bench.reply.SetRawField(field, Decimal(value));
      return Failure(bench);
    };
    for (const int good : {none, none + 1, last}) EXPECT_EQ(answer(good), "") << field;
    for (const int bad : {none - 1, last + 1, 32767, -32768}) {
      EXPECT_EQ(answer(bad), kOutOfList) << field << ": " << bad;
    }
    for (const int bad : {32768, -32769}) EXPECT_EQ(answer(bad), kTooLarge) << field;
  }
}

TEST(StartCommand, RepairsWhatIsEmptyZeroOrTooLargeOnly) {
  // Pings and port before and after.
  const std::pair<Strings, Strings> cases[] = {
      {{"", "1500", ""}, {"0", "1500", "17479"}},
      {{"65535", "65535", "00"}, {"65535", "65535", "00"}},
      {{"65536", "65535.5", " 0"}, {"0", "1500", " 0"}},
      {{"-5", "99999999999999999999", "+80.5"}, {"-5", "1500", "+80.5"}}};
  constexpr TextView kFields[] = {u"txtMinPing", u"txtMaxPing", u"txtPort"};
  for (const auto& [before, after] : cases) {
    PlugInBench bench;
    bench.OpenFilled([&, before = before, after = after](frmrcBHDGS&) {
      for (int i = 0; i < 3; ++i) {
        bench.Option<ui::TextBox>(kFields[i]).SetText(FromUtf8(before[i]));
      }
      bench.Select({{u"Dune", u"dune.bms", 0, false}});
      bench.Push(u"cmdStart");
      for (int i = 0; i < 3; ++i) EXPECT_EQ(bench.Value(kFields[i]), after[i]) << before[i];
    });
    EXPECT_EQ(bench.Boxes(), Strings());
    EXPECT_EQ(bench.watch.files.size(), 2u) << "the query and the start";
  }
}

// The host closes the dialog while its kit is busy with a second start.
TEST(StartCommand, TellsSinceWhenItWaitsAndSendsNothingForAClosedDialog) {
  PlugInBench bench;
  Strings journal;
  bench.OpenFilled([&](frmrcBHDGS& dialog) {
    bench.memory.SetContents(u"C:\\Host\\RCData\\reply_kvrBHDGS_StartGameRem.txt", "an old one");
    bench.Select({{u"Dune", u"dune.bms", 0, false}});
    bench.clock.SetMinuteOfDay(14 * 60 + 5);
    bench.files.before = [&](TextView operation, TextView path) {
      if (path.ends_with(u"StartGameRem.txt")) journal.push_back(ToUtf8(operation));
    };
    bench.Push(u"cmdStart");
    EXPECT_EQ(dialog.Get<ui::Label>(u"lblWaiting").caption(), u"Awaiting reply since 14:05");
    bench.watch.before = [&](TextView operation, TextView) {
      if (operation == u"CompressString") dialog.Unload();
      return true;
    };
    bench.Push(u"cmdStart");
  });
  EXPECT_EQ(bench.watch.files.size(), 2u);
  EXPECT_EQ(journal, (Strings{"FileExists", "RemoveFile", "MakeEmptyFile"}));
}

}  // namespace
}  // namespace quill
