#include "win32/native_menu.h"

#include <memory>

#include "win32/native_text.h"

namespace quill::win32 {

int ChooseFromMenu(HWND owner, POINT place, const std::vector<ui::MenuItem>& items) {
  const std::unique_ptr<std::remove_pointer_t<HMENU>, decltype(&DestroyMenu)> menu(
      CreatePopupMenu(), &DestroyMenu);
  if (menu == nullptr) return -1;
  UINT_PTR command = 0;
  for (const ui::MenuItem& item : items) {
    if (item.begins_group) AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    const Text text = Concat({item.caption, u"\t", item.key_name});
    AppendMenuW(menu.get(), MF_STRING | (item.is_usable() ? 0u : MF_GRAYED), ++command, Wide(text));
  }
  return static_cast<int>(TrackPopupMenuEx(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x,
                                           place.y, owner, nullptr)) -
         1;
}

}  // namespace quill::win32
