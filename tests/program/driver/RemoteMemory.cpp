#include "tests/program/driver/RemoteMemory.h"

#include "tests/program/driver/Failure.h"

namespace driver {

RemoteMemory::RemoteMemory(DWORD processId, std::size_t size) : size_(size) {
  process_.reset(
      OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processId));
  if (process_ == nullptr) throw Failure("cannot open the program's memory");
  block_ = VirtualAllocEx(process_.get(), nullptr, size, MEM_COMMIT, PAGE_READWRITE);
  if (block_ == nullptr) throw Failure("cannot allocate in the program");
}

RemoteMemory::~RemoteMemory() {
  VirtualFreeEx(process_.get(), block_, 0, MEM_RELEASE);
}

void* RemoteMemory::At(std::size_t offset) const {
  return static_cast<char*>(block_) + offset;
}

void RemoteMemory::Write(std::size_t offset, const void* source, std::size_t size) {
  if (offset + size > size_ ||
      !WriteProcessMemory(process_.get(), At(offset), source, size, nullptr)) {
    throw Failure("cannot write into the program");
  }
}

void RemoteMemory::Read(std::size_t offset, void* target, std::size_t size) const {
  if (offset + size > size_ ||
      !ReadProcessMemory(process_.get(), At(offset), target, size, nullptr)) {
    throw Failure("cannot read from the program");
  }
}

std::wstring RemoteMemory::ReadText(std::size_t offset, std::size_t maximum) const {
  std::wstring text(maximum, L'\0');
  Read(offset, text.data(), maximum * sizeof(wchar_t));
  text.resize(wcsnlen(text.c_str(), maximum));
  return text;
}

}  // namespace driver
