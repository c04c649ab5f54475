// The window's controls, and what the host does with them.
#include "host/win32/host_window.h"

#include <commctrl.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "host/cli/scenario_argument.h"
#include "host/remote/relay.h"
#include "host/win32/host_folder.h"
#include "host/win32/plugin_session.h"
#include "plugin/operator_rights.h"
#include "support/number_text.h"
#include "support/runtime_error.h"
#include "win32/native_text.h"

namespace quill::host {
namespace {

using win32::Wide;
using win32::WindowText;

constexpr const wchar_t* kClass = L"QuillstartHost";
constexpr const wchar_t* kTitle = L"Quillstart reference host";
constexpr int kOpenId = 101;
constexpr int kHideId = 102;
constexpr int kScenarioId = 103;
constexpr UINT_PTR kRelayTimer = 1;
constexpr UINT kRelayMilliseconds = 50;

// Pixels at 96 dots per inch.
constexpr int kMargin = 12;
constexpr int kRow = 26;
constexpr int kFieldHeight = 22;
constexpr int kLabelWidth = 90;
constexpr int kLeftWidth = 300;
constexpr int kLogWidth = 520;
constexpr int kHeight = 440;

class HostWindow {
 public:
  HostWindow(const Text& scenario, const PluginLibrary& library, ContractLog& contract,
             std::function<void(const Text& line)> tell)
      : tell_(std::move(tell)),
        root_(FreshHostFolder()),
        contract_(contract),
        session_(library, contract, root_) {
    RegisterWindowClass();
    MakeControls();
    TakeScenario(scenario.empty() ? Scenario() : ReadScenario(scenario));
    SetWindowTextW(scenario_, Wide(scenario));
    told_before_ = std::exchange(
        contract.on_breach, [this](const Breach& breach) { Tell(FromUtf8(BreachLine(breach))); });
  }
  ~HostWindow() {
    contract_.on_breach = std::move(told_before_);
    if (hide_bar_ != nullptr) DestroyWindow(hide_bar_);
    if (IsWindow(window_)) DestroyWindow(window_);
    DeleteObject(font_);
  }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  void Run() {
    ShowWindow(window_, SW_SHOWNORMAL);
    Tell(u"host: the window is open");
    SetTimer(window_, kRelayTimer, kRelayMilliseconds, nullptr);
    MSG message;
    while (!is_closed_ && GetMessageW(&message, nullptr, 0, 0) > 0) {
      if (IsDialogMessageW(window_, &message)) continue;
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }

 private:
  static void RegisterWindowClass() {
    WNDCLASSEXW host = {};
    host.cbSize = sizeof host;
    host.lpfnWndProc = &Procedure;
    host.hInstance = GetModuleHandleW(nullptr);
    host.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    host.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    host.lpszClassName = kClass;
    if (RegisterClassExW(&host) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) {
      throw RuntimeError(ErrorNumber::kCannotCreateObject);
    }
  }

  HWND MakeWindow(DWORD style, DWORD extended, int width, int height) {
    RECT place = {0, 0, Scaled(width), Scaled(height)};
    AdjustWindowRect(&place, style, FALSE);
    const HWND made = CreateWindowExW(extended, kClass, kTitle, style, CW_USEDEFAULT, CW_USEDEFAULT,
                                      place.right - place.left, place.bottom - place.top, nullptr,
                                      nullptr, GetModuleHandleW(nullptr), nullptr);
    if (made == nullptr) throw RuntimeError(ErrorNumber::kCannotCreateObject);
    SetWindowLongPtrW(made, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    return made;
  }

  HWND Add(HWND parent, const wchar_t* kind, TextView caption, DWORD style, const RECT& place,
           int id = 0) {
    const Text text(caption);
    const DWORD edge = IsField(kind) ? WS_EX_CLIENTEDGE : 0;
    const HWND made = CreateWindowExW(
        edge, kind, Wide(text), WS_CHILD | WS_VISIBLE | style, Scaled(place.left),
        Scaled(place.top), Scaled(place.right - place.left), Scaled(place.bottom - place.top),
        parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr),
        nullptr);
    SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    return made;
  }
  static bool IsField(const wchar_t* kind) {
    return kind == std::wstring_view(L"EDIT") || kind == std::wstring_view(L"LISTBOX");
  }

  [[nodiscard]] int Scaled(int pixels) const { return MulDiv(pixels, dots_per_inch_, 96); }

  void MakeControls() {
    const HDC screen = GetDC(nullptr);
    dots_per_inch_ = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    font_ = CreateFontW(-Scaled(11), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                        OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                        DEFAULT_PITCH | FF_DONTCARE, L"MS Sans Serif");
    window_ = MakeWindow(WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX, 0,
                         kMargin + kLeftWidth + kMargin + kLogWidth + kMargin, kHeight);
    int top = kMargin;
    profile_ = AddField(u"Profile:", top);
    target_ = AddField(u"Target:", top);
    scenario_ = AddField(u"Scenario:", top);
    Add(window_, L"BUTTON", u"&Use this scenario", WS_TABSTOP,
        {kMargin + kLabelWidth, top, kMargin + kLeftWidth, top + kRow}, kScenarioId);
    top += kRow + kMargin;
    Add(window_, L"STATIC", u"The operator may:", 0,
        {kMargin, top, kMargin + kLeftWidth, top + kFieldHeight});
    top += kFieldHeight;
    for (const quill::OperatorRight& right : OperatorRights()) {
      rights_.push_back(AddCheckBox(right.name, top));
    }
    super_ = AddCheckBox(u"Super-administrator", top);
    top += kMargin;
    const int middle = kMargin + kLeftWidth / 2;
    Add(window_, L"BUTTON", u"&Open plug-in", WS_TABSTOP | BS_DEFPUSHBUTTON,
        {kMargin, top, middle - 4, top + kRow}, kOpenId);
    Add(window_, L"BUTTON", u"&Hide plug-in", WS_TABSTOP,
        {middle + 4, top, kMargin + kLeftWidth, top + kRow}, kHideId);
    const int log_left = kMargin + kLeftWidth + kMargin;
    log_ = Add(window_, L"LISTBOX", u"",
               WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOINTEGRALHEIGHT | LBS_NOSEL,
               {log_left, kMargin, log_left + kLogWidth, kHeight - kMargin});
    SendMessageW(log_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(Scaled(2000)), 0);
  }

  HWND AddField(TextView caption, int& top) {
    Add(window_, L"STATIC", caption, 0,
        {kMargin, top + 4, kMargin + kLabelWidth, top + kFieldHeight});
    const HWND field = Add(window_, L"EDIT", u"", WS_TABSTOP | ES_AUTOHSCROLL,
                           {kMargin + kLabelWidth, top, kMargin + kLeftWidth, top + kFieldHeight});
    top += kRow;
    return field;
  }

  HWND AddCheckBox(TextView caption, int& top) {
    const HWND box = Add(window_, L"BUTTON", caption, WS_TABSTOP | BS_AUTOCHECKBOX,
                         {kMargin, top, kMargin + kLeftWidth, top + 20});
    top += 20;
    return box;
  }

  void TakeScenario(const Scenario& scenario) {
    machine_scenario_ = scenario;
    relay_.reset();
    machine_.emplace(
        machine_scenario_,
        RemoteMachineParts{session_.storage(), launcher_, Concat({root_, u"\\start-record.txt"}),
                           ToUtf8(Concat({root_, u"\\start-record.txt"})),
                           [this](const Text& line) { Tell(line); }});
    relay_.emplace(
        root_, session_.storage(), *machine_, [this](const Text& reply) { Deliver(reply); },
        [this](const Text& line) { Tell(line); });
    const Text profile = Decimal(scenario.index);
    SetWindowTextW(profile_, Wide(profile));
    SetWindowTextW(target_, Wide(scenario.target));
    for (std::size_t at = 0; at < rights_.size(); ++at) {
      const TextView name = OperatorRights()[at].name;
      const auto granted =
          std::find_if(scenario.rights.begin(), scenario.rights.end(), [&](const auto& right) {
            return EqualIgnoringCase(right.name, name) && right.value == u"1";
          });
      SendMessageW(rights_[at], BM_SETCHECK,
                   granted != scenario.rights.end() ? BST_CHECKED : BST_UNCHECKED, 0);
    }
    SendMessageW(super_, BM_SETCHECK, scenario.super_administrator ? BST_CHECKED : BST_UNCHECKED,
                 0);
  }

  static bool IsChecked(HWND box) { return SendMessageW(box, BM_GETCHECK, 0, 0) == BST_CHECKED; }

  void Open() {
    std::vector<Right> rights;
    for (std::size_t at = 0; at < rights_.size(); ++at) {
      rights.push_back({Text(OperatorRights()[at].name), Right::Form::kText,
                        IsChecked(rights_[at]) ? u"1" : u"0"});
    }
    const std::int32_t profile = ToInt32(WindowText(profile_));
    const Text target = WindowText(target_);
    Tell(Concat({u"host: opens profile ", Decimal(profile), u", target \"", target, u"\""}));
    session_.HostCall([&](PluginClient& plugin) {
      plugin.SetPrivis(rights, IsChecked(super_));
      plugin.LoadInterface(profile, {u"", target});
    });
    SetFocus(GetDlgItem(window_, kOpenId));
    Tell(u"host: the dialog is closed");
  }

  void Hide() {
    session_.HostCall([](PluginClient& plugin) { plugin.HideInterface(); });
    Tell(u"host: hides the plug-in");
  }

  void Deliver(const Text& reply) {
    session_.HostCall([&](PluginClient& plugin) { plugin.RemoteData(reply); });
  }

  void Tell(const Text& line) {
    tell_(line);
    const LRESULT at = SendMessageW(log_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(line)));
    SendMessageW(log_, LB_SETTOPINDEX, static_cast<WPARAM>(at), 0);
  }

