// What opening the dialog costs beside the same controls made from a bare dialog template.
#pragma once

#include <algorithm>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <vector>

#include "tests/win32/native_bench.h"

namespace quill {

// A dialog template with the windows of another dialog: the same classes, styles, texts and places.
class TemplateOf {
 public:
  explicit TemplateOf(HWND form) {
    const UINT units = static_cast<UINT>(GetDialogBaseUnits());
    base_x_ = static_cast<int>(LOWORD(units));
    base_y_ = static_cast<int>(HIWORD(units));
    RECT inside = {};
    GetClientRect(form, &inside);
    PutLong(WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN | DS_SETFONT);
    PutLong(0);
    Put(0);  // the number of controls, when it is known
    // Place and size; no menu, the usual class, no caption.
    for (const int number : {0, 0, UnitsX(inside.right), UnitsY(inside.bottom), 0, 0, 0}) {
      Put(static_cast<WORD>(number));
    }
    Put(8);  // points
    PutText(u"MS Shell Dlg");
    EnumChildWindows(form, &AddChild, reinterpret_cast<LPARAM>(this));
    words_[4] = count_;
  }
  [[nodiscard]] const DLGTEMPLATE* get() const {
    return reinterpret_cast<const DLGTEMPLATE*>(words_.data());
  }
  [[nodiscard]] int count() const { return count_; }

 private:
  static BOOL CALLBACK AddChild(HWND child, LPARAM self) {
    reinterpret_cast<TemplateOf*>(self)->Add(child);
    return TRUE;
  }
  void Add(HWND child) {
    if (words_.size() % 2 != 0) Put(0);
    RECT place = {};
    GetWindowRect(child, &place);
    MapWindowPoints(nullptr, GetAncestor(child, GA_ROOT), reinterpret_cast<POINT*>(&place), 2);
    PutLong(static_cast<DWORD>(GetWindowLongPtrW(child, GWL_STYLE)));
    PutLong(static_cast<DWORD>(GetWindowLongPtrW(child, GWL_EXSTYLE)));
    Put(static_cast<WORD>(UnitsX(place.left)));
    Put(static_cast<WORD>(UnitsY(place.top)));
    Put(static_cast<WORD>(UnitsX(place.right - place.left)));
    Put(static_cast<WORD>(UnitsY(place.bottom - place.top)));
    Put(static_cast<WORD>(GetDlgCtrlID(child)));
    wchar_t name[64] = {};
    GetClassNameW(child, name, 64);
    PutText(win32::FromWide(name));
    PutText(win32::WindowText(child));
    Put(0);
    ++count_;
  }
  [[nodiscard]] int UnitsX(long pixels) const {
    return MulDiv(static_cast<int>(pixels), 4, base_x_);
  }
  [[nodiscard]] int UnitsY(long pixels) const {
    return MulDiv(static_cast<int>(pixels), 8, base_y_);
  }
  void Put(WORD word) { words_.push_back(word); }
  void PutLong(DWORD number) {
    Put(LOWORD(number));
    Put(HIWORD(number));
  }
  void PutText(const Text& text) {
    words_.insert(words_.end(), text.begin(), text.end());
    Put(0);
  }

  std::vector<WORD> words_;
  WORD count_ = 0;
  int base_x_ = 0;
  int base_y_ = 0;
};

inline INT_PTR CALLBACK DoNothing(HWND, UINT, WPARAM, LPARAM) {
  return FALSE;
}

template <class Work>
double Milliseconds(const Work& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin)
      .count();
}

inline double Median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
  return values[values.size() / 2];
}

// Medians; the ratio is that of the pairs, which were taken one right after the other.
struct OpeningSpeed {
  double dialog_ms;
  double template_ms;
  double ratio;
};

inline OpeningSpeed MeasureOpening(NativeBench& bench, int pairs) {
  std::unique_ptr<TemplateOf> bare;
  bench.Show([&](frmrcBHDGS&) { bare = std::make_unique<TemplateOf>(bench.robot.FormWindow()); });
  if (bare->count() < 80) throw std::runtime_error("the template lacks controls");

  std::vector<double> ratios;
  std::vector<double> dialogs;
  std::vector<double> templates;
  for (int pair = 0; pair < pairs; ++pair) {
    bench.session.dialog.reset();
    DrainMessages();
    double opening = 0;
    {
      const host::Heartbeat heartbeat([] {});
      opening = Milliseconds([&] {
        const auto dialog = TakeDialog(bench.session);
        bench.toolkit->Defer([&] { bench.session.dialog->Hide(); });
        dialog->ShowModal();
      });
    }
    HWND window = nullptr;
    const double creating = Milliseconds([&] {
      window = CreateDialogIndirectParamW(nullptr, bare->get(), nullptr, &DoNothing, 0);
      ShowWindow(window, SW_SHOW);
      UpdateWindow(window);
      ShowWindow(window, SW_HIDE);
    });
    if (window == nullptr) throw std::runtime_error("the template cannot be shown");
    DestroyWindow(window);
    ratios.push_back(opening / creating);
    dialogs.push_back(opening);
    templates.push_back(creating);
  }
  return {Median(dialogs), Median(templates), Median(ratios)};
}

}  // namespace quill
