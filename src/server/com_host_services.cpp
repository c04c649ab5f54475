// How each operation of the host's file kit is called, and what its answer is taken for. The memory
// kit is only held.
#include "server/com_host_services.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "com/bstr.h"
#include "com/com_error.h"
#include "com/error_object.h"
#include "com/late_bound.h"

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
  operator const Variant&() const noexcept { return argument_; }

 private:
  Bstr text_;
  Variant argument_;
};

template <class... Arguments>
Variant Call(const LateBound& kit, TextView operation, const Arguments&... arguments) {
  return kit.Call(operation, {&static_cast<const Variant&>(arguments)...});
}

// Which arguments go by reference is part of the contract with the host.
class ComFileKit final : public FileKit {
 public:
  explicit ComFileKit(LateBound kit) : kit_(std::move(kit)) {}

  void WriteFile(TextView path, TextView text) override {
    Call(kit_, u"WriteFile", TextByReference(path), Variant::OfText(text));
  }

  Text CompressString(TextView text) override {
    return TextOf(*Call(kit_, u"CompressString", TextByReference(text)).get());
  }

  Text DecompressString(TextView compressed, std::int32_t length) override {
    return TextOf(
        *Call(kit_, u"DecompressString", Variant::OfText(compressed), Variant::OfInt32(length))
             .get());
  }

  std::optional<IniElements> GetIniSection(TextView section, TextView path) override {
    Variant result = Call(kit_, u"GetIniSection", Variant::OfText(section), TextByReference(path));
    if (ArrayOf(*result.get()) == nullptr) return std::nullopt;
    // An array that stays the kit's could change while the elements are taken.
    const auto kept = std::make_shared<Variant>();
    if ((result.type() & VT_BYREF) == 0) {
      *kept = std::move(result);
    } else {
      ThrowIfFailed(::VariantCopyInd(kept->get(), result.get()));
    }
    SAFEARRAY* const array = ArrayOf(*kept->get());
    LONG upper = -1;
    if (FAILED(::SafeArrayGetUBound(array, 1, &upper))) upper = -1;
    return IniElements{
        static_cast<std::size_t>(std::max(upper, LONG{-1}) + 1),
        [kept, array](std::size_t index) { return ElementText(array, static_cast<LONG>(index)); }};
  }

  IniEntry ParseIniKey(TextView line) override {
    constexpr bool kBoth = true;
    const Variant result =
        Call(kit_, u"ParseIniKey", Variant::OfText(line), Variant::OfBoolean(kBoth));
    SAFEARRAY* array = ArrayOf(*result.get());
    if (array == nullptr) throw RuntimeError(ErrorNumber::kTypeMismatch);
    return {ElementText(array, 0), ElementText(array, 1)};
  }

  Text ParseIniValue(TextView line) override {
    constexpr bool kBoth = false;
    return TextOf(
        *Call(kit_, u"ParseIniKey", Variant::OfText(line), Variant::OfBoolean(kBoth)).get());
  }

  void WriteIniKey(TextView section, TextView key, TextView value, TextView path) override {
    Call(kit_, u"WriteIniKey", Variant::OfText(section), Variant::OfText(key),
         Variant::OfText(value), TextByReference(path));
  }

  void LogError(TextView library, TextView label, const RuntimeError& error,
                std::int32_t line) override {
    // By reference, so that the kit may put another object in its place: whatever is there
    // afterwards is released.
    ComPtr<IDispatch> error_object = MakeErrorObject(error);
    LONG line_number = line;
    Call(kit_, u"LogError", Variant::OfText(library), TextByReference(label),
         Variant::ByReference(error_object.address()), Variant::ByReference(&line_number));
  }

  bool SendErrorReport(const ErrorReport& report) override {
    Variant elements[] = {Variant::OfText(report.number),   Variant::OfText(report.description),
                          Variant::OfText(report.library),  Variant::OfText(report.label),
                          Variant::OfText(report.reserved), Variant::OfInt32(report.line)};
    Variant array = Variant::OfArray(elements);
    const Variant argument = Variant::ByReference(&array.get()->parray);
    // A null has no truth value and fails here, which the reporter takes as not sent.
    return TruthOf(*Call(kit_, u"SendErrorReport", argument).get());
  }

 private:
  LateBound kit_;
};

class ComMemoryKit final : public MemoryKit {
 public:
  explicit ComMemoryKit(LateBound kit) noexcept : kit_(std::move(kit)) {}

 private:
  LateBound kit_;
};

}  // namespace

std::unique_ptr<FileKit> ComHostServices::CreateFileKit() {
  return std::make_unique<ComFileKit>(LateBound::Create(kFileKitProgId));
}

std::unique_ptr<MemoryKit> ComHostServices::CreateMemoryKit() {
  return std::make_unique<ComMemoryKit>(LateBound::Create(kMemoryKitProgId));
}

}  // namespace quill::com