  // While the dialog is shown this window waits, so a small one that comes after it has the button.
  void Pump() {
    relay_->Pump();
    for (const Text& entry : session_.script().TakeLog()) Tell(Concat({u"error log: ", entry}));
    for (const Text& report : session_.script().TakeReports()) {
      Tell(Concat({u"error report: ", report}));
    }
    const bool waits = !IsWindowEnabled(window_);
    if (waits && hide_bar_ == nullptr) {
      // Without a caption, by which a window manager would give it the keyboard.
      hide_bar_ = MakeWindow(WS_POPUP | WS_DLGFRAME, WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW,
                             kLeftWidth / 2 + 2 * kMargin, 50);
      Add(hide_bar_, L"BUTTON", u"&Hide plug-in", WS_TABSTOP,
          {kMargin, kMargin, kMargin + kLeftWidth / 2, kMargin + kRow}, kHideId);
      RECT place = {};
      GetWindowRect(window_, &place);
      SetWindowPos(hide_bar_, HWND_TOP, place.left, place.bottom, 0, 0,
                   SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    } else if (!waits && hide_bar_ != nullptr) {
      DestroyWindow(hide_bar_);
      hide_bar_ = nullptr;
    }
  }

  void Happened(int id) {
    switch (id) {
      case kOpenId:
        return Open();
      case kHideId:
        return Hide();
      case kScenarioId:
        TakeScenario(ReadScenario(WindowText(scenario_)));
        return Tell(u"host: the remote machine has another scenario");
      default:
        return;
    }
  }

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* const host = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (host == nullptr) return DefWindowProcW(window, message, wparam, lparam);
    try {
      switch (message) {
        case WM_COMMAND:
          if (HIWORD(wparam) == BN_CLICKED) host->Happened(LOWORD(wparam));
          return 0;
        case WM_TIMER:
          host->Pump();
          return 0;
        case WM_CLOSE:
          if (window == host->window_) {
            host->is_closed_ = true;
            PostMessageW(window, WM_NULL, 0, 0);
          }
          return 0;
        default:
          break;
      }
    } catch (const UsageError& error) {
      host->Tell(Concat({u"host: ", error.message()}));
    } catch (const RuntimeError& error) {
      host->Tell(Concat({u"host: failed: ", error.description()}));
    } catch (const std::exception& error) {
      host->Tell(Concat({u"host: failed: ", FromUtf8(error.what())}));
    }
    return DefWindowProcW(window, message, wparam, lparam);
  }

  const std::function<void(const Text& line)> tell_;
  const Text root_;
  ContractLog& contract_;
  std::function<void(const Breach& breach)> told_before_;
  PluginSession session_;
  SystemCommandLauncher launcher_;
  Scenario machine_scenario_;
  std::optional<RemoteMachine> machine_;
  std::optional<Relay> relay_;
  int dots_per_inch_ = 96;
  HFONT font_ = nullptr;
  HWND window_ = nullptr;
  HWND hide_bar_ = nullptr;  // null while the dialog is not shown
  HWND profile_ = nullptr;
  HWND target_ = nullptr;
  HWND scenario_ = nullptr;
  std::vector<HWND> rights_;
  HWND super_ = nullptr;
  HWND log_ = nullptr;
  bool is_closed_ = false;
};

}  // namespace

void ShowHostWindow(const Text& scenario, const PluginLibrary& library, ContractLog& contract,
                    std::function<void(const Text& line)> tell) {
  HostWindow(scenario, library, contract, std::move(tell)).Run();
}

}  // namespace quill::host
