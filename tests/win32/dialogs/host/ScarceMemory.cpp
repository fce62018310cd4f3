#include "tests/win32/dialogs/host/ScarceMemory.h"

#include <atomic>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

namespace imptable {
namespace {

std::atomic<std::size_t> refused_bytes{0};

void* __cdecl Allocate(std::size_t bytes) {
  return bytes >= refused_bytes ? nullptr : std::malloc(bytes);
}

/// Something in a module, by its distance from the module's start.
template <typename Thing>
Thing* At(HMODULE module, ULONG_PTR distance) {
  return reinterpret_cast<Thing*>(reinterpret_cast<ULONG_PTR>(module) + distance);
}

/// Where a module keeps the address of a function that it imports by name; null when it doesn't.
ULONG_PTR* FindImport(HMODULE module, std::string_view name) {
  const auto* const headers = At<IMAGE_NT_HEADERS>(
      module, static_cast<ULONG_PTR>(At<IMAGE_DOS_HEADER>(module, 0)->e_lfanew));
  const auto& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  for (const auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(module, imports.VirtualAddress);
       library->FirstThunk != 0; ++library) {
    const auto* names = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
    auto* addresses = At<ULONG_PTR>(module, library->FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++addresses) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
      if (At<IMAGE_IMPORT_BY_NAME>(module, names->u1.AddressOfData)->Name == name) return addresses;
    }
  }
  return nullptr;
}

}  // namespace

void RefuseBlocks(HMODULE module, std::size_t bytes) {
  ULONG_PTR* const address = FindImport(module, "malloc");
  if (address == nullptr) throw std::runtime_error("no malloc");
  refused_bytes = bytes;
  DWORD former = 0;
  VirtualProtect(address, sizeof *address, PAGE_READWRITE, &former);
  *address = reinterpret_cast<ULONG_PTR>(&Allocate);
  VirtualProtect(address, sizeof *address, former, &former);
}

}  // namespace imptable
