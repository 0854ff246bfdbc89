#include "controls/TabStrip.h"

#include <vector>

#include "controls/win32/FormPeer.h"

namespace controls {
namespace {

struct TabStripPeer : Control::Peer {
  using Peer::Peer;

  // The strip lies behind what its tabs show.
  void Attached() override {
    ChangeStyle(0, WS_CLIPSIBLINGS);
    SetWindowPos(window, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
  void Detached() override {
    captions.clear();
    selected = -1;
  }

  bool TurnTabs(bool backwards) override {
    static_cast<TabStrip&>(*control).SelectNext(backwards);
    return true;
  }

  LRESULT Notify(NMHDR& header) override {
    if (header.code == TCN_SELCHANGING) return !TakesInput();
    if (header.code == TCN_SELCHANGE) Chosen(static_cast<int>(Send(TCM_GETCURSEL)));
    return 0;
  }

  void Chosen(int tab) {
    if (tab == selected || !Has(tab)) return;
    selected = tab;
    // What the tab shows and hides is painted once, also where no message has brought us here.
    const Form::Peer::MessageScope scope(form.BackEnd());
    Raise(form, static_cast<TabStrip&>(*control).Click);
  }

  bool Has(int tab) const { return tab >= 0 && tab < static_cast<int>(captions.size()); }

  std::vector<std::wstring> captions;
  int selected = -1;
};

TabStripPeer& PeerOfStrip(const TabStrip& strip) {
  return static_cast<TabStripPeer&>(strip.BackEnd());
}

TCITEMW ItemOf(std::wstring& caption) {
  TCITEMW item = {};
  item.mask = TCIF_TEXT;
  item.pszText = caption.data();
  return item;
}

}  // namespace

TabStrip::TabStrip(Form& form, int id)
    : Control(form, id, std::make_unique<TabStripPeer>(form, id)) {}

void TabStrip::AddTab(const std::wstring& caption) {
  TabStripPeer& peer = PeerOfStrip(*this);
  if (!peer.window) return;
  peer.captions.push_back(caption);
  TCITEMW item = ItemOf(peer.captions.back());
  peer.Send(TCM_INSERTITEMW, peer.captions.size() - 1, AsLParam(&item));
  Owner().BackEnd().LookChanged();
  if (peer.selected >= 0) return;
  peer.selected = 0;
  peer.Send(TCM_SETCURSEL, 0);
}

void TabStrip::SetTabCaption(int tab, const std::wstring& caption) {
  TabStripPeer& peer = PeerOfStrip(*this);
  if (!peer.Has(tab)) return;
  std::wstring& kept = peer.captions[static_cast<std::size_t>(tab)];
  kept = caption;
  TCITEMW item = ItemOf(kept);
  peer.Send(TCM_SETITEMW, static_cast<WPARAM>(tab), AsLParam(&item));
  Owner().BackEnd().LookChanged();
}

int TabStrip::TabCount() const {
  return static_cast<int>(PeerOfStrip(*this).captions.size());
}

std::wstring TabStrip::TabCaption(int tab) const {
  const TabStripPeer& peer = PeerOfStrip(*this);
  return peer.Has(tab) ? peer.captions[static_cast<std::size_t>(tab)] : std::wstring();
}

int TabStrip::SelectedTab() const {
  return PeerOfStrip(*this).selected;
}

void TabStrip::SetSelectedTab(int tab) {
  TabStripPeer& peer = PeerOfStrip(*this);
  if (!peer.Has(tab) || tab == peer.selected) return;
  peer.Send(TCM_SETCURSEL, static_cast<WPARAM>(tab));
  peer.Chosen(tab);
}

}  // namespace controls
