// The field of a game-settings reply that lists the remote machine's own maps.
#pragma once

#include "maps/server_map_list.h"
#include "support/code_page.h"
#include "support/text.h"

namespace quill {

// The separator of lists inside a field.
inline constexpr TextView kListSeparator = u"|";

// Appends the maps of `field`, entries in Base64, to `maps`; entries of blanks only are skipped.
// Fails as ServerMapList::AppendEncodedEntries does; the maps before that entry stay in the list.
void ReadServerMaps(TextView field, const CodePage& code_page, ServerMapList& maps);

}  // namespace quill
