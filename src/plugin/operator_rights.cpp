// The table of rights, and applying it.
#include "plugin/operator_rights.h"

#include <optional>

namespace quill {
namespace {

constexpr OperatorRight kRights[] = {
    {u"Change GS Session Type", u"lstSession"},
    {u"Change GS Max Players", u"lstMax"},
    {u"Change GS Game Mod", u"cboMods"},
    {u"Change GS Windowed Mode", u"chkWindow"},
    {u"Change GS Dedicated Mode", u"chkDedi"},
    {u"Change GS Custom Skins Option", u"chkSkins"},
    {u"Change GS Req Nova Login Option", u"chkNova"},
    {u"Change GS Game Port", u"txtPort"},
};

bool IsGranted(const std::optional<HostItem>& item) {
  if (!item) return false;
  switch (item->kind) {
    case HostItem::Kind::kText:
      // Exactly this text withholds a right; "00" or a blank grants it.
      return item->text != u"0";
    case HostItem::Kind::kNumber:
      return item->number != 0;
    case HostItem::Kind::kOther:
      break;
  }
  return true;
}

}  // namespace

std::span<const OperatorRight> OperatorRights() noexcept {
  return kRights;
}

void ApplyOperatorRights(HostCollection& granted, frmrcBHDGS& dialog) {
  // A host that knows no rights withholds none.
  if (granted.Count() < 1) return;
  for (const OperatorRight& right : kRights) {
    const bool may_change = IsGranted(granted.Find(right.name));
    dialog.At(right.option).SetEnabled(may_change);
  }
}

}  // namespace quill
