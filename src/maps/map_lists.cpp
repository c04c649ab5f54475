#include "maps/map_lists.h"

#include "support/number_text.h"

namespace quill {
namespace {

// Codes compare as numbers; nearly all are one digit, which needs no parsing.
bool IsCode(TextView code, std::int16_t game_type) {
  if (code.size() == 1 && code.front() >= u'0' && code.front() <= u'9') {
    return code.front() - u'0' == game_type;
  }
  return ToInt16(code) == game_type;
}

}  // namespace

void MapLists::ForEachOfGameType(
    std::int16_t game_type, const std::function<void(TextView name, TextView file)>& visit) const {
  for (int position = 1; position <= catalogue.Count(); ++position) {
    if (IsCode(catalogue.MapGameTypes(position), game_type)) {
      visit(catalogue.MapNames(position), catalogue.MapFiles(position));
    }
  }
  for (int position = 1; position <= server.Count(); ++position) {
    if (IsCode(server.ServerMapGameTypes(position), game_type)) {
      visit(server.ServerMapNames(position), server.ServerMapFiles(position));
    }
  }
}

Text MapLists::GetMapDisplayName(TextView file_name, TextView game_type,
                                 bool from_server_list) const {
  const TextView file = TrimBlanks(file_name);
  if (from_server_list) {
    const int position = server.PositionOfFile(file, game_type);
    return position == 0 ? Text() : Text(TrimBlanks(server.ServerMapNames(position)));
  }
  for (int position = 1; position <= catalogue.Count(); ++position) {
    if (catalogue.MapFiles(position) == file && catalogue.MapGameTypes(position) == game_type) {
      return Text(TrimBlanks(catalogue.MapNames(position)));
    }
  }
  return Text();
}

bool MapLists::IsServerMapName(TextView name) const {
  return server.HasName(name);
}

}  // namespace quill
