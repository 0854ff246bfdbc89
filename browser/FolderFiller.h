#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "browser/DisplayNames.h"
#include "browser/LeafTexts.h"
#include "browser/TreeContext.h"
#include "controls/TreeView.h"

namespace browser {

// Puts the rows of statements as leaves into folders. One filler serves one filling of a tree, from
// a single folder to all accounts; texts and display forms are asked for once in that time. The
// caller keeps a TreeView::Update open meanwhile.
class FolderFiller {
 public:
  FolderFiller(const TreeContext& context, controls::TreeView& tree);

  // Empties the folder and fills it with the rows (identifier, name, description) of groups.
  void FillGroups(int folder, std::wstring_view statement);
  // With the rows (identifier, name, full name) of users.
  void FillUsers(int folder, std::wstring_view statement);
  // With the rows (identifier, name) of permissions held directly by the folder's account.
  void FillPermissions(int folder, const controls::KeyForm& keyForm, std::wstring_view statement);
  // With the permissions that a user has through groups, the rows of the statement, and those that
  // the folder of his own permissions shows, each once.
  void FillAllPermissions(int folder, int ownFolder, std::wstring_view statement);

  // The text of a group's node, from its stored name and description.
  std::wstring GroupText(const std::wstring& name, const std::wstring& description);

 private:
  using MakeText = std::wstring (FolderFiller::*)(data::ResultSet& row);

  // Returns the folder's number in texts.
  std::uint32_t Fill(int folder, const controls::KeyForm& keyForm, std::wstring_view statement,
                     LeafTexts& texts, MakeText makeText,
                     const std::function<int(std::int32_t)>& image);
  std::wstring GroupRow(data::ResultSet& row);
  std::wstring UserRow(data::ResultSet& row);
  std::wstring PermissionRow(data::ResultSet& row);

  const TreeContext& context_;
  controls::TreeView& tree_;
  DisplayNames names_;
  LeafTexts groups_;
  LeafTexts users_;
  LeafTexts permissions_;
};

}  // namespace browser
