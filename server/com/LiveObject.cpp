#include "server/com/LiveObject.h"

#include <atomic>

namespace server::com {
namespace {

// The system asks the library as a whole whether it may go, so the library as a whole has to count.
std::atomic<long>& Counter() {
  static std::atomic<long> counter = 0;
  return counter;
}

}  // namespace

LiveObject::LiveObject() {
  Lock();
}

LiveObject::~LiveObject() {
  Unlock();
}

void LiveObject::Lock() {
  ++Counter();
}

void LiveObject::Unlock() {
  --Counter();
}

long LiveObject::Count() {
  return Counter();
}

}  // namespace server::com
