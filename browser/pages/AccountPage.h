#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/ReportedLater.h"
#include "browser/lists/AccountLists.h"
#include "browser/pages/PageHost.h"
#include "browser/pages/PageView.h"
#include "browser/rules/OwnAccess.h"
#include "browser/rules/WhyOff.h"
#include "browser/trees/AccountTree.h"
#include "browser/trees/TreeContext.h"
#include "browser/trees/TreeLookup.h"
#include "data/TextFilter.h"
#include "dialogs/Exchange.h"

namespace browser {

// What pages work with. All of it is the window's and outlives them.
struct PageContext {
  const TreeContext& trees;
  const controls::ImageList& images;
  dialogs::Exchange& exchange;
  PageHost& host;
};

// A tab of the main window with its tree: what is selected and what it stands for, the buttons that
// the selection switches on, the menu, keys and clipboard of the tree, and the steps that the
// commands of both tabs have in common.
class AccountPage : public PageView {
 public:
  virtual ~AccountPage() = default;

  // What the page shows from the load of its window on.
  void Load();
  // Builds the tree from nothing, for use inside a reading transaction: the error is the caller's
  // to report. The selection then is on the root, which is open.
  app::Outcome Fill(app::KeptError& error);
  // Another page has changed something that this one shows as well.
  void BringInStep(Change change);
  // Takes in what the selected node stands for, and sets the buttons for it.
  void RefreshSelection();
  // F2 edits the account, Delete takes away the account or the link that is selected, where the
  // button for it is on; where it is off the status line says why. Enter goes to the account that
  // the selected node leads to, Backspace back to where the user came from. All of them only where
  // the tree has the focus. Ctrl+F leads to the box above the tree, Down and Enter from there to
  // the first account found, and Escape ends the search.
  void KeyDown(int keyCode);
  // Selects a node and brings it into view, as a user's click would, with the focus in the tree.
  void ShowNode(controls::NodeId node);
  // The node of an account; kNoNode when it has none.
  controls::NodeId NodeOf(std::int32_t id) { return Accounts().Find(id); }
  std::wstring SelectedKey() const { return KeyOf(TreeView1.SelectedNode()); }
  // What there is to say about the selected node, empty for nothing.
  std::wstring SelectionText() const { return OriginOf(TreeView1.SelectedNode()); }
  // How many accounts the box has found, empty while nothing is searched for.
  std::wstring FoundText() const;

  // The string table's numbers of what is shown while the tree is built, or brought up to date.
  virtual int ReadingText() const = 0;
  virtual int UpdatingText() const = 0;

  const TreeLookup lookup;
  std::int16_t accountCount = 0;
  // The permission that the selected node stands for, -1 when it stands for none.
  std::int32_t selectedPermId = -1;
  std::wstring selectedPermName;

 protected:
  // What a command finds selected.
  struct Selection {
    controls::NodeId node = controls::kNoNode;
    std::wstring key;
    std::wstring tag;
    controls::NodeId account = controls::kNoNode;  // the account node above it or itself
    std::int32_t id = -1;                          // the account; -1 without one
  };

  // What tells the removal of one kind of link from that of another.
  struct LinkKind {
    std::wstring_view leafTag;
    int warning1;  // texts of the string table
    int warning2;
    int question;
    int done;  // says that the leaf %1 was taken from the account %2
  };

  // A command that has no button: a line of the context menu, and a key.
  struct MenuCommand {
    int caption;  // texts of the string table
    int keyName;
    int keyCode;
    std::function<WhyOff(controls::NodeId node)> Why;  // it is off for the node
    std::function<void()> Do;
  };

  AccountPage(controls::Form& form, const PageLayout& layout, const PageContext& context);

  virtual AccountTree& Accounts() = 0;
  // The account node that the node belongs to.
  virtual controls::NodeId OwnerOf(std::wstring_view tag, controls::NodeId node) const = 0;
  // The identifier of the page's own account in the exchange.
  virtual std::int32_t& SelectedID() = 0;
  // Takes in what the node stands for, and sets the buttons by its type.
  virtual void TakeIn(controls::NodeId node) = 0;
  // Switches off what would harm a protected account.
  virtual void Protect(controls::NodeId node) = 0;
  virtual app::Outcome Update(Change change) = 0;
  // What there is to say about a node, empty for nothing.
  virtual std::wstring OriginOf(controls::NodeId node) const;
  // The account that a leaf leads to: of a member or a group that one, of a permission the account
  // that gives or holds it. Nothing for any other node.
  virtual std::optional<Account> AccountAt(controls::NodeId node) const = 0;
  // The name of the event procedure of the account buttons.
  virtual const wchar_t* AccountProcedure() const = 0;

