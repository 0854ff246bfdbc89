#include "data/ReadScope.h"

#include <utility>

#include "data/RunTimeError.h"

namespace data {

ReadScope::ReadScope(Connection& connection) : connection_(&connection) {
  connection.BeginRead();
}

ReadScope::~ReadScope() {
  if (connection_ == nullptr) return;
  try {
    connection_->EndRead();
  } catch (const RunTimeError&) {
    // The error that ends the scope early is the one worth reporting.
  }
}

void ReadScope::Finish() {
  std::exchange(connection_, nullptr)->EndRead();
}

}  // namespace data
