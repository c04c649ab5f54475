// The dialog in real windows: gestures with genuine messages, read back from the windows.
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <optional>
#include <set>

#include "dialog/option_table.h"
#include "host/watch/fault_plan.h"
#include "host/win32/high_contrast.h"
#include "host/win32/import_table.h"
#include "tests/win32/native_bench.h"
#include "win32/form_peer.h"

namespace quill {
namespace {

class DialogWindows : public testing::Test, public NativeBench {};

// A screen of the test's resolution, as the parts of the dialog see it.
class Screen : public testing::TestWithParam<int> {
 protected:
  Screen() {
    host::Redirect(import_, reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&Resolution)));
  }
  ~Screen() override { host::Redirect(import_, former_); }

 private:
  static int WINAPI Resolution(HDC, int) { return GetParam(); }

  FARPROC* const import_ =
      host::FindImport(GetModuleHandleW(nullptr), L"gdi32.dll", "GetDeviceCaps");
  const FARPROC former_ = *import_;
};
class DialogOnScreen : public Screen, public NativeBench {};
INSTANTIATE_TEST_SUITE_P(Resolutions, DialogOnScreen, testing::Values(96, 240));

HWND LabelBefore(HWND window) {
  return GetWindow(window, GW_HWNDPREV);
}

TEST_P(DialogOnScreen, EveryControlHasItsStandardWindowInItsPlace) {
  Show([&](frmrcBHDGS& dialog) {
    std::set<int> ids;
    for (const auto& control : dialog.controls()) {
      if (control->kind() == ui::ControlKind::kFileDialog) continue;
      const HWND window = robot.Find(control->name());
      EXPECT_TRUE(ids.insert(GetDlgCtrlID(window)).second) << ToUtf8(control->name());
      EXPECT_EQ(GetParent(window), robot.Find(control->container()->name()));
      const ui::Bounds& bounds = control->bounds();
      EXPECT_NEAR(std::stoi(ToUtf8(Seen(control->name(), u"left"))), bounds.left, 8);
      if (control->kind() != ui::ControlKind::kListBox) {  // whose top is its first row
        EXPECT_NEAR(std::stoi(ToUtf8(Seen(control->name(), u"top"))), bounds.top, 8);
      }
      EXPECT_NEAR(std::stoi(ToUtf8(Seen(control->name(), u"width"))), bounds.width, 15);
      EXPECT_NEAR(std::stoi(ToUtf8(Seen(control->name(), u"height"))), bounds.height, 15)
          << ToUtf8(control->name());
      EXPECT_EQ(Seen(control->name(), u"tooltip"), control->tooltip());
    }
    RECT inside = {};
    GetClientRect(robot.FormWindow(), &inside);
    EXPECT_EQ(inside.right, win32::ScreenScale().Pixels(9615));
    EXPECT_EQ(inside.bottom, win32::ScreenScale().Pixels(4695));
    RECT outside = {};
    GetWindowRect(robot.FormWindow(), &outside);
    EXPECT_GE(outside.top, win32::WorkAreaFor(nullptr).top) << "its title stays in reach";
    ICONINFO icon = {};
    BITMAP colours = {};
    ASSERT_TRUE(GetIconInfo(reinterpret_cast<HICON>(SendMessageW(robot.Find(u"cmdRandomize"),
                                                                 BM_GETIMAGE, IMAGE_ICON, 0)),
                            &icon));
    GetObjectW(icon.hbmColor, sizeof colours, &colours);
    EXPECT_EQ(colours.bmWidth, GetParam() / 3);
    EXPECT_EQ(Seen(u"frmrcBHDGS", u"caption"), u"Select Hosting Options");

    for (const Option& option : Options()) {
      const HWND label = LabelBefore(robot.Find(Text(option.key)));
      EXPECT_EQ(win32::WindowText(label), option.label)
          << "assistive tools take the label before " << ToUtf8(option.key) << " as its name";
    }
  });
}

