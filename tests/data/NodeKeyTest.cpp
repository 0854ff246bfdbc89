#include "data/NodeKey.h"

#include <gtest/gtest.h>

#include <string>

#include "data/Text.h"

namespace data {
namespace {

struct KeyCase {
  const wchar_t* key;
  const wchar_t* type;
  int user;
  int group;
  int perm;
};

// Every kind of key that the two trees hold, and what each identifier reads as there.
constexpr KeyCase kKeys[] = {
    {L"\\TRT ", L"RT", 0, 0, -1},
    {L"\\TUS \\U12", L"US", 12, 0, -1},
    {L"\\TMO \\U12 \\G", L"MO", 12, 0, -1},
    {L"\\TGU \\U12 \\G5", L"GU", 12, 5, -1},
    {L"\\TUP \\U12 \\P", L"UP", 12, 0, 0},
    {L"\\TPU \\U12 \\P7", L"PU", 12, 0, 7},
    {L"\\TAP \\U12 \\P", L"AP", 12, 0, 0},
    {L"\\TPA \\U12 \\P7", L"PA", 12, 0, 7},
    {L"\\TGR \\G5", L"GR", 0, 5, -1},
    {L"\\TMS \\G5 \\U", L"MS", 0, 5, -1},
    {L"\\TUG \\G5 \\U12", L"UG", 12, 5, -1},
    {L"\\TGP \\G5 \\P", L"GP", 0, 5, 0},
    {L"\\TPG \\G5 \\P7", L"PG", 0, 5, 7},
};

TEST(NodeKey, EveryKindOfKeyGivesItsTypeAndItsIdentifiers) {
  for (const KeyCase& expected : kKeys) {
    SCOPED_TRACE(ToUtf8(expected.key));
    EXPECT_EQ(GetTypeNode(expected.key), expected.type);
    EXPECT_EQ(GetUserID(expected.key), expected.user);
    EXPECT_EQ(GetGroupID(expected.key), expected.group);
    EXPECT_EQ(GetPermID(expected.key), expected.perm);
  }
}

TEST(NodeKey, AKeyWithoutATypeMarkerHasTheEmptyType) {
  EXPECT_EQ(GetTypeNode(L""), L"");
  EXPECT_EQ(GetTypeNode(L"\\U12"), L"");
}

TEST(NodeKey, ATypeIsTrimmedAndMayBeCutShort) {
  EXPECT_EQ(GetTypeNode(L"\\T A"), L"A");
  EXPECT_EQ(GetTypeNode(L"\\TU"), L"U");
  EXPECT_EQ(GetTypeNode(L"\\T"), L"");
}

TEST(NodeKey, AKeyWithoutTheWantedMarkerGivesNoIdentifier) {
  EXPECT_EQ(GetUserID(L""), 0);
  EXPECT_EQ(GetUserID(L"\\TGR \\G5"), 0);
  EXPECT_EQ(GetGroupID(L"\\TUS \\U12"), 0);
}

TEST(NodeKey, AMarkerWithNothingAfterItGivesZeroWithoutAnError) {
  EXPECT_EQ(GetGroupID(L"\\TMO \\U12 \\G"), 0);
  EXPECT_EQ(GetUserID(L"\\TMS \\G5 \\U"), 0);
}

TEST(NodeKey, BlanksAroundAnIdentifierDoNotCount) {
  EXPECT_EQ(GetUserID(L"\\TUS \\U 12  "), 12);
  EXPECT_EQ(GetPermID(L"\\TPU \\U12 \\P  7"), 7);
}

TEST(NodeKey, APermissionBeforeTheAccountDoesNotEndTheAccountsIdentifier) {
  EXPECT_EQ(GetUserID(L"\\P7 \\U12"), 12);
  EXPECT_EQ(GetGroupID(L"\\U12 \\G5"), 5);
}

TEST(NodeKey, AKeyWithAllThreeMarkersStandsForNoAccount) {
  EXPECT_EQ(GetUserID(L"\\T?? \\U1 \\G2 \\P3"), 0);
  EXPECT_EQ(GetGroupID(L"\\T?? \\U1 \\G2 \\P3"), 0);
}

TEST(NodeKey, AnEmptyKeyHasNoPermission) {
  EXPECT_EQ(GetPermID(L""), -1);
}

TEST(NodeKey, TheLargestIdentifiersSurvive) {
  EXPECT_EQ(GetUserID(L"\\TUG \\G2147483647 \\U2147483646"), 2147483646);
  EXPECT_EQ(GetGroupID(L"\\TUG \\G2147483647 \\U2147483646"), 2147483647);
}

}  // namespace
}  // namespace data
