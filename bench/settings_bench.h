// Saving and loading the host settings, with the reference host's file kit over files in memory.
#pragma once

namespace quill::bench {

// Measures "settings/save" and "settings/load", with a rotation of 255 maps.
void RegisterSettings();

}  // namespace quill::bench