TEST_F(DialogWindows, TypingEndsAtTheLimitAndKeepsTheCaret) {
  Show([&](frmrcBHDGS&) {
    robot.Type(u"txtName", u"abcdefghijklmnopqrstuvwxyz");
    const HWND box = robot.Find(u"txtName");
    SendMessageW(box, EM_SETSEL, 3, 3);
    SendMessageW(box, WM_CHAR, 'X', 1);
    DWORD caret = 0;
    SendMessageW(box, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
    EXPECT_EQ(caret, 3u);
    EXPECT_EQ(Seen(u"txtName", u"text"), u"abcdefghijklmnopqrstuvwxyz");

    SendMessageW(box, WM_CHAR, 'A' - '@', 1);  // Ctrl+A
    EXPECT_EQ(SendMessageW(box, EM_GETSEL, 0, 0), MAKELRESULT(0, 26));

    robot.Paste(u"txtCountry", u"GERMANY");
    EXPECT_EQ(session.dialog->Get<ui::TextBox>(u"txtCountry").text(), u"GE");
    SendMessageW(box, EM_SETSEL, 0, 5);
    SendMessageW(box, WM_PASTE, 0, 0);
    EXPECT_EQ(Seen(u"txtName", u"text"), u"GERMAfghijklmnopqrstuvwxyz");
  });
}

TEST_F(DialogWindows, ASingleRowListChoosesWhatScrollsIntoView) {
  Show([&](frmrcBHDGS& dialog) {
    const auto& list = dialog.Get<ui::ListBox>(u"lstMax");
    const auto expect = [&](int row) {
      EXPECT_EQ(list.ListIndex(), row);
      EXPECT_EQ(Seen(u"lstMax", u"index"), Decimal(row));
      EXPECT_EQ(Seen(u"lstMax", u"top"), Decimal(row));
    };
    robot.ScrollBy(u"lstMax", 3);
    expect(3);
    robot.TurnWheel(u"lstMax", -2);
    expect(5);
    robot.TurnWheel(u"lstMax", 1);
    expect(4);
    for (const int row : {4, 5}) {
      SendMessageW(robot.Find(u"lstMax"), WM_MOUSEWHEEL, MAKEWPARAM(0, 0x10000 - WHEEL_DELTA / 2),
                   0);
      expect(row);
    }
    SendMessageW(robot.Find(u"lstMax"), WM_NCLBUTTONDOWN, HTBORDER, 0);
    EXPECT_EQ(robot.Focused(), u"lstMax") << "as by a press on its bar";
    robot.PressKey(VK_NEXT);
    expect(15);
  });
}

TEST_F(DialogWindows, CheckBoxesFollowTheModelOnly) {
  Show([&](frmrcBHDGS& dialog) {
    SetFocus(robot.Find(u"chkDedi"));
    robot.PressKey(VK_SPACE);
    EXPECT_EQ(Seen(u"chkDedi", u"value"), u"1");

    auto& nova = dialog.Get<ui::CheckBox>(u"chkNova");
    nova.SetEnabled(false);
    SendMessageW(robot.Find(u"chkNova"), BM_CLICK, 0, 0);
    EXPECT_EQ(nova.value(), 0);
    EXPECT_EQ(Seen(u"chkNova", u"value"), u"0");
  });
}

TEST_F(DialogWindows, TheRowsOfTheMapListsAreRepainted) {
  Show([&](frmrcBHDGS& dialog) {
    PickMod(u"Team Sabre");
    robot.ClickTab(u"Map Settings");
    const host::Pixels available = PictureOf(u"lstAvlMaps");
    const host::Pixels empty = PictureOf(u"lstSelMaps");
    const host::Pixels label = PictureOf(u"lblMapCnt");
    dialog.At(u"lblMapCnt").SetEnabled(false);
    EXPECT_NE(PictureOf(u"lblMapCnt"), label);
    dialog.At(u"lblMapCnt").SetEnabled(true);
    // The faces keep their light colour under a scheme of light text.
    const INT text = COLOR_BTNTEXT;
    const COLORREF former = GetSysColor(text);
    const COLORREF light = RGB(255, 255, 255);
    for (const COLORREF colour : {light, former}) {
      SetSysColors(1, &text, &colour);
      SendMessageW(robot.FormWindow(), WM_SYSCOLORCHANGE, 0, 0);
      EXPECT_EQ(PictureOf(u"lblMapCnt"), label);
    }
    robot.PressAccessKey(u'n');
    EXPECT_NE(PictureOf(u"lstAvlMaps"), available);
    robot.PressAccessKey(u'p');
    EXPECT_EQ(PictureOf(u"lstAvlMaps"), available);
    robot.DoubleClickRow(u"lstAvlMaps", 0);
    const host::Pixels one = PictureOf(u"lstSelMaps");
    EXPECT_NE(one, empty);
    robot.DoubleClickRow(u"lstAvlMaps", 1);
    EXPECT_NE(PictureOf(u"lstSelMaps"), one);
    robot.Strike(u"lstSelMaps", {u'A', ui::kCtrlHeld});
    robot.Strike(u"lstSelMaps", {ui::kDeleteKey});
    robot.ClickTab(u"Server Settings");
    robot.ClickTab(u"Map Settings");
    EXPECT_EQ(PictureOf(u"lstSelMaps"), empty);
  });
}

// The place of the menu that opened last, and what is done about it.
RECT menu;
std::function<void()> step;

// No lambda: 32-bit compilers do not turn one into a function of the system's convention.
void CALLBACK LookAtMenu(HWND, UINT, UINT_PTR, DWORD) {
  const HWND window = FindWindowW(L"#32768", nullptr);
  if (window == nullptr || !IsWindowVisible(window)) return;
  if (menu.right != 0) EndMenu();  // it is still open
  GetWindowRect(window, &menu);
  step();
}

TEST_F(DialogWindows, AWideListIsScrolledAndItsMenuOpensAtTheMouseOrTheRow) {
  Show([&](frmrcBHDGS& dialog) {
    robot.ClickTab(u"Map Settings");
    ui::ListBox& maps = dialog.lstSelMaps;
    for (int row = 0; row < 40; ++row) maps.AddItem(Text(80, u'W'));
    const HWND list = robot.Find(u"lstSelMaps");
    const auto height = static_cast<int>(SendMessageW(list, LB_GETITEMHEIGHT, 0, 0));
    const auto row_place = [&](int row) {
      RECT place = {};
      SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&place));
      return place;
    };
    RECT inside = {};
    GetClientRect(list, &inside);
    EXPECT_GT(SendMessageW(list, LB_GETHORIZONTALEXTENT, 0, 0), inside.right);
    EXPECT_EQ(inside.bottom % height, 0) << "no part of a row above the bar";
    robot.SelectRows(u"lstSelMaps", {0, 2});
    EXPECT_EQ(maps.ListIndex(), 2) << "the row that was clicked last";
    maps.SetCurrentRow(39);
    EXPECT_LE(row_place(39).bottom, inside.bottom);
    SendMessageW(list, LB_SETTOPINDEX, 3, 0);
    SendMessageW(list, WM_TIMER, 0, 0);  // as while the mouse is held outside
    EXPECT_EQ(maps.TopIndex(), 3);

    maps.SetCurrentRow(4);
    const auto open_menu = [&](LPARAM place) {
      menu = {};
      const UINT_PTR timer = SetTimer(nullptr, 0, 10, &LookAtMenu);
      SendMessageW(list, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list), place);
      KillTimer(nullptr, timer);
      return std::pair(menu.left, menu.top);
    };
    step = [] { EndMenu(); };
    POINT below = {0, row_place(4).bottom};
    ClientToScreen(list, &below);
    EXPECT_EQ(open_menu(-1), std::pair(below.x, below.y));
    EXPECT_EQ(open_menu(MAKELPARAM(below.x + 9, below.y + 5)), std::pair(below.x + 9, below.y + 5));
    EXPECT_EQ(open_menu(MAKELPARAM(below.x + 9, below.y + inside.bottom)).second, 0)
        << "the bar below has its own";
    bool is_left = true;
    step = [&] {
      dialog.Hide();
      step = [&] { is_left = false; };
    };
    open_menu(-1);
    EXPECT_TRUE(is_left) << "the menu goes with the dialog";
  });
}

