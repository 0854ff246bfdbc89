#include "browser/trees/FolderFiller.h"

#include "browser/rules/TreeKeys.h"
#include "browser/trees/TreeImages.h"

namespace browser {

using controls::NodeId;

FolderFiller::FolderFiller(const TreeContext& context, controls::TreeView& tree)
    : context_(context), tree_(tree), names_(*context.global.SessionServer) {}

std::wstring FolderFiller::GroupText(const std::wstring& name, const std::wstring& description) {
  const std::wstring& shownName = names_.Get(name, data::kGroupName);
  if (description.empty()) return AccountText(shownName, {});
  return AccountText(shownName, names_.Get(description, data::kGroupDescription));
}

std::wstring FolderFiller::GroupRow(data::ResultSet& row) {
  const std::wstring name = row.Column(1).Text();
  return GroupText(name, row.Column(2).Text());
}

std::wstring FolderFiller::UserRow(data::ResultSet& row) {
  const std::wstring name = row.Column(1).Text();
  return AccountText(name, row.Column(2).Text());
}

std::wstring FolderFiller::PermissionRow(data::ResultSet& row) {
  return names_.Get(row.Column(1).Text(), data::kPermissionName);
}

std::uint32_t FolderFiller::Read(std::wstring_view statement, LeafTexts& texts,
                                 const MakeText& makeText,
                                 const std::function<int(std::int32_t)>& image) {
  wanted_.clear();
  const std::uint32_t number = texts.NextFolder();
  const auto rows = context_.global.databaseConnection->OpenResultSet(statement);
  for (; !rows->EndOfRows(); rows->MoveNext()) {
    const std::int32_t id = rows->Column(0).Integer();
    LeafTexts::Leaf& leaf = texts.At(id);
    if (leaf.folder == number) continue;
    leaf.folder = number;
    if (!leaf.known) {
      leaf.text = tree_.Share(makeText(*rows));
      leaf.known = true;
    }
    leaf.image = static_cast<std::uint8_t>(image(id));
    wanted_.push_back(id);
  }
  rows->Close();
  return number;
}

void FolderFiller::Put(NodeId folder, std::uint32_t number, const controls::KeyForm& keyForm,
                       LeafTexts& texts) {
  if (tree_.Nodes().HasChildren(folder)) Sift(folder, number, texts);
  for (const std::int32_t id : wanted_) {
    const LeafTexts::Leaf& leaf = texts.At(id);
    if (leaf.present == number) continue;
    tree_.AddUnique(folder, keyForm, id, leaf.text, leaf.image);
  }
}

void FolderFiller::Sift(NodeId folder, std::uint32_t number, LeafTexts& texts) {
  const controls::TreeNodes& nodes = tree_.Nodes();
  std::vector<NodeId> gone;
  for (NodeId node = nodes.AnyChild(folder); node != controls::kNoNode;
       node = nodes.OtherSibling(node)) {
    LeafTexts::Leaf& leaf = texts.At(nodes.Id(node));
    if (leaf.folder != number) {
      gone.push_back(node);
      continue;
    }
    leaf.present = number;
    if (nodes.TextOf(node) != leaf.text) tree_.SetText(node, nodes.SharedText(leaf.text));
    if (nodes.Image(node) != leaf.image) tree_.SetImage(node, leaf.image);
  }
  for (const NodeId node : gone) tree_.Remove(node);
}

void FolderFiller::Fill(NodeId folder, const controls::KeyForm& keyForm,
                        std::wstring_view statement, LeafTexts& texts, const MakeText& makeText,
                        const std::function<int(std::int32_t)>& image) {
  const std::uint32_t number = Read(statement, texts, makeText, image);
  Put(folder, number, keyForm, texts);
}

void FolderFiller::FillGroups(NodeId folder, std::wstring_view statement) {
  Fill(
      folder, kUserGroupKey, statement, groups_,
      [this](data::ResultSet& row) { return GroupRow(row); },
      [this](std::int32_t id) {
        return context_.accounts.IsProtectedGroup(id) ? kProtectedGroupImage : kGroupImage;
      });
}

void FolderFiller::FillUsers(NodeId folder, std::wstring_view statement) {
  Fill(folder, kGroupUserKey, statement, users_, UserRow, [this](std::int32_t id) {
    return context_.accounts.IsProtectedUser(id) ? kProtectedUserImage : kUserImage;
  });
}

void FolderFiller::FillPermissions(NodeId folder, const controls::KeyForm& keyForm,
                                   std::wstring_view statement) {
  Fill(
      folder, keyForm, statement, permissions_,
      [this](data::ResultSet& row) { return PermissionRow(row); },
      [](std::int32_t) { return kPermissionImage; });
}

void FolderFiller::FillAllPermissions(NodeId folder, NodeId ownFolder,
                                      std::wstring_view statement) {
  const controls::TreeNodes& nodes = tree_.Nodes();
  const std::uint32_t owner = permissions_.NextFolder();
  for (NodeId own = nodes.AnyChild(ownFolder); own != controls::kNoNode;
       own = nodes.OtherSibling(own)) {
    permissions_.At(nodes.Id(own)).owner = owner;
  }
  const auto image = [this, owner](std::int32_t id) {
    return permissions_.At(id).owner == owner ? kPermissionImage : kInheritedPermissionImage;
  };
  const std::uint32_t number = Read(
      statement, permissions_, [this](data::ResultSet& row) { return PermissionRow(row); }, image);
  for (NodeId own = nodes.AnyChild(ownFolder); own != controls::kNoNode;
       own = nodes.OtherSibling(own)) {
    LeafTexts::Leaf& leaf = permissions_.At(nodes.Id(own));
    if (leaf.folder == number) continue;
    leaf.folder = number;
    leaf.image = kPermissionImage;
    if (!leaf.known) leaf.text = nodes.TextOf(own);
    wanted_.push_back(nodes.Id(own));
  }
  Put(folder, number, kAnyPermissionKey, permissions_);
}

}  // namespace browser
