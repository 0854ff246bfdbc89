#include "data/WatchedConnection.h"

#include <optional>
#include <string>
#include <utility>

namespace data {
namespace {

constexpr std::wstring_view kPassword = L"PASSWORD";

std::vector<Write::Field> FieldsOf(const StatementSubject& subject) {
  std::vector<Write::Field> fields;
  for (const auto& [column, id] : subject.where) fields.push_back({column, id});
  return fields;
}

// Runs one call of the connection or of a result set.
template <typename Call>
auto Watch(WriteObserver& observer, const Write* write, bool mayTellSecrets, Call&& call) {
  try {
    return call();
  } catch (const RunTimeError& error) {
    observer.Failed(write, error, mayTellSecrets);
    throw;
  }
}

class WatchedResultSet final : public ResultSet {
 public:
  WatchedResultSet(std::unique_ptr<ResultSet> rows, std::wstring_view statement,
                   WriteObserver& observer)
      : rows_(std::move(rows)), statement_(statement), observer_(observer) {}

  bool EndOfRows() override { return rows_->EndOfRows(); }
  ColumnValue Column(int position) override { return rows_->Column(position); }
  void MoveNext() override { rows_->MoveNext(); }
  void MoveFirst() override {
    Pass([&] { rows_->MoveFirst(); });
  }
  void AddNew() override {
    Begin(Write::Kind::kAdded);
    Pass([&] { rows_->AddNew(); });
  }
  void Edit() override {
    Begin(Write::Kind::kChanged);
    write_->where = FieldsOf(*subject_);
    Pass([&] { rows_->Edit(); });
  }
  void SetColumn(std::wstring_view name, const FieldValue& value) override {
    Note(name, value);
    Pass([&] { rows_->SetColumn(name, value); });
  }
  void SetColumn(int position, const FieldValue& value) override {
    const auto place = static_cast<std::size_t>(position);
    if (subject_ && place < subject_->columns.size()) Note(subject_->columns[place], value);
    Pass([&] { rows_->SetColumn(position, value); });
  }
  void Update() override {
    const Write* write = write_ ? &*write_ : nullptr;
    Watch(observer_, write, hasPassword_, [&] { rows_->Update(); });
    if (write_) observer_.Written(std::move(*write_));
    write_.reset();
  }
  void Close() override {
    Pass([&] { rows_->Close(); });
  }

 private:
  template <typename Call>
  void Pass(Call&& call) {
    Watch(observer_, nullptr, hasPassword_, std::forward<Call>(call));
  }

  // Most sets are only read: a statement is looked into when something is written.
  void Begin(Write::Kind kind) {
    if (!subject_) subject_ = SubjectOf(statement_);
    hasPassword_ = false;
    write_ = Write{kind, subject_->table, {}, {}, 1};
  }
  void Note(std::wstring_view column, const FieldValue& value) {
    if (column == kPassword) {
      hasPassword_ = true;
    } else if (write_) {
      write_->values.push_back({std::wstring(column), value});
    }
  }

  std::unique_ptr<ResultSet> rows_;
  std::wstring statement_;
  WriteObserver& observer_;
  std::optional<StatementSubject> subject_;
  std::optional<Write> write_;  // begun and not yet done
  bool hasPassword_ = false;
};

class WatchedConnection final : public Connection {
 public:
  WatchedConnection(std::unique_ptr<Connection> connection, WriteObserver& observer)
      : connection_(std::move(connection)), observer_(observer) {}

  std::unique_ptr<ResultSet> OpenResultSet(std::wstring_view statement) override {
    if (reads_) return connection_->OpenResultSet(statement);
    return std::make_unique<WatchedResultSet>(
        Watch(observer_, nullptr, false, [&] { return connection_->OpenResultSet(statement); }),
        statement, observer_);
  }
  std::int32_t Execute(std::wstring_view statement) override {
    const StatementSubject subject = SubjectOf(statement);
    Write write{Write::Kind::kRemoved, subject.table, FieldsOf(subject), {}, 0};
    write.rows = Watch(observer_, &write, false, [&] { return connection_->Execute(statement); });
    const std::int32_t rows = write.rows;
    observer_.Written(std::move(write));
    return rows;
  }
  void BeginRead() override {
    connection_->BeginRead();
    reads_ = true;
  }
  void EndRead() override {
    reads_ = false;
    connection_->EndRead();
  }

 private:
  std::unique_ptr<Connection> connection_;
  WriteObserver& observer_;
  bool reads_ = false;
};

}  // namespace

std::unique_ptr<Connection> Watched(std::unique_ptr<Connection> connection,
                                    WriteObserver& observer) {
  return std::make_unique<WatchedConnection>(std::move(connection), observer);
}

}  // namespace data
