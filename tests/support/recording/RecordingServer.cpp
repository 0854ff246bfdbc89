#include "tests/support/recording/RecordingServer.h"

#include <utility>

#include "data/Text.h"

namespace test_support {
namespace {

// Reading is not recorded, but may be made to fail.
class RecordingResultSet : public data::ResultSet {
 public:
  RecordingResultSet(std::unique_ptr<data::ResultSet> rows, std::wstring_view statement,
                     CallLog& log)
      : rows_(std::move(rows)), statement_(statement), log_(log) {}

  bool EndOfRows() override {
    Inside(L"EndOfRows");
    return rows_->EndOfRows();
  }
  data::ColumnValue Column(int position) override {
    Inside(L"Column", data::Decimal(position));
    return rows_->Column(position);
  }
  void MoveNext() override {
    Inside(L"MoveNext");
    rows_->MoveNext();
  }
  void MoveFirst() override {
    log_.Step(L"MoveFirst " + statement_);
    rows_->MoveFirst();
  }
  void AddNew() override {
    log_.Step(L"AddNew " + statement_);
    rows_->AddNew();
  }
  void Edit() override {
    log_.Step(L"Edit " + statement_);
    rows_->Edit();
  }
  void SetColumn(std::wstring_view name, const data::FieldValue& value) override {
    Inside(L"SetColumn", name);
    rows_->SetColumn(name, value);
  }
  void SetColumn(int position, const data::FieldValue& value) override {
    Inside(L"SetColumn", data::Decimal(position));
    rows_->SetColumn(position, value);
  }
  void Update() override {
    log_.Step(L"Update " + statement_);
    rows_->Update();
  }
  void Close() override {
    Inside(L"Close");
    rows_->Close();
  }

 private:
  void Inside(const std::wstring& operation) {
    if (log_.FailInside) log_.Inside(operation + L" " + statement_);
  }
  void Inside(const std::wstring& operation, std::wstring_view column) {
    if (log_.FailInside) Inside(operation + L" " + std::wstring(column));
  }

  std::unique_ptr<data::ResultSet> rows_;
  std::wstring statement_;
  CallLog& log_;
};

class RecordingConnection : public data::Connection {
 public:
  RecordingConnection(std::unique_ptr<data::Connection> connection, CallLog& log)
      : connection_(std::move(connection)), log_(log) {}

  std::unique_ptr<data::ResultSet> OpenResultSet(std::wstring_view statement) override {
    log_.Statement(std::wstring(statement));
    return std::make_unique<RecordingResultSet>(connection_->OpenResultSet(statement), statement,
                                                log_);
  }
  std::int32_t Execute(std::wstring_view statement) override {
    log_.Statement(std::wstring(statement));
    return connection_->Execute(statement);
  }
  void BeginRead() override {
    log_.Statement(L"BeginRead");
    connection_->BeginRead();
  }
  // A read whose end fails is over all the same.
  void EndRead() override {
    connection_->EndRead();
    log_.Statement(L"EndRead");
  }

 private:
  std::unique_ptr<data::Connection> connection_;
  CallLog& log_;
};

class RecordingServer : public data::SessionServer {
 public:
  RecordingServer(std::unique_ptr<data::SessionServer> server, CallLog& log)
      : server_(std::move(server)), log_(log) {}

  void ReadCommandLine(std::wstring_view commandLine, std::wstring& sessionText,
                       std::int32_t& sessionId) override {
    log_.Server(L"ReadCommandLine");
    server_->ReadCommandLine(commandLine, sessionText, sessionId);
  }
  void OpenSession(std::wstring_view sessionText, std::int32_t sessionId) override {
    log_.Server(L"OpenSession");
    server_->OpenSession(sessionText, sessionId);
  }
  std::int32_t GetRights() override {
    log_.Server(L"GetRights");
    const std::int32_t own = server_->GetRights();
    return log_.rights.value_or(own);
  }
  void SetMode(std::int32_t mode) override {
    log_.Server(L"SetMode " + data::Decimal(mode));
    server_->SetMode(mode);
  }
  std::wstring GetSessionUserText() override {
    log_.Server(L"GetSessionUserText");
    return server_->GetSessionUserText();
  }
  std::unique_ptr<data::Connection> DatabaseConnection() override {
    log_.Server(L"DatabaseConnection");
    return std::make_unique<RecordingConnection>(server_->DatabaseConnection(), log_);
  }
  std::int32_t NewIdentifier(std::wstring_view counterName) override {
    log_.Server(L"NewIdentifier " + std::wstring(counterName));
    return server_->NewIdentifier(counterName);
  }
  std::wstring EncryptPassword(std::wstring_view plainText, std::int32_t userId) override {
    log_.Server(L"EncryptPassword " + data::Decimal(userId));
    return server_->EncryptPassword(plainText, userId);
  }
  std::wstring DecryptPassword(std::wstring_view storedText, std::int32_t userId) override {
    log_.Server(L"DecryptPassword " + data::Decimal(userId));
    return server_->DecryptPassword(storedText, userId);
  }
  std::wstring GetDisplayName(std::wstring_view text, std::int32_t mappingCode) override {
    log_.Server(L"GetDisplayName " + data::Decimal(mappingCode) + L" " + std::wstring(text));
    return server_->GetDisplayName(text, mappingCode);
  }
  void ShowAbout(std::wstring_view executableName, std::int32_t first,
                 std::int32_t second) override {
    log_.Server(L"ShowAbout " + std::wstring(executableName) + L" " + data::Decimal(first) + L" " +
                data::Decimal(second));
    server_->ShowAbout(executableName, first, second);
  }

 private:
  std::unique_ptr<data::SessionServer> server_;
  CallLog& log_;
};

}  // namespace

std::unique_ptr<data::SessionServer> Record(std::unique_ptr<data::SessionServer> server,
                                            CallLog& log) {
  return std::make_unique<RecordingServer>(std::move(server), log);
}

}  // namespace test_support
