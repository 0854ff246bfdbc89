#include "bench/Command.h"

#include <stdexcept>

#include "data/Text.h"
#include "dialogs/frmAddUserInGroup.h"

namespace bench {

using browser::frmUserGroupPerm;

std::string Number(std::int64_t number) {
  return std::to_string(number);
}

Command AddMember(test_support::RawDatabase& raw, int groupId) {
  const std::string group = Number(groupId);
  const std::int64_t user = raw.Number(
      "SELECT MAX(USERID) FROM QRUSERV WHERE USERID NOT IN (SELECT USERID FROM QRUSGP WHERE "
      "GROUPID = " +
      group + ")");
  Command command{"add a user to a group", 1, "\\TMS \\G" + group + " \\U", {}, {}, {}, {}};
  command.press = [](frmUserGroupPerm& window) { window.Groups.cmdMember_Click(0); };
  command.answer = [user](controls::Form& form) {
    auto& dialog = dynamic_cast<dialogs::frmAddUserInGroup&>(form);
    controls::ListBox& others = dialog.List1[1];
    for (int i = 0; i < others.ListCount(); ++i) others.SetSelected(i, others.ItemData(i) == user);
    dialog.cmdBtn[1].Click();
    dialog.cmdOK.Click();
  };
  command.writes = {"INSERT INTO QRUSGP (USERID, GROUPID) VALUES (" + Number(user) + ", " + group +
                    ")"};
  command.undo = {"DELETE FROM QRUSGP WHERE USERID = " + Number(user) + " AND GROUPID = " + group};
  return command;
}

void Select(frmUserGroupPerm& window, const Command& command) {
  controls::TreeView& tree = window.Page(command.tree).TreeView1;
  const controls::NodeId node = tree.Nodes().Find(data::FromUtf8(command.key));
  if (node == controls::kNoNode) throw std::runtime_error("no node " + command.key);
  window.TabStrip1.SetSelectedTab(command.tree);
  tree.SetSelectedNode(node);
  Settle(window);
}

}  // namespace bench
