// The seam to a native windowing toolkit: what the control model asks of it. Facts come back up
// through Control::Happened.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "support/message_box.h"
#include "support/text.h"
#include "ui/changes.h"
#include "ui/geometry.h"

namespace quill::ui {

class Control;
class Form;
class PictureBox;
class TabStrip;

enum class Pointer : std::uint8_t { kDefault, kBusy };

// The native side of one control. It shows what its control holds and decides nothing: no value is
// ever read back from it.
class Peer {
 public:
  virtual ~Peer() = default;
  // Shows what has changed; reads the rest from its control. The first call, right after creation,
  // has every bit set.
  virtual void Sync(Changes changes) = 0;
};

// A picture that controls show; shared, immutable.
class Picture {
 public:
  virtual ~Picture() = default;
  // Full path of the file it came from.
  [[nodiscard]] virtual TextView path() const noexcept = 0;
};
using PicturePtr = std::shared_ptr<const Picture>;

struct Metrics {
  std::int32_t dots_per_inch = 96;  // horizontally
  Twips list_row_height = 195;
};

struct FileDialogRequest {
  bool save = false;  // otherwise open
  Text title;
  Text initial_folder;
  Text filter;  // description|pattern
  Text file_name;
  std::uint32_t flags = 0;  // the platform's file-dialog flags
};

class Toolkit : public MessageBoxes {
 public:
  // The mouse buttons that were down when a message box, file dialog or menu closed last, their
  // numbers added up. The model takes out what has been pressed or released since.
  std::int16_t buttons_of_closed_box = 0;

  // Makes the native counterpart of `control`, inside that of its container. The control outlives
  // its peer. Never asked for a file dialog, which has no counterpart.
  virtual std::unique_ptr<Peer> MakePeer(Control& control) = 0;

  [[nodiscard]] virtual Metrics GetMetrics() const = 0;

  // Reads a GIF picture. Fails with kFileNotFound, or kInvalidPicture for a file that is no
  // picture.
  virtual PicturePtr ReadPicture(TextView path) = 0;

  // Shows a modal file dialog owned by `owner`; the full paths that were picked, none on cancel.
  virtual std::vector<Text> ShowFileDialog(Form& owner, const FileDialogRequest& request) = 0;

  // Shows the menu of `control` at that place of it, until an item is chosen that is usable: its
  // place among the items. -1: none was.
  virtual int ShowMenu(Control& control, Twips x, Twips y) = 0;

  // The pointer over all windows of the plug-in, above that of each form.
  virtual void SetScreenPointer(Pointer pointer) = 0;

  // Shows `form` (its peer is already visible) without an owner and returns after EndModal. The
  // other windows of the thread take no input meanwhile; events, and host calls, still come in.
  // A form that was hidden can be shown again, by an event of the display that has not returned
  // yet: EndModal ends the innermost display of `form` that has not been ended, also when it is
  // only about to begin. It is called just before the form's peer hides, so that the thread's other
  // windows are usable again by then.
  virtual void RunModal(Form& form) = 0;
  virtual void EndModal(Form& form) = 0;

  // Runs `task` later on this thread, when no native event of the plug-in is being handled any
  // more; at the latest when the toolkit is destroyed.
  virtual void Defer(std::function<void()> task) = 0;

  // Starts and stops the drawing of the strip's body in the box's background colour instead of
  // white. The box has its persistent image.
  virtual void HookTabBackground(TabStrip& strip, PictureBox& colour_source) = 0;
  virtual void UnhookTabBackground(TabStrip& strip) = 0;
};

}  // namespace quill::ui
