// Batch by batch, each entry decoded where it will stay.
#include "remote/server_maps_field.h"

#include <array>
#include <span>

#include "support/text_pieces.h"

namespace quill {

void ReadServerMaps(TextView field, const CodePage& code_page, ServerMapList& maps) {
  maps.Reserve(field.size());
  std::array<TextView, 64> batch;
  std::size_t count = 0;
  for (PieceCursor entries(field, kListSeparator); entries.Next(batch[count]);) {
    if (IsBlank(batch[count]) || ++count < batch.size()) continue;
    maps.AppendEncodedEntries(batch, code_page);
    count = 0;
  }
  maps.AppendEncodedEntries(std::span(batch).first(count), code_page);
}

}  // namespace quill
