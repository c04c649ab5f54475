// A host by an author who has nothing but the library's file: the class, its members, their
// parameters and the record come from the type library in it, and calls go through the vtable.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace bound_early {

inline void Check(HRESULT result) {
  if (FAILED(result)) throw std::runtime_error("failed: " + std::to_string(result));
}

struct Release {
  void operator()(IUnknown* object) const { object->Release(); }
};
template <class T>
using Held = std::unique_ptr<T, Release>;

struct Member {
  MEMBERID id = 0;
  std::size_t offset = 0;           // in the vtable, in bytes
  std::vector<VARTYPE> parameters;  // VT_BYREF for a pointer to what follows
};

struct Field {
  std::wstring name;
  VARTYPE type = VT_EMPTY;
  std::size_t offset = 0;  // recomputed
  std::size_t told = 0;    // what the type library says
};

class TypeLibraryClient {
 public:
  explicit TypeLibraryClient(const wchar_t* file) {
    ITypeLib* types = nullptr;
    Check(::LoadTypeLibEx(file, REGKIND_NONE, &types));
    library_.reset(types);
    for (UINT i = 0; i < types->GetTypeInfoCount(); ++i) {
      TYPEKIND kind = TKIND_MAX;
      Check(types->GetTypeInfoType(i, &kind));
      if (kind != TKIND_COCLASS) continue;
      ITypeInfo* type = nullptr;
      Check(types->GetTypeInfo(i, &type));
      const Held<ITypeInfo> of_class(type);
      class_id = Attributes(*type).guid;
      dispatch_view = Referred(*type, ImplementedBy(*type, 0));
    }
    interface_view = Referred(*dispatch_view, ImplementedBy(*dispatch_view, static_cast<UINT>(-1)));
    const TYPEATTR attributes = Attributes(*interface_view);
    interface_id = attributes.guid;
    for (UINT i = 0; i < attributes.cFuncs; ++i) ReadMember(i);
    LayOutRecord();
  }

  CLSID class_id{};
  IID interface_id{};
  Held<ITypeInfo> dispatch_view;
  Held<ITypeInfo> interface_view;
  std::map<std::wstring, Member> members;
  Held<ITypeInfo> record;
  std::vector<Field> fields;
  std::size_t record_size = 0;  // recomputed

  [[nodiscard]] ITypeLib& library() const { return *library_; }