TEST_F(DialogWindows, ImageButtonsKeepTheMouseUntilItIsReleasedOrTakenAway) {
  Show([&](frmrcBHDGS&) {
    robot.ClickTab(u"Map Settings");
    robot.Press(u"cmdRight");
    // Over something else; the press decides where the release belongs.
    robot.Release(u"lstAvlMaps");
    EXPECT_EQ(Seen(u"cmdRightImg", u"picture"), u"butup.gif");
    EXPECT_EQ(Seen(u"txtGametype", u"text"), u"Team Deathmatch");

    const auto extra = [&](const Text& control, WORD button) {
      const HWND window = robot.Find(control);
      EXPECT_TRUE(SendMessageW(window, WM_XBUTTONDOWN, MAKEWPARAM(0, button), 0));
      EXPECT_EQ(Seen(u"cmdRightImg", u"picture"), u"butup.gif");
      EXPECT_TRUE(SendMessageW(window, WM_XBUTTONUP, MAKEWPARAM(0, button), 0));
    };
    extra(u"cmdRightImg", XBUTTON1);
    EXPECT_EQ(Seen(u"txtGametype", u"text"), u"Cooperative");
    extra(u"cmdLeft", XBUTTON2);
    EXPECT_EQ(Seen(u"txtGametype", u"text"), u"Team Deathmatch");

    robot.Press(u"cmdLeftImg");
    EXPECT_EQ(Seen(u"cmdLeftImg", u"picture"), u"butdown.gif");
    robot.Press(u"cmdLeftImg", ui::kRightButton);
    robot.Release(u"cmdLeftImg", ui::kRightButton);
    EXPECT_EQ(GetCapture(), robot.Find(u"cmdLeftImg")) << "the left button is still down";
    ReleaseCapture();
    EXPECT_EQ(Seen(u"cmdLeftImg", u"picture"), u"butup.gif") << "the mouse was taken away";
    EXPECT_EQ(Seen(u"txtGametype", u"text"), u"Deathmatch");
  });
}

