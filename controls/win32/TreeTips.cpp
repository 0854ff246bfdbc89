#include "controls/win32/TreeTips.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "controls/win32/FormPeer.h"
#include "controls/win32/TreeViewPeer.h"

namespace controls {
namespace {

constexpr int kWidth = 320;  // at the system's default resolution
constexpr LPARAM kShownMilliseconds = 30000;
constexpr int kMostText = 1024;

bool IsMouse(UINT number) {
  return number >= WM_MOUSEFIRST && number <= WM_MBUTTONUP;
}

// Cuts a text that is too long for the buffer and says so, never through the middle of a character.
void CopyInto(wchar_t* buffer, int size, std::wstring text) {
  if (size <= 0) return;
  if (static_cast<int>(text.size()) >= size) {
    text.resize(static_cast<std::size_t>(std::max(size - 2, 0)));
    if (!text.empty() && (text.back() & 0xFC00) == 0xD800) text.pop_back();
    if (size > 1) text += L'\x2026';
  }
  std::copy(text.c_str(), text.c_str() + text.size() + 1, buffer);
}

}  // namespace

void TreeTips::Attach() {
  if (!(GetWindowLongPtrW(tree_.window, GWL_STYLE) & TVS_INFOTIP)) return;
  tooltip_ = HandleIn<HWND>(tree_.Send(TVM_GETTOOLTIPS));
  if (!tooltip_) return;
  const LONG_PTR style = GetWindowLongPtrW(tooltip_, GWL_STYLE);
  SetWindowLongPtrW(tooltip_, GWL_STYLE, style | TTS_NOPREFIX);
  SendMessageW(tooltip_, TTM_SETDELAYTIME, TTDT_AUTOPOP, kShownMilliseconds);
  SetWidth();
  asksItself_ = SendMessageW(tooltip_, TTM_GETTOOLCOUNT, 0, 0) > 0;
  if (!asksItself_) AddTool();
}

void TreeTips::Detach() {
  annotation_.Reset();
  describing_ = false;
  tooltip_ = nullptr;
  hovered_ = nullptr;
}

// Longer texts go over several lines.
void TreeTips::SetWidth() const {
  if (!tooltip_) return;
  const int dpi = static_cast<int>(tree_.form.BackEnd().life.dpi);
  SendMessageW(tooltip_, TTM_SETMAXTIPWIDTH, 0, MulDiv(kWidth, dpi, USER_DEFAULT_SCREEN_DPI));
}

void TreeTips::Answer(NMTVGETINFOTIPW& question) const {
  const auto node = NodeIn(question.lParam);
  std::wstring text = tree_.AskTip(node);
  // A tree view that asks leaves its own tips, over texts that have no room, to who answers.
  if (text.empty() && tree_.model.Nodes().Exists(node) && IsClipped(question.hItem)) {
    text = tree_.model.Nodes().Text(node);
  }
  CopyInto(question.pszText, question.cchTextMax, std::move(text));
}

bool TreeTips::IsClipped(HTREEITEM item) const {
  const std::optional<RECT> text = tree_.TextPlace(item);
  RECT client = {};
  GetClientRect(tree_.window, &client);
  return text && (text->left < client.left || text->right > client.right);
}

// One tool for all nodes, which follows the mouse.
void TreeTips::AddTool() {
  TTTOOLINFOW tool = {};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.hwnd = tree_.window;
  tool.lpszText = LPSTR_TEXTCALLBACKW;
  SendMessageW(tooltip_, TTM_ADDTOOLW, 0, AsLParam(&tool));
}

void TreeTips::Mouse(const Message& message) {
  if (!tooltip_ || asksItself_ || !IsMouse(message.number)) return;
  if (message.number == WM_MOUSEMOVE) {
    Hover({GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)});
  }
  MSG relayed = {};
  relayed.hwnd = tree_.window;
  relayed.message = message.number;
  relayed.wParam = message.wParam;
  relayed.lParam = message.lParam;
  SendMessageW(tooltip_, TTM_RELAYEVENT, 0, AsLParam(&relayed));
}

void TreeTips::Hover(POINT place) {
  HTREEITEM item = tree_.ItemAt(place);
  if (item == hovered_) return;
  hovered_ = item;
  SendMessageW(tooltip_, TTM_POP, 0, 0);
  TTTOOLINFOW tool = {};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.hwnd = tree_.window;
  tool.rect = tree_.TextPlace(item).value_or(RECT{});
  SendMessageW(tooltip_, TTM_NEWTOOLRECTW, 0, AsLParam(&tool));
}

bool TreeTips::Notify(NMHDR& header) {
  if (asksItself_ || header.hwndFrom != tooltip_ || header.code != TTN_GETDISPINFOW) return false;
  wchar_t text[kMostText] = {};
  NMTVGETINFOTIPW question = {};
  question.hdr = {tree_.window, static_cast<UINT_PTR>(tree_.id), TVN_GETINFOTIPW};
  question.pszText = text;
  question.cchTextMax = kMostText;
  question.hItem = hovered_;
  question.lParam = AsLParam(tree_.items.NodeOf(hovered_));
  SendMessageW(GetParent(tree_.window), WM_NOTIFY, question.hdr.idFrom, AsLParam(&question));
  shown_ = text;
  NotificationIn<NMTTDISPINFOW>(header).lpszText = shown_.data();
  return true;
}

void TreeTips::Changed() {
  if (std::exchange(hovered_, nullptr)) SendMessageW(tooltip_, TTM_POP, 0, 0);
  DescribeSoon();
}

// Not at once: the form may be in the middle of a change.
void TreeTips::DescribeSoon() {
  if (describing_ || !tree_.window || !tree_.Tree().Tip || !annotation_.Possible()) return;
  describing_ = PostMessageW(tree_.window, TreeViewPeer::kDescribe, 0, 0);
}

void TreeTips::Describe() {
  describing_ = false;
  annotation_.Clear();
  HTREEITEM item = tree_.items.SelectedItem();
  if (!item || !tree_.control->HasFocus()) return;
  const auto child = static_cast<DWORD>(tree_.Send(TVM_MAPHTREEITEMTOACCID, AsWParam(item)));
  if (child) annotation_.Set(tree_.window, child, tree_.AskTip(tree_.items.NodeOf(item)));
}

}  // namespace controls
