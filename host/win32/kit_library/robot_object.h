// A robot operator for hosts that are scripts: it works at the plug-in's dialog, and makes calls,
// from inside the dialog's message loop, as a host's own windows and timers would. It belongs to
// the thread that made it; there is one at a time.
#pragma once

#include "com/automation.h"
#include "com/com_ptr.h"
#include "support/text.h"

namespace quill::host {

inline constexpr TextView kRobotProgId = u"rcRobot.clsRobot";

// Members, called by name:
//   Plan(object, member, arguments...)  one call for later: when the dialog is shown and no box is
//       open, the planned calls are made in turn, and when none is left the dialog is closed. An
//       empty member is the object's default one. A call that fails is noted among the boxes.
//   Press(control) PressWith(control, button)  the mouse on an image button: 1 left, 2 right,
//       4 middle
//   Click(control) Tab(caption) Choose(control, item) Type(control, text) Paste(control, text)
//   ScrollTo(control, row) SelectRow(control, row) DoubleClickRow(control, row) Close()
//   Read(control, property)    what a window shows: text, enabled, count, item 0, index ...
//   Picture(path)              the dialog as a PNG file
//   IsShown()                  whether the dialog is shown
//   AnswerFile(path)           for the next file dialog; one without an answer is cancelled
//   Boxes()                    the message boxes since the last call, one a line: "caption: text",
//       the text's own lines joined by " / "; the robot acknowledges every box
//   RefuseNextText()           lets the plug-in's next request for a string fail, as when memory is
//       short
// Fails with error 429 while another robot lives.
[[nodiscard]] com::ComPtr<IDispatch> MakeRobotObject();

}  // namespace quill::host
