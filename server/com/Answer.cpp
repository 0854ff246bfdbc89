#include "server/com/Answer.h"

#include "automation/Bstr.h"

namespace server::com {

void Put(VARIANT& answer, std::int32_t number) {
  answer.vt = VT_I4;
  answer.lVal = number;
}

void Put(VARIANT& answer, bool truth) {
  answer.vt = VT_BOOL;
  answer.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
}

void Put(VARIANT& answer, std::wstring_view text) {
  answer.bstrVal = automation::Bstr(text).Detach();
  answer.vt = VT_BSTR;
}

void Put(VARIANT& answer, const data::ColumnValue& value) {
  if (value.IsNull()) {
    answer.vt = VT_NULL;
  } else if (!value.IsNumber()) {
    Put(answer, value.BorrowedText());
  } else if (value.Number() == static_cast<std::int32_t>(value.Number())) {
    Put(answer, static_cast<std::int32_t>(value.Number()));
  } else {
    answer.vt = VT_I8;
    answer.llVal = value.Number();
  }
}

void Put(VARIANT& answer, IDispatch* object) {
  answer.vt = VT_DISPATCH;
  answer.pdispVal = object;
}

}  // namespace server::com
