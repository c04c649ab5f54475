// A fresh seed for every click, and the new order taken over when it is complete.
#include "dialog/shuffle_rotation.h"

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "dialog/frmrcBHDGS.h"
#include "maps/shuffle.h"
#include "support/trap.h"

namespace quill {

void ShuffleRotation(frmrcBHDGS& dialog) {
  Session& session = dialog.session();
  Trapped(session.reporter, u"cmdRandomize", [&](Line& at) {
    SelectedMapList& rotation = session.maps.selected;
    if (rotation.Count() < 2) return;
    std::optional<RandomSource> random;
    std::vector<SelectedMap> shuffled;
    at(), random.emplace(session.clock.Ticks());
    at(), shuffled = Shuffled(rotation.maps(), std::ref(*random));
    at(), rotation.Replace(std::move(shuffled));
    at(), dialog.BuildMapList();
  });
}

}  // namespace quill
