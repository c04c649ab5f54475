// Long runs against the real library, each judged by what it leaves behind in this process.
#pragma once

#include <functional>

#include "host/win32/contract_log.h"
#include "support/text.h"

namespace quill::host {

// On a thread in a single-threaded apartment, in the host's temporary folder, with the library at
// `path`, which nothing has loaded yet:
// - `cycles` times the library is loaded, an object is created, called and released, and the
//   library is asked whether it can be unloaded, and unloaded;
// - `cycles` times the dialog is opened, filled by a reply and by the operator, and closed;
// - ten times as many replies, one in a hundred of them damaged, are delivered to an open dialog.
// Each run and each resource that grew is told in a line. True when none grew and all that the host
// and the operator did came out as it should.
bool Endure(const Text& path, int cycles, ContractLog& contract,
            const std::function<void(const Text& line)>& tell);

}  // namespace quill::host
