// The host's memory kit (programmatic name rcMemKit.clsMemKit): an object that plug-ins create and
// hold, with nothing to call.
#pragma once

namespace quill::host {

class HostMemoryKit {};

}  // namespace quill::host
