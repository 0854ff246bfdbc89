#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>

#include "app/Journal.h"
#include "data/SessionServer.h"

namespace controls {
class Desktop;
}

namespace app {

// What every window of the program shares for the length of a run. The main function makes it, the
// main window's load fills it and its unload releases the session server; everybody else borrows.
struct mGlobal {
  explicit mGlobal(controls::Desktop& theDesktop) : desktop(theDesktop), journal(theDesktop) {}

  controls::Desktop& desktop;
  // Is told what goes through the database connection, and so outlives it.
  Journal journal;
  // Makes the session server; the program's own goes through COM.
  std::function<std::unique_ptr<data::SessionServer>()> CreateSessionServer;

  std::unique_ptr<data::SessionServer> SessionServer;
  std::unique_ptr<data::Connection> databaseConnection;  // released before the session server
  std::wstring sessionText;
  std::int32_t sessionId = 0;
  std::int32_t sessionRights = 0;
  std::wstring sessionUserText;

  std::wstring helpFile;
  // Set when the start-up ended in an error; the program then ends with exit code 1.
  bool startUpFailed = false;

  // A text of the program's string table.
  std::wstring LoadResString(int id) const;
};

// Replaces %1, %2, ... in a text of the string table, in one pass: what is put in is not looked at
// again.
std::wstring FillIn(const std::wstring& pattern, std::initializer_list<std::wstring> values);

}  // namespace app