TEST_F(DialogWindows, APressedButtonLooksPressedInHighContrast) {
  Show([&](frmrcBHDGS&) {
    robot.ClickTab(u"Map Settings");
    const HWND icon_button = robot.Find(u"cmdRandomize");
    const host::Pixels field = PictureOf(u"txtGametype");
    const std::uint32_t own_face = field.At(5, 5);
    EXPECT_GT(std::ranges::count(field.values, own_face), field.width * field.height * 7 / 10)
        << "also between its letters";
    const host::HighContrast scheme(GetModuleHandleW(nullptr), robot.FormWindow());
    for (const Text& control : {Text(u"txtGametype"), Text(u"tsMain")}) {
      EXPECT_EQ(std::ranges::count(PictureOf(control).values, own_face), 0) << ToUtf8(control);
    }
    const host::Pixels face = PictureOf(u"cmdRightImg");
    const host::Pixels icon = PictureOf(u"cmdRandomize");
    robot.Press(u"cmdRight");
    SendMessageW(icon_button, BM_SETSTATE, TRUE, 0);
    const host::Pixels pressed_face = PictureOf(u"cmdRightImg");
    EXPECT_NE(PictureOf(u"cmdRandomize"), icon);
    // Not by its edges alone, which schemes of few colours draw alike.
    const std::uint32_t highlight = 0x800080;
    EXPECT_EQ(std::ranges::count(face.values, highlight), 0);
    EXPECT_GT(std::ranges::count(pressed_face.values, highlight), 4 * 10);
    SendMessageW(icon_button, BM_SETSTATE, FALSE, 0);
    robot.Release(u"cmdRight");
    EXPECT_EQ(PictureOf(u"cmdRightImg"), face);
    EXPECT_EQ(PictureOf(u"cmdRandomize"), icon);
  });
}

