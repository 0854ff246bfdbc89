// Many who write at once on different nodes of a cluster, for a minute: what is there in the end is
// the sum of what each of them was told.

#include <map>
#include <random>
#include <set>
#include <thread>

#include "data/MSQLStatement.h"
#include "data/RunTimeError.h"
#include "data/Text.h"
#include "server/core/Errors.h"
#include "tests/cluster/Cluster.h"

namespace endurance {
namespace {

using cluster_test::RawDatabase;
using std::chrono::seconds;
using std::chrono::steady_clock;

constexpr seconds kLength{60};
constexpr std::int32_t kSharedUser = 9;
constexpr int kSharedGroups[] = {2, 6, 7, 12};
constexpr int kSharedUsers[] = {9, 11, 15, 34};

using Link = std::pair<std::int32_t, std::int32_t>;

// One who writes, and what he was told.
class Writer {
 public:
  Writer(std::unique_ptr<server::ReferenceServer> server, int number)
      : server_(std::move(server)),
        connection_(server_->DatabaseConnection()),
        number_(number),
        dice_(static_cast<unsigned>(number)) {}

  void WriteUntil(steady_clock::time_point end) {
    while (steady_clock::now() < end) {
      try {
        WriteOne();
        ++written;
      } catch (const data::RunTimeError& error) {
        // A row that is there already, a transaction that lost to another node's.
        ++refused;
        if (error.Number() != server::kDatabaseError) others.insert(error.Number());
      }
    }
  }

  std::set<std::int32_t> drawn;
  std::map<std::int32_t, std::wstring> users;  // that he has made and not deleted
  std::map<std::int32_t, std::wstring> groups;
  std::map<Link, int> links;  // of those that all share: added less removed
  std::wstring lastName;      // that he gave the user whom all share
  std::set<long> others;      // errors that are none of the database's
  int written = 0;
  int refused = 0;

 private:
  void WriteOne() {
    const Link link{kSharedUsers[dice_() % 4], kSharedGroups[dice_() % 4]};
    switch (dice_() % 6) {
      case 0:
        return AddAccount(L"QRUSRN", users, data::SqlSelectUser, L"USERID");
      case 1:
        return AddAccount(L"QRGPRN", groups, data::SqlSelectGroup, L"GROUPID");
      case 2:
        return AddLink(link);
      case 3:
        links[link] -= connection_->Execute(data::SqlDeleteMembership(link.second, link.first));
        return;
      case 4:
        return Rename();
      default:
        return DeleteOldest();
    }
  }
  void AddAccount(const wchar_t* counter, std::map<std::int32_t, std::wstring>& accounts,
                  std::wstring (*select)(std::int32_t), const wchar_t* key) {
    const std::int32_t id = server_->NewIdentifier(counter);
    EXPECT_TRUE(drawn.insert(counter[2] == L'U' ? id : -id).second);
    const std::wstring name = L"Writer " + data::Decimal(number_) + L" " + data::Decimal(id);
    const auto set = connection_->OpenResultSet(select(id));
    set->AddNew();
    set->SetColumn(key, id);
    set->SetColumn(L"NAME", name);
    set->Update();
    accounts[id] = name;
  }
  void AddLink(const Link& link) {
    const auto set = connection_->OpenResultSet(data::SqlSelectMembership(link.second, link.first));
    set->AddNew();
    set->SetColumn(L"USERID", link.first);
    set->SetColumn(L"GROUPID", link.second);
    set->Update();
    ++links[link];
  }
  void Rename() {
    const std::wstring name = L"by " + data::Decimal(number_) + L", " + data::Decimal(written);
    const auto set = connection_->OpenResultSet(data::SqlSelectUser(kSharedUser));
    set->Edit();
    set->SetColumn(L"FULLNAME", name);
    set->Update();
    lastName = name;
  }
  void DeleteOldest() {
    if (users.size() < 3) return;
    const auto [id, name] = *users.begin();
    EXPECT_EQ(connection_->Execute(data::SqlMarkUserDeleted(name, id)), 1);
    users.erase(id);
  }

  std::unique_ptr<server::ReferenceServer> server_;
  std::unique_ptr<data::Connection> connection_;
  int number_;
  std::mt19937 dice_;
};

class Writers : public cluster_test::Cluster {
 protected:
  static std::map<std::int32_t, std::wstring> Names(RawDatabase& raw, const std::string& sql) {
    std::map<std::int32_t, std::wstring> names;
    for (const auto& row : raw.Rows(sql)) names[std::stoi(row[0])] = data::FromUtf8(row[1]);
    return names;
  }
};

TEST_F(Writers, OnAllNodesForAMinuteLeaveTheSumOfWhatEachWasTold) {
  std::map<Link, int> links;
  for (const auto& row : Raw(1).Rows("select userid, groupid from qrusgp")) {
    links[{std::stoi(row[0]), std::stoi(row[1])}] = 1;
  }
  std::vector<std::unique_ptr<Writer>> writers;
  for (int number = 0; number < 6; ++number) {
    writers.push_back(std::make_unique<Writer>(Open({number % 3 + 1}), number));
  }
  const auto end = steady_clock::now() + kLength;
  std::vector<std::thread> threads;
  for (const auto& writer : writers) {
    threads.emplace_back([&writer = *writer, end] { writer.WriteUntil(end); });
  }
  for (std::thread& thread : threads) thread.join();

  std::map<std::int32_t, std::wstring> users;
  std::map<std::int32_t, std::wstring> groups;
  std::set<std::wstring> lastNames;
  std::set<std::int32_t> drawn;
  std::size_t draws = 0;
  int written = 0;
  int refused = 0;
  for (const auto& writer : writers) {
    users.insert(writer->users.begin(), writer->users.end());
    groups.insert(writer->groups.begin(), writer->groups.end());
    drawn.insert(writer->drawn.begin(), writer->drawn.end());
    draws += writer->drawn.size();
    for (const auto& [link, count] : writer->links) links[link] += count;
    lastNames.insert(writer->lastName);
    EXPECT_EQ(writer->others, std::set<long>{});
    written += writer->written;
    refused += writer->refused;
  }
  EXPECT_EQ(drawn.size(), draws) << "each identifier once";
  std::set<Link> there;
  for (const auto& [link, count] : links) {
    EXPECT_TRUE(count == 0 || count == 1) << link.first << " in " << link.second << ": " << count;
    if (count == 1) there.insert(link);
  }
  for (const int node : {1, 2, 3}) {
    SCOPED_TRACE(node);
    RawDatabase raw = Raw(node);
    raw.Execute("set session wsrep_sync_wait = 3");
    EXPECT_EQ(Names(raw,
                    "select userid, name from qruser where name like 'Writer %' and "
                    "vflg <> 'D'"),
              users);
    EXPECT_EQ(Names(raw, "select groupid, name from qrgroup where name like 'Writer %'"), groups);
    std::set<Link> stored;
    const auto rows = raw.Rows("select userid, groupid from qrusgp");
    for (const auto& row : rows) stored.emplace(std::stoi(row[0]), std::stoi(row[1]));
    EXPECT_EQ(stored, there);
    EXPECT_EQ(stored.size(), rows.size());
    const std::string name = raw.Text("select fullname from qruser where userid = 9");
    EXPECT_TRUE(lastNames.contains(data::FromUtf8(name))) << name;
  }
  EXPECT_GT(written, 600);
  RecordProperty("written", written);
  RecordProperty("refused", refused);
  RecordProperty("identifiers", static_cast<int>(draws));
}

}  // namespace
}  // namespace endurance
