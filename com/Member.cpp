#include "com/Member.h"

#include <array>

namespace com {
namespace {

struct Entry {
  Member member;
  const wchar_t* name;
};

constexpr std::array<Entry, kMemberCount> kMembers = {{
    {Member::kReadCommandLine, L"ReadCommandLine"},
    {Member::kOpenSession, L"OpenSession"},
    {Member::kGetRights, L"GetRights"},
    {Member::kSetMode, L"SetMode"},
    {Member::kGetSessionUserText, L"GetSessionUserText"},
    {Member::kDatabaseConnection, L"DatabaseConnection"},
    {Member::kNewIdentifier, L"NewIdentifier"},
    {Member::kEncryptPassword, L"EncryptPassword"},
    {Member::kDecryptPassword, L"DecryptPassword"},
    {Member::kGetDisplayName, L"GetDisplayName"},
    {Member::kShowAbout, L"ShowAbout"},

    {Member::kOpenResultSet, L"OpenResultSet"},
    {Member::kExecute, L"Execute"},
    {Member::kBeginRead, L"BeginRead"},
    {Member::kEndRead, L"EndRead"},

    {Member::kEndOfRows, L"EndOfRows"},
    {Member::kColumn, L"Column"},
    {Member::kMoveNext, L"MoveNext"},
    {Member::kMoveFirst, L"MoveFirst"},
    {Member::kAddNew, L"AddNew"},
    {Member::kEdit, L"Edit"},
    {Member::kSetColumn, L"SetColumn"},
    {Member::kUpdate, L"Update"},
    {Member::kClose, L"Close"},
}};

// A name is found by its member's value, so the entries have to stand in that order.
constexpr bool StandInOrder() {
  for (std::size_t i = 0; i < kMembers.size(); ++i) {
    if (kMembers[i].member != static_cast<Member>(i)) return false;
  }
  return true;
}
static_assert(StandInOrder());

}  // namespace

const wchar_t* NameOf(Member member) {
  return kMembers[static_cast<std::size_t>(member)].name;
}

}  // namespace com
