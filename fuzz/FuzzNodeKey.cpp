// The keys of tree nodes: whatever text stands for one, reading it ends, and fails only as a number
// that does not fit or is none.

#include "data/NodeKey.h"
#include "data/RunTimeError.h"
#include "fuzz/Input.h"

namespace {

template <class Reading>
void Read(Reading&& reading) {
  try {
    reading();
  } catch (const data::RunTimeError& error) {
    fuzz::Require(error.Number() == 6 || error.Number() == 13, "an overflow or no number");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* start, std::size_t size) {
  const std::wstring key = fuzz::Wide(fuzz::Bytes(start, size));
  fuzz::Require(data::GetTypeNode(key).size() <= 2, "a node's tag has two letters at most");
  Read(
      [&] { fuzz::Require(key.find(L"\\U") != key.npos || data::GetUserID(key) == 0, "no user"); });
  Read([&] {
    fuzz::Require(key.find(L"\\G") != key.npos || data::GetGroupID(key) == 0, "no group");
  });
  Read([&] {
    fuzz::Require(key.find(L"\\P") != key.npos || data::GetPermID(key) == -1, "no permission");
  });
  return 0;
}
