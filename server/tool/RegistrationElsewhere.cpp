#ifndef _WIN32

#include "server/tool/Commands.h"
#include "server/tool/Registration.h"

namespace tool {
namespace {

[[noreturn]] void Refuse() {
  throw CommandError("registering is for Windows; elsewhere there is no COM to register with");
}

}  // namespace

void Register(const Arguments&, const Surroundings&) {
  Refuse();
}

void Unregister(const Arguments&, const Surroundings&) {
  Refuse();
}

}  // namespace tool

#endif
