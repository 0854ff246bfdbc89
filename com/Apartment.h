#pragma once

#include <functional>

namespace com {

// The single-threaded apartment that the session server lives in. Made by the main function before
// the first call, and outliving every object that was called. Raises the HRESULT's number when the
// thread cannot have one.
class Apartment {
 public:
  // waitsOn is asked whether to go on waiting for a server in another process that has been busy
  // for a while (see MessageFilter.h); without it such a call fails then.
  explicit Apartment(std::function<bool()> waitsOn = {});
  ~Apartment();
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

}  // namespace com
