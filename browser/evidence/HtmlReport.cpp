#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "app/StringIds.h"
#include "browser/evidence/AccessReport.h"
#include "browser/evidence/HtmlPage.h"
#include "browser/evidence/HtmlText.h"
#include "browser/rules/AccountName.h"
#include "browser/rules/EffectivePermissions.h"
#include "browser/rules/PermissionOrigin.h"
#include "browser/rules/TreeKeys.h"
#include "data/Text.h"

namespace browser {
namespace {

using controls::NodeId;
using controls::TreeNodes;

class HtmlWriter {
 public:
  explicit HtmlWriter(const ReportContext& report)
      : report_(report), permissions_(report.users, report.groups) {}

  bool Write() {
    AddHead();
    if (!AddUsers()) return false;
    AddGroups();
    page_ += kEndOfPage;
    Flush();
    return true;
  }

 private:
  std::string Text(int id) const { return HtmlText(report_.global.LoadResString(id)); }
  std::string Filled(int id, std::initializer_list<std::wstring> values) const {
    return HtmlText(app::FillIn(report_.global.LoadResString(id), values));
  }

  void Flush() {
    report_.Write(page_);
    page_.clear();
  }

  void AddHead() {
    const ReportHead& head = report_.head;
    page_ = BeginningOfPage(report_.global.LoadResString(app::kExportTitle) + L" - " + head.local);
    page_ += "<header>\n<h1>" + Text(app::kExportTitle) + "</h1>\n<dl>\n";
    AddFact(app::kExportDate,
            HtmlText(head.local) + " <span class=\"quiet\">(" + HtmlText(head.utc) + ")</span>");
    AddFact(app::kExportDatabase, Filled(app::kExportSession, {data::Decimal(head.sessionId)}));
    AddFact(app::kExportSessionUser, "<bdi>" + HtmlText(head.sessionUser) + "</bdi>");
    AddFact(app::kExportContent,
            Filled(app::kCounts, {data::Decimal(head.users), data::Decimal(head.groups),
                                  data::Decimal(head.permissions)}));
    page_ += "</dl>\n";
    if (head.incomplete) {
      page_ += "<p class=\"warning\">" + Text(app::kExportIncomplete) + "</p>\n";
    }
    page_ += "<nav><a href=\"#users\">" + Text(app::kExportUsersPart) +
             "</a> · <a href=\"#groups\">" + Text(app::kExportGroupsPart) +
             "</a></nav>\n</header>\n";
  }

  void AddFact(int name, const std::string& value) {
    page_ += "<dt>" + Text(name) + "</dt><dd>" + value + "</dd>\n";
  }

  static std::vector<NodeId> Accounts(const TreeNodes& nodes) {
    const NodeId root = nodes.Root();
    if (root == controls::kNoNode) return {};
    const auto accounts = nodes.ChildrenInOrder(root);
    return {accounts.begin(), accounts.end()};
  }

  bool AddUsers() {
    page_ += "<section id=\"users\">\n<h2>" + Text(app::kExportUsersPart) + "</h2>\n";
    const std::vector<NodeId> users = Accounts(report_.users);
    int done = 0;
    for (const NodeId user : users) {
      AddUser(user);
      Flush();
      if (!report_.GoesOn(++done, static_cast<int>(users.size()))) return false;
    }
    page_ += "</section>\n";
    return true;
  }

  void BeginAccount(const TreeNodes& nodes, NodeId account) {
    page_ += "<article>\n<h3><bdi>" + HtmlText(AccountName(nodes, account)) + "</bdi>";
    const std::wstring addition = AccountAddition(nodes, account);
    if (!addition.empty()) page_ += " <span><bdi>" + HtmlText(addition) + "</bdi></span>";
    page_ += "</h3>\n";
  }

