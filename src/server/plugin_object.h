// Makes the object that the host creates, and the record that it hands out.
#pragma once

#include "plugin/plugin_record.h"
#include "server/plugin_interface.h"

namespace quill::com {

// Makes the object, bound early or late, and asks it for `wanted`. Start-up has run when it exists.
[[nodiscard]] HRESULT MakePluginObject(REFIID wanted, void** object);

// Fills `record`, whose former contents are overwritten, not freed. On failure it is left empty.
void FillRecord(const PLUGIN& data, PluginRecord& record);
// Frees what the record holds and empties it.
void ClearRecord(PluginRecord& record) noexcept;

}  // namespace quill::com