TEST_F(DialogWindows, TheReleaseOfAButtonThatWasDownWhenABoxClosedMeansNothing) {
  Show([&](frmrcBHDGS&) {
    robot.ClickTab(u"Map Settings");
    std::optional<host::HeldKey> left;
    const auto release = [&] {
      left.reset();
      robot.Release(u"cmdRight");
      return Seen(u"txtGametype", u"text");
    };
    during_box = [&] { left.emplace(VK_LBUTTON); };
    toolkit->ShowMessage(u"caption", u"text");
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(release(), u"Deathmatch");
    EXPECT_EQ(release(), u"Team Deathmatch");

    left.emplace(VK_LBUTTON);
    robot.ChooseFromMenu(u"lstAvlMaps", -1, u"");
    EXPECT_EQ(release(), u"Team Deathmatch");
    EXPECT_EQ(release(), u"Cooperative");
  });
}

TEST_F(DialogWindows, AClosingHandlerEndsTheDisplayAndTheWindowsGoLater) {
  for (const Text& button : {Text(u"cmdCancel"), Text(u"cmdCancelImg")}) {
    std::weak_ptr<frmrcBHDGS> watched;
    bool hidden = false;
    Show([&](frmrcBHDGS&) {
      watched = session.dialog;
      robot.Press(button, ui::kMiddleButton);
      robot.Release(button, ui::kMiddleButton);
      hidden = robot.FormWindow() != nullptr && !robot.FormShown();
    });
    EXPECT_TRUE(hidden);
    EXPECT_EQ(session.dialog, nullptr);
    DrainMessages();
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(robot.FormWindow(), nullptr);
  }
  Show([&](frmrcBHDGS&) { robot.CloseForm(); });
  EXPECT_EQ(session.dialog, nullptr);
}

TEST_F(DialogWindows, TheFocusLeavesAHiddenPage) {
  Show([&](frmrcBHDGS&) {
    EXPECT_EQ(robot.Focused(), u"tsMain");
    robot.Type(u"txtName", u"x");
    robot.ClickTab(u"Misc Options");
    EXPECT_EQ(robot.Focused(), u"tsMain");
    robot.PressKey(VK_TAB);
    EXPECT_EQ(robot.Focused(), u"txtBlue");
    robot.PressKey(VK_ESCAPE);
    robot.PressKey(VK_RETURN);
    SendMessageW(GetFocus(), WM_CHAR, '\r', 1);
    EXPECT_TRUE(robot.FormShown());
    EXPECT_EQ(Seen(u"txtBlue", u"text"), u"");
  });
}

TEST_F(DialogWindows, AClickBesideTheControlsKeepsTheFocusInTheField) {
  Show([&](frmrcBHDGS&) {
    robot.Type(u"txtName", u"x");
    for (const Text& place : {Text(u"fmeServer"), Text(u"Frame3"), Text(u"tsMain")}) {
      robot.Click(place);
      EXPECT_EQ(robot.Focused(), u"txtName") << ToUtf8(place);
    }
    EXPECT_EQ(SendMessageW(robot.Find(u"Frame3"), WM_NCHITTEST, 0, 0), HTCLIENT)
        << "the tabs behind are not clicked through it";
  });
}

TEST_F(DialogWindows, ARepaintThatFailsEndsAndLeavesNothingBehind) {
  Show([&](frmrcBHDGS&) {
    const auto grown = GrownBy([&] {
      for (const HWND window : {robot.Find(u"cmdStart"), LabelBefore(robot.Find(u"txtName"))}) {
        InvalidateRect(window, nullptr, FALSE);
        host::FaultPlan plan(1, host::FaultPlan::Extent::kFromThereOn);
        {
          const host::FailingAllocations none(plan);
          UpdateWindow(window);
        }
        EXPECT_GT(plan.struck(), 0);
        EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE));
      }
    });
    EXPECT_EQ(grown, std::vector<TextView>());
  });
}

