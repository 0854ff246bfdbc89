#pragma once

#include <memory>
#include <optional>

#include "data/SessionServer.h"
#include "server/core/sql/Database.h"
#include "server/core/sql/RowBuffer.h"
#include "server/core/sql/RowWriter.h"

namespace server {

// A result set on a client's statement. Rows can be added and changed where the statement names one
// table or view only, shows all its identifiers, and rows of it may be written. Moving on drops a
// row that was begun and not written. After Close every call but Close is an error.
class SqlResultSet final : public data::ResultSet {
 public:
  SqlResultSet(std::shared_ptr<Database> database, Database::Answer answer);

  bool EndOfRows() override;
  data::ColumnValue Column(int position) override;
  void MoveNext() override;
  // Runs the statement again, so that the rows are walked as they are now.
  void MoveFirst() override;

  void AddNew() override;
  void Edit() override;
  void SetColumn(std::wstring_view name, const data::FieldValue& value) override;
  void SetColumn(int position, const data::FieldValue& value) override;
  void Update() override;
  void Close() override;

 private:
  CursorLoan& Open();
  // Runs the statement up to its first row.
  void Start();
  void SortRows();
  // Notes the identifier of the row that the cursor is on.
  void NoteRow();
  bool IsPutInOrder() const;
  void RequireRow();
  void RequireWritable();
  // Takes over the rows not yet walked, so that no lock of this set stands in the way of a write,
  // its own or somebody else's, while it is open.
  void Detach();
  std::vector<std::int64_t> CurrentKeys();
  void Set(std::size_t column, const data::FieldValue& value);

  std::shared_ptr<Database> database_;
  std::unique_ptr<CursorLoan> cursor_;  // null once closed
  std::shared_ptr<IdentifierList> list_;
  bool onRow_ = false;               // of the cursor; unused once detached
  std::unique_ptr<RowBuffer> rows_;  // null as long as the rows come from the cursor
  std::optional<RowWriter> writer_;
};

}  // namespace server
