#include "ClassEntry.h"

#include <oleauto.h>

#include <memory>

#include "automation/Adopt.h"
#include "automation/ComObject.h"

using Microsoft::WRL::ComPtr;

namespace com_test {
namespace {

#ifdef _WIN64
constexpr REGSAM kOtherView = KEY_WOW64_32KEY;
#else
constexpr REGSAM kOtherView = KEY_WOW64_64KEY;
#endif

void Write(const std::wstring& path, const std::wstring& text, REGSAM view = 0) {
  HKEY key = nullptr;
  RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_WRITE | view, nullptr, &key,
                  nullptr);
  RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                 static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
  RegCloseKey(key);
}

void Remove(const std::wstring& path, REGSAM view = 0) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_ALL_ACCESS | view, &key) != 0) return;
  RegDeleteTreeW(key, nullptr);
  RegCloseKey(key);
  RegDeleteKeyExW(HKEY_CLASSES_ROOT, path.c_str(), view, 0);
}

// Gives out one and the same object whenever one is asked for.
class InstanceFactory final : public automation::ComObject<IClassFactory> {
 public:
  explicit InstanceFactory(IDispatch* instance) : instance_(instance) {}

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
    return instance_->QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  ComPtr<IDispatch> instance_;
};

class FailingFactory final : public automation::ComObject<IClassFactory> {
 public:
  FailingFactory(HRESULT result, const wchar_t* text) : result_(result), text_(text) {}

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, void** object) override {
    *object = nullptr;
    ComPtr<ICreateErrorInfo> creation;
    ComPtr<IErrorInfo> info;
    CreateErrorInfo(creation.GetAddressOf());
    creation->SetDescription(text_.data());
    if (SUCCEEDED(creation.As(&info))) SetErrorInfo(0, info.Get());
    return result_;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  HRESULT result_;
  std::wstring text_;
};

DWORD Announce(const CLSID& classId, IClassFactory* factory) {
  DWORD cookie = 0;
  CoRegisterClassObject(classId, factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie);
  return cookie;
}

}  // namespace

ClassEntry::ClassEntry() {
  CoCreateGuid(&classId_);
  wchar_t text[39] = {};
  StringFromGUID2(classId_, text, 39);
  classIdText_ = text;
  progId_ = L"UadminTest.C" + classIdText_.substr(1, 8) + L".1";
  Write(progId_ + L"\\CLSID", classIdText_);
}

ClassEntry::~ClassEntry() {
  Remove(progId_);
  Remove(L"CLSID\\" + classIdText_);
  Remove(L"CLSID\\" + classIdText_, kOtherView);
}

void ClassEntry::SetLibrary(const std::wstring& file) {
  Write(L"CLSID\\" + classIdText_ + L"\\InprocServer32", file);
}

void ClassEntry::SetProgram(const std::wstring& commandLine) {
  Write(L"CLSID\\" + classIdText_ + L"\\LocalServer32", commandLine);
}

void ClassEntry::SetLibraryOfTheOtherView(const std::wstring& file) {
  Write(L"CLSID\\" + classIdText_ + L"\\InprocServer32", file, kOtherView);
}

FailingClass::FailingClass(const CLSID& classId, HRESULT result, const wchar_t* text)
    : cookie_(Announce(
          classId,
          automation::Adopt<IClassFactory>(std::make_unique<FailingFactory>(result, text)).Get())) {
}

FailingClass::~FailingClass() {
  CoRevokeClassObject(cookie_);
}

RunningClass::RunningClass(const CLSID& classId, IDispatch* instance)
    : cookie_(Announce(
          classId,
          automation::Adopt<IClassFactory>(std::make_unique<InstanceFactory>(instance)).Get())) {}

RunningClass::~RunningClass() {
  CoRevokeClassObject(cookie_);
}

}  // namespace com_test
