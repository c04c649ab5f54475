// Pictures of the dialog's tabs, one PNG file each.
#pragma once

#include <filesystem>
#include <functional>

#include "support/text.h"

namespace quill::host {

class DialogPictures {
 public:
  // The folder is made when it is missing.
  explicit DialogPictures(const Text& folder) : folder_(folder) {}

  // Turns to each tab, takes it and turns back; "empty" leaves empty-1-game-settings.png and so on,
  // and the same in high contrast when asked for. `tell` is given a line for each file.
  void Take(const Text& moment, bool high_contrast,
            const std::function<void(const Text& line)>& tell) const;

 private:
  void TakeTabs(const Text& moment, const std::function<void(const Text& line)>& tell) const;

  std::filesystem::path folder_;
};

}  // namespace quill::host
