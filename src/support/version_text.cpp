#include "support/version_text.h"

namespace quill {

Text VersionText(int major_number, int minor_number, int revision) {
  return Concat({Decimal(major_number), u".", Decimal(minor_number), u".", Decimal(revision)});
}

}  // namespace quill
