#include "controls/TabStrip.h"

#include "controls/Events.h"
#include "controls/memory/TabStripPeer.h"

namespace controls {

TabStrip::TabStrip(Form& form, int id) : Control(form, id, std::make_unique<TabStripPeer>()) {}

void TabStrip::AddTab(const std::wstring& caption) {
  auto& peer = PeerOf<TabStripPeer>(*this);
  peer.captions.push_back(caption);
  if (peer.selected < 0) peer.selected = 0;
}

void TabStrip::SetTabCaption(int tab, const std::wstring& caption) {
  auto& peer = PeerOf<TabStripPeer>(*this);
  if (peer.Has(tab)) peer.captions[tab] = caption;
}

int TabStrip::TabCount() const {
  return static_cast<int>(PeerOf<TabStripPeer>(*this).captions.size());
}

std::wstring TabStrip::TabCaption(int tab) const {
  const auto& peer = PeerOf<TabStripPeer>(*this);
  return peer.Has(tab) ? peer.captions[tab] : std::wstring();
}

int TabStrip::SelectedTab() const {
  return PeerOf<TabStripPeer>(*this).selected;
}

void TabStrip::SetSelectedTab(int tab) {
  auto& peer = PeerOf<TabStripPeer>(*this);
  if (!peer.Has(tab) || tab == peer.selected) return;
  peer.selected = tab;
  Raise(Owner(), Click);
}

}  // namespace controls
