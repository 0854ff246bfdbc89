#include "server/core/sql/ListWalk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <set>

namespace server_test {
namespace {

using server::IdentifierList;
using server::ListWalk;
using Identifiers = std::vector<std::int64_t>;

std::shared_ptr<const IdentifierList> ListOf(const Identifiers& identifiers) {
  auto list = std::make_shared<IdentifierList>();
  for (const std::int64_t identifier : identifiers) list->Add(identifier);
  return list;
}

Identifiers Numbers(std::int64_t first, std::size_t count) {
  Identifiers numbers(count);
  std::iota(numbers.begin(), numbers.end(), first);
  return numbers;
}

// What a walk costs where the rows of many identifiers are asked for at once. A statement costs 1,
// and each further identifier of it a quarter of that: the dearest that was measured, with nothing
// but the same machine's loopback between.
class Cost {
 public:
  explicit Cost(std::vector<std::shared_ptr<const IdentifierList>> lists)
      : lists_(std::move(lists)) {}

  void Ask(std::int64_t identifier) {
    ++plain_;
    if (!walk_.Ask(lists_, identifier) && !atHand_.empty()) {
      atHand_.clear();
      walk_.WasWasted();
    }
    if (atHand_.erase(identifier) > 0) return;
    const Identifiers foreseen =
        walk_.Foreseen([this](std::int64_t other) { return atHand_.contains(other); });
    ++statements_;
    cost_ += 1;
    if (foreseen.empty()) return;
    EXPECT_EQ(foreseen.front(), identifier);
    EXPECT_EQ(std::set<std::int64_t>(foreseen.begin(), foreseen.end()).size(), foreseen.size());
    EXPECT_LE(foreseen.size(), ListWalk::kMostAtOnce);
    cost_ += 0.25 * static_cast<double>(foreseen.size() - 1);
    atHand_.insert(foreseen.begin() + 1, foreseen.end());
    most_ = std::max(most_, atHand_.size());
    walk_.WasRead(foreseen.size(), 1000);
  }

  int Statements() const { return statements_; }
  double Ratio() const { return cost_ / plain_; }
  std::size_t MostAtHand() const { return most_; }

