#include "tests/support/controls/win32/BoxAnswerer.h"

#include <gtest/gtest.h>

namespace test_support {
namespace {

constexpr UINT kAnswer = WM_APP;
constexpr int kPromptId = 0xFFFF;

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

struct Search {
  HWND box = nullptr;
};

// The one dialog of this thread that is not a form.
BOOL CALLBACK Look(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  wchar_t name[16] = {};
  GetClassNameW(window, name, 16);
  if (lstrcmpW(name, L"#32770") == 0 && GetDlgItem(window, kPromptId)) search.box = window;
  return search.box == nullptr;
}

}  // namespace

BoxAnswerer::BoxAnswerer(ScriptedSystem& system, Script& script)
    : system_(system), script_(script) {
  caller_.Reset(CreateWindowExW(0, WC_STATICW, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                GetModuleHandleW(nullptr), nullptr));
  SetWindowSubclass(caller_.Get(), Called, 1, reinterpret_cast<DWORD_PTR>(this));
  system_.answers.MsgBox = [this](const std::wstring& prompt, int style,
                                  const std::wstring& title) { return Show(prompt, style, title); };
}

BoxAnswerer::~BoxAnswerer() {
  system_.answers.MsgBox = nullptr;
  RemoveWindowSubclass(caller_.Get(), Called, 1);
}

int BoxAnswerer::Show(const std::wstring& prompt, int style, const std::wstring& title) {
  style_ = style;
  PostMessageW(caller_.Get(), kAnswer, 0, 0);
  return system_.ShowBox(prompt, style, title);
}

LRESULT CALLBACK BoxAnswerer::Called(HWND window, UINT number, WPARAM wParam, LPARAM lParam,
                                     UINT_PTR /*id*/, DWORD_PTR answerer) {
  if (number != kAnswer) return DefSubclassProc(window, number, wParam, lParam);
  reinterpret_cast<BoxAnswerer*>(answerer)->Answer();
  return 0;
}

void BoxAnswerer::Answer() {
  Search search;
  EnumThreadWindows(GetCurrentThreadId(), Look, reinterpret_cast<LPARAM>(&search));
  if (!search.box) {
    ADD_FAILURE() << "no message box stands on the screen";
    return;
  }
  HWND box = search.box;
  int answer = script_.AnswerBox(TextOf(GetDlgItem(box, kPromptId)), style_, TextOf(box));
  // The only button of a box that just tells something has the number of Cancel in some systems.
  if (!GetDlgItem(box, answer)) answer = IDCANCEL;
  SendMessageW(box, WM_COMMAND, MAKEWPARAM(answer, BN_CLICKED),
               reinterpret_cast<LPARAM>(GetDlgItem(box, answer)));
}

}  // namespace test_support
