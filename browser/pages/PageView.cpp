#include "browser/pages/PageView.h"

#include "app/StringIds.h"

namespace browser {
namespace {

constexpr unsigned kRightEdge = controls::kAnchorTop | controls::kAnchorRight;

// The buttons of a section stand on its frame, are shown and hidden with it and keep to the right
// edge of the window.
template <std::size_t kButtons>
void SetSection(controls::Frame& frame, controls::CommandButton (&buttons)[kButtons]) {
  frame.SetAnchors(kRightEdge);
  for (controls::CommandButton& button : buttons) {
    button.SetContainer(frame);
    button.SetAnchors(kRightEdge);
    button.SetEnabled(false);
  }
}

template <std::size_t kButtons>
void CaptionButtons(const app::mGlobal& global, controls::CommandButton (&buttons)[kButtons],
                    const int (&captions)[kButtons]) {
  for (std::size_t i = 0; i < kButtons; ++i) {
    buttons[i].SetCaption(global.LoadResString(captions[i]));
  }
}

}  // namespace

PageView::PageView(controls::Form& form, const PageLayout& layout)
    : txtFind(form, layout.txtFind),
      lblTree(form, layout.lblTree),
      TreeView1(form, layout.TreeView1),
      fraAccount(form, layout.fraAccount),
      cmdAccount{
          {form, layout.cmdAccount}, {form, layout.cmdAccount + 1}, {form, layout.cmdAccount + 2}},
      fraFirst(form, layout.fraFirst),
      cmdFirst{{form, layout.cmdFirst}, {form, layout.cmdFirst + 1}},
      fraSecond(form, layout.fraSecond),
      cmdSecond{{form, layout.cmdSecond}, {form, layout.cmdSecond + 1}},
      layout_(layout) {}

void PageView::SetControls(const app::mGlobal& global, const controls::ImageList& images) {
  SetCaptions(global);
  SetSections();
  lblTree.SetVisible(false);
  txtFind.SetAnchors(controls::kAnchorLeft | controls::kAnchorTop | controls::kAnchorRight);
  TreeView1.SetAnchors(controls::kAnchorLeft | controls::kAnchorTop | controls::kAnchorRight |
                       controls::kAnchorBottom);
  // Before there is anything to be read: drawing the images takes its time.
  TreeView1.SetImageList(images);
}

void PageView::SetCaptions(const app::mGlobal& global) {
  txtFind.SetCue(global.LoadResString(app::kFindCue));
  lblTree.SetPlainCaption(global.LoadResString(layout_.treeName));
  fraAccount.SetCaption(global.LoadResString(layout_.accountCaption));
  fraFirst.SetCaption(global.LoadResString(layout_.firstCaption));
  fraSecond.SetCaption(global.LoadResString(layout_.secondCaption));
  CaptionButtons(global, cmdAccount, {app::kEdit, app::kDelete, app::kNew});
  CaptionButtons(global, cmdFirst, {app::kAssign, app::kRemove});
  CaptionButtons(global, cmdSecond, {app::kAssign, app::kRemove});
}

void PageView::SetSections() {
  SetSection(fraAccount, cmdAccount);
  SetSection(fraFirst, cmdFirst);
  SetSection(fraSecond, cmdSecond);
}

void PageView::ShowTree() {
  txtFind.SetVisible(true);
  TreeView1.SetVisible(true);
}

void PageView::ShowSections() {
  for (controls::Frame* frame : {&fraAccount, &fraFirst, &fraSecond}) frame->SetVisible(true);
}

void PageView::Hide() {
  txtFind.SetVisible(false);
  TreeView1.SetVisible(false);
  for (controls::Frame* frame : {&fraAccount, &fraFirst, &fraSecond}) frame->SetVisible(false);
}

}  // namespace browser
