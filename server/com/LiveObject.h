#pragma once

namespace server::com {

// Held by everything that forbids the library to be unloaded.
class LiveObject {
 public:
  LiveObject();
  ~LiveObject();
  LiveObject(const LiveObject&) = delete;
  LiveObject& operator=(const LiveObject&) = delete;

  // What a client asks for that wants the library to stay without holding an object.
  static void Lock();
  static void Unlock();

  // How many objects and locks there are.
  static long Count();
};

}  // namespace server::com
