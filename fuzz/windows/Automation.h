#pragma once

#include "oleauto.h"

// What a fuzz target asks of the stand-in for OLE automation.
namespace fuzz {

// Has conversions fail from now on, after so many that go well, with this result; S_OK: never.
void FailConversions(unsigned after, HRESULT result);

}  // namespace fuzz
