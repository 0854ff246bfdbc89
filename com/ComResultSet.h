#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "automation/Variant.h"
#include "com/RemoteObject.h"
#include "data/SessionServer.h"

namespace com {

// A result set of the session server. Of each column it keeps what was read last: the value's text
// is borrowed from there, and reading it again in the same row asks nobody.
class ComResultSet final : public data::ResultSet {
 public:
  explicit ComResultSet(RemoteObject object) : object_(std::move(object)) {}
  ~ComResultSet() override;

  bool EndOfRows() override;
  data::ColumnValue Column(int position) override;
  void MoveNext() override;
  void MoveFirst() override;
  void AddNew() override;
  void Edit() override;
  void SetColumn(std::wstring_view name, const data::FieldValue& value) override;
  void SetColumn(int position, const data::FieldValue& value) override;
  void Update() override;
  void Close() override;

 private:
  struct Slot {
    automation::Variant value;
    unsigned row = 0;  // the count of moves at which it was read; 0 is before the first
  };

  Slot& SlotAt(std::size_t position);
  void Change(Member member);
  void SetColumn(const VARIANT& column, const data::FieldValue& value);

  RemoteObject object_;
  // Result sets are opened by the ten thousand, few of them wider than an account's row.
  std::array<Slot, 3> firstSlots_;
  std::vector<Slot> furtherSlots_;
  unsigned row_ = 1;
  bool open_ = true;
};

}  // namespace com