  // A command from its first step, reading the selection, to its last: the selection that it leaves
  // is taken in, and the tree has the focus. The command answers false when it ended with a warning
  // that the wrong thing was selected: then nothing has changed.
  void Run(const std::function<bool(const Selection& at)>& command);

  // The steps of commands on accounts.
  bool WarnUnselected(const Selection& at, int text, int style);
  bool NamesAreKnown() const { return host_.AllAccountsKnown(); }
  void ShowEdited(const Selection& at, const std::wstring& text, const std::wstring& storedName);
  // ownAccessEnds asks for one more question, about the user's own right to this program.
  void DeleteAccount(const Selection& at, int question, bool ownAccessEnds,
                     std::wstring (*markDeleted)(std::wstring_view name, std::int32_t id));
  void ForgetAccount(const Selection& at);
  void ShowNew(std::int32_t id);

  // The steps of commands on links. RemoveLink asks, runs the statement, takes the leaf away, or
  // has its folder rebuilt where the statement met no row, and runs what is to follow. It does
  // nothing where the selected node is no such link, the answer is not Yes or the statement fails.
  // ownAccessEnds asks for one more question, as above.
  void ShowListItem(const std::wstring& listKind, const std::wstring& relation, std::int32_t owner);
  void RemoveLink(const Selection& at, const LinkKind& kind, bool ownAccessEnds,
                  const std::wstring& statement, const std::function<app::Outcome()>& rebuildFolder,
                  const std::function<void()>& after);

  // What the status line is to say of the command when it is over; without it, nothing.
  void TellDone(int text, std::initializer_list<std::wstring> values);
  // How many links a dialog has added to the account; one has the text for at most one of them.
  void TellAssigned(const Selection& at, int one, int many);
  std::wstring NameOf(controls::NodeId account) const;

  // The commands of both pages that answer with a list.
  std::vector<MenuCommand> ListCommands();

  // What the trees tell of the right that the session's user has to this program.
  OwnAccess Access() const;

  // Brings folders up to date under the wait pointer; a failure shows in the status line.
  void Rebuild(const std::function<app::Outcome()>& work);
  // The same, of a folder of the account among others: the first leaf that it gains is brought into
  // view, where it is open.
  void RebuildAndReveal(const Selection& at, const controls::KeyForm& folder,
                        const std::function<app::Outcome()>& work);

  std::wstring KeyOf(controls::NodeId node) const;
  // A reason as it is shown; section is the caption of the one that the command belongs to.
  std::wstring TextOf(const WhyOff& why, const std::wstring& section = {}) const;
  void ClearSelection();
  // Switches the buttons on and off for a node of its type.
  void ResetButtons(std::wstring_view tag);
  // Switches a button of a section off, and has it say why, or on where nothing is against it.
  void Switch(const controls::Frame& section, controls::CommandButton& button, const WhyOff& why);
  const app::mGlobal& Global() const { return context_.global; }

  const TreeContext& context_;
  dialogs::Exchange& exchange_;
  PageHost& host_;
  // What both pages have.
  MenuCommand ExportCommand();
  MenuCommand JournalCommand();

  // Those of the page, in the order of the menu; set by its constructor.
  std::vector<MenuCommand> commands_;

 private:
  void SetEvents();

  // AccountPageFind.cpp
  void txtFind_Change();
  bool FindKeyDown(int keyCode);
  void GoToFirstFound();
  bool EndFind();

  Selection ReadSelection();
  app::JournalEntry::Account Concerned(const Selection& at) const;
  bool Confirm(int question, bool ownAccessEnds) const;
  void RemoveAccount(controls::NodeId account);
  void CountNew();

  // AccountPageLists.cpp
  ListContext Listed() const;
  bool StandsForPermission(controls::NodeId node) const;
  std::optional<std::int32_t> GroupAt(controls::NodeId node) const;
  controls::NodeId UserAt(controls::NodeId node) const;
  std::optional<Account> Choose(const std::function<ListSource()>& make);
  void ShowHolders();
  void ShowMembers();
  void CompareUsers();

  // AccountPageMenu.cpp
  void TreeView1_ContextMenu(controls::NodeId node);
  void TreeView1_Copy(controls::NodeId node);
  void TreeView1_Expand(controls::NodeId node, bool expanded);
  void Perform(controls::NodeId node, int command);
  controls::CommandButton& ButtonOf(int command);
  void Press(int command);
  std::optional<Account> Destination(controls::NodeId node) const;
  void GoToAccount(controls::NodeId node);
  void GoBack();
  int CommandOfDelete(controls::NodeId node) const;

  const controls::ImageList& images_;
  data::TextFilter filter_;
  std::wstring done_;  // by the command that runs
};

}  // namespace browser
