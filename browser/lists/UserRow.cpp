#include "browser/lists/UserRow.h"

#include "app/StringIds.h"
#include "browser/rules/AccountName.h"

namespace browser {

ListRow UserRow(const controls::TreeNodes& users, controls::NodeId user) {
  return {{AccountName(users, user), AccountAddition(users, user)},
          Account{kUsersTab, users.Id(user)}};
}

ListSource UserList(const ListContext& context, int title, int nothing) {
  const app::mGlobal& global = context.global;
  ListSource source;
  source.title = global.LoadResString(title);
  source.columns = {{global.LoadResString(app::kNameColumn)},
                    {global.LoadResString(app::kFullNameColumn)}};
  source.nothing = global.LoadResString(nothing);
  source.notice = IncompleteNotice(context);
  source.action = global.LoadResString(app::kGoToRow);
  return source;
}

std::wstring IncompleteNotice(const ListContext& context) {
  return context.isComplete ? std::wstring() : context.global.LoadResString(app::kListIncomplete);
}

}  // namespace browser