  // Calls the function at the member's place; `arguments` in calling order must be of the types
  // that the type library tells.
  HRESULT Call(IUnknown* object, const std::wstring& name, std::vector<VARIANT> arguments) const {
    const Member& member = members.at(name);
    if (arguments.size() != member.parameters.size()) throw std::runtime_error("argument count");
    std::vector<VARTYPE> types;
    std::vector<VARIANT*> places;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
      if (arguments[i].vt != member.parameters[i]) throw std::runtime_error("argument type");
      types.push_back(arguments[i].vt);
      places.push_back(&arguments[i]);
    }
    VARIANT result{};
    Check(::DispCallFunc(object, member.offset, CC_STDCALL, VT_ERROR,
                         static_cast<UINT>(types.size()), types.data(), places.data(), &result));
    return result.scode;
  }

  // A field of a record that lies at `memory`, as text; the elements of a list joined by ";".
  [[nodiscard]] std::wstring Read(const void* memory, const std::wstring& name) const {
    for (const Field& field : fields) {
      if (field.name != name) continue;
      const char* place = static_cast<const char*>(memory) + field.offset;
      if (field.type == VT_BSTR) return TextOf(*reinterpret_cast<const BSTR*>(place));
      if (field.type == VT_BOOL) {
        return std::to_wstring(*reinterpret_cast<const VARIANT_BOOL*>(place));
      }
      return ListIn(*reinterpret_cast<const VARIANT*>(place));
    }
    throw std::runtime_error("no such field");
  }

  [[nodiscard]] static TYPEATTR Attributes(ITypeInfo& type) {
    TYPEATTR* attributes = nullptr;
    Check(type.GetTypeAttr(&attributes));
    const TYPEATTR copy = *attributes;
    type.ReleaseTypeAttr(attributes);
    return copy;
  }
  [[nodiscard]] static HREFTYPE ImplementedBy(ITypeInfo& type, UINT index) {
    HREFTYPE reference = 0;
    Check(type.GetRefTypeOfImplType(index, &reference));
    return reference;
  }
  [[nodiscard]] static Held<ITypeInfo> Referred(ITypeInfo& type, HREFTYPE reference) {
    ITypeInfo* referred = nullptr;
    Check(type.GetRefTypeInfo(reference, &referred));
    return Held<ITypeInfo>(referred);
  }
  [[nodiscard]] static std::wstring NameOf(ITypeInfo& type, MEMBERID id) {
    BSTR name = nullptr;
    UINT count = 0;
    Check(type.GetNames(id, &name, 1, &count));
    const std::wstring text = TextOf(name);
    ::SysFreeString(name);
    return text;
  }

 private:
  [[nodiscard]] static std::wstring TextOf(BSTR text) { return text == nullptr ? L"" : text; }

  [[nodiscard]] static std::wstring ListIn(const VARIANT& value) {
    if (value.vt == VT_EMPTY) return L"empty";
    if (value.vt != (VT_ARRAY | VT_BSTR)) throw std::runtime_error("a list of another type");
    LONG lower = -1;
    LONG upper = -1;
    Check(::SafeArrayGetLBound(value.parray, 1, &lower));
    Check(::SafeArrayGetUBound(value.parray, 1, &upper));
    std::wstring joined = std::to_wstring(lower) + L":";
    for (LONG i = lower; i <= upper; ++i) {
      BSTR element = nullptr;
      Check(::SafeArrayGetElement(value.parray, &i, &element));
      joined += TextOf(element) + L";";
      ::SysFreeString(element);
    }
    return joined;
  }

  void ReadMember(UINT index) {
    FUNCDESC* function = nullptr;
    Check(interface_view->GetFuncDesc(index, &function));
    Member member{function->memid, static_cast<std::size_t>(function->oVft), {}};
    for (SHORT i = 0; i < function->cParams; ++i) {
      const TYPEDESC* type = &function->lprgelemdescParam[i].tdesc;
      VARTYPE flags = 0;
      if (type->vt == VT_PTR) {
        flags = VT_BYREF;
        type = type->lptdesc;
      }
      if (type->vt == VT_USERDEFINED) {
        record = Referred(*interface_view, type->hreftype);
        member.parameters.push_back(VT_BYREF | VT_RECORD);
      } else {
        member.parameters.push_back(static_cast<VARTYPE>(type->vt | flags));
      }
    }
    members[NameOf(*interface_view, member.id)] = member;
    interface_view->ReleaseFuncDesc(function);
  }

  // As importers and compilers do it: each field at a multiple of its own alignment or of the
  // declared one, whichever is less.
  void LayOutRecord() {
    const TYPEATTR attributes = Attributes(*record);
    std::size_t largest = 1;
    for (UINT i = 0; i < attributes.cVars; ++i) {
      VARDESC* variable = nullptr;
      Check(record->GetVarDesc(i, &variable));
      const VARTYPE type = variable->elemdescVar.tdesc.vt;
      std::size_t size = sizeof(void*);
      std::size_t alignment = sizeof(void*);
      if (type == VT_BOOL) size = alignment = 2;
      if (type == VT_VARIANT) size = 8 + 2 * sizeof(void*), alignment = 8;
      if (attributes.cbAlignment < alignment) alignment = attributes.cbAlignment;
      if (alignment > largest) largest = alignment;
      record_size = (record_size + alignment - 1) / alignment * alignment;
      fields.push_back({NameOf(*record, variable->memid), type, record_size, variable->oInst});
      record_size += size;
      record->ReleaseVarDesc(variable);
    }
    record_size = (record_size + largest - 1) / largest * largest;
  }

  Held<ITypeLib> library_;
};

}  // namespace bound_early