  // What a user may do, together by where it comes from: directly first, then by group.
  void AddUser(NodeId user) {
    BeginAccount(report_.users, user);
    std::map<std::pair<bool, std::vector<NodeId>>, std::vector<const std::string*>> sources;
    permissions_.ForEachOf(user, [&](const HeldPermission& held) {
      sources[{!held.source.direct, held.source.groups}].push_back(&ItemOf(held));
    });
    AddNames(report_.users, user, kMemberOfKey, app::kExportMemberOf);
    if (sources.empty()) {
      page_ += "<p class=\"quiet\">" + Text(app::kExportNoPermission) + "</p>\n";
    } else {
      page_ += "<table>\n";
      for (const auto& [source, items] : sources) {
        page_ +=
            "<tr><th scope=\"row\">" + SourceOf(!source.first, source.second) + "</th><td><ul>";
        for (const std::string* item : items) page_ += *item;
        page_ += "</ul></td></tr>\n";
      }
      page_ += "</table>\n";
    }
    page_ += "</article>\n";
  }

  // Made once for all who have the permission.
  const std::string& ItemOf(const HeldPermission& held) {
    std::string& item = items_[held.permission];
    if (item.empty()) item = Item(report_.users.Text(held.leaf));
    return item;
  }
  static std::string Item(const std::wstring& text) { return "<li>" + HtmlText(text) + "</li>"; }

  const std::string& SourceOf(bool direct, const std::vector<NodeId>& groups) {
    std::string& text = sources_[{direct, groups}];
    if (text.empty()) {
      text = HtmlText(SourceText(report_.global, report_.groups, {direct, groups}));
    }
    return text;
  }

  // The accounts that a folder lists, on one line.
  void AddNames(const TreeNodes& nodes, NodeId account, const controls::KeyForm& keyForm,
                int caption) {
    std::string names;
    const NodeId folder = nodes.FindChild(account, keyForm, 0);
    if (folder != controls::kNoNode) {
      for (const NodeId leaf : nodes.ChildrenInOrder(folder)) {
        if (!names.empty()) names += ", ";
        names += "<bdi>" + HtmlText(nodes.Text(leaf)) + "</bdi>";
      }
    }
    if (!names.empty()) page_ += "<p>" + Text(caption) + " " + names + "</p>\n";
  }

  void AddGroups() {
    page_ += "<section id=\"groups\">\n<h2>" + Text(app::kExportGroupsPart) + "</h2>\n";
    const TreeNodes& nodes = report_.groups;
    for (const NodeId group : Accounts(nodes)) {
      BeginAccount(nodes, group);
      page_ += "<table>\n";
      AddList(group, kMembersKey, app::kExportMembers);
      AddList(group, kGroupPermissionsKey, app::kExportGives);
      page_ += "</table>\n</article>\n";
      Flush();
    }
    page_ += "</section>\n";
  }

  void AddList(NodeId group, const controls::KeyForm& keyForm, int caption) {
    const TreeNodes& nodes = report_.groups;
    const NodeId folder = nodes.FindChild(group, keyForm, 0);
    std::vector<NodeId> leaves;
    if (folder != controls::kNoNode) {
      const auto children = nodes.ChildrenInOrder(folder);
      leaves.assign(children.begin(), children.end());
    }
    page_ += "<tr><th scope=\"row\">" +
             Filled(caption, {data::Decimal(static_cast<std::int64_t>(leaves.size()))}) +
             "</th><td><ul>";
    for (const NodeId leaf : leaves) page_ += Item(nodes.Text(leaf));
    page_ += "</ul></td></tr>\n";
  }

  const ReportContext& report_;
  EffectivePermissions permissions_;
  std::unordered_map<std::int32_t, std::string> items_;
  std::map<std::pair<bool, std::vector<NodeId>>, std::string> sources_;
  std::string page_;
};

}  // namespace

int AccountsIn(const TreeNodes& nodes) {
  const NodeId root = nodes.Root();
  return root == controls::kNoNode ? 0 : nodes.Children(root);
}

bool WriteHtml(const ReportContext& report) {
  return HtmlWriter(report).Write();
}

}  // namespace browser
