// The host's memory kit: an object that plug-ins create and hold, with nothing to call.
#pragma once

#include "plugin/host_services.h"

namespace quill::host {

class HostMemoryKit final : public MemoryKit {};

}  // namespace quill::host
