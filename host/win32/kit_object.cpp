#include "host/win32/kit_object.h"

#include <array>
#include <atomic>
#include <span>

#include "com/bstr.h"
#include "com/com_error.h"
#include "com/dispatch_object.h"
#include "com/late_bound.h"
#include "com/library_use.h"
#include "com/variant.h"
#include "plugin/host_services.h"

namespace quill::host {
namespace {

using com::Variant;

std::atomic<long> living_objects = 0;

// How an argument has to come.
enum class Form : std::uint8_t {
  kText,
  kTextByReference,
  kNumber,
  kNumberByReference,
  kTruth,
  kObjectByReference,
  kArrayByReference,
  kAnyValue,
};

constexpr VARTYPE TypeOf(Form form) noexcept {
  switch (form) {
    case Form::kText:
      return VT_BSTR;
    case Form::kTextByReference:
      return VT_BSTR | VT_BYREF;
    case Form::kNumber:
      return VT_I4;
    case Form::kNumberByReference:
      return VT_I4 | VT_BYREF;
    case Form::kTruth:
      return VT_BOOL;
    case Form::kObjectByReference:
      return VT_DISPATCH | VT_BYREF;
    case Form::kArrayByReference:
      return VT_ARRAY | VT_VARIANT | VT_BYREF;
    case Form::kAnyValue:
      break;
  }
  return VT_EMPTY;
}

// Arguments in calling order.
using Given = std::span<const VARIANT* const>;

Variant ArrayOfTexts(std::span<const Text> texts) {
  SAFEARRAY* array = ::SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(texts.size()));
  if (array == nullptr) throw RuntimeError(ErrorNumber::kOutOfMemory);
  Variant variant;
  variant.get()->vt = VT_ARRAY | VT_VARIANT;
  variant.get()->parray = array;
  LONG place = 0;
  for (const Text& text : texts) {
    Variant element = Variant::OfText(text);
    if (FAILED(::SafeArrayPutElement(array, &place, element.get()))) {
      throw RuntimeError(ErrorNumber::kOutOfMemory);
    }
    ++place;
  }
  return variant;
}

Variant CallWriteFile(FileKit& kit, Given given) {
  kit.WriteFile(com::TextOf(*given[0]), com::TextOf(*given[1]));
  return {};
}

Variant CallCompress(FileKit& kit, Given given) {
  return Variant::OfText(kit.CompressString(com::TextOf(*given[0])));
}

Variant CallDecompress(FileKit& kit, Given given) {
  return Variant::OfText(kit.DecompressString(com::TextOf(*given[0]), com::Int32Of(*given[1])));
}

Variant CallGetIniSection(FileKit& kit, Given given) {
  const auto section = kit.GetIniSection(com::TextOf(*given[0]), com::TextOf(*given[1]));
  if (!section) return {};
  std::vector<Text> elements(section->count);
  for (std::size_t i = 0; i < elements.size(); ++i) elements[i] = section->element(i);
  return ArrayOfTexts(elements);
}

Variant CallParseIniKey(FileKit& kit, Given given) {
  const Text line = com::TextOf(*given[0]);
  if (!com::TruthOf(*given[1])) return Variant::OfText(kit.ParseIniValue(line));
  const IniEntry entry = kit.ParseIniKey(line);
  const std::array<Text, 2> both = {entry.key, entry.value};
  return ArrayOfTexts(both);
}

Variant CallWriteIniKey(FileKit& kit, Given given) {
  kit.WriteIniKey(com::TextOf(*given[0]), com::TextOf(*given[1]), com::TextOf(*given[2]),
                  com::TextOf(*given[3]));
  return {};
}

Variant CallLogError(FileKit& kit, Given given) {
  IDispatch* object = nullptr;
  if (!com::ReadObject(*given[2], object)) throw RuntimeError(ErrorNumber::kTypeMismatch);
  const com::LateBound error(object);
  const std::int32_t number = com::Int32Of(*error.Call(u"Number", {}).get());
  const Text description = com::TextOf(*error.Call(u"Description", {}).get());
  const VARIANT& line = *given[3];
  kit.LogError(com::TextOf(*given[0]), com::TextOf(*given[1]), RuntimeError(number, description),
               line.vt == (VT_I4 | VT_BYREF) ? *line.plVal : com::Int32Of(line));
  return {};
}

Variant CallSendErrorReport(FileKit& kit, Given given) {
  SAFEARRAY* array = com::ArrayOf(*given[0]);
  ErrorReport report;
  report.number = com::ElementText(array, 0);
  report.description = com::ElementText(array, 1);
  report.library = com::ElementText(array, 2);
  report.label = com::ElementText(array, 3);
  report.reserved = com::ElementText(array, 4);
  const Variant line = Variant::OfText(com::ElementText(array, 5));
  report.line = com::Int32Of(*line.get());
  return Variant::OfBoolean(kit.SendErrorReport(report));
}

struct Operation {
  TextView name;
  std::span<const Form> arguments;
  Variant (*call)(FileKit& kit, Given given);
};

constexpr Form kWriteFile[] = {Form::kTextByReference, Form::kText};
constexpr Form kCompress[] = {Form::kTextByReference};
constexpr Form kDecompress[] = {Form::kText, Form::kNumber};
constexpr Form kGetIniSection[] = {Form::kText, Form::kTextByReference};
constexpr Form kParseIniKey[] = {Form::kText, Form::kTruth};
constexpr Form kWriteIniKey[] = {Form::kText, Form::kText, Form::kAnyValue, Form::kTextByReference};
constexpr Form kLogError[] = {Form::kText, Form::kTextByReference, Form::kObjectByReference,
                              Form::kNumberByReference};
constexpr Form kSendErrorReport[] = {Form::kArrayByReference};

// An operation's identifier is its position here, counted from 1.
constexpr Operation kFileKitOperations[] = {
    {u"WriteFile", kWriteFile, CallWriteFile},
    {u"CompressString", kCompress, CallCompress},
    {u"DecompressString", kDecompress, CallDecompress},
    {u"GetIniSection", kGetIniSection, CallGetIniSection},
    {u"ParseIniKey", kParseIniKey, CallParseIniKey},
    {u"WriteIniKey", kWriteIniKey, CallWriteIniKey},
    {u"LogError", kLogError, CallLogError},
    {u"SendErrorReport", kSendErrorReport, CallSendErrorReport},
};

class KitObject final : public com::DispatchObject {
 public:
  KitObject(const KitServices& services, TextView name, std::span<const Operation> operations)
      : services_(services), name_(name), operations_(operations) {
    ++living_objects;
  }

