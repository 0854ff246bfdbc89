#include "tests/support/driver/DriverCalls.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <utility>

#include "server/engines/odbc/OdbcHeaders.h"
#include "server/engines/odbc/WideText.h"

namespace {

// What the wrapped functions, which are plain ones, share.
struct Watch {
  std::mutex mutex;
  test_support::DriverCalls::Listener listener;
  bool asking = false;                    // the listener is at work
  std::map<SQLHANDLE, std::string> told;  // the messages of what was made to fail
};

Watch& TheWatch() {
  static Watch watch;
  return watch;
}

bool Fails(SQLHANDLE handle, const char* function) {
  Watch& watch = TheWatch();
  {
    const std::lock_guard lock(watch.mutex);
    watch.told.erase(handle);
    if (!watch.listener || watch.asking) return false;
    watch.asking = true;
  }
  const bool fails = watch.listener(function);
  const std::lock_guard lock(watch.mutex);
  watch.asking = false;
  if (fails) watch.told[handle] = test_support::DriverCalls::InjectedMessage(function);
  return fails;
}

}  // namespace

namespace test_support {

DriverCalls::DriverCalls(Listener listener) {
  const std::lock_guard lock(TheWatch().mutex);
  TheWatch().listener = std::move(listener);
}

DriverCalls::~DriverCalls() {
  const std::lock_guard lock(TheWatch().mutex);
  TheWatch().listener = nullptr;
}

std::string DriverCalls::InjectedMessage(const std::string& function) {
  return "injected at " + function;
}

}  // namespace test_support

// The linker has every call of SQLExecute come to __wrap_SQLExecute, and finds the function itself
// under the name __real_SQLExecute; so with the others.
#define UADMIN_WRAP(function, handle, parameters, arguments)                              \
  extern "C" SQLRETURN SQL_API __real_##function parameters;                              \
  extern "C" SQLRETURN SQL_API __wrap_##function parameters;                              \
  extern "C" SQLRETURN SQL_API __wrap_##function parameters {                             \
    return Fails(handle, #function) ? SQLRETURN{SQL_ERROR} : __real_##function arguments; \
  }

UADMIN_WRAP(SQLAllocHandle, parent, (SQLSMALLINT type, SQLHANDLE parent, SQLHANDLE* made),
            (type, parent, made))
UADMIN_WRAP(SQLBindCol, statement,
            (SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type, SQLPOINTER value,
             SQLLEN size, SQLLEN* length),
            (statement, column, type, value, size, length))
UADMIN_WRAP(SQLBindParameter, statement,
            (SQLHSTMT statement, SQLUSMALLINT parameter, SQLSMALLINT direction, SQLSMALLINT type,
             SQLSMALLINT sqlType, SQLULEN size, SQLSMALLINT digits, SQLPOINTER value, SQLLEN room,
             SQLLEN* length),
            (statement, parameter, direction, type, sqlType, size, digits, value, room, length))
UADMIN_WRAP(SQLDescribeColW, statement,
            (SQLHSTMT statement, SQLUSMALLINT column, SQLWCHAR* name, SQLSMALLINT room,
             SQLSMALLINT* length, SQLSMALLINT* type, SQLULEN* size, SQLSMALLINT* digits,
             SQLSMALLINT* nullable),
            (statement, column, name, room, length, type, size, digits, nullable))
UADMIN_WRAP(SQLEndTran, handle, (SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT how),
            (type, handle, how))
UADMIN_WRAP(SQLExecDirectW, statement, (SQLHSTMT statement, SQLWCHAR* text, SQLINTEGER size),
            (statement, text, size))
UADMIN_WRAP(SQLExecute, statement, (SQLHSTMT statement), (statement))
UADMIN_WRAP(SQLFetchScroll, statement, (SQLHSTMT statement, SQLSMALLINT orientation, SQLLEN place),
            (statement, orientation, place))
UADMIN_WRAP(SQLNumResultCols, statement, (SQLHSTMT statement, SQLSMALLINT* columns),
            (statement, columns))
UADMIN_WRAP(SQLPrepareW, statement, (SQLHSTMT statement, SQLWCHAR* text, SQLINTEGER size),
            (statement, text, size))
UADMIN_WRAP(SQLRowCount, statement, (SQLHSTMT statement, SQLLEN* rows), (statement, rows))
UADMIN_WRAP(SQLSetConnectAttr, connection,
            (SQLHDBC connection, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER size),
            (connection, attribute, value, size))
UADMIN_WRAP(SQLSetStmtAttr, statement,
            (SQLHSTMT statement, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER size),
            (statement, attribute, value, size))

extern "C" SQLRETURN SQL_API __real_SQLGetDiagRecW(SQLSMALLINT type, SQLHANDLE handle,
                                                   SQLSMALLINT number, SQLWCHAR* state,
                                                   SQLINTEGER* native, SQLWCHAR* text,
                                                   SQLSMALLINT room, SQLSMALLINT* length);
extern "C" SQLRETURN SQL_API __wrap_SQLGetDiagRecW(SQLSMALLINT type, SQLHANDLE handle,
                                                   SQLSMALLINT number, SQLWCHAR* state,
                                                   SQLINTEGER* native, SQLWCHAR* text,
                                                   SQLSMALLINT room, SQLSMALLINT* length);
extern "C" SQLRETURN SQL_API __wrap_SQLGetDiagRecW(SQLSMALLINT type, SQLHANDLE handle,
                                                   SQLSMALLINT number, SQLWCHAR* state,
                                                   SQLINTEGER* native, SQLWCHAR* text,
                                                   SQLSMALLINT room, SQLSMALLINT* length) {
  Watch& watch = TheWatch();
  const std::lock_guard lock(watch.mutex);
  const auto found = watch.told.find(handle);
  if (found == watch.told.end()) {
    return __real_SQLGetDiagRecW(type, handle, number, state, native, text, room, length);
  }
  if (number != 1) return SQL_NO_DATA;
  const server::OdbcText message = server::ToOdbc(found->second);
  const server::OdbcText general = server::ToOdbc("HY000");
  std::copy(general.begin(), general.end(), state);
  *native = 0;
  *length = static_cast<SQLSMALLINT>(message.size());
  if (static_cast<std::size_t>(room) <= message.size()) return SQL_ERROR;
  *std::copy(message.begin(), message.end(), text) = 0;
  return SQL_SUCCESS;
}
