// Where the unwinder of a 32-bit library finds the library's tables. The start-up code (libgcc's
// cygming-crtbegin.c) registers them with another module's unwinder, libgcc_s_dw2-1.dll, when the
// process has that one loaded already; the library throws with the unwinder that is linked into it,
// which then finds nothing and ends the process.
#include <windows.h>

extern "C" {

struct dwarf_eh_bases {
  void* text;
  void* data;
  void* function;
};

// The unwinder's own functions; "object" is its entry of a list.
const void* _Unwind_Find_FDE(void* address, dwarf_eh_bases* bases);
void __register_frame_info(const void* tables, void* object);
void* __deregister_frame_info(const void* tables);

// The C runtime's: this module, and its section that holds an address.
extern IMAGE_DOS_HEADER __ImageBase;
IMAGE_SECTION_HEADER* _FindPESection(unsigned char* module, DWORD_PTR offset);

extern const char quill_inside_unwind_tables[];

// Found here, it takes the place of the system's function in the whole library.
HANDLE WINAPI MakeSemaphore(SECURITY_ATTRIBUTES* attributes, LONG count, LONG most, LPCWSTR name);
extern decltype(&MakeSemaphore) const quill_make_semaphore asm("__imp__CreateSemaphoreW@16");

}  // extern "C"

// Adds nothing to the tables but this name.
asm(".section .eh_frame,\"dr\"\n_quill_inside_unwind_tables:\n.text");

namespace {

HANDLE first_semaphore = nullptr;
const void* tables = nullptr;
alignas(void*) unsigned char object[16 * sizeof(void*)];

// Before all constructors of the library, and after those of the start-up code.
[[gnu::constructor(101)]] void RegisterTables() {
  dwarf_eh_bases bases;
  if (_Unwind_Find_FDE(reinterpret_cast<void*>(&RegisterTables), &bases) != nullptr) return;
  auto* const module = reinterpret_cast<unsigned char*>(&__ImageBase);
  const auto* const section =
      _FindPESection(module, reinterpret_cast<DWORD_PTR>(quill_inside_unwind_tables) -
                                 reinterpret_cast<DWORD_PTR>(module));
  if (section == nullptr) return;
  tables = module + section->VirtualAddress;
  __register_frame_info(tables, object);
}

[[gnu::destructor(101)]] void WithdrawTables() {
  if (tables != nullptr) __deregister_frame_info(tables);
  if (first_semaphore != nullptr) ::CloseHandle(first_semaphore);
}

}  // namespace

// The first one is that of the lock around the unwinder's tables. libgcc never closes it, so that
// each load of the library would leave a handle behind. Only waiting needs it, and nobody waits
// while a library is unloaded.
HANDLE WINAPI MakeSemaphore(SECURITY_ATTRIBUTES* attributes, LONG count, LONG most, LPCWSTR) {
  const HANDLE made = ::CreateSemaphoreA(attributes, count, most, nullptr);
  if (first_semaphore == nullptr) first_semaphore = made;
  return made;
}

decltype(&MakeSemaphore) const quill_make_semaphore = &MakeSemaphore;
