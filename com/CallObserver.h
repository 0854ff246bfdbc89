#pragma once

namespace com {

// Told whenever the session server is called, so that the program can keep its windows from taking
// input meanwhile: a server may handle messages while it works, as a dialog of its own does, and
// nothing else of the program must begin inside such a call. Calls may be nested.
class CallObserver {
 public:
  virtual ~CallObserver() = default;

  virtual void CallBegins() noexcept = 0;
  virtual void CallEnds() noexcept = 0;

  // Between the two all reads see one state of the database, and nobody is to be asked anything.
  virtual void ReadBegins() noexcept {}
  virtual void ReadEnds() noexcept {}
};

}  // namespace com
