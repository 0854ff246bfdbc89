#pragma once

#include "automation/Variant.h"
#include "com/RemotePointer.h"
#include "com/ServerState.h"

namespace com {

// Whether a value is at hand as it is: no reference into the server's memory, and no object of the
// server, so that it can be converted, copied and freed without the server.
inline bool IsPlain(const VARIANT& value) {
  return (value.vt & ~VT_TYPEMASK) == 0 && value.vt != VT_DISPATCH && value.vt != VT_UNKNOWN &&
         value.vt != VT_RECORD;
}

// A value as the session server gave it, which may be or hold an object of the server: even to free
// it is a call then.
class RemoteValue {
 public:
  // Takes over what is in the value and leaves that empty.
  RemoteValue(ServerState& server, VARIANT& value);
  ~RemoteValue();
  RemoteValue(const RemoteValue&) = delete;
  RemoteValue& operator=(const RemoteValue&) = delete;

  // Replaces a reference by what it refers to.
  void Dereference();
  bool IsObject() const { return value_.vt == VT_DISPATCH || value_.vt == VT_UNKNOWN; }
  // The object that is the value, which is left empty. Raises 424 when it is none, 91 when it is no
  // object at all. Null, and the server's answer in result, when it cannot be called late-bound.
  RemotePointer<IDispatch> TakeObject(HRESULT& result);
  // Gives out what is no object. Raises 13 for what is not plain, an array for instance.
  void TakePlain(VARIANT& target);

 private:
  ServerState& server_;
  VARIANT value_;
};

}  // namespace com
