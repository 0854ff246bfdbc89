#pragma once

#include <string>
#include <vector>

#include "tests/program/Database.h"
#include "tests/program/driver/TreeView.h"

namespace program {

// A tree as its texts.
struct Outline {
  std::wstring text;
  std::vector<Outline> children;
};

// What the tree control shows, everything opened.
Outline ReadOutline(driver::TreeView& tree);
Outline ReadOutline(driver::TreeView& tree, const driver::TreeNode& node);

// What the trees have to show by what stands in the database.
Outline ExpectedUsers(Database& database);
Outline ExpectedGroups(Database& database);

// How many nodes there are, the top one included.
int CountNodes(const Outline& outline);

// One line a node, indented, in UTF-8; siblings in an order that depends on their texts alone, so
// that two outlines with the same content print alike.
std::string Print(const Outline& outline);

// The first text that stands after a sibling that it should precede by the user's language; empty
// when all siblings are in order.
std::wstring OutOfOrder(const Outline& outline);

}  // namespace program
