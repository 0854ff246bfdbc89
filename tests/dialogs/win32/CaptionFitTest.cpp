#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "data/Text.h"
#include "dialogs/frmAddUserInGroup.h"
#include "dialogs/frmEditGroup.h"
#include "dialogs/frmEditUser.h"
#include "dialogs/frmListItem.h"
#include "dialogs/frmNewGroup.h"
#include "dialogs/frmNewUser.h"
#include "tests/support/dialogs/DialogFixture.h"

namespace dialogs {
namespace {

// What a push button's border and focus rectangle take on each side, in dialog units' worth of
// pixels at any resolution: a quarter of a line.
int Margin(int lineHeight) {
  return lineHeight / 4;
}

struct Piece {
  HWND window;
  std::wstring type;
  std::wstring text;
  RECT place;  // in the form's client area
  bool isFrame;
};

BOOL CALLBACK AddPiece(HWND window, LPARAM pieces) {
  const HWND form = GetAncestor(window, GA_ROOT);
  if (GetParent(window) != form || !IsWindowVisible(window)) return TRUE;
  wchar_t type[64] = {};
  wchar_t text[1024] = {};
  GetClassNameW(window, type, 64);
  GetWindowTextW(window, text, 1024);
  Piece piece{window, type, text, {}, false};
  GetWindowRect(window, &piece.place);
  MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&piece.place), 2);
  const LONG style = GetWindowLongW(window, GWL_STYLE);
  piece.isFrame = piece.type == L"Button" && (style & BS_TYPEMASK) == BS_GROUPBOX;
  reinterpret_cast<std::vector<Piece>*>(pieces)->push_back(piece);
  return TRUE;
}

BOOL CALLBACK TakeForm(HWND window, LPARAM form) {
  if (IsWindowVisible(window) && IsWindowEnabled(window)) *reinterpret_cast<HWND*>(form) = window;
  return TRUE;
}

// The form that takes input: the one in front.
HWND FormInFront() {
  HWND form = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), TakeForm, reinterpret_cast<LPARAM>(&form));
  return form;
}

SIZE TextSize(const Piece& piece, int width) {
  const HDC dc = GetDC(piece.window);
  const HGDIOBJ font = reinterpret_cast<HGDIOBJ>(SendMessageW(piece.window, WM_GETFONT, 0, 0));
  const HGDIOBJ before = SelectObject(dc, font);
  RECT room{0, 0, width, 0};
  DrawTextW(dc, piece.text.c_str(), -1, &room, DT_CALCRECT | (width > 0 ? DT_WORDBREAK : 0));
  SelectObject(dc, before);
  ReleaseDC(piece.window, dc);
  return {room.right, room.bottom};
}

void ExpectRoomForText(const Piece& piece) {
  const int width = piece.place.right - piece.place.left;
  const int height = piece.place.bottom - piece.place.top;
  const std::string text = data::ToUtf8(piece.text);
  const SIZE line = TextSize(piece, 0);
  if (piece.type == L"Button") {
    EXPECT_LE(line.cx + 2 * Margin(line.cy), width) << text;
    EXPECT_LE(line.cy, height) << text;
  } else if (piece.type == L"Static") {
    if ((GetWindowLongW(piece.window, GWL_STYLE) & SS_ELLIPSISMASK) != 0) return;
    const SIZE broken = TextSize(piece, width);
    EXPECT_LE(broken.cx, width) << text;
    EXPECT_LE(broken.cy, height) << text;
  }
}

void ExpectNoOverlap(const std::vector<Piece>& pieces) {
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    for (std::size_t k = i + 1; k < pieces.size(); ++k) {
      if (pieces[i].isFrame != pieces[k].isFrame || pieces[i].type == L"SysTabControl32" ||
          pieces[k].type == L"SysTabControl32") {
        continue;
      }
      RECT both;
      EXPECT_FALSE(IntersectRect(&both, &pieces[i].place, &pieces[k].place))
          << data::ToUtf8(pieces[i].type + L" " + pieces[i].text + L" and " + pieces[k].type +
                          L" " + pieces[k].text);
    }
  }
}

