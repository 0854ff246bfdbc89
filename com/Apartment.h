#pragma once

namespace com {

// The single-threaded apartment that the session server lives in. Made by the main function before
// the first call, and outliving every object that was called. Raises the HRESULT's number when the
// thread cannot have one.
class Apartment {
 public:
  Apartment();
  ~Apartment();
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

}  // namespace com
