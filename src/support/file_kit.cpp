#include "support/file_kit.h"

#include <utility>

namespace quill {
namespace {

[[noreturn]] void FailWithoutKit() {
  throw RuntimeError(ErrorNumber::kObjectNotSet);
}

}  // namespace

IniElements IniElementsOf(std::vector<Text> elements) {
  const std::size_t count = elements.size();
  return {count, [kept = std::move(elements)](std::size_t index) { return kept.at(index); }};
}

void AbsentFileKit::WriteFile(TextView, TextView) {
  FailWithoutKit();
}
Text AbsentFileKit::CompressString(TextView) {
  FailWithoutKit();
}
Text AbsentFileKit::DecompressString(TextView, std::int32_t) {
  FailWithoutKit();
}
std::optional<IniElements> AbsentFileKit::GetIniSection(TextView, TextView) {
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
