// The window's controls, and what the host does with them.
#include "host/win32/host_window.h"

#include <windows.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "host/cli/commands.h"
#include "host/remote/relay.h"
#include "host/win32/host_folder.h"
#include "host/win32/host_window_controls.h"
#include "host/win32/plugin_session.h"
#include "plugin/operator_rights.h"
#include "support/number_text.h"
#include "support/runtime_error.h"
#include "win32/native_text.h"

namespace quill::host {
namespace {

using win32::Wide;
using win32::WindowText;

constexpr UINT_PTR kRelayTimer = 1;
constexpr UINT kRelayMilliseconds = 50;
constexpr WPARAM kLogExtent = 2000;  // pixels that the longest line of the log may take

class HostWindow {
 public:
  HostWindow(const Text& scenario, const PluginLibrary& library, ContractLog& contract,
             std::function<void(const Text& line)> tell)
      : tell_(std::move(tell)),
        root_(FreshHostFolder()),
        contract_(contract),
        session_(library, contract, root_) {
    AddRights();
    SendDlgItemMessageW(window_, ID_LOG, LB_SETHORIZONTALEXTENT, kLogExtent, 0);
    TakeScenario(scenario.empty() ? Scenario() : ReadScenario(scenario));
    SetDlgItemTextW(window_, ID_SCENARIO, Wide(scenario));
    told_before_ = std::exchange(
        contract.on_breach, [this](const Breach& breach) { Tell(FromUtf8(BreachLine(breach))); });
  }
  ~HostWindow() {
    contract_.on_breach = std::move(told_before_);
    if (hide_bar_ != nullptr) DestroyWindow(hide_bar_);
    DestroyWindow(window_);
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
  // `name` is that of a dialog in host_window.rc.
  HWND MakeWindow(const wchar_t* name) {
    const HWND made = CreateDialogParamW(GetModuleHandleW(nullptr), name, nullptr, &Procedure,
                                         reinterpret_cast<LPARAM>(this));
    if (made == nullptr) throw RuntimeError(ErrorNumber::kCannotCreateObject);
    return made;
  }

  // A check box for each right, after the label.
  void AddRights() {
    HWND before = GetDlgItem(window_, ID_RIGHTS_LABEL);
    RECT row = {8, 91, 208, 103};  // in dialog units
    int id = ID_FIRST_RIGHT;
    for (const quill::OperatorRight& right : OperatorRights()) {
      RECT place = row;
      MapDialogRect(window_, &place);
      const HWND box =
          CreateWindowExW(0, L"BUTTON", Wide(Text(right.name)),
                          WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_AUTOCHECKBOX, place.left,
                          place.top, place.right - place.left, place.bottom - place.top, window_,
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(id++)), nullptr, nullptr);
      SendMessageW(box, WM_SETFONT, static_cast<WPARAM>(SendMessageW(window_, WM_GETFONT, 0, 0)),
                   FALSE);
      // The Tab key follows the z-order.
      SetWindowPos(box, before, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
      before = box;
      OffsetRect(&row, 0, 13);
    }
  }

  [[nodiscard]] Text TextOf(int id) const { return WindowText(GetDlgItem(window_, id)); }
  [[nodiscard]] bool IsChecked(int id) const {
    return IsDlgButtonChecked(window_, id) == BST_CHECKED;
  }

  void TakeScenario(const Scenario& scenario) {
    relay_.emplace(
        root_, session_.storage(), session_.storage(), scenario, Concat({root_, kStartRecordPath}),
        [this](const Text& reply) { Deliver(reply); }, [this](const Text& line) { Tell(line); });
    SetDlgItemTextW(window_, ID_PROFILE, Wide(Decimal(scenario.index)));
    SetDlgItemTextW(window_, ID_TARGET, Wide(scenario.target));
    int id = ID_FIRST_RIGHT;
    for (const quill::OperatorRight& right : OperatorRights()) {
      const bool is_granted = std::ranges::any_of(scenario.rights, [&](const auto& granted) {
        return EqualIgnoringCase(granted.name, right.name) && granted.value == u"1";
      });
      CheckDlgButton(window_, id++, is_granted ? BST_CHECKED : BST_UNCHECKED);
    }
    CheckDlgButton(window_, ID_SUPER, scenario.super_administrator ? BST_CHECKED : BST_UNCHECKED);
  }

  void Open() {
    std::vector<Right> rights;
    int id = ID_FIRST_RIGHT;
    for (const quill::OperatorRight& right : OperatorRights()) {
      rights.push_back({Text(right.name), Right::Form::kText, IsChecked(id++) ? u"1" : u"0"});
    }
    const std::int32_t profile = ToInt32(TextOf(ID_PROFILE));
    const Text target = TextOf(ID_TARGET);
    Tell(Concat({u"host: opens profile ", Decimal(profile), u", target \"", target, u"\""}));
    session_.HostCall([&](PluginClient& plugin) {
      plugin.SetPrivis(rights, IsChecked(ID_SUPER));
      plugin.LoadInterface(profile, {u"", target});
    });
    SetFocus(GetDlgItem(window_, ID_OPEN));
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
    const HWND log = GetDlgItem(window_, ID_LOG);
    const LRESULT at = SendMessageW(log, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(line)));
    SendMessageW(log, LB_SETTOPINDEX, static_cast<WPARAM>(at), 0);
  }

