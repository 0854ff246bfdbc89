#pragma once

#include <string>
#include <vector>

#include "server/core/sql/Engine.h"
#include "server/engines/odbc/OdbcHeaders.h"

namespace server {

// How a driver hands over texts.
enum class TextForm {
  kWide,  // UTF-16. A text too long for its place in a block is read by itself, by its position.
  kUtf8,  // UTF-8. The row of such a text is fetched again, alone: a static cursor.
};

// The rows of a statement's result as they are fetched: many at once, into buffers of this block.
class RowBlock {
 public:
  // The statement must outlive the block.
  RowBlock(SQLHANDLE statement, TextForm textForm) : statement_(statement), textForm_(textForm) {}

  // Makes ready for the rows of a statement that has just been executed.
  void Start(SQLSMALLINT columns);
  // Moves to the next row. False at the end.
  bool Next();
  // A column of the current row, from 0. A text holds until the same column is read in another row.
  Field Read(int column);

 private:
  struct Column {
    bool number = false;
    std::vector<std::int64_t> numbers;
    std::vector<char> texts;      // width bytes a row
    std::vector<SQLLEN> lengths;  // in bytes, or SQL_NULL_DATA
    std::size_t width = 0;        // in bytes, with the closing zero
    std::vector<char> whole;      // the current row's text where it is longer than that
    std::string utf8;             // the text last read
  };

  void Check(SQLRETURN result) const;
  bool IsNumberColumn(std::size_t column) const;
  void BindColumns();
  void SetRowsAtOnce(std::size_t rows);
  bool Fetch(SQLSMALLINT orientation, SQLLEN place);
  // Whether the current row's text was too long for the column's buffer.
  bool IsCut(const Column& column) const;
  void ReadByPosition();
  bool WidenCutColumns();
  void FetchAlone();

  SQLHANDLE statement_;
  TextForm textForm_;
  std::vector<Column> columns_;
  std::size_t rowsAtOnce_ = 0;  // that the columns have room for
  bool isReady_ = false;        // all columns are bound, with room for as many as is usual
  SQLULEN fetched_ = 0;         // how many rows the block holds
  std::size_t row_ = 0;         // the current one in the block
  SQLLEN passed_ = 0;           // how many rows of the result lie before the block
};

}  // namespace server
