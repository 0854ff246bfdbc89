#pragma once

#include <windows.h>

#include "controls/NodeId.h"

// What messages carry in their two numbers and their answer: pointers, handles and references. The
// casts between them stand here and nowhere else.
namespace controls {

template <typename Pointed>
LPARAM AsLParam(Pointed* pointer) {
  return reinterpret_cast<LPARAM>(pointer);
}

template <typename Pointed>
WPARAM AsWParam(Pointed* pointer) {
  return reinterpret_cast<WPARAM>(pointer);
}

// The node that an item of a tree view stands for, which the item has as its parameter.
inline LPARAM AsLParam(NodeId node) {
  return IndexOf(node);
}
inline NodeId NodeIn(LPARAM parameter) {
  return static_cast<NodeId>(parameter);
}

// A handle or pointer that a message brings, or that is its answer.
template <typename Handle>
Handle HandleIn(LPARAM number) {
  return reinterpret_cast<Handle>(number);
}
template <typename Handle>
Handle HandleIn(WPARAM number) {
  return reinterpret_cast<Handle>(number);
}

// The structure to which a message points.
template <typename Structure>
Structure& StructIn(LPARAM number) {
  return *reinterpret_cast<Structure*>(number);
}

// The larger structure of which a notification shows the beginning.
template <typename Notification>
Notification& NotificationIn(NMHDR& header) {
  return reinterpret_cast<Notification&>(header);
}

}  // namespace controls
