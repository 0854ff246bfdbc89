#pragma once

#include <windows.h>

#include <oaidl.h>

#include <array>
#include <bitset>
#include <cstddef>
#include <span>

namespace com {

// The numbers under which an object of one class takes calls to a list of members. Each is asked
// for once, when it is first needed.
class MemberIds {
 public:
  static constexpr std::size_t kMostMembers = 16;

  template <std::size_t Count>
  explicit MemberIds(const wchar_t* const (&names)[Count]) : names_(names) {
    static_assert(Count <= kMostMembers);
    ids_.fill(DISPID_UNKNOWN);
  }

  // True when the member's number is known without asking.
  bool Knows(std::size_t member, DISPID& id) const {
    id = ids_[member];
    return id != DISPID_UNKNOWN;
  }

  // Asks the object for a number that is not known. S_OK, or what the object answered. A member
  // that the object does not have is remembered as such and not asked for again.
  HRESULT Ask(IDispatch* object, std::size_t member, DISPID& id);

  const wchar_t* Name(std::size_t member) const { return names_[member]; }

 private:
  std::span<const wchar_t* const> names_;
  std::array<DISPID, kMostMembers> ids_;  // DISPID_UNKNOWN until asked for
  std::bitset<kMostMembers> absent_;
};

}  // namespace com
