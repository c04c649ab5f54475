// Class factories, through which COM creates objects.
#pragma once

#include <functional>

#include "com/com_ptr.h"

namespace quill::com {

// `make` makes an object and asks it for the interface `wanted`; it may throw. The factory refuses
// aggregation.
[[nodiscard]] ComPtr<IClassFactory> MakeClassFactory(
    std::function<HRESULT(REFIID wanted, void** object)> make);

}  // namespace quill::com
