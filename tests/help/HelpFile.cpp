#include "HelpFile.h"

#include <cstdint>
#include <cstring>

namespace help_test {
namespace {

using Microsoft::WRL::ComPtr;

constexpr CLSID kStorageClass = {
    0x5D02926A, 0x212E, 0x11D0, {0x9D, 0xF9, 0x00, 0xA0, 0xC9, 0x22, 0xE6, 0xEC}};

// The system's storage for compiled help files, as the table of its members: no header declares it.
// Of the members only one is called here; the others stand for their places.
struct HelpStorage {
  struct Members {
    void* ofEveryObject[3];
    void* notCalled[4];
    HRESULT(STDMETHODCALLTYPE* StgOpenStorage)
    (HelpStorage* self, const wchar_t* file, IStorage* priority, DWORD mode, SNB exclude,
     DWORD reserved, IStorage** opened);
  };
  const Members* members;
};
constexpr IID kHelpStorage = {
    0x88CC31DE, 0x27AB, 0x11D0, {0x9D, 0xF9, 0x00, 0xA0, 0xC9, 0x22, 0xE6, 0xEC}};

std::uint32_t Number(const std::string& bytes, std::size_t at) {
  std::uint32_t number = 0;
  std::memcpy(&number, bytes.data() + at, sizeof number);
  return number;
}

}  // namespace

HelpFile::HelpFile() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  ComPtr<IUnknown> files;
  if (FAILED(CoCreateInstance(kStorageClass, nullptr, CLSCTX_INPROC_SERVER, kHelpStorage,
                              reinterpret_cast<void**>(files.GetAddressOf())))) {
    return;
  }
  const auto storage = reinterpret_cast<HelpStorage*>(files.Get());
  storage->members->StgOpenStorage(storage, Path().c_str(), nullptr,
                                   STGM_READ | STGM_SHARE_DENY_WRITE, nullptr, 0,
                                   storage_.GetAddressOf());
}

HelpFile::~HelpFile() {
  storage_.Reset();
  CoUninitialize();
}

std::wstring HelpFile::Path() {
  wchar_t program[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  std::wstring path(program);
  path.erase(path.find_last_of(L'\\'));
  path.erase(path.find_last_of(L'\\'));
  return path + L"\\bin\\ORMEX.chm";
}

std::string HelpFile::Raw() {
  const HANDLE file = CreateFileW(Path().c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return {};
  std::string bytes(GetFileSize(file, nullptr), '\0');
  DWORD read = 0;
  ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
  CloseHandle(file);
  bytes.resize(read);
  return bytes;
}

std::optional<std::string> HelpFile::Read(const std::string& name) const {
  const std::wstring wide(name.begin(), name.end());
  ComPtr<IStream> stream;
  if (FAILED(storage_->OpenStream(wide.c_str(), nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0,
                                  stream.GetAddressOf()))) {
    return std::nullopt;
  }
  std::string bytes;
  char part[4096];
  ULONG read = 0;
  while (SUCCEEDED(stream->Read(part, sizeof part, &read)) && read > 0) bytes.append(part, read);
  return bytes;
}

std::map<int, std::string> HelpFile::Topics() const {
  const std::string table = Read("#IVB").value_or("");
  const std::string strings = Read("#STRINGS").value_or("");
  std::map<int, std::string> topics;
  // The table's size comes first, then a topic number and a place in the strings each.
  for (std::size_t at = 4; at + 8 <= table.size(); at += 8) {
    const std::size_t place = Number(table, at + 4);
    if (place < strings.size()) topics[static_cast<int>(Number(table, at))] = &strings[place];
  }
  return topics;
}

}  // namespace help_test
