#include "server/com_file_kit.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "com/bstr.h"
#include "com/com_error.h"
#include "com/error_object.h"
#include "com/variant.h"

namespace quill::com {
namespace {

// An argument that the kit may write to. What it writes stays here: the plug-in goes on with its
// own.
class TextByReference {
 public:
  explicit TextByReference(TextView text)
      : text_(text), argument_(Variant::ByReference(text_.address())) {}
  TextByReference(const TextByReference&) = delete;
  TextByReference& operator=(const TextByReference&) = delete;
  operator const Variant*() const noexcept {
    return &argument_;
  }  // NOLINT(google-explicit-constructor)

 private:
  Bstr text_;
  Variant argument_;
};

// The kit's own array, freed with the report.
class ReportArray {
 public:
  explicit ReportArray(const ErrorReport& report)
      : array_(::SafeArrayCreateVector(VT_VARIANT, 0, kElements)) {
    if (array_ == nullptr) throw RuntimeError(ErrorNumber::kOutOfMemory);
    try {
      LONG place = 0;
      for (const Text* text : {&report.number, &report.description, &report.library, &report.label,
                               &report.reserved}) {
        Put(place++, Variant::OfText(*text));
      }
      Put(place, Variant::OfInt32(report.line));
    } catch (...) {
      ::SafeArrayDestroy(array_);
      throw;
    }
  }
  ~ReportArray() { ::SafeArrayDestroy(array_); }
  ReportArray(const ReportArray&) = delete;
  ReportArray& operator=(const ReportArray&) = delete;

  [[nodiscard]] SAFEARRAY** address() noexcept { return &array_; }

 private:
  static constexpr ULONG kElements = 6;

  void Put(LONG place, Variant value) {
    const HRESULT result = ::SafeArrayPutElement(array_, &place, value.get());
    if (FAILED(result)) throw ErrorOf(result);
  }

  SAFEARRAY* array_;
};

}  // namespace

void ComFileKit::WriteFile(TextView path, TextView text) {
  const TextByReference path_argument(path);
  const Variant text_argument = Variant::OfText(text);
  kit_.Call(u"WriteFile", {path_argument, &text_argument});
}

Text ComFileKit::CompressString(TextView text) {
  const TextByReference text_argument(text);
  return TextOf(*kit_.Call(u"CompressString", {text_argument}).get());
}

Text ComFileKit::DecompressString(TextView compressed, std::int32_t length) {
  const Variant text_argument = Variant::OfText(compressed);
  const Variant length_argument = Variant::OfInt32(length);
  return TextOf(*kit_.Call(u"DecompressString", {&text_argument, &length_argument}).get());
}

std::optional<IniElements> ComFileKit::GetIniSection(TextView section, TextView path) {
  const Variant section_argument = Variant::OfText(section);
  const TextByReference path_argument(path);
  Variant result = kit_.Call(u"GetIniSection", {&section_argument, path_argument});
  if (ArrayOf(*result.get()) == nullptr) return std::nullopt;
  // An array that stays the kit's could change while the elements are taken.
  const auto kept = std::make_shared<Variant>();
  if ((result.type() & VT_BYREF) == 0) {
    *kept = std::move(result);
  } else if (const HRESULT copied = ::VariantCopyInd(kept->get(), result.get()); FAILED(copied)) {
    throw ErrorOf(copied);
  }
  SAFEARRAY* const array = ArrayOf(*kept->get());
  LONG upper = -1;
  if (FAILED(::SafeArrayGetUBound(array, 1, &upper))) upper = -1;
  return IniElements{
      static_cast<std::size_t>(std::max(upper, LONG{-1}) + 1),
      [kept, array](std::size_t index) { return ElementText(array, static_cast<LONG>(index)); }};
}

IniEntry ComFileKit::ParseIniKey(TextView line) {
  const Variant line_argument = Variant::OfText(line);
  const Variant both = Variant::OfBoolean(true);
  const Variant result = kit_.Call(u"ParseIniKey", {&line_argument, &both});
  SAFEARRAY* array = ArrayOf(*result.get());
  if (array == nullptr) throw RuntimeError(ErrorNumber::kTypeMismatch);
  return {ElementText(array, 0), ElementText(array, 1)};
}

Text ComFileKit::ParseIniValue(TextView line) {
  const Variant line_argument = Variant::OfText(line);
  const Variant value_only = Variant::OfBoolean(false);
  return TextOf(*kit_.Call(u"ParseIniKey", {&line_argument, &value_only}).get());
}

void ComFileKit::WriteIniKey(TextView section, TextView key, TextView value, TextView path) {
  const Variant section_argument = Variant::OfText(section);
  const Variant key_argument = Variant::OfText(key);
  const Variant value_argument = Variant::OfText(value);
  const TextByReference path_argument(path);
  kit_.Call(u"WriteIniKey", {&section_argument, &key_argument, &value_argument, path_argument});
}

void ComFileKit::LogError(TextView library, TextView label, const RuntimeError& error,
                          std::int32_t line) {
  const Variant library_argument = Variant::OfText(library);
  const TextByReference label_argument(label);
  // The kit may put another object in its place: what is there afterwards is released.
  ComPtr<IDispatch> error_object = MakeErrorObject(error);
  IDispatch* referred = error_object.Detach();
  LONG line_number = line;
  const Variant error_argument = Variant::ByReference(&referred);
  const Variant line_argument = Variant::ByReference(&line_number);
  struct ReleaseReferred {
    IDispatch*& object;
    ~ReleaseReferred() {
      if (object != nullptr) object->Release();
    }
  } const release_referred{referred};
  kit_.Call(u"LogError", {&library_argument, label_argument, &error_argument, &line_argument});
}

bool ComFileKit::SendErrorReport(const ErrorReport& report) {
  ReportArray array(report);
  const Variant report_argument = Variant::ByReference(array.address());
  return TruthOf(*kit_.Call(u"SendErrorReport", {&report_argument}).get());
}

}  // namespace quill::com
