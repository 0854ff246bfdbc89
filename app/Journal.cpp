#include "app/Journal.h"

#include <optional>
#include <utility>

#include "app/StringIds.h"
#include "app/mGlobal.h"
#include "controls/AppendToFile.h"
#include "controls/Desktop.h"

namespace app {
namespace {

// The folder of the product's own files, and the name of its policies.
constexpr const wchar_t* kProduct = L"User Administration";
// The value of the policy is a folder, or what switches the journal off.
constexpr const wchar_t* kPolicy = L"Journal";

std::wstring FolderOf(const controls::System& system) {
  if (const auto policy = system.Policy(kProduct, kPolicy)) {
    return *policy == L"0" ? std::wstring() : *policy;
  }
  const std::wstring local = system.LocalDataFolder();
  return local.empty() ? local : local + L"\\" + kProduct;
}

int TextOf(const data::Write& write) {
  using data::Table;
  using Kind = data::Write::Kind;
  const auto one = [&](int added, int changed, int removed) {
    if (write.kind == Kind::kAdded) return added;
    return write.kind == Kind::kChanged ? changed : removed;
  };
  switch (write.table) {
    case Table::kUsers:
      return one(kJournalUserAdded, kJournalUserChanged, kJournalUserRemoved);
    case Table::kGroups:
      return one(kJournalGroupAdded, kJournalGroupChanged, kJournalGroupRemoved);
    case Table::kMemberships:
      return kJournalMemberships;
    default:
      return kJournalPermissions;
  }
}

// What a write calls the account, where it names one.
std::wstring NameIn(const data::Write& write) {
  for (const data::Write::Field& field : write.values) {
    const auto* text = std::get_if<std::wstring>(&field.value);
    if (field.column == L"NAME" && text != nullptr) return *text;
  }
  return {};
}

}  // namespace

void Journal::Open(const std::wstring& sessionUserText) {
  const controls::System& system = desktop_.Surroundings();
  folder_ = FolderOf(system);
  author_ = {system.ComputerName(), system.UserName(), sessionUserText};
}

bool Journal::TakeTrouble() {
  if (!trouble_ || told_) return false;
  told_ = true;
  return true;
}

Journal::Command::Command(Journal& journal, const JournalEntry::Account& account)
    : journal_(&journal) {
  journal.inCommand_ = true;
  if (account.id != -1) journal.entry_.account = account;
}

// An error has ended the command before its own end.
Journal::Command::~Command() {
  if (journal_ != nullptr) Finish({}, false);
}

void Journal::Command::Finish(const std::wstring& what, bool complete) {
  Journal& journal = *std::exchange(journal_, nullptr);
  journal.inCommand_ = false;
  journal.Finish(what, complete);
}

void Journal::Written(data::Write write) {
  if (folder_.empty()) return;
  if (!std::exchange(attempted_, true)) firstAttempt_ = write;
  entry_.writes.push_back(std::move(write));
  if (!inCommand_) Finish({}, true);
}

void Journal::Failed(const data::Write* write, const data::RunTimeError& error,
                     bool mayTellSecrets) {
  if (folder_.empty()) return;
  if (write != nullptr && !std::exchange(attempted_, true)) firstAttempt_ = *write;
  if (!entry_.error) {
    entry_.error = {error.Number(), mayTellSecrets ? std::wstring() : error.Text()};
  }
  if (!inCommand_) Finish({}, false);
}

// The first error of a command that has come to its end all the same was met in showing what it has
// done.
void Journal::Finish(const std::wstring& what, bool complete) {
  JournalEntry entry = std::exchange(entry_, {});
  if (!std::exchange(attempted_, false)) return;
  entry.complete = complete || !entry.error;
  if (entry.complete) entry.error.reset();
  const std::wstring name = entry.account ? entry.account->name : NameIn(firstAttempt_);
  entry.what = what.empty() ? FillIn(desktop_.LoadResString(TextOf(firstAttempt_)), {name}) : what;
  const JournalTime now = std::chrono::system_clock::now();
  Append(JournalFileName(now), JournalLine(now, author_, entry));
}

// What was cut short is a line of its own, which nobody can read, and takes nothing with it.
void Journal::Append(const std::wstring& file, const std::string& line) {
  const std::string bytes = cutShort_ ? "\n" + line : line;
  cutShort_ = !controls::AppendToFile(folder_, file, bytes);
  trouble_ |= cutShort_;
}

}  // namespace app
