// Taking a start payload apart.
#include "host/story/sent_payload.h"

#include "host/remote/wire.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

constexpr TextView kMapMark = u"-";

[[noreturn]] void Fail(std::initializer_list<TextView> why) {
  throw RuntimeError(ErrorNumber::kInvalidProcedureCall, Concat(why));
}

TextView PieceAt(const std::vector<TextView>& pieces, int index, TextView what) {
  if (index < 0 || index >= std::ssize(pieces)) {
    Fail({u"the payload has no ", what, u" ", Decimal(index), u", only ",
          Decimal(std::ssize(pieces))});
  }
  return pieces[static_cast<std::size_t>(index)];
}

}  // namespace

std::vector<TextView> SentPayload::Fields() const {
  return Split(TextView(payload_).substr(0, payload_.find(kListSeparator)), kFieldSeparator);
}

std::vector<TextView> SentPayload::Maps() const {
  const std::size_t bar = payload_.find(kListSeparator);
  if (bar == Text::npos) Fail({u"the payload has no \"|\" before its maps"});
  const TextView maps = TextView(payload_).substr(bar + kListSeparator.size());
  if (maps.empty()) return {};
  if (!maps.starts_with(kMapMark)) Fail({u"the maps of the payload do not begin with \"-\""});
  return Split(maps.substr(kMapMark.size()), kMapMark);
}

int SentPayload::FieldCount() const {
  return static_cast<int>(Fields().size());
}

Text SentPayload::Field(int number) const {
  return Text(PieceAt(Fields(), number, u"field"));
}

Text SentPayload::FieldText(int number) const {
  return DecodeField(PieceAt(Fields(), number, u"field"));
}

int SentPayload::MapCount() const {
  return static_cast<int>(Maps().size());
}

Text SentPayload::Map(int index) const {
  const std::vector<TextView> parts = Split(PieceAt(Maps(), index, u"map"), kFieldSeparator);
  if (parts.size() != 4) Fail({u"map ", Decimal(index), u" of the payload has not four parts"});
  return Concat(
      {DecodeField(parts[0]), u" <", DecodeField(parts[1]), u"> ", parts[2], u" ", parts[3]});
}

Text PayloadBehind(TextView envelope, TextView request) {
  const Text head = Concat({envelope, kFieldSeparator});
  if (!request.starts_with(head)) {
    Fail({u"it begins with \"", request.substr(0, head.size()), u"\""});
  }
  return ReadFrame(request.substr(head.size()));
}

}  // namespace quill::host
