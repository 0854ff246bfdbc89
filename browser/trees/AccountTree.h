#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "browser/trees/AccountRows.h"
#include "browser/trees/FolderFiller.h"
#include "browser/trees/TreeContext.h"
#include "controls/TreeView.h"

namespace browser {

// A folder that every account of a tree has.
struct FolderKind {
  Section section;
  controls::KeyForm key;
  const std::wstring* caption;  // set before the first account is added
  // Empties the folder and fills it for the account of this identifier.
  std::function<void(FolderFiller& filler, int folder, std::int32_t accountId)> Fill;
};

// What tells the users tree from the groups tree.
struct AccountKind {
  const wchar_t* procedure;  // the name under which errors are reported
  controls::KeyForm key;
  std::wstring (*allAccounts)();
  std::wstring (*oneAccount)(std::int32_t id);
  int image;
  int protectedImage;
  std::function<bool(std::int32_t id)> IsProtected;
  std::function<std::wstring(FolderFiller& filler, const AccountRow& row)> NodeText;
  std::vector<FolderKind> folders;  // in the order in which they are filled
};

// Builds one of the two trees: under the root a node for each account, under each account its
// folders, in each folder its leaves.
class AccountTree {
 public:
  // context, tree and count outlive it. count is that of the tree's accounts.
  AccountTree(const TreeContext& context, controls::TreeView& tree, std::int16_t& count,
              AccountKind kind);

  // id -1: adds every account and counts them; another value: adds that account alone. With a
  // section other than kWholeAccount it empties and refills that folder of the account instead;
  // folder is the folder's node. Reports its errors itself and returns data::kDone or
  // data::kFailed.
  int Build(std::int32_t id, Section section = kWholeAccount, int folder = controls::kNoNode);

  // Stands around the refilling of many folders: the control follows once at the end, and display
  // forms and texts are asked for once in all.
  class Together {
   public:
    explicit Together(AccountTree& tree);
    ~Together() { tree_.shared_ = nullptr; }
    Together(const Together&) = delete;
    Together& operator=(const Together&) = delete;

   private:
    AccountTree& tree_;
    controls::TreeView::Update update_;
    FolderFiller filler_;
  };

 private:
  void AddAll();
  void AddOne(std::int32_t id);
  void Add(FolderFiller& filler, const AccountRow& row);
  int AddFolder(int account, const FolderKind& kind);
  void Refill(std::int32_t id, Section section, int folder);
  void Refill(FolderFiller& filler, std::int32_t id, Section section, int folder);

  const TreeContext& context_;
  controls::TreeView& tree_;
  std::int16_t& count_;
  AccountKind kind_;
  FolderFiller* shared_ = nullptr;
};

// The two kinds of accounts. What they borrow from the context must outlive them.
AccountKind UserAccounts(const TreeContext& context, controls::TreeView& tree);
AccountKind GroupAccounts(const TreeContext& context);

}  // namespace browser
