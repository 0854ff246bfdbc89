#include "VardexLibrary.h"

#include <gtest/gtest.h>

#include <oleauto.h>

#include <map>

#include "FakeObject.h"
#include "server/com/Identity.h"

using Microsoft::WRL::ComPtr;

namespace com_test {
namespace {

HRESULT Call(IDispatch* object, const wchar_t* name, std::vector<VARIANT> reversed, VARIANT* result,
             EXCEPINFO* exception = nullptr, UINT* wrong = nullptr) {
  auto text = const_cast<wchar_t*>(name);
  DISPID id = 0;
  const HRESULT found = object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(found)) return found;
  DISPPARAMS params{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, result,
                        exception, wrong);
}

TEST(VardexLibrary, KnowsItsOwnClassOnly) {
  const VardexLibrary library;
  void* object = nullptr;
  EXPECT_EQ(S_OK, library.GetClass(server::com::kClassId, IID_IClassFactory, &object));
  static_cast<IUnknown*>(object)->Release();
  EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE, library.GetClass(IID_IDispatch, IID_IUnknown, &object));
  EXPECT_EQ(nullptr, object);
  EXPECT_TRUE(library.MayUnload());
}

TEST(VardexLibrary, StaysWhileALockIsHeld) {
  const VardexLibrary library;
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(S_OK, library.GetClass(server::com::kClassId, IID_PPV_ARGS(factory.GetAddressOf())));
  factory->LockServer(TRUE);
  ComPtr<IDispatch> outer = library.MakeServer();
  void* object = nullptr;
  EXPECT_EQ(CLASS_E_NOAGGREGATION, factory->CreateInstance(outer.Get(), IID_IUnknown, &object));
  outer.Reset();
  IClassFactory* const last = factory.Get();
  EXPECT_FALSE(library.MayUnload());
  last->LockServer(FALSE);
  factory.Reset();
  EXPECT_TRUE(library.MayUnload());
}

TEST(VardexLibrary, TakesSmallIntegersAndReferencesAsScriptsPassThem) {
  const VardexLibrary library;
  const ComPtr<IDispatch> server = library.MakeServer();
  VARIANT text{};
  VARIANT id{};
  VARIANT textReference{};
  textReference.vt = VT_BYREF | VT_VARIANT;
  textReference.pvarVal = &text;
  VARIANT idReference = textReference;
  idReference.pvarVal = &id;
  const std::wstring token(64, L'a');
  const std::wstring line = L"/source:test /token:" + token + L" /session:9";
  ASSERT_EQ(S_OK, Call(server.Get(), L"readcommandline",
                       {idReference, textReference, TextValue(line.c_str())}, nullptr));
  EXPECT_EQ(VT_BSTR, text.vt);
  EXPECT_EQ(VT_I4, id.vt);
  EXPECT_EQ(9, id.lVal);
  VariantClear(&text);
  EXPECT_EQ(DISP_E_EXCEPTION, Call(server.Get(), L"SetMode", {SmallValue(1)}, nullptr));
}

TEST(VardexLibrary, RefusesACallThatIsWrongInItself) {
  const VardexLibrary library;
  const ComPtr<IDispatch> server = library.MakeServer();
  UINT wrong = 99;
  EXPECT_EQ(DISP_E_UNKNOWNNAME, Call(server.Get(), L"Nothing", {}, nullptr));
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, Call(server.Get(), L"SetMode", {}, nullptr));
  EXPECT_EQ(DISP_E_TYPEMISMATCH,
            Call(server.Get(), L"SetMode", {TextValue(L"one")}, nullptr, nullptr, &wrong));
  EXPECT_EQ(0U, wrong);
  EXPECT_EQ(DISP_E_TYPEMISMATCH,
            Call(server.Get(), L"ShowAbout", {TextValue(L"x"), Value(0), TextValue(L"uadmin.exe")},
                 nullptr, nullptr, &wrong));
  EXPECT_EQ(0U, wrong) << "counted from the last argument";
  DISPPARAMS none{};
  EXPECT_EQ(DISP_E_MEMBERNOTFOUND,
            server->Invoke(99, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr));
  EXPECT_EQ(DISP_E_MEMBERNOTFOUND,
            server->Invoke(6, IID_NULL, 0, DISPATCH_PROPERTYPUT, &none, nullptr, nullptr, nullptr));
}

TEST(VardexLibrary, DescribesAFailureBothWays) {
  const VardexLibrary library;
  const ComPtr<IDispatch> server = library.MakeServer();
  EXCEPINFO exception{};
  VARIANT rights{};
  ASSERT_EQ(DISP_E_EXCEPTION, Call(server.Get(), L"GetRights", {}, &rights, &exception));
  EXPECT_STREQ(server::com::kProgId, exception.bstrSource);
  ComPtr<IErrorInfo> info;
  ASSERT_EQ(S_OK, GetErrorInfo(0, info.GetAddressOf()));
  BSTR text = nullptr;
  info->GetDescription(&text);
  EXPECT_STREQ(exception.bstrDescription, text);
  SysFreeString(text);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
}

// The members of an interface as the type library has them: name to number.
std::map<std::wstring, DISPID> MembersIn(ITypeInfo* info) {
  std::map<std::wstring, DISPID> members;
  TYPEATTR* attributes = nullptr;
  info->GetTypeAttr(&attributes);
  for (UINT i = 0; i < attributes->cFuncs; ++i) {
    FUNCDESC* function = nullptr;
    info->GetFuncDesc(i, &function);
    BSTR name = nullptr;
    UINT count = 0;
    info->GetNames(function->memid, &name, 1, &count);
    const bool own = function->memid > 0 && function->memid < 0x1000;
    if (own) members[name] = function->memid;
    SysFreeString(name);
    info->ReleaseFuncDesc(function);
  }
  info->ReleaseTypeAttr(attributes);
  return members;
}

TEST(VardexLibrary, IsWhatItsTypeLibrarySays) {
  const VardexLibrary library;
  const ComPtr<IDispatch> server = library.MakeServer();
  UINT count = 0;
  ASSERT_EQ(S_OK, server->GetTypeInfoCount(&count));
  ASSERT_EQ(1U, count);
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(S_OK, server->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.GetAddressOf()));
  const auto members = MembersIn(info.Get());
  EXPECT_EQ(11U, members.size());
  for (const auto& [name, number] : members) {
    auto text = const_cast<wchar_t*>(name.c_str());
    DISPID id = 0;
    EXPECT_EQ(S_OK, server->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id));
    EXPECT_EQ(number, id);
  }
}

TEST(VardexLibrary, DescribesItsOtherObjectsToo) {
  ComPtr<ITypeLib> types;
  ASSERT_EQ(S_OK,
            LoadTypeLibEx(BuiltFile(L"vardex.dll").c_str(), REGKIND_NONE, types.GetAddressOf()));
  for (const auto& [id, count] :
       {std::pair{server::com::kConnectionId, 4U}, std::pair{server::com::kResultSetId, 9U}}) {
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(S_OK, types->GetTypeInfoOfGuid(id, info.GetAddressOf()));
    EXPECT_EQ(count, MembersIn(info.Get()).size());
  }
}

}  // namespace
}  // namespace com_test
