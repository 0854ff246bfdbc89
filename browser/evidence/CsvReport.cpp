#include <unordered_map>

#include "app/StringIds.h"
#include "browser/evidence/AccessReport.h"
#include "browser/evidence/CsvCell.h"
#include "browser/rules/AccountName.h"
#include "browser/rules/EffectivePermissions.h"
#include "data/Text.h"

namespace browser {
namespace {

using controls::NodeId;

class CsvWriter {
 public:
  explicit CsvWriter(const ReportContext& report)
      : report_(report), permissions_(report.users, report.groups) {
    for (const int origin : {app::kExportUnknown, app::kExportDirect, app::kExportByGroup,
                             app::kExportDirectAndByGroup}) {
      origins_.emplace(origin, ";" + Cell(origin) + ";");
    }
  }

  bool Write() {
    rows_ = kByteOrderMark;
    if (report_.head.incomplete) AddLine(Cell(app::kExportIncomplete));
    std::string headings;
    for (const int heading : {app::kExportUser, app::kExportFullName, app::kExportPermission,
                              app::kExportOrigin, app::kExportGroups}) {
      headings += (headings.empty() ? "" : ";") + Cell(heading);
    }
    AddLine(headings);
    const NodeId root = report_.users.Root();
    if (root == controls::kNoNode) return Flush();
    const auto users = report_.users.ChildrenInOrder(root);
    int done = 0;
    for (const NodeId user : users) {
      AddUser(user);
      Flush();
      if (!report_.GoesOn(++done, static_cast<int>(users.size()))) return false;
    }
    return Flush();
  }

 private:
  std::string Cell(int text) const { return CsvCell(report_.global.LoadResString(text)); }

  bool Flush() {
    report_.Write(rows_);
    rows_.clear();
    return true;
  }

  void AddLine(const std::string& cells) {
    rows_ += cells;
    rows_ += kEndOfLine;
  }

  void AddUser(NodeId user) {
    const std::string beginning = CsvCell(AccountName(report_.users, user)) + ";" +
                                  CsvCell(AccountAddition(report_.users, user)) + ";";
    permissions_.ForEachOf(user, [&](const HeldPermission& held) {
      rows_ += beginning;
      rows_ += NameOf(held);
      rows_ += OriginOf(held.source);
      AddGroups(held.source.groups);
      rows_ += kEndOfLine;
    });
  }

  // Of a permission the cell is made once for all who have it.
  const std::string& NameOf(const HeldPermission& held) {
    std::string& cell = names_[held.permission];
    if (cell.empty()) cell = CsvCell(report_.users.Text(held.leaf));
    return cell;
  }

  const std::string& OriginOf(const PermissionSource& source) const {
    const int byGroup = source.direct ? app::kExportDirectAndByGroup : app::kExportByGroup;
    const int alone = source.direct ? app::kExportDirect : app::kExportUnknown;
    return origins_.at(source.groups.empty() ? alone : byGroup);
  }

  void AddGroups(const std::vector<NodeId>& groups) {
    if (groups.size() == 1) {
      rows_ += GroupCell(groups.front());
    } else if (!groups.empty()) {
      std::wstring names;
      for (const NodeId group : groups) {
        if (!names.empty()) names += L", ";
        names += AccountName(report_.groups, group);
      }
      rows_ += CsvCell(names);
    }
  }

  const std::string& GroupCell(NodeId group) {
    std::string& cell = groups_[group];
    if (cell.empty()) cell = CsvCell(AccountName(report_.groups, group));
    return cell;
  }

  const ReportContext& report_;
  EffectivePermissions permissions_;
  std::unordered_map<int, std::string> origins_;  // with the semicolons around them
  std::unordered_map<std::int32_t, std::string> names_;
  std::unordered_map<NodeId, std::string> groups_;
  std::string rows_;
};

}  // namespace

bool WriteCsv(const ReportContext& report) {
  return CsvWriter(report).Write();
}

}  // namespace browser
