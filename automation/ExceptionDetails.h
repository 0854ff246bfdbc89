#pragma once

#include <windows.h>

#include <oaidl.h>
#include <oleauto.h>

#include <initializer_list>

namespace automation {

// What a callee writes about a failure, usable as an EXCEPINFO; owns the texts in it.
class ExceptionDetails : public EXCEPINFO {
 public:
  ExceptionDetails() : EXCEPINFO{} {}
  // Every call has one, by the million, and hardly any fails: the system is asked only where there
  // is something to free.
  ~ExceptionDetails() {
    for (const BSTR text : {bstrSource, bstrDescription, bstrHelpFile}) {
      if (text != nullptr) SysFreeString(text);
    }
  }
  // Drops what a callee that died may have left half written, without freeing it.
  void Forget() { static_cast<EXCEPINFO&>(*this) = EXCEPINFO{}; }
  ExceptionDetails(const ExceptionDetails&) = delete;
  ExceptionDetails& operator=(const ExceptionDetails&) = delete;
};

}  // namespace automation
