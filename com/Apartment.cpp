#include "com/Apartment.h"

#include <objbase.h>

#include <memory>

#include "automation/Adopt.h"
#include "com/MessageFilter.h"
#include "data/RunTimeError.h"

namespace com {

Apartment::Apartment(std::function<bool()> waitsOn) {
  const HRESULT result = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
  if (FAILED(result)) throw data::RunTimeError(result);
  // The system keeps it until another one takes its place.
  const auto filter =
      automation::Adopt<IMessageFilter>(std::make_unique<MessageFilter>(std::move(waitsOn)));
  CoRegisterMessageFilter(filter.Get(), nullptr);
}

Apartment::~Apartment() {
  CoRegisterMessageFilter(nullptr, nullptr);
  CoUninitialize();
}

}  // namespace com
