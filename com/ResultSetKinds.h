#pragma once

#include <memory>
#include <vector>

#include "com/MemberIds.h"
#include "com/RemoteObject.h"

namespace com {

// A connection opens result sets by the ten thousand, nearly always of one class: their member
// numbers are kept here. A server may have several classes, though, and number each as it likes.
// Classes are told apart by their code, and by one question to each new object, since objects of
// several classes can share the code that dispatches their calls.
class ResultSetKinds {
 public:
  // Gives a new result set the numbers of its class.
  void Recognize(RemoteObject& resultSet);

 private:
  struct Kind {
    const void* code;
    std::shared_ptr<MemberIds> ids;
  };

  std::vector<Kind> kinds_;  // oldest first
};

}  // namespace com