// What a small screen has.
constexpr SIZE kSmallScreen = {1024, 768};

// What Windows does to a form that comes to a small screen of another resolution.
void MoveToSmallScreen(HWND form, unsigned dpi) {
  RECT place = {};
  GetWindowRect(form, &place);
  const int scale = static_cast<int>(dpi);
  const LONG width = MulDiv(place.right - place.left, scale, USER_DEFAULT_SCREEN_DPI);
  const LONG height = MulDiv(place.bottom - place.top, scale, USER_DEFAULT_SCREEN_DPI);
  RECT suggested = {0, 0, std::min(width, kSmallScreen.cx), std::min(height, kSmallScreen.cy)};
  SendMessageW(form, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
  GetWindowRect(form, &place);
  EXPECT_LE(place.right - place.left, kSmallScreen.cx);
  EXPECT_LE(place.bottom - place.top, kSmallScreen.cy);
}

class CaptionFit : public test_support::DialogFixture,
                   public testing::WithParamInterface<unsigned> {
 protected:
  void ExpectGoodLayout(std::size_t atLeast) {
    const HWND form = FormInFront();
    ASSERT_NE(form, nullptr);
    if (GetParam() != USER_DEFAULT_SCREEN_DPI) MoveToSmallScreen(form, GetParam());
    std::vector<Piece> pieces;
    EnumChildWindows(form, AddPiece, reinterpret_cast<LPARAM>(&pieces));
    EXPECT_GE(pieces.size(), atLeast);
    RECT client;
    GetClientRect(form, &client);
    for (const Piece& piece : pieces) {
      ExpectRoomForText(piece);
      RECT both;
      IntersectRect(&both, &piece.place, &client);
      EXPECT_TRUE(EqualRect(&both, &piece.place)) << data::ToUtf8(piece.text);
    }
    ExpectNoOverlap(pieces);
  }

  template <typename Dialog>
  void ExpectGoodDialog(Dialog& dialog) {
    Show<Dialog>(dialog, [this](Dialog& shown) {
      ExpectGoodLayout(8);
      user.PressKey(shown, test_support::kKeyEscape);
    });
  }
};

TEST_P(CaptionFit, TheMainWindowHasRoomOnBothTabs) {
  ExpectGoodLayout(16);
  user.ChooseTab(window.TabStrip1, 1);
  ExpectGoodLayout(16);
}

TEST_P(CaptionFit, TheUserDialogsHaveRoom) {
  frmNewUser create(exchange);
  ExpectGoodDialog(create);
  frmEditUser edit(exchange);
  edit.UserID = 9;
  ExpectGoodDialog(edit);
}

TEST_P(CaptionFit, TheGroupDialogsHaveRoom) {
  frmNewGroup create(exchange);
  ExpectGoodDialog(create);
  frmEditGroup edit(exchange);
  edit.GroupID = 6;
  ExpectGoodDialog(edit);
}

TEST_P(CaptionFit, TheChoosersHaveRoom) {
  frmAddUserInGroup users(exchange);
  users.GroupID = 6;
  users.GroupName = L"Qualité";
  ExpectGoodDialog(users);
  frmListItem items(exchange);
  items.ListKind = L"Groupes";
  items.RelationName = L"Membre du Groupe";
  items.OwnerID = 9;
  ExpectGoodDialog(items);
}

TEST_P(CaptionFit, TheListsHaveRoom) {
  controls::TreeView& users = window.Users.TreeView1;
  user.Select(users, users.Nodes().Find(test_support::Keys::User(9)));
  for (const int letter : {'K', 'J'}) {
    user.ExpectModal([this](controls::Form& list) {
      ExpectGoodLayout(7);
      user.PressKey(list, test_support::kKeyEscape);
    });
    user.PressCtrl(window, letter);
  }
}

INSTANTIATE_TEST_SUITE_P(Resolutions, CaptionFit, testing::Values(96U, 144U, 192U));

}  // namespace
}  // namespace dialogs
