// Automation objects without type information, each written as a table of its members: a name, and
// a function whose parameters and result are plain C++ values.
#pragma once

#include <functional>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

#include "com/automation.h"
#include "com/com_ptr.h"
#include "com/object.h"
#include "com/variant.h"

namespace quill::host {

// The arguments of a call, in calling order.
using Given = std::span<const VARIANT>;

// An array of variants that are texts.
[[nodiscard]] com::Variant ArrayOfTexts(std::span<const Text> texts);

// The argument at `index` as a function's parameter takes it: a text, a truth value, a number, the
// variant itself, or as Given all from there on. Fails with kTypeMismatch or kOverflow.
template <class Parameter>
[[nodiscard]] auto ArgumentAs(Given given, std::size_t index) {
  using Value = std::remove_cvref_t<Parameter>;
  if constexpr (std::is_same_v<Value, Given>) {
    return given.subspan(index);
  } else if constexpr (std::is_same_v<Value, VARIANT>) {
    return given[index];
  } else if constexpr (std::is_convertible_v<Text, Value>) {
    return com::TextOf(given[index]);
  } else if constexpr (std::is_same_v<Value, bool>) {
    return com::TruthOf(given[index]);
  } else {
    return static_cast<Value>(com::Int32Of(given[index]));
  }
}

[[nodiscard]] inline com::Variant ResultOf(com::Variant value) {
  return value;
}
[[nodiscard]] inline com::Variant ResultOf(TextView text) {
  return com::Variant::OfText(text);
}
[[nodiscard]] inline com::Variant ResultOf(bool truth) {
  return com::Variant::OfBoolean(truth);
}
[[nodiscard]] inline com::Variant ResultOf(std::int32_t number) {
  return com::Variant::OfInt32(number);
}

struct Member {
  // `function` may fail with a RuntimeError, which becomes the caller's failure. `types` are the
  // variant types in which a careful caller passes the arguments.
  template <class Function>
  Member(TextView its_name, Function function, std::vector<VARTYPE> its_types = {})
      : Member(its_name, std::function(std::move(function)), std::move(its_types)) {}
  template <class Result, class... Parameters>
  Member(TextView its_name, std::function<Result(Parameters...)> function,
         std::vector<VARTYPE> its_types)
      : name(its_name),
        takes_more((std::is_same_v<Parameters, Given> || ...)),
        arguments(sizeof...(Parameters) - (takes_more ? 1 : 0)),
        types(std::move(its_types)),
        call([function = std::move(function)]([[maybe_unused]] Given given) {
          return [&]<std::size_t... kIndex>(std::index_sequence<kIndex...>) {
            if constexpr (std::is_void_v<Result>) {
              function(ArgumentAs<Parameters>(given, kIndex)...);
              return com::Variant();
            } else {
              return ResultOf(function(ArgumentAs<Parameters>(given, kIndex)...));
            }
          }(std::index_sequence_for<Parameters...>());
        }) {}

  TextView name;
  bool takes_more;  // arguments than those
  std::size_t arguments;
  std::vector<VARTYPE> types;
  std::function<com::Variant(Given given)> call;
};

// A member is found by its name in any letter case. Its identifier is its position, counted from 0:
// the first one is the default member.
class TableObject : public com::DispatchObject {
 public:
  // `name` is the programmatic name under which failures are told.
  explicit TableObject(TextView name, std::vector<Member> members = {})
      : name_(name), members_(std::move(members)) {}

  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* given,
                      VARIANT* result, EXCEPINFO* raised, UINT* argument) override;

 protected:
  // For members that refer to the object itself.
  void Define(std::vector<Member> members) { members_ = std::move(members); }
  // Null when there is none.
  [[nodiscard]] const Member* Find(DISPID id) const noexcept;
  [[nodiscard]] TextView name() const noexcept { return name_; }

 private:
  const TextView name_;
  std::vector<Member> members_;
};

}  // namespace quill::host
