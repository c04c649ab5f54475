// The session menus of the two map lists, and the keys of their items.
#pragma once

namespace quill {

class frmrcBHDGS;

void ConnectRotationMenus(frmrcBHDGS& dialog);

}  // namespace quill
