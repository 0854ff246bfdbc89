#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "browser/trees/DisplayNames.h"
#include "browser/trees/LeafTexts.h"
#include "browser/trees/TreeContext.h"
#include "controls/TreeView.h"

namespace browser {

// Puts the rows of statements as leaves into folders. One filler serves one filling of a tree, from
// a single folder to all accounts; texts and display forms are asked for once in that time. The
// caller keeps a TreeView::Update open meanwhile.
//
// A folder that has leaves already ends up with those of the rows. Leaves that are in both stay the
// nodes they were, and with them the selection; and a folder whose rows could not be read to the
// end keeps what it had.
class FolderFiller {
 public:
  FolderFiller(const TreeContext& context, controls::TreeView& tree);

  // Fills the folder with the rows (identifier, name, description) of groups.
  void FillGroups(controls::NodeId folder, std::wstring_view statement);
  // With the rows (identifier, name, full name) of users.
  void FillUsers(controls::NodeId folder, std::wstring_view statement);
  // With the rows (identifier, name) of permissions held directly by the folder's account.
  void FillPermissions(controls::NodeId folder, const controls::KeyForm& keyForm,
                       std::wstring_view statement);
  // With the permissions that a user has through groups, the rows of the statement, and those that
  // the folder of his own permissions shows, each once.
  void FillAllPermissions(controls::NodeId folder, controls::NodeId ownFolder,
                          std::wstring_view statement);

  // The text of a group's node, from its stored name and description.
  std::wstring GroupText(const std::wstring& name, const std::wstring& description);

 private:
  using MakeText = std::function<std::wstring(data::ResultSet& row)>;

  void Fill(controls::NodeId folder, const controls::KeyForm& keyForm, std::wstring_view statement,
            LeafTexts& texts, const MakeText& makeText,
            const std::function<int(std::int32_t)>& image);
  // Reads the rows into wanted_, each identifier once, and returns the folder's number in texts.
  std::uint32_t Read(std::wstring_view statement, LeafTexts& texts, const MakeText& makeText,
                     const std::function<int(std::int32_t)>& image);
  // Makes the folder's leaves those of wanted_.
  void Put(controls::NodeId folder, std::uint32_t number, const controls::KeyForm& keyForm,
           LeafTexts& texts);
  // Takes the leaves away that are not wanted and brings the others up to date.
  void Sift(controls::NodeId folder, std::uint32_t number, LeafTexts& texts);
  std::wstring GroupRow(data::ResultSet& row);
  static std::wstring UserRow(data::ResultSet& row);
  std::wstring PermissionRow(data::ResultSet& row);

  const TreeContext& context_;
  controls::TreeView& tree_;
  DisplayNames names_;
  LeafTexts groups_;
  LeafTexts users_;
  LeafTexts permissions_;
  std::vector<std::int32_t> wanted_;  // the identifiers that the folder at hand is to list
};

}  // namespace browser
