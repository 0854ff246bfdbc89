#include "controls/TreeView.h"

#include <utility>

#include "controls/TreeModel.h"

// Constructor, images and ModelOf are the back ends'.
namespace controls {

TreeView::Update::Update(TreeView& tree) : tree_(tree) {
  ModelOf(tree_).BeginUpdate();
}

TreeView::Update::~Update() {
  ModelOf(tree_).EndUpdate();
}

NodeId TreeView::Add(NodeId parent, const KeyForm& keyForm, std::int32_t id, std::wstring_view text,
                     int image) {
  return ModelOf(*this).Add(parent, keyForm, id, text, image);
}

NodeId TreeView::AddUnique(NodeId parent, const KeyForm& keyForm, std::int32_t id, TextRef text,
                           int image) {
  return ModelOf(*this).AddUnique(parent, keyForm, id, text, image);
}

TextRef TreeView::Share(std::wstring_view text) {
  return ModelOf(*this).Share(text);
}

void TreeView::Remove(NodeId node) {
  ModelOf(*this).Remove(node);
}

void TreeView::RemoveChildren(NodeId node) {
  ModelOf(*this).RemoveChildren(node);
}

void TreeView::Clear() {
  ModelOf(*this).Clear();
}

void TreeView::SetText(NodeId node, std::wstring_view text) {
  ModelOf(*this).SetText(node, text);
}

void TreeView::SetImage(NodeId node, int image) {
  ModelOf(*this).SetImage(node, image);
}

void TreeView::SetSorted(NodeId node, bool sorted) {
  ModelOf(*this).SetSorted(node, sorted);
}

void TreeView::SetStoredName(NodeId node, std::wstring_view name) {
  ModelOf(*this).SetStoredName(node, name);
}

void TreeView::SetExpanded(NodeId node, bool expanded) {
  ModelOf(*this).SetExpanded(node, expanded);
}

const TreeNodes& TreeView::Nodes() const {
  return ModelOf(*this).Nodes();
}

NodeId TreeView::SelectedNode() const {
  return ModelOf(*this).Selected();
}

void TreeView::SetSelectedNode(NodeId node) {
  ModelOf(*this).Select(node);
}

void TreeView::EnsureVisible(NodeId node) {
  ModelOf(*this).EnsureVisible(node);
}

void TreeView::SetFilter(TreeFilterRule rule) {
  ModelOf(*this).SetFilter(std::move(rule));
}

bool TreeView::IsFiltered() const {
  return ModelOf(*this).Filter().IsSet();
}

bool TreeView::Matches(NodeId node) const {
  return ModelOf(*this).Filter().Matches(node);
}

NodeId TreeView::FirstMatch() const {
  return ModelOf(*this).FirstMatch();
}

int TreeView::MatchCount() const {
  return ModelOf(*this).Filter().MatchCount();
}

}  // namespace controls
