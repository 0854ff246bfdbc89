#include "server/engines/odbc/ConnectionString.h"

#include <gtest/gtest.h>

namespace {

using server::ConnectionValue;
using server::HasKeyword;

TEST(ConnectionString, FindsAKeywordWhateverItsCase) {
  EXPECT_TRUE(HasKeyword("Driver={MariaDB Unicode};Pwd=x", "PWD"));
  EXPECT_TRUE(HasKeyword("DSN=company; PWD = x;", "pwd"));
  EXPECT_FALSE(HasKeyword("Driver={MariaDB Unicode};Uid=x", "PWD"));
  EXPECT_FALSE(HasKeyword("", "PWD"));
  EXPECT_FALSE(HasKeyword("PWD", "PWD"));
}

TEST(ConnectionString, TakesNothingInAValueForAKeyword) {
  EXPECT_FALSE(HasKeyword("Description={a;PWD=b};Uid=x", "PWD"));
  EXPECT_FALSE(HasKeyword("Description={a}};PWD=b};Uid=x", "PWD"));
  EXPECT_TRUE(HasKeyword("Description={a}}};PWD=b", "PWD"));
  EXPECT_FALSE(HasKeyword("Description={never closed;PWD=b", "PWD"));
}

TEST(ConnectionString, PutsAValueInBracesWhereItMustStandInSome) {
  EXPECT_EQ(ConnectionValue("simple"), "simple");
  EXPECT_EQ(ConnectionValue("a;b"), "{a;b}");
  EXPECT_EQ(ConnectionValue("a}b"), "{a}}b}");
  EXPECT_EQ(ConnectionValue(" blank"), "{ blank}");
}

}  // namespace
