// What the dialog does on its map page, and packing the start payload.
#pragma once

namespace quill::bench {

// Measures "payload/0", "payload/255", "catalogue", "available", "add/255", "remove/255",
// "refresh/255", "shuffle/255/ours" and "shuffle/255/std::shuffle".
void RegisterDialog();

}  // namespace quill::bench
