#pragma once

#include <string_view>

namespace data {

// What the session server counts: each counter gives identifiers of one kind of account, once each.
enum class Counter { kUsers, kGroups };

// The name under which the session server knows a counter.
constexpr std::wstring_view CounterName(Counter counter) {
  return counter == Counter::kUsers ? L"QRUSRN" : L"QRGPRN";
}

}  // namespace data
