#ifdef _WIN32

#include <windows.h>

#include <dpapi.h>
#include <sddl.h>

#include <cstddef>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "server/core/sessions/PrivateFile.h"

namespace server {
namespace {

struct HandleCloser {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, HandleCloser>;

struct LocalCloser {
  void operator()(void* memory) const { LocalFree(memory); }
};
template <class T>
using Local = std::unique_ptr<T, LocalCloser>;

// The user of this process, in the letters of a security descriptor; empty when that is not known.
std::wstring CurrentUser() {
  HANDLE token = nullptr;
  if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) == 0) return {};
  const Handle owner(token);
  DWORD size = 0;
  GetTokenInformation(token, TokenUser, nullptr, 0, &size);
  std::vector<std::max_align_t> buffer(size / sizeof(std::max_align_t) + 1);
  if (GetTokenInformation(token, TokenUser, buffer.data(), size, &size) == 0) return {};
  wchar_t* letters = nullptr;
  const auto* user = reinterpret_cast<const TOKEN_USER*>(buffer.data());
  if (ConvertSidToStringSidW(user->User.Sid, &letters) == 0) return {};
  const Local<wchar_t> released(letters);
  return letters;
}

}  // namespace

bool WritePrivateFile(const std::filesystem::path& file, std::string_view bytes) {
  const std::wstring user = CurrentUser();
  if (user.empty()) return false;
  // Nothing inherited from the folder, all rights to the one user, none to anybody else.
  const std::wstring descriptor = L"D:P(A;;FA;;;" + user + L")";
  PSECURITY_DESCRIPTOR security = nullptr;
  if (ConvertStringSecurityDescriptorToSecurityDescriptorW(descriptor.c_str(), SDDL_REVISION_1,
                                                           &security, nullptr) == 0) {
    return false;
  }
  const Local<void> released(security);
  SECURITY_ATTRIBUTES attributes{sizeof(SECURITY_ATTRIBUTES), security, FALSE};
  const HANDLE raw = CreateFileW(file.c_str(), GENERIC_WRITE, 0, &attributes, CREATE_NEW,
                                 FILE_ATTRIBUTE_NORMAL, nullptr);
  if (raw == INVALID_HANDLE_VALUE) return false;
  const Handle handle(raw);
  DWORD written = 0;
  return WriteFile(raw, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != 0 &&
         written == bytes.size();
}

namespace {

DATA_BLOB BlobOf(std::string& bytes) {
  return {static_cast<DWORD>(bytes.size()), reinterpret_cast<BYTE*>(bytes.data())};
}

std::string TakeBlob(const DATA_BLOB& blob) {
  const Local<void> released(blob.pbData);
  return {reinterpret_cast<const char*>(blob.pbData), blob.cbData};
}

}  // namespace

bool WriteSecret(const std::filesystem::path& file, std::string_view text) {
  std::string plain(text);
  DATA_BLOB in = BlobOf(plain);
  DATA_BLOB out{};
  const BOOL done =
      CryptProtectData(&in, nullptr, nullptr, nullptr, nullptr, CRYPTPROTECT_UI_FORBIDDEN, &out);
  SecureZeroMemory(plain.data(), plain.size());
  return done != 0 && WritePrivateFile(file, TakeBlob(out));
}

std::optional<std::string> ReadSecret(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return std::nullopt;
  std::string sealed(std::istreambuf_iterator<char>(stream), {});
  DATA_BLOB in = BlobOf(sealed);
  DATA_BLOB out{};
  if (CryptUnprotectData(&in, nullptr, nullptr, nullptr, nullptr, CRYPTPROTECT_UI_FORBIDDEN,
                         &out) == 0) {
    return std::nullopt;
  }
  return TakeBlob(out);
}

}  // namespace server

#endif
