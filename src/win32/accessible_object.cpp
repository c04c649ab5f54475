// The answers to assistive tools: the model's where it knows better, the system's for all else.
#include "com/automation.h"

#include <oleacc.h>

#include <iterator>
#include <new>
#include <utility>

#include "com/com_ptr.h"
#include "com/object.h"
#include "support/compiler.h"
#include "ui/controls.h"
#include "ui/list_box.h"
#include "win32/window_peer.h"

namespace quill::win32 {
namespace {

using com::ComPtr;

// In the order of ui::ControlKind.
constexpr std::uint8_t kRoles[] = {
    ROLE_SYSTEM_DIALOG,     ROLE_SYSTEM_PAGETABLIST, ROLE_SYSTEM_GROUPING, ROLE_SYSTEM_STATICTEXT,
    ROLE_SYSTEM_TEXT,       ROLE_SYSTEM_CHECKBUTTON, ROLE_SYSTEM_LIST,     ROLE_SYSTEM_COMBOBOX,
    ROLE_SYSTEM_PUSHBUTTON, ROLE_SYSTEM_GRAPHIC,     ROLE_SYSTEM_GRAPHIC};

bool IsImageButton(const ui::Control& control) {
  return control.kind() == ui::ControlKind::kImage && control.tab_index() >= 0;
}

HRESULT Give(TextView text, BSTR* out) {
  *out = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()),
                           static_cast<UINT>(text.size()));
  return *out != nullptr ? S_OK : E_OUTOFMEMORY;
}

// Holds the window, not the peer: the tool may hold the object for longer than the window exists,
// and for longer than the host holds the library.
class AccessibleObject final : public com::Object<IAccessible> {
 public:
  AccessibleObject(HWND window, ComPtr<IAccessible> standard) noexcept
      : window_(window), system_(std::move(standard)) {}

  STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
    // How the children are told one by one is the system's business.
    const bool is_systems = IsEqualIID(wanted, QUILL_ID_OF(IEnumVARIANT)) ||
                            IsEqualIID(wanted, QUILL_ID_OF(IOleWindow));
    return is_systems ? system_->QueryInterface(wanted, object)
                      : Object::QueryInterface(wanted, object);
  }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override { return system_->GetTypeInfoCount(count); }
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
    return system_->GetTypeInfo(index, locale, info);
  }
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) override {
    return system_->GetIDsOfNames(reserved, names, count, locale, ids);
  }
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* failure, UINT* wrong) override {
    return system_->Invoke(id, reserved, locale, flags, arguments, result, failure, wrong);
  }

  STDMETHODIMP get_accName(VARIANT child, BSTR* name) override {
    const ui::Control* const control = Own(child);
    return control != nullptr && !control->accessible_name.empty()
               ? Give(control->accessible_name, name)
               : system_->get_accName(child, name);
  }
  STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override {
    const ui::Control* const control = Own(child);
    switch (control != nullptr ? control->kind() : ui::ControlKind::kForm) {
      case ui::ControlKind::kTextBox:
        return Give(static_cast<const ui::TextBox*>(control)->text(), value);
      case ui::ControlKind::kComboBox:
      case ui::ControlKind::kListBox:
        return Give(static_cast<const ui::Selector*>(control)->text(), value);
      default:
        return system_->get_accValue(child, value);
    }
  }
  STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override {
    const ui::Control* const control = Own(child);
    if (control == nullptr) return system_->get_accRole(child, role);
    role->vt = VT_I4;
    role->lVal = IsImageButton(*control) ? ROLE_SYSTEM_PUSHBUTTON
                                         : kRoles[static_cast<std::size_t>(control->kind())];
    return S_OK;
  }
  STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override {
    const HRESULT result = system_->get_accState(child, state);
    const ui::Control* const control = Own(child);
    if (control == nullptr || FAILED(result) || state->vt != VT_I4) return result;
    if (control->kind() == ui::ControlKind::kCheckBox) {
      const bool checked = static_cast<const ui::CheckBox*>(control)->value() == 1;
      state->lVal = (state->lVal & ~STATE_SYSTEM_CHECKED) | (checked ? STATE_SYSTEM_CHECKED : 0);
    }
    return S_OK;
  }
  STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override {
    const ui::Control* const control = Own(child);
    if (control == nullptr || control->access_key == 0) {
      return system_->get_accKeyboardShortcut(child, shortcut);
    }
    const char16_t text[] = {u'A', u'l', u't', u'+', control->access_key};
    return Give({text, std::size(text)}, shortcut);
  }
  STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override {
    const ui::Control* const control = Own(child);
    return control != nullptr && IsImageButton(*control)
               ? Give(u"Press", action)
               : system_->get_accDefaultAction(child, action);
  }
  STDMETHODIMP accDoDefaultAction(VARIANT child) override {
    const ui::Control* const control = Own(child);
    if (control == nullptr || !IsImageButton(*control)) return system_->accDoDefaultAction(child);
    // Posted, because the action may show a box, which the tool must not wait for.
    return PostMessageW(window_, WM_KEYDOWN, VK_RETURN, 1) ? S_OK : E_FAIL;
  }

  STDMETHODIMP get_accParent(IDispatch** parent) override { return system_->get_accParent(parent); }
  STDMETHODIMP get_accChildCount(LONG* count) override { return system_->get_accChildCount(count); }
  STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) override {
    return system_->get_accChild(child, object);
  }
  STDMETHODIMP get_accDescription(VARIANT child, BSTR* text) override {
    return system_->get_accDescription(child, text);
  }
  STDMETHODIMP get_accHelp(VARIANT child, BSTR* text) override {
    return system_->get_accHelp(child, text);
  }
  STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
    return system_->get_accHelpTopic(file, child, topic);
  }
  STDMETHODIMP get_accFocus(VARIANT* child) override { return system_->get_accFocus(child); }
  STDMETHODIMP get_accSelection(VARIANT* children) override {
    return system_->get_accSelection(children);
  }
  STDMETHODIMP accSelect(LONG flags, VARIANT child) override {
    return system_->accSelect(flags, child);
  }
  STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                           VARIANT child) override {
    return system_->accLocation(left, top, width, height, child);
  }
  STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) override {
    return system_->accNavigate(direction, start, end);
  }
  STDMETHODIMP accHitTest(LONG left, LONG top, VARIANT* child) override {
    return system_->accHitTest(left, top, child);
  }
  STDMETHODIMP put_accName(VARIANT, BSTR) override { return E_NOTIMPL; }  // withdrawn by the system
  STDMETHODIMP put_accValue(VARIANT child, BSTR value) override {
    return system_->put_accValue(child, value);
  }

 private:
  // The control, when it is what is asked about; null for its children, and once its window is
  // gone.
  [[nodiscard]] const ui::Control* Own(const VARIANT& child) const noexcept {
    const bool is_self = child.vt == VT_I4 && child.lVal == CHILDID_SELF;
    const WindowPeer* const peer = is_self ? WindowPeer::Of(window_) : nullptr;
    return peer != nullptr ? &peer->control() : nullptr;
  }

  HWND window_;
  ComPtr<IAccessible> system_;
};

}  // namespace

LRESULT WindowPeer::AnswerAssistiveTool(WPARAM wparam) const noexcept {
  // Loaded only where a tool asks; it stays, as the tool will ask again.
  static HMODULE support = nullptr;
  if (support == nullptr) support = LoadLibraryW(L"oleacc.dll");
  if (support == nullptr) return 0;
  const auto create_standard = reinterpret_cast<decltype(&CreateStdAccessibleObject)>(
      reinterpret_cast<void*>(GetProcAddress(support, "CreateStdAccessibleObject")));
  const auto answer_with = reinterpret_cast<decltype(&LresultFromObject)>(
      reinterpret_cast<void*>(GetProcAddress(support, "LresultFromObject")));
  if (create_standard == nullptr || answer_with == nullptr) return 0;
  ComPtr<IAccessible> standard;
  if (FAILED(create_standard(window_, OBJID_CLIENT, QUILL_ID_OF(IAccessible),
                             standard.ReceiveVoid()))) {
    return 0;
  }
  auto* const object = new (std::nothrow) AccessibleObject(window_, std::move(standard));
  if (object == nullptr) return 0;
  const LRESULT answer = answer_with(QUILL_ID_OF(IAccessible), wparam, object);
  // The answer has taken a reference of its own.
  object->Release();
  return answer;
}

}  // namespace quill::win32
