#include "tests/program/driver/Keyboard.h"

#include <vector>

#include "tests/program/driver/Failure.h"
#include "tests/program/driver/Wait.h"

namespace driver {
namespace {

INPUT KeyStroke(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = flags;
  return input;
}

INPUT CharacterStroke(wchar_t unit, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wScan = unit;
  input.ki.dwFlags = KEYEVENTF_UNICODE | flags;
  return input;
}

void SendAll(std::vector<INPUT>& strokes) {
  const auto count = static_cast<UINT>(strokes.size());
  if (SendInput(count, strokes.data(), sizeof(INPUT)) != count) throw Failure("keys are not taken");
}

// The system lets a thread move the focus only of those whose input it shares.
class SharedInput {
 public:
  explicit SharedInput(DWORD thread) : thread_(thread) {
    AttachThreadInput(GetCurrentThreadId(), thread_, TRUE);
  }
  ~SharedInput() { AttachThreadInput(GetCurrentThreadId(), thread_, FALSE); }
  SharedInput(const SharedInput&) = delete;
  SharedInput& operator=(const SharedInput&) = delete;

 private:
  DWORD thread_;
};

// What has lost its focus for good would send the walk round for ever.
constexpr std::size_t kLongestWalk = 40;

}  // namespace

void BringToFront(const Window& window) {
  if (GetForegroundWindow() == window.Handle() && FocusIn(window)) return;
  const SharedInput shared(window.ThreadId());
  SetForegroundWindow(window.Handle());
  Await("the window to take the keyboard",
        [&] { return GetForegroundWindow() == window.Handle() && FocusIn(window); });
}

void PressKey(const Window& window, WORD key, std::initializer_list<WORD> modifiers) {
  BringToFront(window);
  std::vector<INPUT> strokes;
  for (const WORD modifier : modifiers) strokes.push_back(KeyStroke(modifier, 0));
  strokes.push_back(KeyStroke(key, 0));
  strokes.push_back(KeyStroke(key, KEYEVENTF_KEYUP));
  for (const WORD modifier : modifiers) strokes.push_back(KeyStroke(modifier, KEYEVENTF_KEYUP));
  SendAll(strokes);
}

void TypeText(const Window& window, const wchar_t* text) {
  BringToFront(window);
  std::vector<INPUT> strokes;
  for (; *text != L'\0'; ++text) {
    strokes.push_back(CharacterStroke(*text, 0));
    strokes.push_back(CharacterStroke(*text, KEYEVENTF_KEYUP));
  }
  SendAll(strokes);
}

std::vector<int> WalkByTab(const Window& window, std::initializer_list<WORD> modifiers) {
  BringToFront(window);
  std::vector<int> visited;
  const Window first = FocusIn(window);
  for (Window last = first; visited.empty() || last != first;) {
    PressKey(window, VK_TAB, modifiers);
    Await("the focus to move", [&] { return FocusIn(window) && FocusIn(window) != last; });
    last = FocusIn(window);
    visited.push_back(last.Id());
    if (visited.size() > kLongestWalk) throw Failure("the Tab key does not come back");
  }
  return visited;
}

}  // namespace driver
