// Automation objects for a program at the other end of a pipe that is no Windows program: one
// request a line on standard input, one answer a line on standard output.
//
//   create NAME              a new object            object ID
//   call ID MEMBER VALUE...  a call by name          VALUE, or: error NUMBER DESCRIPTION
//   field ID NAME            a field of a record     VALUE
//   release ID
//
// A VALUE is one word: s and a text, i and a number, b0 or b1, o and an object's or a record's ID,
// n for nothing, a and the count of the array elements that follow as words of their own. Texts are
// UTF-8 with every byte that is no letter or digit written as %XX.
#include <charconv>
#include <cstdio>
#include <iostream>
#include <map>
#include <sstream>
#include <string>

#include "support/runtime_error.h"
#include "win32/com/bstr.h"
#include "win32/com/com_error.h"
#include "win32/com/late_bound.h"

namespace quill::host {
namespace {

using com::Variant;

std::string Escaped(TextView text) {
  std::string escaped;
  for (const char byte : ToUtf8(text)) {
    const bool is_plain = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                          (byte >= 'a' && byte <= 'z');
    char code[4];
    (void)std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned char>(byte));
    escaped += is_plain ? std::string(1, byte) : code;
  }
  return escaped;
}

int NumberOf(std::string_view word, int base = 10) {
  int number = 0;
  const auto [end, fault] = std::from_chars(word.data(), word.data() + word.size(), number, base);
  if (fault != std::errc() || end != word.data() + word.size()) {
    throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
  }
  return number;
}

Text Plain(std::string_view escaped) {
  std::string bytes;
  for (std::size_t at = 0; at < escaped.size(); ++at) {
    if (escaped[at] != '%') {
      bytes += escaped[at];
    } else {
      bytes += static_cast<char>(NumberOf(escaped.substr(at + 1, 2), 16));
      at += 2;
    }
  }
  return FromUtf8(bytes);
}

class Bridge {
 public:
  std::string Answer(std::istringstream& request) {
    const std::string order = Word(request);
    if (order == "create") return Kept(ObjectOf(com::LateBound::Create(Plain(Word(request)))));
    const int id = NumberOf(Word(request));
    const auto held = held_.find(id);
    if (held == held_.end()) throw RuntimeError(ErrorNumber::kObjectRequired);
    if (order == "call") return Call(*held->second.get(), request);
    if (order == "field") return Field(*held->second.get(), Plain(Word(request)));
    if (order == "release") return held_.erase(held), "n";
    throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
  }

 private:
  static std::string Word(std::istringstream& request) {
    std::string word;
    if (!(request >> word)) throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
    return word;
  }
  static Variant ObjectOf(const com::LateBound& object) {
    Variant value;
    value.get()->vt = VT_DISPATCH;
    value.get()->pdispVal = com::ComPtr<IDispatch>(object.object()).Detach();
    return value;
  }

  std::string Kept(Variant value) {
    held_[++last_id_] = std::move(value);
    return "o" + std::to_string(last_id_);
  }

  Variant ValueOf(std::istringstream& request) {
    const std::string word = Word(request);
    const std::string_view rest = std::string_view(word).substr(1);
    if (word[0] == 's') return Variant::OfText(Plain(rest));
    if (word[0] == 'i') return Variant::OfInt32(NumberOf(rest));
    if (word[0] == 'b') return Variant::OfBoolean(rest == "1");
    Variant value;
    if (word[0] == 'o') {
      const auto held = held_.find(NumberOf(rest));
      if (held == held_.end()) throw RuntimeError(ErrorNumber::kObjectRequired);
      if (FAILED(::VariantCopy(value.get(), held->second.get()))) {
        throw RuntimeError(ErrorNumber::kOutOfMemory);
      }
    } else if (word[0] == 'a') {
      const int count = NumberOf(rest);
      value.get()->parray = ::SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(count));
      if (value.get()->parray == nullptr) throw RuntimeError(ErrorNumber::kOutOfMemory);
      value.get()->vt = VT_ARRAY | VT_VARIANT;
      for (LONG place = 0; place < count; ++place) {
        Variant element = ValueOf(request);
        (void)::SafeArrayPutElement(value.get()->parray, &place, element.get());
      }
    } else {
      value.get()->vt = VT_NULL;
    }
    return value;
  }

  std::string WordsOf(Variant value) {
    const VARIANT& held = com::Referred(*value.get());
    IDispatch* object = nullptr;
    if (held.vt == VT_RECORD) return Kept(std::move(value));
    if (SAFEARRAY* array = com::ArrayOf(held)) {
      LONG upper = -1;
      (void)::SafeArrayGetUBound(array, 1, &upper);
      std::string words = "a" + std::to_string(upper + 1);
      for (LONG i = 0; i <= upper; ++i) words += " s" + Escaped(com::ElementText(array, i));
      return words;
    }
    if ((held.vt & VT_TYPEMASK) == VT_BOOL) return com::TruthOf(held) ? "b1" : "b0";
    if (held.vt == VT_EMPTY || held.vt == VT_NULL) return "n";
    if (held.vt == VT_I2 || held.vt == VT_I4) return "i" + std::to_string(com::Int32Of(held));
    if (com::ReadObject(held, object)) {
      return object == nullptr ? "n" : Kept(ObjectOf(com::LateBound(object)));
    }
    return "s" + Escaped(com::TextOf(held));
  }

  std::string Call(const VARIANT& object, std::istringstream& request) {
    const com::LateBound callee(object.vt == VT_DISPATCH ? object.pdispVal : nullptr);
    const Text member = Plain(Word(request));
    std::vector<Variant> values;
    while (request >> std::ws && !request.eof()) values.push_back(ValueOf(request));
    std::vector<VARIANT> arguments;
    for (const Variant& value : values) arguments.push_back(*value.get());
    const std::optional<DISPID> found = callee.Find(member);
    if (!found) throw RuntimeError(ErrorNumber::kMemberNotFound);
    return WordsOf(callee.CallWith(*found, arguments));
  }

  std::string Field(const VARIANT& record, const Text& name) {
    if (record.vt != VT_RECORD) throw RuntimeError(ErrorNumber::kTypeMismatch);
    Variant field;
    void* array = nullptr;
    const HRESULT result =
        record.pRecInfo->GetFieldNoCopy(record.pvRecord, com::WideOf(name), field.get(), &array);
    if (FAILED(result)) throw com::ErrorOf(result);
    // What came refers into the record, which stays the owner.
    const VARIANT inside = field.Detach();
    if (FAILED(::VariantCopyInd(field.get(), const_cast<VARIANT*>(&inside)))) {
      throw RuntimeError(ErrorNumber::kOutOfMemory);
    }
    return WordsOf(std::move(field));
  }

  std::map<int, Variant> held_;
  int last_id_ = 0;
};

void Serve() {
  Bridge bridge;
  std::string line;
  while (std::getline(std::cin, line)) {
    std::istringstream request(line);
    try {
      std::cout << bridge.Answer(request) << std::endl;
    } catch (const RuntimeError& error) {
      std::cout << "error " << error.number() << " " << Escaped(error.description()) << std::endl;
    }
  }
}

}  // namespace
}  // namespace quill::host

int main() {
  if (FAILED(::OleInitialize(nullptr))) return 1;
  quill::host::Serve();
  ::OleUninitialize();
  return 0;
}
