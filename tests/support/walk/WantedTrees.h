#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "browser/trees/TreeContext.h"
#include "tests/support/walk/Tables.h"

namespace test_support {

// A line for each node, by its key: text, image and stored name. Whether a folder is drawn open is
// left out.
using TreeLines = std::map<std::wstring, std::wstring>;

// The folders of an account, in the order of Wanted's numbers.
enum WantedFolder { kGroupsFolder = 0, kOwnFolder = 1, kAllFolder = 2 };     // of a user
enum WantedGroupFolder { kMembersFolder = 0, kGroupPermissionsFolder = 1 };  // of a group

// What the two trees have to show, folder by folder as each was last read. It is made from the
// database's tables and knows nothing of the program's builders.
class WantedTrees {
 public:
  explicit WantedTrees(const browser::ProtectedAccounts& accounts) : accounts_(accounts) {}

  // Both trees from nothing.
  void Refresh(const Tables& tables);
  // A new account with all its folders.
  void ReadAccount(int tree, std::int32_t id, const Tables& tables);
  void ReadFolder(int tree, std::int32_t account, int folder, const Tables& tables);
  // What is read again of every account of a tree when the other tree has changed: the members of
  // the groups, or the groups and all permissions of the users.
  void ReadLinksOfAll(int tree, const Tables& tables);
  void ReadAllPermissions(const Tables& tables);

  void Remove(int tree, std::int32_t account);
  void RemoveLeaf(int tree, std::int32_t account, int folder, std::int32_t id);
  void SetText(int tree, std::int32_t account, const std::wstring& text, const std::wstring& name);

  bool Has(int tree, std::int32_t account) const { return trees_[tree].contains(account); }
  int Count(int tree) const { return static_cast<int>(trees_[tree].size()); }
  TreeLines Lines(int tree) const;

  // What is asked for an account that is there. Texts are those of nodes, by identifier.
  using Texts = std::map<std::int32_t, std::wstring>;
  std::set<std::int32_t> Accounts(int tree) const;
  Texts Leaves(int tree, std::int32_t account, int folder) const;
  const std::wstring& Text(int tree, std::int32_t account) const {
    return trees_[tree].at(account).text;
  }
  const std::wstring& StoredName(int tree, std::int32_t account) const {
    return trees_[tree].at(account).name;
  }

 private:
  struct Leaf {
    std::wstring text;
    int image = 0;
  };
  using Folder = std::map<std::int32_t, Leaf>;
  struct Account {
    std::wstring text;
    std::wstring name;
    Folder folders[3];
  };

  std::wstring TextOf(int tree, std::int32_t id, const Tables& tables) const;
  int ImageOf(int tree, std::int32_t id) const;
  Folder Groups(std::int32_t user, const Tables& tables) const;
  Folder Members(std::int32_t group, const Tables& tables) const;
  static Folder Permissions(const Tables::Links& links, std::int32_t account, const Tables& tables);
  static Folder AllPermissions(std::int32_t user, const Folder& own, const Tables& tables);

  browser::ProtectedAccounts accounts_;
  std::map<std::int32_t, Account> trees_[2];
};

// The text of an account's node from its stored, or mapped, name and addition.
std::wstring NodeText(const std::wstring& name, const std::wstring& addition);

}  // namespace test_support
