// Build tool, run on the machine that builds: settles a freshly compiled type library in place.
//
// The interface compiler lays records out with variants of 16 bytes also where pointers have 8, and
// notes the time of the build. This lays every record out by the alignment that it declares, as
// importers do, and blanks the time, so that the same source gives the same bytes. It refuses a
// dual interface that is not noted to inherit IDispatch's functions, which importers count on.
//
//   settle_typelib FILE.tlb
//
// The file is in the "MSFT" format: a header, the offsets of the type descriptions, a directory of
// segments; all numbers are little-endian and 32 bits wide unless said otherwise.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

// Places in the file.
constexpr std::size_t kFlagsAt = 0x14;  // low 4 bits: 1 = 32-bit, 3 = 64-bit system
constexpr std::size_t kTypeCountAt = 0x20;
constexpr std::size_t kHeaderSize = 0x54;
constexpr std::uint32_t kHasHelpLibrary = 0x100;  // one more number ends the header

// Places in a type description.
constexpr std::size_t kDescriptionSize = 100;
constexpr std::size_t kKindAt = 0;     // low 4 bits: 1 = record; from bit 11: declared alignment
constexpr std::size_t kMembersAt = 4;  // where the member records lie
constexpr std::size_t kCountsAt = 24;  // high 16 bits: fields
constexpr std::size_t kFlagsOfTypeAt = 48;
constexpr std::size_t kInstanceSizeAt = 80;
constexpr std::size_t kInheritedAt = 88;  // high 16 bits: functions that an interface inherits
constexpr std::uint32_t kIsDual = 0x40;
constexpr std::uint32_t kDispatchFunctions = 7;
constexpr std::uint32_t kRecordKind = 1;

// Places in a field's record.
constexpr std::size_t kFieldTypeAt = 4;  // low 16 bits: automation type
constexpr std::size_t kFieldOffsetAt = 16;

class TypeLibrary {
 public:
  explicit TypeLibrary(std::vector<char> bytes) : bytes_(std::move(bytes)) {
    if (bytes_.size() < kHeaderSize || std::string(bytes_.data(), 4) != "MSFT") {
      throw std::runtime_error("not a type library");
    }
  }

  void Settle() {
    const std::uint32_t flags = Read(kFlagsAt);
    const std::uint32_t pointer = (flags & 0xF) == 3 ? 8 : 4;
    const std::uint32_t types = Read(kTypeCountAt);
    const std::size_t offsets = kHeaderSize + ((flags & kHasHelpLibrary) != 0 ? 4 : 0);
    const std::size_t descriptions = Read(offsets + std::size_t{4} * types);
    for (std::uint32_t i = 0; i < types; ++i) {
      const std::size_t description = descriptions + i * kDescriptionSize;
      if ((Read(description + kKindAt) & 0xF) == kRecordKind) LayOut(description, pointer);
      if ((Read(description + kFlagsOfTypeAt) & kIsDual) != 0 &&
          Read(description + kInheritedAt) >> 16 != kDispatchFunctions) {
        throw std::runtime_error("a dual interface does not note the functions it inherits");
      }
    }
    BlankTime();
  }

  [[nodiscard]] const std::vector<char>& bytes() const { return bytes_; }

 private:
  struct Field {
    std::uint32_t size;
    std::uint32_t alignment;
  };

  static Field FieldOf(std::uint32_t type, std::uint32_t pointer) {
    switch (type) {
      case 2:   // 16-bit integer
      case 11:  // truth value
        return {2, 2};
      case 3:  // 32-bit integer
        return {4, 4};
      case 8:  // text
        return {pointer, pointer};
      case 12:  // variant: eight bytes, then two pointers
        return {8 + 2 * pointer, 8};
      default:
        throw std::runtime_error("a record field of type " + std::to_string(type) +
                                 ", whose size is not known here");
    }
  }

  void LayOut(std::size_t description, std::uint32_t pointer) {
    const std::uint32_t fields = Read(description + kCountsAt) >> 16;
    std::size_t field = Read(description + kMembersAt) + 4;  // behind the total length
    std::uint32_t offset = 0;
    std::uint32_t alignment = 1;
    const std::uint32_t declared = Read(description + kKindAt) >> 11 & 0x1F;
    for (std::uint32_t i = 0; i < fields; ++i) {
      const Field layout = FieldOf(Read(field + kFieldTypeAt) & 0xFFFF, pointer);
      const std::uint32_t step = std::min(layout.alignment, declared);
      offset = (offset + step - 1) / step * step;
      Write(field + kFieldOffsetAt, offset);
      offset += layout.size;
      alignment = std::max(alignment, step);
      field += Read(field) & 0xFFFF;
    }
    Write(description + kInstanceSizeAt, (offset + alignment - 1) / alignment * alignment);
  }

  void BlankTime() {
    const std::string made_by = "Created by WIDL version ";
    auto place = std::search(bytes_.begin(), bytes_.end(), made_by.begin(), made_by.end());
    if (place == bytes_.end()) return;
    const std::string at = " at ";
    place = std::search(place, bytes_.end(), at.begin(), at.end());
    while (place != bytes_.end() && *place != '\n' && *place != 'W' && *place != '\0') {
      *place++ = ' ';
    }
    // The next custom value, an unsigned number, is the time again, in seconds.
    const std::string number = {'\x13', '\0'};
    place = std::search(place, bytes_.end(), number.begin(), number.end());
    if (place != bytes_.end()) Write(static_cast<std::size_t>(place - bytes_.begin()) + 2, 0);
  }

  [[nodiscard]] std::uint32_t Read(std::size_t at) const {
    if (at + 4 > bytes_.size()) throw std::runtime_error("the file ends too early");
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;)
      value = value << 8 | static_cast<unsigned char>(bytes_[at + i]);
    return value;
  }

  void Write(std::size_t at, std::uint32_t value) {
    (void)Read(at);
    for (std::size_t i = 0; i < 4; ++i) bytes_[at + i] = static_cast<char>(value >> (8 * i));
  }

  std::vector<char> bytes_;
};

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fputs("usage: settle_typelib FILE.tlb\n", stderr);
    return 2;
  }
  try {
    std::ifstream in(arguments[1], std::ios::binary);
    TypeLibrary library(std::vector<char>(std::istreambuf_iterator<char>(in), {}));
    in.close();
    library.Settle();
    std::ofstream out(arguments[1], std::ios::binary | std::ios::trunc);
    out.write(library.bytes().data(), static_cast<std::streamsize>(library.bytes().size()));
    if (!out.flush()) throw std::runtime_error("cannot write the file");
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "settle_typelib: %s: %s\n", arguments[1], error.what());
    return 1;
  }
}
