// A member without a trap that fails: its caller learns the number and the description, however it
// is bound, and can go on.
#include "host/win32/import_table.h"
#include "tests/server/plugin_bench.h"

namespace quill::com {
namespace {

using MemberFailure = PluginBench;

TEST_F(MemberFailure, ReachesEarlyAndLateCallersWithNumberAndDescription) {
  Start();
  const HMODULE module = ::GetModuleHandleW(L"kvrrcBHDGS.dll");
  constexpr HRESULT kOutOfMemory = static_cast<HRESULT>(0x800A0007u);

  ASSERT_TRUE(host::RefuseNextText(module));
  Bstr version;
  EXPECT_EQ(plugin->dllVersion(nullptr, version.address()), kOutOfMemory);
  ComPtr<IErrorInfo> info;
  ASSERT_EQ(::GetErrorInfo(0, info.Receive()), S_OK);
  Bstr source;
  Bstr description;
  GUID of{};
  EXPECT_EQ(info->GetSource(source.address()), S_OK);
  EXPECT_EQ(info->GetDescription(description.address()), S_OK);
  EXPECT_EQ(info->GetGUID(&of), S_OK);
  EXPECT_EQ(source.view(), u"kvrrcBHDGS.clsPlugin");
  EXPECT_EQ(description.view(), u"Out of memory");
  EXPECT_TRUE(IsEqualIID(of, kInterfaceId));

  ASSERT_TRUE(host::RefuseNextText(module));
  const Outcome late = Invoke(*plugin.get(), u"dllVersion", {*Variant::OfText(u"host").get()});
  EXPECT_EQ(late.result, DISP_E_EXCEPTION);
  EXPECT_EQ(late.raised, kOutOfMemory);
  EXPECT_EQ(late.source, u"kvrrcBHDGS.clsPlugin");
  EXPECT_EQ(late.description, u"Out of memory");

  // A record that cannot be filled is handed out empty.
  ASSERT_TRUE(host::RefuseNextText(module));
  PluginRecord record{};
  EXPECT_EQ(plugin->GetData(&record), kOutOfMemory);
  EXPECT_EQ(record.Name, nullptr);
  EXPECT_EQ(record.Game.vt, VT_EMPTY);

  // The failures are the caller's alone, and nothing stays broken.
  EXPECT_TRUE(boxes.empty() && kit.failures.empty());
  EXPECT_EQ(plugin->dllVersion(nullptr, version.address()), S_OK);
  EXPECT_EQ(version.view(), u"1.1.2");
}

TEST_F(MemberFailure, AReplyThatNothingCanHoldIsReportedLikeAnyOther) {
  Start();
  // A text that tells a length of nearly 4 GB. No 32-bit process can hold a copy; a 64-bit one
  // might.
  struct {
    DWORD length = 0xFFFFFFFE;
    OLECHAR units[2] = {};
  } endless;
  if (sizeof(void*) > sizeof endless.length) GTEST_SKIP() << "for 32-bit processes";
  BSTR reply = endless.units;
  const Variant place = Variant::ByReference(&reply);
  EXPECT_EQ(plugin->RemoteData(&reply), S_OK);
  EXPECT_EQ(Invoke(*plugin.get(), u"RemoteData", {*place.get()}).result, S_OK);
  EXPECT_EQ(TakeReports(), std::vector<std::string>(2, "RemoteData: Error 7: Out of memory, sent"));
}

}  // namespace
}  // namespace quill::com
