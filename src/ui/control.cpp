// What all controls share: place, state, and the guarded way of native events to handlers.
#include "ui/control.h"

#include <algorithm>
#include <array>
#include <utility>

#include "ui/form.h"

namespace quill::ui {
namespace {

// What the fact of that place in the variant is about: the event that names the handler of a
// failure outside any handler, and the side of the control that the native one has changed itself.
struct FactTrait {
  TextView event;
  Changes side;
};
constexpr std::array<FactTrait, std::variant_size_v<Fact>> kFactTraits = {{
    {u"Change", Changes::kText},         // TextEdited
    {u"Click", Changes::kValue},         // Clicked
    {u"MouseDown", {}},                  // MousePressed
    {u"MouseUp", {}},                    // MouseReleased
    {u"MouseLost", {}},                  // MouseLost
    {u"Click", Changes::kSelection},     // ItemChosen
    {u"Click", Changes::kSelection},     // RowsSelected
    {u"DblClick", Changes::kSelection},  // RowDoubleClicked
    {u"Scroll", Changes::kTopRow},       // ScrolledTo
    {u"KeyPress", {}},                   // KeyPressed
    {u"KeyDown", {}},                    // KeyStruck
    {u"KeyUp", {}},                      // KeyReleased
    {u"KeyDown", {}},                    // AccessKeyStruck
    {u"GotFocus", {}},                   // FocusTaken
    {u"LostFocus", {}},                  // FocusLost
    {u"Menu", {}},                       // MenuAsked
    {u"Unload", {}},                     // CloseAsked
}};

// A release of a button that was down when a box closed. The press was meant for the box; its
// release would run the action of whatever lies below. `down` forgets each button that is pressed
// or released.
bool IsStray(const Fact& fact, std::int16_t& down) noexcept {
  const auto* const pressed = std::get_if<MousePressed>(&fact);
  const auto* const released = std::get_if<MouseReleased>(&fact);
  if (pressed == nullptr && released == nullptr) return false;
  const std::int16_t button = (pressed != nullptr ? pressed->event : released->event).button;
  const bool was_down = (down & button) != 0;
  down = static_cast<std::int16_t>(down & ~button);
  return was_down && released != nullptr;
}

}  // namespace

TextView KindName(ControlKind kind) noexcept {
  constexpr std::array<TextView, 12> kNames = {
      u"Form",    u"TabStrip", u"Frame",         u"Label", u"TextBox",    u"CheckBox",
      u"ListBox", u"ComboBox", u"CommandButton", u"Image", u"PictureBox", u"CommonDialog"};
  return kNames[static_cast<std::size_t>(kind)];
}

Control::Control(Form& form, ControlKind kind, Text name, TextView title)
    : caption(*this, Text(title)), form_(form), kind_(kind), name_(std::move(name)) {}

Control::~Control() = default;

void Control::BringToFront() {
  if (container_ == nullptr) return;
  auto& siblings = container_->children_;
  const auto place = std::find(siblings.begin(), siblings.end(), this);
  std::rotate(place, place + 1, siblings.end());
  Changed(Changes::kOrder);
}

void Control::SetBounds(const Bounds& bounds) {
  bounds_ = bounds;
  Changed(Changes::kBounds);
}

void Control::SetPlace(Twips left, Twips top) {
  SetBounds({left, top, bounds_.width, bounds_.height});
}

void Control::SetEnabled(bool enabled) {
  enabled_ = enabled;
  Changed(Changes::kEnabled);
  form_.ReachChanged(*this);
}

void Control::SetVisible(bool visible) {
  visible_ = visible;
  if (visible) BeforeShown();
  Changed(Changes::kVisible);
  form_.ReachChanged(*this);
}

void Control::SetTabIndex(int index) {
  tab_index_ = std::max(index, -1);
  Changed(Changes::kTabIndex);
}

bool Control::IsTabStop() const noexcept {
  const bool takes_keys = kind_ == ControlKind::kTabStrip ||
                          (kind_ >= ControlKind::kTextBox && kind_ <= ControlKind::kImage);
  return takes_keys && tab_index_ >= 0;
}

bool Control::IsReachable() const noexcept {
  for (const Control* control = this; control != nullptr; control = control->container_) {
    if (!control->visible() || !control->enabled_) return false;
  }
  return true;
}

bool Control::Happened(const Fact& fact) noexcept {
  std::shared_ptr<Form> form = form_.weak_from_this().lock();
  if (form == nullptr) return true;  // native controls report while they are destroyed
  if (IsStray(fact, form_.toolkit().buttons_of_closed_box)) return true;
  const KeepAlive alive(std::move(form));
  try {
    if (IsReachable()) {
      if (const auto* const struck = std::get_if<KeyStruck>(&fact)) return TakeKey(*struck);
      if (const auto* const access = std::get_if<AccessKeyStruck>(&fact)) {
        return form_.PressAccessKey(*access);
      }
      if (std::holds_alternative<FocusTaken>(fact)) form_.FocusArrived(*this);
      React(fact);
    } else if (const Changes side = kFactTraits[fact.index()].side; side.Any() && visible_) {
      // The native control shows what the operator did to it, which does not count.
      Changed(side);
    }
  } catch (...) {
    ReportUnhandled(fact);
  }
  return true;
}

void Control::React(const Fact& fact) {
  if (const auto* const pressed = std::get_if<MousePressed>(&fact)) {
    Raise(u"MouseDown", on_mouse_down, pressed->event);
  } else if (const auto* const released = std::get_if<MouseReleased>(&fact)) {
    Raise(u"MouseUp", on_mouse_up, released->event);
  } else if (std::holds_alternative<MouseLost>(fact)) {
    Raise(u"MouseLost", on_mouse_lost);
  }
}

bool Control::ReactToKey(const KeyStruck&) {
  return false;
}

bool Control::TakeKey(const KeyStruck& key) {
  if (const MenuItem* const item = FindStroke(key.stroke)) {
    Raise(u"KeyDown", item->choose);
    return true;
  }
  return ReactToKey(key) || form_.Navigate(*this, key.stroke);
}

const MenuItem* Control::FindStroke(KeyStroke stroke) const noexcept {
  for (const Control* control = this; control != nullptr; control = control->container_) {
    for (const MenuItem& item : control->menu) {
      if (item.stroke.key != 0 && item.stroke == stroke) return &item;
    }
  }
  return nullptr;
}

void Control::OpenMenu(Twips x, Twips y) {
  const int chosen = form_.toolkit().ShowMenu(*this, x, y);
  // The host may have closed the dialog while the menu was open.
  if (chosen < 0 || chosen >= std::ssize(menu) || !IsReachable()) return;
  Raise(u"Menu", menu[static_cast<std::size_t>(chosen)].choose);
}

void Control::Changed(Changes changes) {
  if (peer_ != nullptr) peer_->Sync(changes);
}

void Control::NoteFailure(const char16_t* event) noexcept {
  const std::exception_ptr failure = std::current_exception();
  if (form_.failure_ == failure) return;  // a handler further in has let it through
  form_.failure_ = failure;
  form_.failed_control_ = this;
  form_.failed_event_ = event;
}

void Control::ReportUnhandled(const Fact& fact) noexcept {
  try {
    const bool left_handler = std::exchange(form_.failure_, nullptr) == std::current_exception();
    HandlerNameBuffer buffer;
    const TextView handler = left_handler
                                 ? form_.failed_control_->HandlerName(form_.failed_event_, buffer)
                                 : HandlerName(kFactTraits[fact.index()].event, buffer);
    // A copy, as in Raise: the handler may replace itself.
    const auto told = form_.on_unhandled;
    if (told) told(CurrentRuntimeError(), handler);
  } catch (...) {
    // There is nobody left to tell.
  }
}

TextView Control::HandlerName(TextView event, HandlerNameBuffer& buffer) const noexcept {
  // A form's handlers are named after its kind, as in Form_Unload.
  const TextView owner = kind_ == ControlKind::kForm ? KindName(kind_) : TextView(name_);
  std::size_t length = 0;
  for (const TextView part : {owner, TextView(u"_"), event}) {
    length += part.copy(buffer.data() + length, buffer.size() - length);
  }
  return {buffer.data(), length};
}

void Control::MakePeer() {
  // It has no window until it is asked, and then one of the system's.
  if (kind_ == ControlKind::kFileDialog) return;
  peer_ = form_.toolkit().MakePeer(*this);
  try {
    Changed(Changes::Everything());
  } catch (...) {
    peer_.reset();
    throw;
  }
}

void Control::DestroyPeers() noexcept {
  // From the inside out: the children's windows lie in this one's.
  for (Control* child : children_) child->DestroyPeers();
  peer_.reset();
}

}  // namespace quill::ui
