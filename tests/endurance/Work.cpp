#include "Work.h"

#include <chrono>
#include <stdexcept>

#include "data/MSQLStatement.h"
#include "data/RunTimeError.h"
#include "data/Text.h"
#include "server/core/Errors.h"

namespace endurance {
namespace {

using std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience{30};

}  // namespace

Work::Work(std::unique_ptr<server::ReferenceServer> server)
    : server_(std::move(server)), connection_(server_->DatabaseConnection()) {}

bool Work::Has(const std::wstring& statement) {
  return !connection_->OpenResultSet(statement)->EndOfRows();
}

bool Work::LookAgain(const Look& isThere) {
  const auto deadline = steady_clock::now() + kPatience;
  for (;;) {
    try {
      return isThere();
    } catch (const data::RunTimeError&) {
      ++errors_;
      if (steady_clock::now() > deadline) throw;
    }
  }
}

void Work::Perform(const Step& write, const Look& isThere) {
  const auto deadline = steady_clock::now() + kPatience;
  for (;;) {
    try {
      write();
      return;
    } catch (const data::RunTimeError& error) {
      ++errors_;
      const bool uncertain = error.Number() == server::kWriteUncertain;
      if (uncertain) ++uncertain_;
      const bool there = LookAgain(isThere);
      if (there && !uncertain) ++untold_;
      if (there) return;
      if (steady_clock::now() > deadline) throw;
    }
  }
}

std::int32_t Work::Draw() {
  std::int32_t identifier = 0;
  Perform([&] { identifier = server_->NewIdentifier(L"QRUSRN"); }, [] { return false; });
  if (!done_.drawn.insert(identifier).second) throw std::runtime_error("an identifier came twice");
  return identifier;
}

void Work::AddUser(std::int32_t user) {
  Perform(
      [&] {
        const auto set = connection_->OpenResultSet(data::SqlSelectUser(user));
        set->AddNew();
        set->SetColumn(L"USERID", user);
        set->SetColumn(L"NAME", L"Endurance " + data::Decimal(user));
        set->Update();
      },
      [&] { return Has(data::SqlSelectUser(user)); });
  done_.users.insert(user);
}

void Work::AddMember(std::int32_t user, std::int32_t group) {
  const std::wstring statement = data::SqlSelectMembership(group, user);
  Perform(
      [&] {
        const auto set = connection_->OpenResultSet(statement);
        set->AddNew();
        set->SetColumn(L"USERID", user);
        set->SetColumn(L"GROUPID", group);
        set->Update();
      },
      [&] { return Has(statement); });
  done_.members.emplace(user, group);
}

void Work::RemoveMember(std::int32_t user, std::int32_t group) {
  Perform([&] { connection_->Execute(data::SqlDeleteMembership(group, user)); },
          [&] { return !Has(data::SqlSelectMembership(group, user)); });
  done_.members.erase({user, group});
}

void Work::DeleteUser(std::int32_t user) {
  const std::wstring name = L"Endurance " + data::Decimal(user);
  Perform([&] { connection_->Execute(data::SqlMarkUserDeleted(name, user)); },
          [&] { return !Has(data::SqlSelectUser(user)); });
  done_.users.erase(user);
  done_.deleted.insert(user);
}

void Work::SaveOne(const std::function<void(int step)>& before) {
  int step = 0;
  before(step++);
  const std::int32_t user = Draw();
  before(step++);
  AddUser(user);
  for (const std::int32_t group : {2, 6, 7}) {
    before(step++);
    AddMember(user, group);
  }
  before(step++);
  RemoveMember(user, 7);
  before(step++);
  AddMember(user, 12);
  before(step++);
  if (++saves_ % 3 == 0) DeleteUser(user);
}

}  // namespace endurance
