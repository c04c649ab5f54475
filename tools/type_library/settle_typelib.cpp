// Build tool, run on the machine that builds: settles a freshly compiled type library in place.
//
// The interface compiler lays records out with variants of 16 bytes also where pointers have 8, and
// notes the time of the build. This lays every record out by the alignment that it declares, as
// importers do, and blanks the time, so that the same source gives the same bytes.
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

namespace {

// Places in the file.
constexpr std::size_t kFlagsAt = 0x14;  // low 4 bits: 1 = 32-bit, 3 = 64-bit system
constexpr std::size_t kTypeCountAt = 0x20;
constexpr std::size_t kHeaderSize = 0x54;  // one number more with a help library, which we have not

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

std::string file;

std::uint32_t Read(std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i-- > 0;)
    value = value << 8 | static_cast<unsigned char>(file.at(at + i));
  return value;
}

void Write(std::size_t at, std::uint32_t value) {
  for (std::size_t i = 0; i < 4; ++i) file.at(at + i) = static_cast<char>(value >> (8 * i));
}

std::uint32_t SizeOf(std::uint32_t type, std::uint32_t pointer) {
  switch (type) {
    case 8:  // text
      return pointer;
    case 11:  // truth value
      return 2;
    case 12:  // variant: eight bytes, then two pointers
      return 8 + 2 * pointer;
    default:
      throw std::runtime_error("a record field of type " + std::to_string(type) +
                               ", whose size is not known here");
  }
}

void LayOut(std::size_t description, std::uint32_t pointer) {
  const std::uint32_t declared = Read(description + kKindAt) >> 11 & 0x1F;
  std::size_t field = Read(description + kMembersAt) + 4;  // behind the total length
  std::uint32_t offset = 0;
  std::uint32_t alignment = 1;
  for (std::uint32_t left = Read(description + kCountsAt) >> 16; left > 0; --left) {
    const std::uint32_t size = SizeOf(Read(field + kFieldTypeAt) & 0xFFFF, pointer);
    const std::uint32_t step = std::min({size, declared, std::uint32_t{8}});
    offset = (offset + step - 1) / step * step;
    Write(field + kFieldOffsetAt, offset);
    offset += size;
    alignment = std::max(alignment, step);
    field += Read(field) & 0xFFFF;
  }
  Write(description + kInstanceSizeAt, (offset + alignment - 1) / alignment * alignment);
}

void Settle() {
  if (!file.starts_with("MSFT")) throw std::runtime_error("not a type library");
  const std::uint32_t pointer = (Read(kFlagsAt) & 0xF) == 3 ? 8 : 4;
  const std::uint32_t types = Read(kTypeCountAt);
  std::size_t description = Read(kHeaderSize + std::size_t{4} * types);
  for (std::uint32_t i = 0; i < types; ++i, description += kDescriptionSize) {
    if ((Read(description + kKindAt) & 0xF) == kRecordKind) LayOut(description, pointer);
    // Importers place a dual interface's functions by this note.
    if ((Read(description + kFlagsOfTypeAt) & kIsDual) != 0 &&
        Read(description + kInheritedAt) >> 16 != kDispatchFunctions) {
      throw std::runtime_error("a dual interface does not note the functions it inherits");
    }
  }
  // "Created by WIDL version X at TIME"; the next custom value, an unsigned number, is the time
  // again, in seconds.
  std::size_t place = file.find(" at ", file.find("Created by WIDL version "));
  if (place == std::string::npos) return;
  while (file.at(place) != '\n' && file[place] != 'W' && file[place] != '\0') file[place++] = ' ';
  place = file.find(std::string{'\x13', '\0'}, place);
  if (place != std::string::npos) Write(place + 2, 0);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fputs("usage: settle_typelib FILE.tlb\n", stderr);
    return 2;
  }
  try {
    std::ifstream in(arguments[1], std::ios::binary);
    file.assign(std::istreambuf_iterator<char>(in), {});
    in.close();
    Settle();
    std::ofstream out(arguments[1], std::ios::binary | std::ios::trunc);
    if (!out.write(file.data(), static_cast<std::streamsize>(file.size())).flush()) {
      throw std::runtime_error("cannot write the file");
    }
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "settle_typelib: %s: %s\n", arguments[1], error.what());
    return 1;
  }
}
