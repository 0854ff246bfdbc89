#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "data/Value.h"

// The program's view of the outside world: the product's session server, the database connection it
// hands out and the result sets opened on it. Every operation raises RunTimeError when it fails.
namespace data {

// The number of the error that Update raises when the row to be changed is no longer there, because
// somebody else was faster. A server that does not know it raises whatever its database says.
inline constexpr long kRowGone = -2147220969;  // 0x80040217

// A forward-walked set of rows. Closing is the destructor's work too; Close reports a failure.
class ResultSet {
 public:
  virtual ~ResultSet() = default;

  virtual bool EndOfRows() = 0;
  // position is zero-based. The value's text holds until the next move.
  virtual ColumnValue Column(int position) = 0;
  virtual void MoveNext() = 0;
  virtual void MoveFirst() = 0;

  // Starts a new row, or the change of the current one; SetColumn fills it and Update writes it.
  virtual void AddNew() = 0;
  virtual void Edit() = 0;
  virtual void SetColumn(std::wstring_view name, const FieldValue& value) = 0;
  virtual void SetColumn(int position, const FieldValue& value) = 0;
  virtual void Update() = 0;
  virtual void Close() = 0;
};

class Connection {
 public:
  virtual ~Connection() = default;

  virtual std::unique_ptr<ResultSet> OpenResultSet(std::wstring_view statement) = 0;
  // The number of rows affected, -1 when it is not known.
  virtual std::int32_t Execute(std::wstring_view statement) = 0;
  // Between the two all reads see one state of the database, where the server offers that; where it
  // does not, both do nothing.
  virtual void BeginRead() = 0;
  virtual void EndRead() = 0;
};

// Stands around reads that are to see one state of the database. Finish reports a failure to end
// the read; the destructor ends it silently when an error is already on its way.
class ReadScope {
 public:
  explicit ReadScope(Connection& connection);
  ~ReadScope();
  ReadScope(const ReadScope&) = delete;
  ReadScope& operator=(const ReadScope&) = delete;

  void Finish();

 private:
  Connection* connection_;  // null once finished
};

class SessionServer {
 public:
  virtual ~SessionServer() = default;

  virtual void ReadCommandLine(std::wstring_view commandLine, std::wstring& sessionText,
                               std::int32_t& sessionId) = 0;
  virtual void OpenSession(std::wstring_view sessionText, std::int32_t sessionId) = 0;
  // The rights mask of the session's user; the value 4 is the right to administer users.
  virtual std::int32_t GetRights() = 0;
  virtual void SetMode(std::int32_t mode) = 0;
  virtual std::wstring GetSessionUserText() = 0;
  // The caller owns the connection; it must be released before the server.
  virtual std::unique_ptr<Connection> DatabaseConnection() = 0;
  // The next identifier of a counter: "QRUSRN" for users, "QRGPRN" for groups.
  virtual std::int32_t NewIdentifier(std::wstring_view counterName) = 0;
  virtual std::wstring EncryptPassword(std::wstring_view plainText, std::int32_t userId) = 0;
  virtual std::wstring DecryptPassword(std::wstring_view storedText, std::int32_t userId) = 0;
  // mappingCode: 101 a permission name, 104 a group name, 105 a group description, all three read
  // for display; 114 a typed group name; 0 a description about to be stored.
  virtual std::wstring GetDisplayName(std::wstring_view text, std::int32_t mappingCode) = 0;
  virtual void ShowAbout(std::wstring_view executableName, std::int32_t first,
                         std::int32_t second) = 0;
};

}  // namespace data
