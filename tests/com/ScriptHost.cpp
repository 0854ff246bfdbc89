#include "ScriptHost.h"

#include <objbase.h>
#include <oleauto.h>

using Microsoft::WRL::ComPtr;

namespace com_test {
namespace {

ComPtr<IActiveScript> MakeEngine() {
  ComPtr<IActiveScript> engine;
  CLSID id{};
  if (FAILED(CLSIDFromProgID(L"VBScript", &id))) return {};
  CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(engine.GetAddressOf()));
  return engine;
}

}  // namespace

bool ScriptHost::Run(const std::wstring& script) {
  const ComPtr<IActiveScript> engine = MakeEngine();
  ComPtr<IActiveScriptParse> parser;
  if (engine == nullptr || FAILED(engine.As(&parser))) return false;
  engine->SetScriptSite(this);
  parser->InitNew();
  for (const auto& object : objects_) {
    engine->AddNamedItem(object.first.c_str(), SCRIPTITEM_ISVISIBLE);
  }
  engine->SetScriptState(SCRIPTSTATE_STARTED);
  parser->ParseScriptText(script.c_str(), nullptr, nullptr, nullptr, 0, 1, 0, nullptr, nullptr);
  engine->Close();
  return true;
}

HRESULT ScriptHost::QueryInterface(REFIID id, void** object) {
  const bool known = id == IID_IUnknown || id == IID_IActiveScriptSite;
  *object = known ? this : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

HRESULT ScriptHost::GetItemInfo(LPCOLESTR name, DWORD wanted, IUnknown** item, ITypeInfo** info) {
  if (info != nullptr) *info = nullptr;
  const auto found = objects_.find(name);
  if (found == objects_.end()) return TYPE_E_ELEMENTNOTFOUND;
  if ((wanted & SCRIPTINFO_IUNKNOWN) == 0) return E_NOTIMPL;
  return found->second.CopyTo(IID_IUnknown, reinterpret_cast<void**>(item));
}

HRESULT ScriptHost::OnScriptError(IActiveScriptError* error) {
  EXCEPINFO details{};
  error->GetExceptionInfo(&details);
  error_ = details.bstrDescription == nullptr ? L"?" : details.bstrDescription;
  SysFreeString(details.bstrSource);
  SysFreeString(details.bstrDescription);
  SysFreeString(details.bstrHelpFile);
  return S_OK;
}

}  // namespace com_test
