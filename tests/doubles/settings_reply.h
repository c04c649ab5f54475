// A game-settings reply as a remote machine sends it, open to changes field by field.
#pragma once

#include <string_view>
#include <vector>

#include "remote/compressed_frame.h"
#include "support/base64.h"
#include "support/text.h"
#include "tests/doubles/recording_file_kit.h"

namespace quill {

// ASCII only.
[[nodiscard]] inline Text Base64(std::string_view text) {
  Text encoded;
  EncodeBase64({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, encoded);
  return encoded;
}

[[nodiscard]] inline Text Joined(const std::vector<Text>& parts, TextView separator) {
  Text joined;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i != 0) joined += separator;
    joined += parts[i];
  }
  return joined;
}

// What RemoteData is handed for a payload, compressed as the recording file kit does.
[[nodiscard]] inline Text FrameOf(TextView payload) {
  RecordingFileKit kit;
  return EncodeFrame(payload, kit);
}

struct SettingsReply {
  std::vector<Text> fields = {
      Base64("welcome"),          // 0 host message
      Base64("Night Server"),     // 1 server name
      Base64("de"),               // 2 country
      Base64("secret"),           // 3 game password
      u"2",                       // 4 session type
      u"24",                      // 5 maximum players
      u"2",                       // 6 start delay
      u"1",                       // 7 loop maps
      u"25",                      // 8 kills and score
      u"30",                      // 9 zone timer
      u"30",                      // 10 respawn time
      u"40",                      // 11 time limit
      u"1",                       // 12 Nova login
      u"1",                       // 13 custom skins
      u"0",                       // 14 windowed
      u"1",                       // 15 dedicated
      Base64("None|Team Sabre"),  // 16 mods
      Base64("blue"),             // 17 blue password
      Base64("red"),              // 18 red password
      u"",                        // 19 not used
      u"1",                       // 20 minimum ping check
      u"10",                      // 21 minimum ping
      u"0",                       // 22 maximum ping check
      u"900",                     // 23 maximum ping
      u"17500",                   // 24 port
      Base64("Shadow Valley <sv.bms>5") + u"|" + Base64("Dune <dune.bms>0"),  // 25 own maps
      u"1",           // 26 fixed session type
      u"8",           // 27 fixed maximum players
      u"Team Sabre",  // 28 fixed mod
      u"0",           // 29 fixed windowed
      u"0",           // 30 fixed dedicated
      u"0",           // 31 fixed custom skins
      u"0",           // 32 fixed Nova login
  };

  SettingsReply& Set(std::size_t field, Text value) {
    fields.at(field) = std::move(value);
    return *this;
  }
  SettingsReply& Keep(std::size_t count) {
    fields.resize(count);
    return *this;
  }
  [[nodiscard]] Text Frame() const { return FrameOf(Joined(fields, u"_")); }
};

}  // namespace quill
