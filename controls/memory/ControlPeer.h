#pragma once

#include "controls/Control.h"

namespace controls {

class Frame;

// What a control keeps in memory. Each kind derives its own and adds its state.
struct Control::Peer {
  virtual ~Peer() = default;

  // Back to the state in which a load finds the control.
  void Start();

  virtual bool TakesFocus() const { return false; }
  virtual void FocusGained() {}
  // Whether Enter presses the control, and what Enter and the space bar then do to it.
  virtual bool TakesEnter() const { return false; }
  virtual void PressEnter(Control&) {}
  virtual void PressSpace(Control&) {}
  // The caption in which a mnemonic may be marked; empty for kinds without one.
  virtual std::wstring MarkedCaption() const { return {}; }

  // Whether the control is on view, and whether a user can work with it, its container included.
  bool Shown() const;
  bool Usable() const;

  bool enabled = true;
  bool visible = true;
  const Frame* container = nullptr;
  Font font;
  unsigned anchors = kAnchorLeft | kAnchorTop;

 protected:
  virtual void StartKind() {}
};

// The peer of a control whose kind is known.
template <class KindPeer>
KindPeer& PeerOf(const Control& control) {
  return static_cast<KindPeer&>(control.BackEnd());
}

}  // namespace controls
