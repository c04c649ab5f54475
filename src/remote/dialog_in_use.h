// The one dialog, created hidden when there is none, and held in memory while a host call works
// with it, because what the call sets off may unload it.
#pragma once

#include <memory>
#include <utility>

#include "dialog/frmrcBHDGS.h"
#include "dialog/session.h"
#include "ui/form.h"

namespace quill {

class DialogInUse {
 public:
  explicit DialogInUse(Session& session) : DialogInUse(TakeDialog(session)) {}

  [[nodiscard]] frmrcBHDGS& operator*() const noexcept { return dialog_; }
  [[nodiscard]] frmrcBHDGS* operator->() const noexcept { return &dialog_; }

 private:
  explicit DialogInUse(std::shared_ptr<frmrcBHDGS> dialog)
      : dialog_(*dialog), keep_alive_(std::move(dialog)) {}

  frmrcBHDGS& dialog_;
  ui::KeepAlive keep_alive_;
};

// A failed call must not create a dialog only to reset its pointer.
inline void RestorePointer(const Session& session) {
  if (session.dialog) session.dialog->pointer = ui::Pointer::kDefault;
}

}  // namespace quill