  // The dialog disables this window while it is shown; a small one, made later, has the button
  // then.
  void Pump() {
    relay_->Pump();
    for (const Text& entry : session_.kit_watch().TakeLog()) Tell(Concat({u"error log: ", entry}));
    for (const Text& report : session_.kit_watch().TakeReports()) {
      Tell(Concat({u"error report: ", report}));
    }
    const bool waits = !IsWindowEnabled(window_);
    if (waits && hide_bar_ == nullptr) {
      hide_bar_ = MakeWindow(L"HIDE_BAR");
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
      case ID_OPEN:
        return Open();
      case ID_HIDE:
        return Hide();
      case ID_USE_SCENARIO:
        TakeScenario(ReadScenario(TextOf(ID_SCENARIO)));
        return Tell(u"host: the remote machine has another scenario");
      default:
        return;
    }
  }

  // A dialog procedure: true for what is dealt with here.
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, lparam);
    auto* const host = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(window, DWLP_USER));
    if (host == nullptr) return FALSE;
    try {
      if (message == WM_COMMAND && HIWORD(wparam) == BN_CLICKED) {
        host->Happened(LOWORD(wparam));
      } else if (message == WM_TIMER) {
        host->Pump();
      } else if (message == WM_CLOSE && window == host->window_) {
        host->is_closed_ = true;
        PostMessageW(window, WM_NULL, 0, 0);
      } else {
        return FALSE;
      }
    } catch (const UsageError& error) {
      host->Tell(Concat({u"host: ", error.message()}));
    } catch (const RuntimeError& error) {
      host->Tell(Concat({u"host: failed: ", error.description()}));
    } catch (const std::exception& error) {
      host->Tell(Concat({u"host: failed: ", FromUtf8(error.what())}));
    }
    return TRUE;
  }

  const std::function<void(const Text& line)> tell_;
  const Text root_;
  ContractLog& contract_;
  std::function<void(const Breach& breach)> told_before_;
  PluginSession session_;
  std::optional<Relay> relay_;
  const HWND window_ = MakeWindow(L"HOST_WINDOW");
  HWND hide_bar_ = nullptr;  // null while the dialog is not shown
  bool is_closed_ = false;
};

}  // namespace

void ShowHostWindow(const Text& scenario, const PluginLibrary& library, ContractLog& contract,
                    std::function<void(const Text& line)> tell) {
  HostWindow(scenario, library, contract, std::move(tell)).Run();
}

}  // namespace quill::host
