#include "data/Lookup.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "data/RunTimeError.h"

namespace data {
namespace {

using Rows = std::vector<std::wstring>;

// One column of texts; it can only be read.
class TextRows : public ResultSet {
 public:
  TextRows(const Rows& rows, bool& closed) : rows_(rows), closed_(closed) {}

  bool EndOfRows() override { return at_ == rows_.size(); }
  ColumnValue Column(int position) override {
    EXPECT_EQ(position, 0);
    return ColumnValue(std::wstring_view(rows_.at(at_)));
  }
  void MoveNext() override { ++at_; }
  void MoveFirst() override { at_ = 0; }
  void AddNew() override { ADD_FAILURE(); }
  void Edit() override { ADD_FAILURE(); }
  void SetColumn(std::wstring_view, const FieldValue&) override { ADD_FAILURE(); }
  void SetColumn(int, const FieldValue&) override { ADD_FAILURE(); }
  void Update() override { ADD_FAILURE(); }
  void Close() override { closed_ = true; }

 private:
  Rows rows_;
  bool& closed_;
  std::size_t at_ = 0;
};

class OneStatement : public Connection {
 public:
  explicit OneStatement(Rows rows) : rows_(std::move(rows)) {}

  std::unique_ptr<ResultSet> OpenResultSet(std::wstring_view statement) override {
    EXPECT_EQ(statement, L"SELECT");
    return std::make_unique<TextRows>(rows_, closed);
  }
  std::int32_t Execute(std::wstring_view) override { return -1; }
  void BeginRead() override {}
  void EndRead() override {}

  bool closed = false;

 private:
  Rows rows_;
};

TEST(Lookups, TheLastRowWinsAndIsTrimmed) {
  OneStatement connection({L"3", L" 12 ", L" 7"});
  EXPECT_EQ(ReadIdentifier(connection, L"SELECT"), 7);
  EXPECT_TRUE(connection.closed);
}

TEST(Lookups, WithoutARowTheInitialValueStays) {
  OneStatement connection({});
  EXPECT_EQ(ReadIdentifier(connection, L"SELECT"), 0);
  EXPECT_EQ(ReadIdentifier(connection, L"SELECT", -1), -1);
  EXPECT_TRUE(connection.closed);
}

TEST(Lookups, ARowThatIsNoNumberIsAnErrorAlsoWhereAnotherFollows) {
  OneStatement connection({L"x", L"7"});
  EXPECT_THROW(ReadIdentifier(connection, L"SELECT"), RunTimeError);
}

TEST(Lookups, RowsAreCountedWithoutBeingRead) {
  OneStatement connection({L"x", L"", L"y"});
  EXPECT_EQ(CountRows(connection, L"SELECT"), 3);
  EXPECT_TRUE(connection.closed);
}

}  // namespace
}  // namespace data
