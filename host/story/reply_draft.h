// The game-settings reply that a story is about to let the host hand in, open to changes by the
// names of its settings and by field.
#pragma once

#include <optional>
#include <vector>

#include "host/remote/scenario.h"
#include "support/text.h"

namespace quill::host {

// Each change fails with a RuntimeError that says what would be right.
class ReplyDraft {
 public:
  // A machine called "Story Server" with the mods "None" and "Team Sabre", no maps of its own, no
  // fixed values, and every other setting at its initial value.
  ReplyDraft();

  void Set(TextView setting, TextView value);
  void SetFixed(TextView setting, TextView value);  // from now on the reply has fixed values
  void SetMods(std::vector<Text> mods) { scenario_.mods = std::move(mods); }
  void AddMap(TextView game_type, TextView name, TextView file);
  void RemoveMaps() { scenario_.maps.clear(); }
  // The field exactly so, right or wrong.
  void SetRaw(int field, Text text);
  // The field as these texts, each in Base64, joined by "|".
  void SetEncoded(int field, const std::vector<Text>& texts);
  // The reply is cut or filled up with empty fields to this many.
  void SetFieldCount(int count);

  // In its compressed frame.
  [[nodiscard]] Text Frame() const;

 private:
  Scenario scenario_;
  std::optional<int> field_count_;
};

}  // namespace quill::host
