#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "app/mGlobal.h"
#include "controls/TreeNodes.h"

namespace browser {

// What the head of a report says of it.
struct ReportHead {
  std::wstring utc;    // date and time
  std::wstring local;  // the same where the program runs
  std::wstring sessionUser;
  std::int32_t sessionId = 0;
  int users = 0;
  int groups = 0;
  int permissions = 0;
  bool incomplete = false;  // the trees lack what a failed read has left out
};

// What a report is written from and to. All of it outlives the writing.
struct ReportContext {
  const app::mGlobal& global;
  const controls::TreeNodes& users;
  const controls::TreeNodes& groups;
  ReportHead head;
  // Takes the next bytes, UTF-8.
  std::function<void(const std::string& bytes)> Write;
  // Told after each user; false ends the writing at once.
  std::function<bool(int done, int total)> GoesOn;
};

// How many a tree has of accounts.
int AccountsIn(const controls::TreeNodes& nodes);

// Who may do what, and why, as the two trees tell it. False when it was stopped.
//
// As a table for spreadsheets: a row for each user and permission, cells between semicolons, with a
// byte order mark. No cell is one that a spreadsheet would calculate.
bool WriteCsv(const ReportContext& report);
// As a page to be read and printed, complete in itself: the users with what they may do, then the
// groups with their members and permissions.
bool WriteHtml(const ReportContext& report);

}  // namespace browser
