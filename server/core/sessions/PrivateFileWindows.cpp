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

#include "data/Text.h"
#include "server/core/sessions/PrivateFile.h"
#include "server/core/sessions/PrivateFileAccess.h"

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

// An account as a security descriptor has it.
std::wstring Letters(PSID account) {
  wchar_t* letters = nullptr;
  if (ConvertSidToStringSidW(account, &letters) == 0) return {};
  const Local<wchar_t> released(letters);
  return letters;
}

// The same of a group, empty when nobody knows it. A user's name is none.
std::wstring GroupLetters(std::string_view name) {
  const std::wstring wide = data::FromUtf8(name);
  DWORD size = 0;
  DWORD domainSize = 0;
  SID_NAME_USE kind = SidTypeUnknown;
  LookupAccountNameW(nullptr, wide.c_str(), nullptr, &size, nullptr, &domainSize, &kind);
  std::vector<std::max_align_t> buffer(size / sizeof(std::max_align_t) + 1);
  std::wstring domain(domainSize + 1, L'\0');
  if (name.empty() || LookupAccountNameW(nullptr, wide.c_str(), buffer.data(), &size, domain.data(),
                                         &domainSize, &kind) == 0) {
    return {};
  }
  const bool group = kind == SidTypeGroup || kind == SidTypeAlias || kind == SidTypeWellKnownGroup;
  return group ? Letters(buffer.data()) : std::wstring();
}

// The user of this process; empty when that is not known.
std::wstring CurrentUser() {
  HANDLE token = nullptr;
  if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) == 0) return {};
  const Handle owner(token);
  DWORD size = 0;
  GetTokenInformation(token, TokenUser, nullptr, 0, &size);
  std::vector<std::max_align_t> buffer(size / sizeof(std::max_align_t) + 1);
  if (GetTokenInformation(token, TokenUser, buffer.data(), size, &size) == 0) return {};
  return Letters(reinterpret_cast<const TOKEN_USER*>(buffer.data())->User.Sid);
}

}  // namespace

// P: nothing is inherited from the folder. SY is the system, BA the group of administrators.
std::wstring PrivateFileAccess(const std::wstring& user, const std::wstring& group) {
  const std::wstring access = L"D:P(A;;FA;;;" + user + L")(A;;FA;;;SY)(A;;FA;;;BA)";
  return group.empty() ? access : access + L"(A;;FR;;;" + group + L")";
}

bool IsGroup(std::string_view name) {
  return !GroupLetters(name).empty();
}

bool WritePrivateFile(const std::filesystem::path& file, std::string_view bytes,
                      std::string_view group) {
  const std::wstring user = CurrentUser();
  const std::wstring members = GroupLetters(group);
  if (user.empty() || (members.empty() && !group.empty())) return false;
  const std::wstring descriptor = PrivateFileAccess(user, members);
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

// Encrypted for the user it could be read by nobody else whom the file names.
bool WriteSecret(const std::filesystem::path& file, std::string_view text, std::string_view group) {
  std::string plain(text);
  DATA_BLOB in = BlobOf(plain);
  DATA_BLOB out{};
  const BOOL done = CryptProtectData(&in, nullptr, nullptr, nullptr, nullptr,
                                     CRYPTPROTECT_UI_FORBIDDEN | CRYPTPROTECT_LOCAL_MACHINE, &out);
  SecureZeroMemory(plain.data(), plain.size());
  return done != 0 && WritePrivateFile(file, TakeBlob(out), group);
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