TEST_F(DialogWindows, EscapeClosesTheDropDownOnly) {
  Show([&](frmrcBHDGS&) {
    PickMod(u"Team Sabre");
    EXPECT_EQ(Seen(u"cboMods", u"text"), u"Team Sabre");
    const HWND box = robot.Find(u"cboMods");
    SendMessageW(box, CB_SHOWDROPDOWN, TRUE, 0);
    ASSERT_TRUE(SendMessageW(box, CB_GETDROPPEDSTATE, 0, 0));
    SetFocus(box);
    robot.PressKey(VK_ESCAPE);
    EXPECT_FALSE(SendMessageW(box, CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_TRUE(robot.FormShown());
    auto& mods = session.dialog->Get<ui::ComboBox>(u"cboMods");
    int choices = 0;
    mods.on_click = [&] { ++choices; };
    const auto tell = [&](WPARAM row, std::initializer_list<WORD> notifications) {
      SendMessageW(box, CB_SETCURSEL, row, 0);
      for (const WORD told : notifications) {
        SendMessageW(GetParent(box), WM_COMMAND, MAKEWPARAM(0, told),
                     reinterpret_cast<LPARAM>(box));
      }
    };
    // Where the key takes another choice back, no change is told.
    tell(0, {CBN_DROPDOWN, CBN_SELENDCANCEL, CBN_CLOSEUP});
    EXPECT_EQ(mods.text(), u"None");
    // The system may close the list before it tells what was chosen with the mouse.
    tell(1, {CBN_DROPDOWN, CBN_SELENDOK, CBN_CLOSEUP, CBN_SELCHANGE});
    EXPECT_EQ(mods.text(), u"Team Sabre");
    EXPECT_EQ(choices, 2);
  });
}

TEST_F(DialogWindows, TheDropDownListIsAsWideAsItsLongestItem) {
  Show([&](frmrcBHDGS&) {
    const Text longest = u"A mod with a name that is far longer than the box is wide";
    PickMod(longest);
    const HWND box = robot.Find(u"cboMods");
    const HDC device = GetDC(box);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(box, WM_GETFONT, 0, 0));
    const HGDIOBJ before = SelectObject(device, font);
    SIZE text = {};
    GetTextExtentPoint32W(device, reinterpret_cast<const wchar_t*>(longest.c_str()),
                          static_cast<int>(longest.size()), &text);
    SelectObject(device, before);
    ReleaseDC(box, device);
    const auto width = static_cast<int>(SendMessageW(box, CB_GETDROPPEDWIDTH, 0, 0));
    EXPECT_GE(width, text.cx);
    EXPECT_LE(width, text.cx + 2 * GetSystemMetrics(SM_CXVSCROLL));
  });
}

TEST_F(DialogWindows, ADisabledSpinListKeepsItsRow) {
  Show([&](frmrcBHDGS& dialog) {
    robot.ScrollTo(u"lstMax", 7);
    dialog.At(u"lstMax").SetEnabled(false);
    const HWND list = robot.Find(u"lstMax");
    SendMessageW(list, WM_VSCROLL, SB_LINEDOWN, 0);
    SendMessageW(list, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    SendMessageW(list, WM_KEYDOWN, VK_DOWN, 1);
    EXPECT_EQ(Seen(u"lstMax", u"index"), u"7");
    EXPECT_EQ(Seen(u"lstMax", u"top"), u"7");
    EXPECT_EQ(dialog.Get<ui::ListBox>(u"lstMax").ListIndex(), 7);
    EXPECT_FALSE(EnableScrollBar(list, SB_VERT, ESB_DISABLE_BOTH)) << "its arrows are grey already";
  });
}

TEST_F(DialogWindows, BoxesBelongToTheDialogAndFilesArePicked) {
  root.Put("lists/one.mpl", "0[-]0[-]DMK_01A.BMS\r\n");
  Show([&](frmrcBHDGS&) {
    PickMod(u"Team Sabre");
    robot.ClickTab(u"Map Settings");
    during_box = [&] {
      EXPECT_EQ(GetWindow(host::FindOpenBox().window, GW_OWNER), robot.FormWindow());
      EXPECT_EQ(host::FindOpenBox().caption, u"Load saved map list");
    };
    file_answer = {root.text() + u"\\lists\\one.mpl"};
    wchar_t before[MAX_PATH] = {};
    wchar_t after[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, before);
    robot.Press(u"cmdLoadMaps");
    robot.Release(u"cmdLoadMaps");
    GetCurrentDirectoryW(MAX_PATH, after);
    EXPECT_STREQ(before, after);
    EXPECT_EQ(Seen(u"lstSelMaps", u"count"), u"1");
  });
}

TEST_F(DialogWindows, ThePointerTurnsBusyAtOnceAndNotOnTheFrame) {
  Show([&](frmrcBHDGS& dialog) {
    const HWND form = robot.FormWindow();
    RECT place = {};
    GetWindowRect(robot.Find(u"txtName"), &place);
    SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    dialog.pointer = ui::Pointer::kBusy;
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
    SendMessageW(form, WM_SETCURSOR, reinterpret_cast<WPARAM>(form),
                 MAKELPARAM(HTCAPTION, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
    dialog.pointer = ui::Pointer::kDefault;
  });
}

TEST_F(DialogWindows, ATooltipShowsWhereTheMouseRests) {
  Show([&](frmrcBHDGS& dialog) {
    robot.ClickTab(u"Map Settings");
    const HWND tips = static_cast<win32::FormPeer*>(dialog.peer())->Tooltips();
    EXPECT_TRUE(IsWindowEnabled(tips));
    dialog.lstAvlMaps.tooltip = u"Maps";
    for (const Text& control : {Text(u"cmdRandomize"), Text(u"lstAvlMaps")}) {
      const HWND window = robot.Find(control);
      RECT place = {};
      GetWindowRect(window, &place);
      SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
      SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(9, 9));
      for (int turn = 0; turn < 300 && !IsWindowVisible(tips); ++turn, Sleep(10)) DrainMessages();
      EXPECT_TRUE(IsWindowVisible(tips)) << ToUtf8(control);
      EXPECT_EQ(win32::WindowText(tips), dialog.At(control).tooltip());
      SendMessageW(tips, TTM_POP, 0, 0);
    }
  });
}

TEST_F(DialogWindows, TheBodyOfTheTabStripHasTheColourOfTheFrames) {
  Show([&](frmrcBHDGS& dialog) {
    DrainMessages();
    const HWND strip = robot.Find(u"tsMain");
    for (const wchar_t* property : {L"lpPROC", L"PctOBJ", L"GridOBJ"}) {
      EXPECT_NE(GetPropW(strip, property), nullptr);
    }
    const auto pixel_at = [&](int x, int y) {
      const HDC device = GetDC(strip);
      const COLORREF colour = GetPixel(device, x, y);
      ReleaseDC(strip, device);
      return colour;
    };
    RECT body = {};
    GetClientRect(strip, &body);
    const int x = body.right - 6;
    const int y = body.bottom - 6;
    EXPECT_EQ(pixel_at(x, y), RGB(236, 233, 216));

    // A white mark that the strip leaves, outside of what is repainted, stays as it is.
    HDC device = GetDC(strip);
    SetPixel(device, x, y, RGB(1, 2, 3));
    SetPixel(device, x - 3, y, RGB(1, 2, 3));
    ReleaseDC(strip, device);
    const RECT part = {x, y, x + 1, y + 1};
    InvalidateRect(strip, &part, FALSE);
    UpdateWindow(strip);
    EXPECT_EQ(pixel_at(x, y), RGB(236, 233, 216));
    EXPECT_EQ(pixel_at(x - 3, y), RGB(1, 2, 3));

    toolkit->UnhookTabBackground(dialog.tsMain);
    for (const wchar_t* property : {L"lpPROC", L"PctOBJ", L"GridOBJ"}) {
      EXPECT_EQ(GetPropW(strip, property), nullptr);
    }
    RedrawWindow(robot.FormWindow(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    EXPECT_EQ(pixel_at(x, y), GetSysColor(COLOR_BTNFACE));
  });
}

}  // namespace
}  // namespace quill
