// The dialog without a mouse, and as assistive tools hear of it.
#include <gtest/gtest.h>

#include "com/automation.h"

#include <oleacc.h>

#include <algorithm>
#include <array>

#include "com/bstr.h"
#include "com/com_ptr.h"
#include "tests/win32/native_bench.h"
#include "win32/window_peer.h"

namespace quill {
namespace {

class OperatorAccess : public testing::Test, public NativeBench {
 protected:
  com::ComPtr<IAccessible> kept_;

  // The stops of the page at hand, from the tab strip round to it again.
  std::vector<Text> TabStops() const {
    std::vector<Text> stops;
    SetFocus(robot.Find(u"tsMain"));
    do {
      stops.push_back(robot.Focused());
      robot.PressKey(VK_TAB);
    } while (robot.Focused() != u"tsMain" && stops.size() < 100);
    return stops;
  }
};

TEST_F(OperatorAccess, TheTabKeyGoesRoundEachPageInReadingOrder) {
  const std::vector<Text> buttons = {u"cmdStartImg", u"cmdSaveImg", u"cmdLoadImg", u"cmdCancelImg"};
  const std::pair<Text, std::vector<Text>> pages[] = {
      {u"Server Settings",
       {u"txtMessage", u"txtName", u"txtCountry", u"txtPassword", u"lstSession", u"lstMax",
        u"lstDelay", u"chkLoop", u"lstKills", u"lstScore", u"lstZone", u"lstRespawn", u"lstTime",
        u"chkNova", u"chkSkins", u"chkWindow", u"chkDedi", u"cboMods"}},
      {u"Map Settings",
       {u"cmdLeftImg", u"txtGametype", u"cmdRightImg", u"lstAvlMaps", u"lstSelMaps",
        u"cmdLoadMapsImg", u"cmdRandomize"}},
      {u"Misc Options",
       {u"txtBlue", u"txtRed", u"chkFFKills", u"chkFFTags", u"chkFFWarn", u"chkTeam", u"chkTracers",
        u"chkClays", u"chkAutoRange", u"chkMinPing", u"txtMinPing", u"chkMaxPing", u"txtMaxPing",
        u"txtPort"}}};
  Show([&](frmrcBHDGS&) {
    for (const auto& [page, controls] : pages) {
      std::vector<Text> expected = {u"tsMain"};
      expected.insert(expected.end(), controls.begin(), controls.end());
      expected.insert(expected.end(), buttons.begin(), buttons.end());
      EXPECT_EQ(Seen(u"tsMain", u"caption"), page);
      EXPECT_EQ(TabStops(), expected);
      std::reverse(expected.begin() + 1, expected.end());
      {
        const host::HeldKey shift(VK_SHIFT);
        EXPECT_EQ(TabStops(), expected) << "with Shift";
      }
      robot.PressKey(VK_RIGHT);  // in the tab strip
    }
    const HWND port = robot.Find(u"txtPort");
    EXPECT_EQ(SendMessageW(port, EM_GETSEL, 0, 0), MAKELRESULT(0, 5)) << "the key selected it all";
    const host::HeldKey control(VK_CONTROL);
    SetFocus(port);
    robot.PressKey(VK_TAB);
    EXPECT_EQ(Seen(u"tsMain", u"caption"), u"Server Settings");
    robot.PressKey(VK_NEXT);
    EXPECT_EQ(Seen(u"tsMain", u"caption"), u"Map Settings");
    robot.PressKey(VK_PRIOR);
    EXPECT_EQ(Seen(u"tsMain", u"caption"), u"Server Settings");
  });
}

TEST_F(OperatorAccess, KeysPressTheImageButtonsAndTheFocusIsSeen) {
  Show([&](frmrcBHDGS& dialog) {
    int presses = 0;
    const auto former = dialog.Get<ui::Image>(u"cmdRightImg").on_mouse_up;
    dialog.Get<ui::Image>(u"cmdRightImg").on_mouse_up = [&](const ui::MouseEvent& event) {
      presses += event.button == ui::kLeftButton ? 1 : 100;
      former(event);
    };
    const auto expect_seen_focus = [&](const Text& stop, const Text& shown) {
      SetFocus(robot.Find(u"tsMain"));
      const host::Pixels before = PictureOf(shown);
      SetFocus(robot.Find(stop));
      EXPECT_NE(PictureOf(shown), before) << ToUtf8(shown);
      SetFocus(robot.Find(u"tsMain"));
      EXPECT_EQ(PictureOf(shown), before) << ToUtf8(shown);
    };
    expect_seen_focus(u"chkLoop", u"chkLoop");
    robot.ClickTab(u"Map Settings");
    expect_seen_focus(u"cmdRightImg", u"cmdRightImg");
    expect_seen_focus(u"cmdRightImg", u"cmdRight");
    const HWND face = robot.Find(u"cmdRightImg");
    SetFocus(face);
    const host::Pixels plain_caption = PictureOf(u"cmdCancel");
    robot.PressKey(VK_SPACE);
    EXPECT_EQ(Seen(u"txtGametype", u"text"), u"Team Deathmatch");
    robot.PressKey(VK_RETURN);
    EXPECT_EQ(Seen(u"txtGametype", u"text"), u"Cooperative");
    robot.PressAccessKey(u'n');
    EXPECT_EQ(Seen(u"txtGametype", u"text"), u"Team King of the Hill");
    EXPECT_EQ(robot.Focused(), u"cmdRightImg");
    EXPECT_NE(PictureOf(u"cmdCancel"), plain_caption) << "Alt shows the access keys";
    robot.PressAccessKey(u'P');
    EXPECT_EQ(Seen(u"txtGametype", u"text"), u"Cooperative");
    robot.PressAccessKey(u'R');
    EXPECT_EQ(robot.Focused(), u"cmdRandomize");
    EXPECT_EQ(Seen(u"cmdRightImg", u"picture"), u"butup.gif");
    EXPECT_EQ(presses, 3);
    // The key was pressed somewhere else.
    SetFocus(face);
    SendMessageW(face, WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(presses, 3);
    // Or it will be released there.
    SendMessageW(face, WM_KEYDOWN, VK_SPACE, 1);
    SetFocus(robot.Find(u"tsMain"));
    EXPECT_EQ(Seen(u"cmdRightImg", u"picture"), u"butup.gif");

    robot.ClickTab(u"Misc Options");
    robot.PressAccessKey(u'n');  // of a button that is out of sight
    EXPECT_EQ(presses, 3);
    robot.PressAccessKey(u'c');
    EXPECT_FALSE(robot.FormShown());
  });
}

VARIANT Self() {
  VARIANT self = {};
  self.vt = VT_I4;
  self.lVal = CHILDID_SELF;
  return self;
}

com::ComPtr<IAccessible> ObjectOf(HWND window) {
  com::ComPtr<IAccessible> object;
  EXPECT_EQ(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                       __uuidof(IAccessible), object.ReceiveVoid()),
            S_OK);
  return object;
}

// What a tool hears, through the interface that it uses itself; nothing where it is refused.
struct Heard {
  explicit Heard(HWND window) {
    const auto object = ObjectOf(window);
    if (!object) return;
    VARIANT number = {};
    object->get_accName(Self(), name.address());
    object->get_accValue(Self(), value.address());
    object->get_accKeyboardShortcut(Self(), shortcut.address());
    if (SUCCEEDED(object->get_accRole(Self(), &number))) role = number.lVal;
    if (SUCCEEDED(object->get_accState(Self(), &number))) state = number.lVal;
  }
  com::Bstr name;
  com::Bstr value;
  com::Bstr shortcut;
  LONG role = 0;
  LONG state = 0;
};

TEST_F(OperatorAccess, AssistiveToolsHearNamesRolesAndValues) {
  Show([&](frmrcBHDGS& dialog) {
    PickMod(u"Team Sabre");
    robot.Type(u"txtName", u"A server");
    robot.ScrollBy(u"lstMax", 3);
    const struct {
      Text control;
      LONG role;
      Text name;
      Text value;
      Text shortcut;
    } expected[] = {
        {u"txtName", ROLE_SYSTEM_TEXT, u"Server Name:", u"A server", u""},
        {u"lstMax", ROLE_SYSTEM_LIST, u"Max Players:", u"4", u""},
        {u"lstDelay", ROLE_SYSTEM_LIST, u"Start Delay:", u"", u""},
        {u"cboMods", ROLE_SYSTEM_COMBOBOX, u"Game Mod:", u"Team Sabre", u""},
        {u"chkLoop", ROLE_SYSTEM_CHECKBUTTON, u"Loop Maps:", u"", u""},
        {u"txtMinPing", ROLE_SYSTEM_TEXT, u" - Min. Ping", u"0", u""},
        {u"txtGametype", ROLE_SYSTEM_TEXT, u"Game Type", u"Deathmatch", u""},
        {u"lstSelMaps", ROLE_SYSTEM_LIST, u"Selected Maps", u"", u""},
        {u"cmdRandomize", ROLE_SYSTEM_PUSHBUTTON, u"Randomize Current Maps List", u"", u"Alt+R"},
        {u"cmdStartImg", ROLE_SYSTEM_PUSHBUTTON, u"Start Game", u"", u"Alt+S"},
        {u"cmdLeftImg", ROLE_SYSTEM_PUSHBUTTON, u"Previous Game Type", u"", u"Alt+P"},
        {u"lblMapCnt", ROLE_SYSTEM_STATICTEXT, u"Number of Maps: 0", u"", u""},
        {u"Frame3", ROLE_SYSTEM_GROUPING, u"Options", u"", u""},
        {u"tsMain", ROLE_SYSTEM_PAGETABLIST, u"", u"", u""},
        {u"frmrcBHDGS", ROLE_SYSTEM_DIALOG, u"Select Hosting Options", u"", u""}};
    for (const auto& control : expected) {
      const Heard heard(robot.Find(control.control));
      const std::string who = ToUtf8(control.control);
      EXPECT_EQ(heard.role, control.role) << who;
      EXPECT_EQ(ToUtf8(heard.name.view()), ToUtf8(control.name)) << who;
      EXPECT_EQ(ToUtf8(heard.value.view()), ToUtf8(control.value)) << who;
      EXPECT_EQ(ToUtf8(heard.shortcut.view()), ToUtf8(control.shortcut)) << who;
      // A tool that goes by the system's classes takes one for what it is, too.
      std::array<wchar_t, 16> kind{};
      GetClassNameW(robot.Find(control.control), kind.data(), static_cast<int>(kind.size()));
      EXPECT_EQ(std::wstring_view(kind.data()) == L"Static", control.role == ROLE_SYSTEM_STATICTEXT)
          << who;
    }
    // Nothing that the keyboard reaches is nameless, the strip of named tabs aside.
    for (const auto& control : dialog.controls()) {
      const auto* const peer = win32::WindowPeer::Of(*control);
      if (peer == nullptr || !control->IsTabStop() || control.get() == &dialog.tsMain) continue;
      EXPECT_FALSE(Heard(peer->window()).name.view().empty()) << ToUtf8(control->name());
    }

    EXPECT_TRUE(Heard(robot.Find(u"chkWindow")).state & STATE_SYSTEM_CHECKED);
    robot.Click(u"chkWindow");
    EXPECT_FALSE(Heard(robot.Find(u"chkWindow")).state & STATE_SYSTEM_CHECKED);
    EXPECT_TRUE(Heard(robot.Find(u"txtGametype")).state & STATE_SYSTEM_READONLY);
    dialog.lstSelMaps.AddItem(u"above");
    dialog.lstSelMaps.AddItem(u"current");
    dialog.lstSelMaps.SetCurrentRow(1);
    EXPECT_EQ(Heard(robot.Find(u"lstSelMaps")).value.view(), u"current");
    dialog.Get<ui::TextBox>(u"txtName").SetEnabled(false);
    EXPECT_TRUE(Heard(robot.Find(u"txtName")).state & STATE_SYSTEM_UNAVAILABLE);

    // A tool presses a button, and may know it for longer than it is there.
    robot.ClickTab(u"Map Settings");
    const auto next = ObjectOf(robot.Find(u"cmdRightImg"));
    ASSERT_EQ(next->accDoDefaultAction(Self()), S_OK);
    DrainMessages();
    EXPECT_EQ(Seen(u"txtGametype", u"text"), u"Team Deathmatch");
    kept_ = next;
  });
  session.dialog.reset();
  DrainMessages();
  com::Bstr name;
  EXPECT_NE(kept_->get_accName(Self(), name.address()), S_OK) << ToUtf8(name.view());
}

}  // namespace
}  // namespace quill
