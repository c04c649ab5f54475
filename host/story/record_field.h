// Fields of the plug-in's information record, by name.
#pragma once

#include "plugin/plugin_record.h"
#include "support/text.h"

namespace quill::host {

// Truth values are "true" and "false", arrays their elements joined by "|", an empty variant is
// "empty". Fails with kMemberNotFound for a name that is no field.
[[nodiscard]] Text RecordField(const PLUGIN& record, TextView field);

}  // namespace quill::host
