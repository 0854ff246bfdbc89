#include "tests/support/window/MainWindowFixture.h"

#include "app/ErrorReport.h"
#include "data/Text.h"
#include "tests/support/recording/RecordingServer.h"

namespace test_support {

MainWindowFixture::MainWindowFixture()
    : database_(std::make_unique<test_support::SampleDatabase>()) {
  global.CreateSessionServer = [this] { return Record(database_->MakeServer(), log); };
  desktop.EscapedError = [this] { app::ReportError(global, L"uadmin"); };
}

void MainWindowFixture::UseGenerated(const server::GeneratedSize& size) {
  database_.reset();
  database_ = std::make_unique<test_support::SampleDatabase>(size);
}

void MainWindowFixture::UseSample() {
  database_.reset();
  database_ = std::make_unique<test_support::SampleDatabase>();
}

void MainWindowFixture::Run(const WindowScript& script, std::wstring_view userName) {
  user.SetCommandLine(database_->CommandLine(userName));
  if (script) {
    user.ExpectModal([&](controls::Form& form) {
      script(dynamic_cast<browser::frmUserGroupPerm&>(form));
      if (form.IsLoaded()) user.Close(form);
    });
  }
  browser::frmUserGroupPerm window(global);
  desktop.Run(window);
}

std::vector<std::wstring> MainWindowFixture::ChildTexts(const controls::TreeView& tree,
                                                        controls::NodeId node) {
  const controls::TreeNodes& nodes = tree.Nodes();
  std::vector<std::wstring> texts;
  for (const controls::NodeId child : nodes.ChildrenInOrder(node)) {
    texts.push_back(nodes.Text(child));
  }
  return texts;
}

controls::NodeId MainWindowFixture::Child(const controls::TreeView& tree, controls::NodeId node,
                                          std::wstring_view text) {
  const controls::TreeNodes& nodes = tree.Nodes();
  for (const controls::NodeId child : nodes.ChildrenInOrder(node)) {
    if (nodes.Text(child) == text) return child;
  }
  return controls::kNoNode;
}

controls::NodeId MainWindowFixture::NodeAt(const controls::TreeView& tree,
                                           const std::vector<std::wstring>& texts) {
  controls::NodeId node = tree.Nodes().Root();
  for (const std::wstring& text : texts) {
    const controls::NodeId child = Child(tree, node, text);
    if (child == controls::kNoNode) {
      ADD_FAILURE() << "no node " << data::ToUtf8(text) << " below "
                    << data::ToUtf8(tree.Nodes().FullPath(node));
      return node;
    }
    node = child;
  }
  return node;
}

}  // namespace test_support
