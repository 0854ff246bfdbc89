#include "com/Apartment.h"

#include <objbase.h>

#include "data/RunTimeError.h"

namespace com {

Apartment::Apartment() {
  const HRESULT result = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
  if (FAILED(result)) throw data::RunTimeError(result);
}

Apartment::~Apartment() {
  CoUninitialize();
}

}  // namespace com
