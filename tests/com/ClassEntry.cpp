#include "ClassEntry.h"

#include <memory>

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
class InstanceFactory final : public IClassFactory {
 public:
  explicit InstanceFactory(IDispatch* instance) : instance_(instance) {}
  virtual ~InstanceFactory() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) const std::unique_ptr<InstanceFactory> last(this);
    return left;
  }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
    return instance_->QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  ComPtr<IDispatch> instance_;
  ULONG references_ = 0;
};

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

void ClassEntry::SetLibraryOfTheOtherView(const std::wstring& file) {
  Write(L"CLSID\\" + classIdText_ + L"\\InprocServer32", file, kOtherView);
}

RunningClass::RunningClass(const CLSID& classId, IDispatch* instance) {
  const ComPtr<IClassFactory> factory(std::make_unique<InstanceFactory>(instance).release());
  CoRegisterClassObject(classId, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_);
}

RunningClass::~RunningClass() {
  CoRevokeClassObject(cookie_);
}

}  // namespace com_test
