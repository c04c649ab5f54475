// What always holds for the whole plug-in without a screen, whatever the host, the operator, the
// remote side or a failing service have done: the lists agree with each other and with what is
// shown, every choice lies inside its list, the dialog is whole or gone.
//
// To be asked between two steps of a script: before and after a host call, and from the pump
// between two gestures of a modal display; not while a message box or a file dialog is open, when
// an operation may be half done.
#pragma once

#include <vector>

#include "headless/headless_toolkit.h"
#include "plugin/mdlBHDGS.h"
#include "support/text.h"

namespace quill::host {

// What can be expected beyond that which always holds. Each may be taken back where an operation
// has the right to leave it so.
struct Expectations {
  // lstSelMaps and lblMapCnt show the rotation. A load that failed half-way and a second opening
  // leave the older view standing until the next refresh.
  bool rotation_is_shown = true;
  // lstAvlMaps, once filled, shows the maps of the game type in txtGametype. A reply that failed
  // after it brought new server maps, a game type that only a settings file names and a server map
  // without a number for its game type leave it older.
  bool available_maps_are_shown = true;
  // Native controls show what the model holds, and the pointer over all windows is the default one
  // without a dialog. Not to be expected once a call of the toolkit has failed.
  bool toolkit_is_whole = true;
};

// What does not hold, in words, for example "lstSelMaps: row 3 is not what the rotation holds";
// empty when all is well. Takes time proportional to the length of the lists.
[[nodiscard]] std::vector<Text> BrokenInvariants(const mdlBHDGS& module,
                                                 const headless::HeadlessToolkit& toolkit,
                                                 const Expectations& expected = {});

}  // namespace quill::host
