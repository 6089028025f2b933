#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "cases.h"
#include "window_lists.h"
#include "windows/win.h"

namespace htr60::client {

/// Open handles of this process, counted in the list of the whole system's: the function that tells their number
/// answers 0 in Wine, and the process's own record the room that is there for them.
inline std::size_t Handles() {
  struct Handle {
    void* object;
    ULONG_PTR process;
    ULONG_PTR value;
    ULONG access;
    USHORT trace;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
  };
  struct Handles {
    ULONG_PTR count;
    ULONG_PTR reserved;
    Handle handles[1];
  };
  // Its number is beyond those that the header has.
  using Query = LONG(WINAPI*)(ULONG what, void* buffer, ULONG size, ULONG* needed);
  constexpr ULONG kExtendedHandles = 64;
  const auto query = reinterpret_cast<Query>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
  CHECK(query != nullptr);
  std::vector<std::byte> buffer(std::size_t{4} << 20U);
  ULONG size = 0;
  CHECK(query(kExtendedHandles, buffer.data(), static_cast<ULONG>(buffer.size()), &size) >= 0);
  const auto& all = *reinterpret_cast<const Handles*>(buffer.data());
  std::size_t own = 0;
  for (ULONG_PTR i = 0; i < all.count; ++i) {
    if (all.handles[i].process == GetCurrentProcessId()) ++own;
  }
  return own;
}

/// Bytes in use of all heaps of this process.
inline std::size_t HeapBytes() {
  HANDLE heaps[64];
  const DWORD count = GetProcessHeaps(64, heaps);
  CHECK(count > 0 && count <= 64);
  std::size_t bytes = 0;
  for (DWORD i = 0; i < count; ++i) {
    HeapLock(heaps[i]);
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heaps[i], &entry) != FALSE) {
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
    }
    HeapUnlock(heaps[i]);
  }
  return bytes;
}

/// The message-only windows of our DLLs in this process.
inline std::vector<HWND> MessageWindows() {
  std::vector<HWND> windows;
  for (HWND window = nullptr;
       (window = FindWindowExW(HWND_MESSAGE, window, L"Htr60MessageWindow", nullptr)) != nullptr;) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId()) windows.push_back(window);
  }
  return windows;
}

/// Objects of GDI, counted in the table that the process shares with the system: the function that tells their number
/// answers 0 in Wine.
inline std::size_t GdiObjects() {
  struct Entry {
    std::uint64_t object;
    std::uint16_t process;
    std::uint16_t count;
    std::uint16_t unique;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint64_t user;
  };
  static_assert(sizeof(Entry) == 24);
  constexpr std::size_t kEntries = 65536;
  constexpr std::size_t kTable = sizeof(void*) == 8 ? 0xF8 : 0x94;  // in the block of the process
  struct Basics {
    void* exit;
    const std::byte* block;
    void* more[4];
  };
  using Ask = LONG(WINAPI*)(HANDLE process, ULONG what, void* buffer, ULONG size, ULONG* needed);
  const auto ask = reinterpret_cast<Ask>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryInformationProcess")));
  Basics basics{};
  CHECK(ask != nullptr && ask(GetCurrentProcess(), 0, &basics, sizeof basics, nullptr) >= 0);
  const std::byte* block = basics.block;
  const auto* table = *reinterpret_cast<const Entry* const*>(block + kTable);
  CHECK(table != nullptr);
  std::size_t used = 0;
  for (std::size_t i = 0; i < kEntries; ++i) {
    if (table[i].type != 0) ++used;
  }
  return used;
}

inline std::size_t Windows() { return WindowsOfThread().size(); }

}  // namespace htr60::client
