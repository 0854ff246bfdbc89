#pragma once

#include <windows.h>

#include <activscp.h>
#include <wrl/client.h>

#include <map>
#include <string>

namespace com_test {

// Runs a script in the system's own VBScript engine, an automation client that nobody here wrote.
// It lives on the stack of the test, so its references are not counted.
class ScriptHost final : public IActiveScriptSite {
 public:
  // The script knows the object under this name.
  void Offer(const std::wstring& name, IDispatch* object) { objects_[name] = object; }
  // False when there is no engine.
  bool Run(const std::wstring& script);
  // The description of the error that stopped the script; empty when it ran to its end.
  const std::wstring& Error() const { return error_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetLCID(LCID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR name, DWORD wanted, IUnknown** item,
                                        ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override;
  HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }

 private:
  std::map<std::wstring, Microsoft::WRL::ComPtr<IDispatch>> objects_;
  std::wstring error_;
};

}  // namespace com_test
