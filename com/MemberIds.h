#pragma once

#include <windows.h>

#include <oaidl.h>

#include <array>
#include <bitset>
#include <cstddef>

#include "com/Member.h"

namespace com {

// The numbers under which the objects of one class take calls, as far as they have been asked for.
class MemberIds {
 public:
  MemberIds() { ids_.fill(DISPID_UNKNOWN); }

  // DISPID_UNKNOWN until the number has been asked for.
  DISPID Find(Member member) const { return ids_[Index(member)]; }
  void Remember(Member member, DISPID id) { ids_[Index(member)] = id; }

  // Whether the objects have been found to lack the member.
  bool IsAbsent(Member member) const { return absent_[Index(member)]; }
  void RememberAbsent(Member member) { absent_.set(Index(member)); }

 private:
  static std::size_t Index(Member member) { return static_cast<std::size_t>(member); }

  std::array<DISPID, kMemberCount> ids_;
  std::bitset<kMemberCount> absent_;
};

}  // namespace com
