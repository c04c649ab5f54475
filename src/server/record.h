// The information record as automation carries it.
#pragma once

#include "plugin/plugin_record.h"
#include "server/plugin_interface.h"

namespace quill::com {

// Fills `record`, whose former contents are overwritten, not freed. On failure it is left empty.
void FillRecord(const PLUGIN& data, PluginRecord& record);
// Frees what the record holds and empties it.
void ClearRecord(PluginRecord& record) noexcept;

}  // namespace quill::com
