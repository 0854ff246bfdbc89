// The description of a data source, as somebody may have written it by hand, and the connection
// string in it, which gets other values: a host of a list, a password, the options that the server
// needs.

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "data/RunTimeError.h"
#include "fuzz/Input.h"
#include "server/core/Errors.h"
#include "server/core/sessions/DataSource.h"
#include "server/engines/odbc/ConnectionString.h"

namespace {

const std::filesystem::path& Home() {
  static const std::filesystem::path home = [] {
    const auto folder =
        std::filesystem::temp_directory_path() / ("uadmin-fuzz-source-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder / "sources");
    return folder;
  }();
  return home;
}

// Whether what is added to a connection string is no part of a value that it leaves open.
bool IsClosed(const std::string& text) {
  return server::HasKeyword(text + ";UnusualWord=1", "unusualword");
}

// A value can be set, whatever stands in it, and hides nothing that was there.
void CheckValues(const std::string& text, std::string_view value) {
  const std::string with = server::WithValue(text, "PWD", value);
  if (!IsClosed(text)) return;
  fuzz::Require(server::HasKeyword(with, "pwd"), "a value that was set is there");
  fuzz::Require(server::HasKeyword(with, "Server") == server::HasKeyword(text, "Server"),
                "a value says nothing beyond itself");
  fuzz::Require(IsClosed(with), "a value ends");
  fuzz::Require(server::WithValue(with, "PWD", value) == with, "setting twice is setting once");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* start, std::size_t size) {
  std::string_view bytes = fuzz::Bytes(start, size);
  std::ofstream(Home() / "sources" / "x.ini", std::ios::binary)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  try {
    const server::DataSource source = server::DataSources(Home()).Find("x");
    fuzz::Require(source.odbc.has_value() == source.database.empty(), "one database, not two");
    if (source.odbc) {
      fuzz::Require(source.odbc->connectTime.count() > 0, "a time is at least a second");
      CheckValues(source.odbc->connectionString, source.odbc->user);
      for (const std::string& host : source.odbc->hosts) {
        server::WithHost(source.odbc->connectionString, host);
      }
    }
  } catch (const data::RunTimeError& error) {
    fuzz::Require(error.Number() == server::kSourceUnreadable, "an error of the description");
  }
  const std::string value(fuzz::TakeLine(bytes));
  CheckValues(std::string(bytes), value);
  return 0;
}
