// The native drop-down list.
#include "ui/controls.h"
#include "win32/drawing.h"
#include "win32/native_text.h"
#include "win32/peers.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {
namespace {

constexpr ui::Twips kDroppedHeight = 2400;

class ComboBoxPeer final : public PeerOf<ui::ComboBox> {
 public:
  using PeerOf::PeerOf;

  void OnCommand(WORD notification) override {
    if (notification != CBN_SELCHANGE && notification != CBN_CLOSEUP) return;
    // Escape takes back what was chosen with the arrow keys, and is only heard as the closing.
    const int index = static_cast<int>(Send(CB_GETCURSEL));
    if (notification == CBN_CLOSEUP && index == model_.ListIndex()) return;
    Tell(ui::ItemChosen{index});
  }

  [[nodiscard]] Style GetStyle() const override {
    return {L"COMBOBOX", nullptr, CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP};
  }

  // With the height of the list dropped down, as the class wants it.
  [[nodiscard]] RECT Place() const override {
    RECT place = WindowPeer::Place();
    place.bottom += toolkit().scale().Pixels(kDroppedHeight);
    return place;
  }

  void Show(ui::Changes changes) override {
    if (changes.Has(ui::Changes::kBounds)) FitClosedHeight();
    const bool all_new = changes.Has(ui::Changes::kRows);
    if (all_new || changes.Has(ui::Changes::kRowsAdded)) ShowItems(all_new);
    if (changes.Has(ui::Changes::kSelection) && Send(CB_GETCURSEL) != model_.ListIndex()) {
      Send(CB_SETCURSEL, static_cast<WPARAM>(model_.ListIndex()));
    }
  }

 private:
  // The class makes itself as high as its font wants. What can be told to it is the height of its
  // item, to which it adds a margin that differs from system to system.
  void FitClosedHeight() {
    static int known_margin = 6;
    const RECT wanted = WindowPeer::Place();
    const int height = wanted.bottom - wanted.top;
    const auto closed_height = [&] {
      RECT closed = {};
      GetWindowRect(window(), &closed);
      return static_cast<int>(closed.bottom - closed.top);
    };
    for (int attempt = 0; attempt < 2 && closed_height() != height; ++attempt) {
      const int item = height - known_margin;
      if (item <= 0) return;
      Send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), item);
      known_margin = closed_height() - item;
    }
  }

  void ShowItems(bool all_new) {
    if (all_new && Send(CB_GETCOUNT) > 0) Send(CB_RESETCONTENT);
    if (Send(CB_GETCOUNT) == model_.Count()) return Repaint();
    Send(WM_SETREDRAW, FALSE);  // each item would be drawn for itself
    for (int index = static_cast<int>(Send(CB_GETCOUNT)); index < model_.Count(); ++index) {
      Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(Text(model_.Item(index)))));
    }
    // The open list is never narrower than the closed one, whatever it is told.
    const int around = GetSystemMetrics(SM_CXVSCROLL) + 4 * GetSystemMetrics(SM_CXEDGE);
    Send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(WidestRow(window(), model_, 0) + around));
    Send(WM_SETREDRAW, TRUE);
    Repaint();
  }
};

}  // namespace

PeerMaker* const kMakeComboBoxPeer = &MakePeerOf<ComboBoxPeer>;

}  // namespace quill::win32
