#include "controls/PopupMenu.h"

#include "controls/win32/DesktopPeer.h"
#include "controls/win32/FormPeer.h"
#include "controls/win32/TreeViewPeer.h"

namespace controls {
namespace {

MenuHandle MakeMenu(const std::vector<MenuItem>& items) {
  MenuHandle menu(CreatePopupMenu());
  for (const MenuItem& item : items) {
    const UINT kind = item.command == 0 ? MF_SEPARATOR : MF_STRING;
    const UINT state = item.enabled ? MF_ENABLED : MF_GRAYED;
    AppendMenuW(menu.Get(), kind | state, static_cast<UINT_PTR>(item.command),
                item.caption.c_str());
  }
  return menu;
}

}  // namespace

int ShowPopupMenu(TreeView& tree, int node, const std::vector<MenuItem>& items) {
  auto& peer = static_cast<TreeViewPeer&>(tree.BackEnd());
  if (!tree.Owner().IsVisible() || !peer.nodes.Exists(node) || items.empty()) return 0;
  const StandIns& instead = tree.Owner().OwnerDesktop().Instead;
  if (instead.PopupMenu) return instead.PopupMenu(items);
  const MenuHandle menu = MakeMenu(items);
  // The node itself is not to be covered.
  TPMPARAMS around = {sizeof around, peer.ScreenPlace(node)};
  const std::optional<POINT> mouse = std::exchange(peer.menuPlace, std::nullopt);
  const POINT place = mouse.value_or(POINT{around.rcExclude.left, around.rcExclude.bottom});
  TPMPARAMS* exclude = mouse ? nullptr : &around;
  const UINT side = GetSystemMetrics(SM_MENUDROPALIGNMENT) ? TPM_RIGHTALIGN : TPM_LEFTALIGN;
  return TrackPopupMenuEx(menu.Get(),
                          side | TPM_VERTICAL | TPM_RIGHTBUTTON | TPM_RETURNCMD | TPM_NONOTIFY,
                          place.x, place.y, peer.form.BackEnd().window, exclude);
}

}  // namespace controls
