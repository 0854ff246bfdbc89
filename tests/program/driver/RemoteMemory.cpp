#include "tests/program/driver/RemoteMemory.h"

#include <cstring>

#include "tests/program/driver/Failure.h"

namespace driver {
namespace {

// Not in every import library.
using MapIntoProcess = PVOID(WINAPI*)(HANDLE mapping, HANDLE process, PVOID base, ULONG64 offset,
                                      SIZE_T size, ULONG kind, ULONG protection, void* parameters,
                                      ULONG count);
using UnmapFromProcess = BOOL(WINAPI*)(HANDLE process, PVOID base, ULONG flags);

template <typename Function>
Function KernelFunction(const char* name) {
  return reinterpret_cast<Function>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernelbase.dll"), name)));
}

}  // namespace

// Shared by both, since reading another process's memory stops that process each time.
RemoteMemory::RemoteMemory(DWORD processId, std::size_t size) : size_(size) {
  process_.reset(OpenProcess(PROCESS_VM_OPERATION, FALSE, processId));
  if (process_ == nullptr) throw Failure("cannot open the program's memory");
  mapping_.reset(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                    static_cast<DWORD>(size), nullptr));
  own_ = mapping_ ? MapViewOfFile(mapping_.get(), FILE_MAP_WRITE, 0, 0, size) : nullptr;
  const auto map = KernelFunction<MapIntoProcess>("MapViewOfFile3");
  if (own_ != nullptr && map != nullptr) {
    block_ = map(mapping_.get(), process_.get(), nullptr, 0, 0, 0, PAGE_READWRITE, nullptr, 0);
  }
  if (block_ == nullptr) {
    if (own_ != nullptr) UnmapViewOfFile(own_);
    throw Failure("cannot share memory with the program");
  }
}

RemoteMemory::~RemoteMemory() {
  UnmapViewOfFile(own_);
  const auto unmap = KernelFunction<UnmapFromProcess>("UnmapViewOfFile2");
  if (unmap != nullptr) unmap(process_.get(), block_, 0);
}

void* RemoteMemory::At(std::size_t offset) const {
  return static_cast<char*>(block_) + offset;
}

char* RemoteMemory::Place(std::size_t offset, std::size_t size) const {
  if (offset + size > size_) throw Failure("no such place in the shared memory");
  return static_cast<char*>(own_) + offset;
}

void RemoteMemory::Write(std::size_t offset, const void* source, std::size_t size) {
  std::memcpy(Place(offset, size), source, size);
}

void RemoteMemory::Read(std::size_t offset, void* target, std::size_t size) const {
  std::memcpy(target, Place(offset, size), size);
}

std::wstring RemoteMemory::ReadText(std::size_t offset, std::size_t maximum) const {
  const auto* const text =
      reinterpret_cast<const wchar_t*>(Place(offset, maximum * sizeof(wchar_t)));
  return {text, wcsnlen(text, maximum)};
}

}  // namespace driver
