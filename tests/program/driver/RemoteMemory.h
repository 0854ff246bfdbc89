#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

#include "tests/program/driver/Handle.h"

namespace driver {

// A block of memory that another process sees too, for the window messages that take a pointer and
// that the system does not carry over. Both processes must have the same word size.
class RemoteMemory {
 public:
  RemoteMemory(DWORD processId, std::size_t size);
  ~RemoteMemory();
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;

  // The address of a place in the block, as the other process sees it.
  void* At(std::size_t offset) const;
  std::size_t Size() const { return size_; }

  void Write(std::size_t offset, const void* source, std::size_t size);
  void Read(std::size_t offset, void* target, std::size_t size) const;
  // A text of up to maximum units, cut at its end mark.
  std::wstring ReadText(std::size_t offset, std::size_t maximum) const;

 private:
  char* Place(std::size_t offset, std::size_t size) const;

  UniqueHandle process_;
  UniqueHandle mapping_;
  void* own_ = nullptr;    // the block as this process sees it
  void* block_ = nullptr;  // and the other one
  std::size_t size_ = 0;
};

}  // namespace driver
