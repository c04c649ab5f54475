#include "support/file_kit.h"

namespace quill {
namespace {

[[noreturn]] void FailWithoutKit() {
  throw RuntimeError(ErrorNumber::kObjectNotSet);
}

}  // namespace

void AbsentFileKit::WriteFile(TextView, TextView) {
  FailWithoutKit();
}
Text AbsentFileKit::CompressString(TextView) {
  FailWithoutKit();
}
Text AbsentFileKit::DecompressString(TextView, std::int32_t) {
  FailWithoutKit();
}
std::optional<std::vector<Text>> AbsentFileKit::GetIniSection(TextView, TextView) {
  FailWithoutKit();
}
IniEntry AbsentFileKit::ParseIniKey(TextView) {
  FailWithoutKit();
}
Text AbsentFileKit::ParseIniValue(TextView) {
  FailWithoutKit();
}
void AbsentFileKit::WriteIniKey(TextView, TextView, TextView, TextView) {
  FailWithoutKit();
}
void AbsentFileKit::LogError(TextView, TextView, const RuntimeError&, std::int32_t) {
  FailWithoutKit();
}
bool AbsentFileKit::SendErrorReport(const ErrorReport&) {
  FailWithoutKit();
}

}  // namespace quill