 private:
  std::vector<std::shared_ptr<const IdentifierList>> lists_;
  ListWalk walk_;
  std::set<std::int64_t> atHand_;
  int plain_ = 0;
  int statements_ = 0;
  double cost_ = 0;
  std::size_t most_ = 0;
};

TEST(ListWalk, ThroughTenThousandTakesSomeSixtyStatements) {
  const Identifiers users = Numbers(1, 10000);
  Cost cost({ListOf(users)});
  for (const std::int64_t user : users) cost.Ask(user);
  EXPECT_LE(cost.Statements(), 62);
  EXPECT_LT(cost.MostAtHand(), ListWalk::kMostAtOnce);
}

TEST(ListWalk, ThatLeavesSomeOutAndComesBackForThemStaysOne) {
  Identifiers users = Numbers(1, 10000);
  Cost cost({ListOf(users)});
  std::mt19937 generator(7);
  for (std::size_t i = 0; i + 10 < users.size(); i += 10) {
    std::shuffle(users.begin() + i, users.begin() + i + 10, generator);
  }
  for (const std::int64_t user : users) cost.Ask(user);
  EXPECT_LE(cost.Statements(), 120);
}

TEST(ListWalk, MayGoAstrayForAStep) {
  Identifiers groups = Numbers(1, 1000);
  Cost cost({ListOf(groups)});
  for (std::size_t i = 50; i < groups.size(); i += 100) std::swap(groups[i], groups[1000 - i]);
  for (const std::int64_t group : groups) cost.Ask(group);
  EXPECT_LE(cost.Statements(), 50);
}

TEST(ListWalk, MayLeaveOutSome) {
  Cost cost({ListOf(Numbers(1, 10000))});
  for (const std::int64_t user : Numbers(1, 10000)) {
    if (user % 7 != 0) cost.Ask(user);
  }
  EXPECT_LE(cost.Statements(), 80);
}

TEST(ListWalk, InAnotherOrderForeseesNothing) {
  Identifiers users = Numbers(1, 5000);
  Cost cost({ListOf(users)});
  std::mt19937 generator(8);
  std::shuffle(users.begin(), users.end(), generator);
  for (const std::int64_t user : users) cost.Ask(user);
  EXPECT_EQ(cost.Ratio(), 1);
}

TEST(ListWalk, ThatBeginsAgainIsFollowedAgain) {
  Cost cost({ListOf(Numbers(1, 1000))});
  for (int round = 0; round < 2; ++round) {
    for (const std::int64_t user : Numbers(1, 1000)) cost.Ask(user);
  }
  EXPECT_LE(cost.Statements(), 100);
}

TEST(ListWalk, GoesOnOverIdentifiersThatNoListKnows) {
  const Identifiers users = Numbers(1, 1000);
  Cost cost({ListOf(users)});
  for (const std::int64_t user : users) {
    cost.Ask(user);
    if (user % 100 == 0) cost.Ask(5000 + user);
  }
  EXPECT_LE(cost.Statements(), 40);
}

TEST(ListWalk, FollowsTheListInWhichTheIdentifiersStandOneAfterTheOther) {
  Identifiers members = Numbers(1, 1000);
  std::mt19937 generator(9);
  std::shuffle(members.begin(), members.end(), generator);
  Cost cost({ListOf(Numbers(1, 1000)), ListOf(members)});
  for (const std::int64_t user : members) cost.Ask(user);
  EXPECT_LE(cost.Statements(), 60);
}

// However a walk goes, it never costs a tenth more than without foresight.
TEST(ListWalk, NeverCostsATenthMore) {
  std::mt19937 generator(10);
  double dearest = 0;
  for (int round = 0; round < 600; ++round) {
    const std::size_t size = 1 + generator() % 3000;
    Cost cost({ListOf(Numbers(1, size))});
    std::size_t at = 0;
    const std::size_t jumpiness = 1 + generator() % 200;
    const std::size_t stride = 1 + generator() % 3;
    const std::size_t length = 1 + generator() % 4000;
    for (std::size_t i = 0; i < length; ++i) {
      cost.Ask(static_cast<std::int64_t>(1 + at % size));
      at += stride;
      if (generator() % jumpiness == 0) at = generator();
    }
    dearest = std::max(dearest, cost.Ratio());
    ASSERT_LE(cost.Ratio(), 1.1) << "round " << round;
  }
  RecordProperty("dearest", std::to_string(dearest));
}

TEST(ListWalk, ThatEndsAnywhereHasNotCostATenthMore) {
  const Identifiers users = Numbers(1, 2000);
  Cost cost({ListOf(users)});
  for (const std::int64_t user : users) {
    cost.Ask(user);
    ASSERT_LE(cost.Ratio(), 1.1) << "after " << user;
  }
}

TEST(ListWalk, AskedTheSameAgainAndAgainForeseesNothing) {
  Cost cost({ListOf(Numbers(1, 100))});
  for (int i = 0; i < 100; ++i) cost.Ask(50);
  EXPECT_EQ(cost.Statements(), 100);
  EXPECT_EQ(cost.Ratio(), 1);
}

TEST(ListWalk, WithoutListsForeseesNothing) {
  Cost cost({});
  for (const std::int64_t user : Numbers(1, 100)) cost.Ask(user);
  EXPECT_EQ(cost.Ratio(), 1);
}

TEST(IdentifierList, FindsTheFirstPlaceAndStopsGrowing) {
  IdentifierList list;
  for (const int identifier : {7, 5, 7, -3}) list.Add(identifier);
  EXPECT_EQ(list.Find(7), 0U);
  EXPECT_EQ(list.Find(-3), 3U);
  EXPECT_EQ(list.Find(6), std::nullopt);
  list.Add(6);
  EXPECT_EQ(list.Find(6), 4U);
  for (std::size_t i = 0; i < IdentifierList::kMost; ++i) list.Add(100);
  EXPECT_EQ(list.Size(), IdentifierList::kMost);
}

}  // namespace
}  // namespace server_test
