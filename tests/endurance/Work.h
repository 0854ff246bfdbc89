#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "server/core/sessions/ReferenceServer.h"

namespace endurance {

// What a session has been told is in the database.
struct Done {
  std::set<std::int32_t> users;                             // that live
  std::set<std::int32_t> deleted;                           // that are marked so
  std::set<std::pair<std::int32_t, std::int32_t>> members;  // user, group
  std::set<std::int32_t> drawn;                             // identifiers
};

// A session that saves users over and over, and after an error does what a person does: looks what
// is there, and does the rest again.
class Work {
 public:
  explicit Work(std::unique_ptr<server::ReferenceServer> server);

  // The steps of one save, each asked before it is begun: a new user, his groups, a change of them;
  // every third user is deleted again. Throws when a step does not come through in half a minute.
  void SaveOne(const std::function<void(int step)>& before);
  static constexpr int kSteps = 8;

  const Done& Told() const { return done_; }
  int Errors() const { return errors_; }
  int Uncertain() const { return uncertain_; }
  // Failures after which the write was there although nothing was said of that: none.
  int Untold() const { return untold_; }

 private:
  using Step = std::function<void()>;
  using Look = std::function<bool()>;

  void Perform(const Step& write, const Look& isThere);
  bool LookAgain(const Look& isThere);
  std::int32_t Draw();
  void AddUser(std::int32_t user);
  void AddMember(std::int32_t user, std::int32_t group);
  void RemoveMember(std::int32_t user, std::int32_t group);
  void DeleteUser(std::int32_t user);
  bool Has(const std::wstring& statement);

  std::unique_ptr<server::ReferenceServer> server_;
  std::unique_ptr<data::Connection> connection_;
  Done done_;
  int saves_ = 0;
  int errors_ = 0;
  int uncertain_ = 0;
  int untold_ = 0;
};

}  // namespace endurance
