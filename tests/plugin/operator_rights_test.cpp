// The operator's rights decide which options can be changed.
#include "plugin/operator_rights.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/doubles/loaded_plug_in.h"
#include "tests/doubles/settings_reply.h"

namespace quill {
namespace {

using Items = std::vector<std::pair<Text, HostItem>>;
using Strings = std::vector<std::string>;

struct Rights : testing::Test {
  LoadedPlugIn host;

  static std::shared_ptr<KeyedItems> Collection(Items items) {
    return std::make_shared<KeyedItems>(std::move(items));
  }
  void Set(std::shared_ptr<HostCollection> granted, bool super_administrator = false) {
    host.plug_in().SetPrivis(std::move(granted), nullptr, super_administrator);
  }
  // The governed options that can be changed, in the order of the rights.
  Strings Enabled() {
    Strings enabled;
    for (const OperatorRight& right : OperatorRights()) {
      if (host.Option(right.option).enabled()) enabled.push_back(ToUtf8(right.option));
    }
    return enabled;
  }
};

const Strings kAll = {"lstSession", "lstMax",   "cboMods", "chkWindow",
                      "chkDedi",    "chkSkins", "chkNova", "txtPort"};

TEST_F(Rights, EachGovernsItsOption) {
  const std::pair<const char16_t*, const char*> governed[] = {
      {u"Change GS Session Type", "lstSession"},
      {u"Change GS Max Players", "lstMax"},
      {u"Change GS Game Mod", "cboMods"},
      {u"Change GS Windowed Mode", "chkWindow"},
      {u"Change GS Dedicated Mode", "chkDedi"},
      {u"Change GS Custom Skins Option", "chkSkins"},
      {u"change gs req nova login option", "chkNova"},
      {u"CHANGE GS GAME PORT", "txtPort"}};
  for (const auto& [right, option] : governed) {
    Set(Collection({{right, TextItem(u"1")}}));
    EXPECT_EQ(Enabled(), Strings{option});
  }
}

TEST_F(Rights, HandedOverAsNoCollectionAreReported) {
  Set(nullptr);
  auto broken = Collection({});
  broken->fails_to_count = true;
  Set(broken);
  ASSERT_EQ(host.Reports().size(), 2u);
  EXPECT_TRUE(host.Reports()[0].starts_with("SetPrivis|91|")) << host.Reports()[0];
  EXPECT_TRUE(host.Reports()[1].starts_with("SetPrivis|438|")) << host.Reports()[1];
  EXPECT_EQ(Enabled(), kAll);
}

}  // namespace
}  // namespace quill
