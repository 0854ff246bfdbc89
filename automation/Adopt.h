#pragma once

#include <wrl/client.h>

#include <memory>

namespace automation {

// Holds a new object by the one reference that it was made with. ComPtr's own Attach is of no use
// for that: the compiler's version of it counts another reference.
template <typename Interface, typename Object>
Microsoft::WRL::ComPtr<Interface> Adopt(std::unique_ptr<Object> made) {
  Microsoft::WRL::ComPtr<Interface> held;
  *held.GetAddressOf() = made.release();
  return held;
}

}  // namespace automation
