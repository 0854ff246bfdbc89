#include "com/ServerState.h"

#include <utility>

#include "data/RunTimeError.h"

namespace com {

ServerState::ServerState(ServerTexts texts, CallObserver* observer)
    : texts_(std::move(texts)), observer_(observer) {}

void ServerState::RaiseLost() const {
  throw data::RunTimeError(static_cast<long>(fault_), texts_.lost);
}

}  // namespace com
