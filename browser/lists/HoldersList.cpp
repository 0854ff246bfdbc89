#include <utility>

#include "app/StringIds.h"
#include "browser/lists/AccountLists.h"
#include "browser/lists/UserRow.h"
#include "browser/rules/PermissionOrigin.h"

namespace browser {

ListSource HoldersList(const ListContext& context, const controls::TreeNodes& nodes,
                       controls::NodeId leaf) {
  const app::mGlobal& global = context.global;
  ListSource source = UserList(context, app::kHoldersTitle, app::kNoHolder);
  source.heading = app::FillIn(global.LoadResString(app::kPermissionHeading), {nodes.Text(leaf)});
  source.columns[0].share = 2;
  source.columns[1].share = 3;
  source.columns.push_back({global.LoadResString(app::kOriginColumn), 5});
  const EffectivePermissions permissions(context.users, context.groups);
  for (const PermissionHolder& holder : permissions.HoldersOf(nodes.Id(leaf))) {
    ListRow row = UserRow(context.users, holder.user);
    row.texts.push_back(SourceText(global, context.groups, holder.source));
    source.rows.push_back(std::move(row));
  }
  return source;
}

}  // namespace browser
