#pragma once

#include <string>

#include "controls/ControlState.h"

namespace controls {

// A control in memory. Each kind derives its own and adds its state.
struct Control::Peer : ControlModel {
  virtual ~Peer() = default;

  // Back to the state in which a load finds the control.
  void Restart() {
    state = {};
    RestartKind();
  }

  // What Enter and the space bar do to the control; only a button takes Enter for itself.
  virtual void PressEnter() {}
  virtual void PressSpace() {}
  // The caption in which a mnemonic may be marked; empty for kinds without one.
  virtual std::wstring MarkedCaption() const { return {}; }

  // Whether a user can work with the control, its container included.
  bool Usable() const { return state.IsEnabled() && state.IsVisible(); }

 protected:
  virtual void RestartKind() {}
};

// The peer of a control whose kind is known.
template <class KindPeer>
KindPeer& PeerOf(const Control& control) {
  return static_cast<KindPeer&>(control.BackEnd());
}

}  // namespace controls
