#include "server/engines/odbc/ConnectionString.h"

#include <gtest/gtest.h>

namespace server_test {
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

TEST(ConnectionString, FindsAKeywordAfterWhatHasNoValue) {
  EXPECT_TRUE(HasKeyword("Driver=x;;PWD=b", "PWD"));
  EXPECT_TRUE(HasKeyword(";Driver=x; ; PWD=b", "PWD"));
  EXPECT_TRUE(HasKeyword("Trusted;PWD=b", "PWD"));
  EXPECT_EQ(server::WithValue("Driver=x;;Port=1", "Port", "2"), "Driver=x;;Port=2;");
}

TEST(ConnectionString, PutsAValueInBracesWhereItMustStandInSome) {
  EXPECT_EQ(ConnectionValue("simple"), "simple");
  EXPECT_EQ(ConnectionValue("a;b"), "{a;b}");
  EXPECT_EQ(ConnectionValue("a}b"), "{a}}b}");
  EXPECT_EQ(ConnectionValue(" blank"), "{ blank}");
}

TEST(ConnectionString, TakesAnotherValueInThePlaceOfEveryOtherOne) {
  EXPECT_EQ(server::WithValue("Driver=x;Port=1;port = 2;Uid=u", "Port", "3"),
            "Driver=x;Uid=u;Port=3;");
  EXPECT_EQ(server::WithValue("", "Server", "a b"), "Server={a b};");
}

TEST(ConnectionString, TakesAHostWithOrWithoutItsPort) {
  EXPECT_EQ(server::WithHost("Driver=x;Server=old;Port=1", "db.example.org"),
            "Driver=x;Port=1;Server=db.example.org;");
  EXPECT_EQ(server::WithHost("Driver=x;Server=old;Port=1", "db2:3307"),
            "Driver=x;Server=db2;Port=3307;");
  EXPECT_EQ(server::WithHost("Driver=x;Port=1", "[::1]:3307"), "Driver=x;Server=::1;Port=3307;");
}

}  // namespace
}  // namespace server_test
