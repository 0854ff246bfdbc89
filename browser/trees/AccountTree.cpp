#include "browser/trees/AccountTree.h"

#include <utility>

#include "app/ErrorReport.h"
#include "browser/trees/TreeImages.h"

namespace browser {

AccountTree::AccountTree(const TreeContext& context, controls::TreeView& tree, std::int16_t& count,
                         AccountKind kind)
    : context_(context), tree_(tree), count_(count), kind_(std::move(kind)) {}

AccountTree::Together::Together(AccountTree& tree)
    : tree_(tree), update_(tree.tree_), filler_(tree.context_, tree.tree_) {
  tree_.shared_ = &filler_;
}

int AccountTree::Build(std::int32_t id, Section section, int folder) {
  try {
    const controls::TreeView::Update update(tree_);
    if (section != kWholeAccount) {
      Refill(id, section, folder);
    } else if (id == -1) {
      AddAll();
    } else {
      AddOne(id);
    }
    return data::kDone;
  } catch (...) {
    app::ReportError(context_.global, kind_.procedure);
    return data::kFailed;
  }
}

void AccountTree::AddAll() {
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
  FolderFiller filler(context_, tree_);
  data::Connection& connection = *context_.global.databaseConnection;
  for (const AccountRow& row : ReadAccountRows(connection, kind_.oneAccount(id))) {
    const controls::TreeNodes& nodes = tree_.Nodes();
    if (nodes.FindChild(nodes.Root(), kind_.key, row.id) == controls::kNoNode) Add(filler, row);
  }
}

void AccountTree::Add(FolderFiller& filler, const AccountRow& row) {
  const int image = kind_.IsProtected(row.id) ? kind_.protectedImage : kind_.image;
  const int account = tree_.AddUnique(tree_.Nodes().Root(), kind_.key, row.id,
                                      tree_.Share(kind_.NodeText(filler, row)), image);
  tree_.SetStoredName(account, row.name);
  tree_.SetSorted(account, true);
  std::vector<int> folders;
  for (const FolderKind& folder : kind_.folders) folders.push_back(AddFolder(account, folder));
  for (std::size_t i = 0; i < folders.size(); ++i) {
    kind_.folders[i].Fill(filler, folders[i], row.id);
  }
}

int AccountTree::AddFolder(int account, const FolderKind& kind) {
  const int folder =
      tree_.AddUnique(account, kind.key, 0, tree_.Share(*kind.caption), kFolderClosed);
  tree_.SetSorted(folder, true);
  return folder;
}

void AccountTree::Refill(std::int32_t id, Section section, int folder) {
  if (shared_ != nullptr) {
    Refill(*shared_, id, section, folder);
  } else {
    FolderFiller filler(context_, tree_);
    Refill(filler, id, section, folder);
  }
}

void AccountTree::Refill(FolderFiller& filler, std::int32_t id, Section section, int folder) {
  for (const FolderKind& kind : kind_.folders) {
    if (kind.section == section) kind.Fill(filler, folder, id);
  }
}

}  // namespace browser
