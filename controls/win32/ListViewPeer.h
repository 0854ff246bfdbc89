#pragma once

#include "controls/ListViewModel.h"
#include "controls/win32/Annotation.h"
#include "controls/win32/ControlPeer.h"

namespace controls {

// A native list view in its report view beside the model, which it asks for every text it shows.
// Its template has LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS.
struct ListViewPeer : Control::Peer, ListViewModel::View {
  ListViewPeer(Form& owner, int controlId) : Peer(owner, controlId) {}

  // --- ControlModel and Control::Peer ---
  void FocusGained() override { model.TakeFocus(); }
  bool TakeEnter() override { return TakesInput() && model.Activate(); }
  void Attached() override;
  void Detached() override;
  void DpiChanged() override;
  void BufferingChanged() override;
  LRESULT Notify(NMHDR& header) override;
  LRESULT Handle(const Message& message) override;

  // --- ListViewModel::View ---
  void ColumnsChanged() override;
  void RowsChanged() override;
  void OrderChanged() override;
  void SelectionChanged() override;

  void ShowAccessibleName();

  ListViewModel model{this};

 private:
  // Stands around what the program itself does to the native control, whose notifications of that
  // are no user's.
  class ProgramChange {
   public:
    explicit ProgramChange(ListViewPeer& list) : list_(list) { ++list_.programChanges_; }
    ~ProgramChange() { --list_.programChanges_; }
    ProgramChange(const ProgramChange&) = delete;
    ProgramChange& operator=(const ProgramChange&) = delete;

   private:
    ListViewPeer& list_;
  };

  void SetExtendedStyle(DWORD styles, bool on) const;
  HWND Heading() const;
  void FitColumns();
  void ShowSelection() const;
  void SetState(int place, UINT bits, UINT mask) const;
  void GiveText(LVITEMW& item) const;
  void Changed(const NMLISTVIEW& change);
  bool Key(const Message& message);
  void HeadingTold(const NMHDR& header);

  Annotation name_{Annotation::Kind::kName};
  int programChanges_ = 0;
  bool columnsSized_ = false;  // by the user, who then sees to their widths
};

}  // namespace controls
