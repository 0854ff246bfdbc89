#pragma once

#include <windows.h>

#include <oaidl.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <functional>
#include <string>
#include <vector>

#include "automation/ComObject.h"

namespace com_test {

// A call as the object gets it.
struct FakeCall {
  WORD kind;
  DISPPARAMS* params;
  VARIANT* result;
  EXCEPINFO* exception;

  // The argument at a position from 0, as it was passed.
  VARIANT& Argument(UINT at) const { return params->rgvarg[params->cArgs - 1 - at]; }
};

// A late-bound object written for the tests alone: each member does what the test says and has the
// number that the test says. It lives as long as somebody holds it.
class FakeObject final : public automation::ComObject<IDispatch, ISupportErrorInfo> {
 public:
  using Handler = std::function<HRESULT(const FakeCall& call)>;

  // Members are numbered from firstId, downwards for a negative one.
  static Microsoft::WRL::ComPtr<FakeObject> Make(DISPID firstId = 700);

  FakeObject& On(const wchar_t* name, Handler handler);
  // A member that gives this value, whatever it is asked.
  FakeObject& Gives(const wchar_t* name, const VARIANT& value);

  // Whether the object says that its failures leave an error object behind.
  bool supportsErrorInfo = false;
  // Whether it can be called late-bound at all.
  bool isDispatch = true;
  // What happens, besides the ordinary, when the object is asked for an interface or a number, and
  // when its last reference goes.
  std::function<void()> onQuery;
  std::function<void()> onLookup;
  std::function<void()> onLastRelease;

  int queries = 0;
  int lookups = 0;
  int calls = 0;
  ULONG References() const { return ComObject::References(); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception, UINT* wrong) override;
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override;

 private:
  struct Entry {
    std::wstring name;
    DISPID id;
    Handler handler;
  };

  explicit FakeObject(DISPID firstId) : nextId_(firstId) {}

  DISPID nextId_;
  std::vector<Entry> entries_;
};

// Puts a copy of a value where a caller wants one.
HRESULT Give(VARIANT* target, VARIANT value);

// Values for members to give.
VARIANT Value(std::int32_t number);
VARIANT SmallValue(std::int16_t number);
VARIANT RealValue(double number);
VARIANT NullValue();
VARIANT ObjectValue(IDispatch* object);
// The text is never freed: it is a test's constant.
VARIANT TextValue(const wchar_t* text);

}  // namespace com_test
