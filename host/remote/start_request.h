// A start request taken apart and checked, field by field. Decoding never fails: whatever is wrong
// becomes a finding, and what can be understood is kept.
#pragma once

#include <cstdint>
#include <vector>

#include "host/remote/wire.h"
#include "maps/selected_map_list.h"
#include "support/text.h"

namespace quill::host {

struct StartField {
  TextView name;  // as an operator knows the option
  Text sent;      // as it stands in the payload
  Text meaning;   // for people; empty when it could not be understood
};

// One of the options in the flags field.
struct StartFlag {
  std::uint32_t bit = 0;
  TextView name;
  bool is_set = false;  // the bit
  bool is_on = false;   // the option
};

struct StartFinding {
  // Errors make a request one that cannot be started; the rest are warnings.
  bool is_error = false;
  Text text;
};

struct StartRequest {
  std::vector<StartField> fields;  // in order, as many as the payload has; the mod without the maps
  std::vector<StartFlag> flags;    // all of them, when the flags could be read
  Text mod;
  std::vector<SelectedMap> maps;  // in the order of the rotation; what is no map is left out
  std::vector<StartFinding> findings;

  [[nodiscard]] bool HasErrors() const noexcept;
  void AddError(Text text) { findings.push_back({true, std::move(text)}); }
  void AddWarning(Text text) { findings.push_back({false, std::move(text)}); }
};

// `own_maps` are the machine's own, null where they are not known. A map that neither the game nor
// the machine has is a warning.
[[nodiscard]] StartRequest DecodeStartPayload(TextView payload,
                                              const std::vector<SelectedMap>* own_maps = nullptr);

// Requests told to people: the start record and the output of "quillhost decode". Lines end in LF.
// - Command, target and profile.
[[nodiscard]] Text ExplainEnvelope(const RequestEnvelope& envelope);
// - Every option with what was sent and what it means, the flags bit by bit, every map in order
//   with its game type, and the findings.
[[nodiscard]] Text ExplainStartRequest(const StartRequest& request);

}  // namespace quill::host
