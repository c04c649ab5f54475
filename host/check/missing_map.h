// Why a stored map reference finds no map.
#pragma once

#include "host/check/file_account.h"
#include "maps/map_lists.h"

namespace quill::host {

// The fields of the reference as the file has them. For people; says nothing about maps that are
// found.
[[nodiscard]] Text WhyMissing(const MapLists& maps, const TrialConditions& conditions,
                              TextView code, TextView flag, TextView file);

}  // namespace quill::host
