#include "browser/trees/AccountTree.h"

#include <algorithm>
#include <utility>

#include "browser/trees/TreeImages.h"
#include "data/ReadScope.h"
#include "data/RunTimeError.h"

namespace browser {

using app::Outcome;
using controls::NodeId;

Outcome AllDone(std::initializer_list<Outcome> outcomes) {
  return std::ranges::all_of(outcomes, [](Outcome outcome) { return outcome == Outcome::kDone; })
             ? Outcome::kDone
             : Outcome::kFailed;
}

AccountTree::AccountTree(const TreeContext& context, controls::TreeView& tree, std::int16_t& count,
                         AccountKind kind)
    : context_(context), tree_(tree), count_(count), kind_(std::move(kind)) {}

Outcome AccountTree::BuildAll(app::KeptError& error) {
  return error.Keep(kind_.procedure, [&] { AddAll(); });
}

Outcome AccountTree::BuildOne(std::int32_t id) {
  return app::Reported(context_.global, kind_.procedure, [&] { AddOne(id); });
}

NodeId AccountTree::Find(std::int32_t id) const {
  const controls::TreeNodes& nodes = tree_.Nodes();
  return nodes.FindChild(nodes.Root(), kind_.key, id);
}

void AccountTree::AddAll() {
  const controls::TreeView::Update update(tree_);
  FolderFiller filler(context_, tree_);
  const std::vector<AccountRow> rows =
      ReadAccountRows(*context_.global.databaseConnection, kind_.allAccounts());
  int done = 0;
  for (const AccountRow& row : rows) {
    CountOneMore(count_);
    Add(filler, row);
    context_.Progress(++done, static_cast<int>(rows.size()));
  }
}

void AccountTree::AddOne(std::int32_t id) {
  const controls::TreeView::Update update(tree_);
  FolderFiller filler(context_, tree_);
  data::Connection& connection = *context_.global.databaseConnection;
  for (const AccountRow& row : ReadAccountRows(connection, kind_.oneAccount(id))) {
    if (Find(row.id) == controls::kNoNode) Add(filler, row);
  }
}

void AccountTree::Add(FolderFiller& filler, const AccountRow& row) {
  const int image = kind_.IsProtected(row.id) ? kind_.protectedImage : kind_.image;
  const NodeId account = tree_.AddUnique(tree_.Nodes().Root(), kind_.key, row.id,
                                         tree_.Share(kind_.NodeText(filler, row)), image);
  tree_.SetStoredName(account, row.name);
  tree_.SetSorted(account, true);
  std::vector<NodeId> folders;
  for (const FolderKind& folder : kind_.folders) folders.push_back(AddFolder(account, folder));
  for (std::size_t i = 0; i < folders.size(); ++i) {
    kind_.folders[i].Fill(filler, folders[i], row.id);
  }
}

NodeId AccountTree::AddFolder(NodeId account, const FolderKind& kind) {
  const NodeId folder =
      tree_.AddUnique(account, kind.key, 0, tree_.Share(*kind.caption), kFolderClosed);
  tree_.SetSorted(folder, true);
  return folder;
}

const FolderKind& AccountTree::Folder(Section section) const {
  return *std::ranges::find(kind_.folders, section, &FolderKind::section);
}

Outcome AccountTree::EditFolder(Section section, NodeId account) {
  const FolderKind& kind = Folder(section);
  return app::ReportedLater(context_.global, kind.procedure, [&](app::KeptError& error) {
    if (!tree_.Nodes().Exists(account)) throw data::RunTimeError(data::kElementNotFound);
    const controls::TreeView::Update update(tree_);
    FolderFiller filler(context_, tree_);
    return Rebuild(filler, kind, account, error);
  });
}

// Folders are recognised by their text. One that had nothing in it is closed afterwards, whether it
// was open or not: there was nothing to be seen in it.
Outcome AccountTree::Rebuild(FolderFiller& filler, const FolderKind& kind, NodeId account,
                             app::KeptError& error) {
  const controls::TreeNodes& nodes = tree_.Nodes();
  const std::int32_t id = nodes.Id(account);
  Outcome outcome = Outcome::kDone;
  for (const NodeId folder : nodes.ChildrenInOrder(account)) {
    if (nodes.Text(folder) != *kind.caption) continue;
    const bool wasEmpty = !nodes.HasChildren(folder);
    outcome = error.Keep(kind_.procedure, [&] { kind.Fill(filler, folder, id); });
    if (wasEmpty) tree_.SetExpanded(folder, false);
  }
  return outcome;
}

Outcome AccountTree::EditAccounts(const wchar_t* procedure,
                                  std::initializer_list<Section> sections) {
  return app::ReportedLater(context_.global, procedure, [&](app::KeptError& error) {
    data::ReadScope read(*context_.global.databaseConnection);
    const controls::TreeView::Update update(tree_);
    FolderFiller filler(context_, tree_);
    const Outcome outcome = RebuildAll(filler, sections, error);
    read.Finish();
    return outcome;
  });
}

// What cannot be read for one account cannot be read for the next.
Outcome AccountTree::RebuildAll(FolderFiller& filler, std::initializer_list<Section> sections,
                                app::KeptError& error) {
  const controls::TreeNodes& nodes = tree_.Nodes();
  const std::vector<NodeId> accounts = nodes.ChildrenInOrder(nodes.Root());
  int done = 0;
  for (const NodeId account : accounts) {
    for (const Section section : sections) {
      if (Rebuild(filler, Folder(section), account, error) == Outcome::kFailed) {
        return Outcome::kFailed;
      }
    }
    context_.Progress(++done, static_cast<int>(accounts.size()));
  }
  return Outcome::kDone;
}

}  // namespace browser
