#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/mGlobal.h"
#include "browser/frmUserGroupPerm.h"
#include "controls/Desktop.h"
#include "data/SessionServer.h"
#include "tests/support/data/SampleDatabase.h"

namespace bench {

// The program up to its started window, on a database of its own.
class Program {
 public:
  explicit Program(const server::GeneratedSize& size);

  // Starts the program; its window is usable then.
  std::unique_ptr<browser::frmUserGroupPerm> Start();
  // The statements of a whole RefreshTree, in order, as a recorded run sends them.
  std::vector<std::wstring> RefreshStatements();
  std::string DatabaseFile() const { return database_.File().string(); }

 private:
  std::unique_ptr<browser::frmUserGroupPerm> Start(
      std::function<std::unique_ptr<data::SessionServer>()> createServer);

  controls::Desktop desktop_;
  app::mGlobal global_{desktop_};
  test_support::SampleDatabase database_;
};

}  // namespace bench