  STDMETHODIMP_(ULONG) AddRef() override {
    return MayBeCounted(u"AddRef") ? DispatchObject::AddRef() : 0;
  }
  STDMETHODIMP_(ULONG) Release() override {
    return MayBeCounted(u"Release") ? DispatchObject::Release() : 0;
  }
  static void ForgetReleased() noexcept {
    for (KitObject* object = last_let_go.exchange(nullptr); object != nullptr;) {
      KitObject* const before = object->next_let_go_;
      delete object;
      object = before;
    }
  }
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                             DISPID* ids) override {
    return com::FindNames(reserved, names, count, ids, [&](const OLECHAR* name) {
      const TextView wanted(reinterpret_cast<const char16_t*>(name));
      for (std::size_t i = 0; i < operations_.size(); ++i) {
        if (EqualIgnoringCase(operations_[i].name, wanted)) return static_cast<DISPID>(i) + 1;
      }
      return DISPID{DISPID_UNKNOWN};
    });
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT* result,
                      EXCEPINFO* raised, UINT*) override {
    if (id < 1 || static_cast<std::size_t>(id) > operations_.size()) return DISP_E_MEMBERNOTFOUND;
    const Operation& operation = operations_[static_cast<std::size_t>(id) - 1];
    if (is_let_go_) {
      Breach(operation.name, kUsedTooLate);
      return E_UNEXPECTED;
    }
    const InCall in_call(*this);
    try {
      if (::GetCurrentThreadId() != services_.thread) {
        Breach(operation.name, kWrongThread);
      }
      if (services_.is_call_running && !services_.is_call_running()) {
        Breach(operation.name, "called while the host calls nothing");
      }
      if (given == nullptr || given->cNamedArgs != 0 ||
          given->cArgs != operation.arguments.size()) {
        Breach(operation.name, "called with another number of arguments");
        return DISP_E_BADPARAMCOUNT;
      }
      std::array<const VARIANT*, 4> arguments{};
      for (UINT i = 0; i < given->cArgs; ++i) {
        arguments[i] = &given->rgvarg[given->cArgs - 1 - i];
        const VARTYPE wanted = TypeOf(operation.arguments[i]);
        if (wanted != VT_EMPTY && arguments[i]->vt != wanted) {
          Breach(operation.name, "argument " + std::to_string(i) + " came as variant type " +
                                     std::to_string(arguments[i]->vt) + ", not " +
                                     std::to_string(wanted));
        }
      }
      Variant value =
          operation.call(services_.file_kit, Given(arguments.data(), operation.arguments.size()));
      if (result != nullptr) *result = value.Detach();
      return S_OK;
    } catch (...) {
      return com::LeaveExcepInfo(CurrentRuntimeError(), raised, name_);
    }
  }

