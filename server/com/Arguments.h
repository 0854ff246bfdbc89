#pragma once

#include <windows.h>

#include <oleauto.h>

#include <array>
#include <cstdint>
#include <string_view>

#include "automation/Bstr.h"
#include "data/Value.h"

namespace server::com {

// The arguments of a late-bound call, by position from 0. Numbers and texts of other types than the
// declared ones are converted: a script passes small integers, references and texts as it has them.
// What cannot be converted is a CallError.
class Arguments {
 public:
  explicit Arguments(const DISPPARAMS& call) : call_(call) {}
  Arguments(const Arguments&) = delete;
  Arguments& operator=(const Arguments&) = delete;

  std::int32_t Integer(unsigned at) const;
  // Holds as long as the arguments.
  std::wstring_view Text(unsigned at);
  data::FieldValue Field(unsigned at) const;
  bool IsText(unsigned at) const;

  // Write to an argument that the caller passed a reference for.
  void PutText(unsigned at, std::wstring_view text);
  void PutInteger(unsigned at, std::int32_t number);

 private:
  static constexpr unsigned kMostTexts = 3;

  // Arguments arrive last first.
  VARIANT& Value(unsigned at) const { return call_.rgvarg[call_.cArgs - 1 - at]; }

  const DISPPARAMS& call_;
  std::array<automation::SecretBstr, kMostTexts> converted_;  // one of them may be a password
};

}  // namespace server::com
