#pragma once

#include <functional>
#include <memory>
#include <string>

// A form is made of the classes of this folder. Each class has one header here and two sources, one
// over native controls (win32/) and one over plain memory (memory/); the linker chooses. Controls
// are members of their form, are constructed with it and may be used from Form_Load until the form
// is unloaded; each load starts them in their first state, only their event members last. All of it
// belongs to the one thread that runs the program.
namespace controls {

class Form;
class Frame;

// A font by its face name, its size in points and its Windows character set.
struct Font {
  std::wstring face;
  int size = 0;
  int charset = 0;
};

// The sides of its form that a control keeps its distance from when the form is resized. A left or
// right side of the control may keep its distance from the form's middle instead, so that controls
// side by side share the width.
enum Anchor : unsigned {
  kAnchorLeft = 1,
  kAnchorTop = 2,
  kAnchorRight = 4,
  kAnchorBottom = 8,
  kAnchorLeftMiddle = 16,
  kAnchorRightMiddle = 32,
};

class Control {
 public:
  struct Peer;  // the back end's own part of a control

  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  // The control's number in the form's dialog template.
  int Id() const { return id_; }
  Form& Owner() const { return form_; }

  // What was asked for, of both; a control also stays disabled or hidden while its container is.
  // The focus never rests on such a control: it passes to the next one in the tab order that takes
  // it. Who wants it elsewhere calls SetFocus first.
  bool Enabled() const;
  void SetEnabled(bool enabled);
  bool Visible() const;
  void SetVisible(bool visible);
  // Ties the control's showing and hiding to a frame.
  void SetContainer(const Frame& container);

  // Whether it is this control of its form that keys go to; another window in front changes nothing
  // in that. No control has the focus before the form is shown.
  bool HasFocus() const;
  // Does nothing while the control is disabled or hidden, or is of a kind that takes no focus
  // (Label, Frame). Before the form is shown it says which control shall have the focus then.
  void SetFocus();

  // The position in the form's tab order, from 0. A new value moves the control there and those
  // after it up; at first the order is that of construction.
  int TabIndex() const;
  void SetTabIndex(int index);

  void SetFont(const Font& font);
  // A combination of Anchor values; left and top unless told otherwise.
  void SetAnchors(unsigned anchors);

  // When the focus moves within the form: LostFocus of the one, then GotFocus of the other. Message
  // boxes and other forms coming and going raise neither.
  std::function<void()> GotFocus;
  std::function<void()> LostFocus;

  Peer& BackEnd() const { return *peer_; }

 protected:
  Control(Form& form, int id, std::unique_ptr<Peer> peer);
  ~Control();

 private:
  Form& form_;
  int id_;
  std::unique_ptr<Peer> peer_;
};

}  // namespace controls