 private:
  // Keeps the object for the time of a call; not counted as a reference of the plug-in.
  class InCall {
   public:
    explicit InCall(KitObject& object) : object_(object) { object_.DispatchObject::AddRef(); }
    ~InCall() { object_.DispatchObject::Release(); }
    InCall(const InCall&) = delete;
    InCall& operator=(const InCall&) = delete;

   private:
    KitObject& object_;
  };

  ~KitObject() override = default;

  void LetGo() override {
    --living_objects;
    if (!services_.are_calls_checked) {
      delete this;
      return;
    }
    is_let_go_ = true;
    next_let_go_ = last_let_go;
    while (!last_let_go.compare_exchange_weak(next_let_go_, this)) {
    }
  }

  bool MayBeCounted(TextView member) {
    if (::GetCurrentThreadId() != services_.thread) Breach(member, kWrongThread);
    if (is_let_go_) Breach(member, kUsedTooLate);
    return !is_let_go_;
  }

  void Breach(TextView member, std::string_view what) {
    if (!services_.are_calls_checked) return;
    services_.contract.Note(Side::kPlugin,
                            ToUtf8(Concat({name_, u".", member})) + ": " + std::string(what));
  }

  static constexpr std::string_view kWrongThread = "called on another thread than the host's";
  static constexpr std::string_view kUsedTooLate =
      "called after the object's last reference was released";

  // Those that were let go, each leading to the one before it.
  static inline std::atomic<KitObject*> last_let_go = nullptr;
  KitObject* next_let_go_ = nullptr;
  std::atomic<bool> is_let_go_ = false;

  const KitServices services_;
  const TextView name_;
  const std::span<const Operation> operations_;
  const com::LibraryUse in_use_;
};

}  // namespace

long LivingKitObjects() noexcept {
  return living_objects;
}

void ForgetReleasedKitObjects() noexcept {
  KitObject::ForgetReleased();
}

com::ComPtr<IDispatch> MakeFileKitObject(const KitServices& services) {
  return com::ComPtr<IDispatch>::Adopt(new KitObject(services, kFileKitProgId, kFileKitOperations));
}

com::ComPtr<IDispatch> MakeMemoryKitObject(const KitServices& services) {
  return com::ComPtr<IDispatch>::Adopt(new KitObject(services, kMemoryKitProgId, {}));
}

}  // namespace quill::host
