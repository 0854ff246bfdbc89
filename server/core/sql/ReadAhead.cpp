#include "server/core/sql/ReadAhead.h"

#include <algorithm>
#include <bit>

#include "data/RunTimeError.h"

namespace server {
namespace {

constexpr std::size_t kMostLists = 4;
// What is read at once should not take more.
constexpr std::size_t kUsualBytes = std::size_t{4} << 20;

}  // namespace

std::shared_ptr<IdentifierList> ReadAhead::StartList(
    const std::shared_ptr<CachedStatement>& statement) {
  const StatementPlan& plan = statement->plan;
  if (plan.many || plan.columns.empty() || !plan.columns[0]->key) return nullptr;
  std::erase_if(lists_, [&](const NotedList& noted) { return noted.statement == statement; });
  if (lists_.size() == kMostLists) lists_.pop_back();
  auto list = std::make_shared<IdentifierList>();
  lists_.insert(lists_.begin(), {statement, list});
  return list;
}

std::vector<std::shared_ptr<const IdentifierList>> ReadAhead::ListsFor(
    const StatementPlan& plan) const {
  std::vector<std::shared_ptr<const IdentifierList>> lists;
  for (const NotedList& noted : lists_) {
    if (noted.statement->plan.columns[0]->name == plan.many->column) lists.push_back(noted.list);
  }
  return lists;
}

std::unique_ptr<RowBuffer> ReadAhead::Take(const std::shared_ptr<CachedStatement>& statement,
                                           std::int64_t identifier) {
  Walk& walk = walks_[statement.get()];
  if (walk.failed) return nullptr;
  walk.statement = statement;
  if (!walk.path.Ask(ListsFor(statement->plan), identifier)) Drop(walk);
  if (walk.rows.contains(identifier)) return TakeRows(walk, identifier);
  const std::vector<std::int64_t> identifiers =
      walk.path.Foreseen([&](std::int64_t other) { return walk.rows.contains(other); });
  if (identifiers.empty()) return nullptr;
  DropPassed(walk);
  Read(walk, identifiers);
  return TakeRows(walk, identifier);
}

std::unique_ptr<RowBuffer> ReadAhead::TakeRows(Walk& walk, std::int64_t identifier) {
  const auto found = walk.rows.find(identifier);
  if (found == walk.rows.end()) return nullptr;
  std::unique_ptr<RowBuffer> rows = std::move(found->second);
  walk.rows.erase(found);
  bytes_ -= rows->Bytes();
  return rows;
}

void ReadAhead::Drop(Walk& walk) {
  if (walk.rows.empty()) return;
  for (const auto& [identifier, rows] : walk.rows) bytes_ -= rows->Bytes();
  walk.rows.clear();
  walk.path.WasWasted();
}

void ReadAhead::DropPassed(Walk& walk) {
  std::erase_if(walk.rows, [&](const auto& entry) {
    if (!walk.path.IsPassed(entry.first)) return false;
    bytes_ -= entry.second->Bytes();
    return true;
  });
}

void ReadAhead::ForgetRows() {
  walks_.clear();
  bytes_ = 0;
}

// Where that fails the statement is run by itself, and says what it has to say.
void ReadAhead::Read(Walk& walk, const std::vector<std::int64_t>& identifiers) {
  Rows rows;
  for (const std::int64_t identifier : identifiers) {
    rows.emplace(identifier, std::make_unique<RowBuffer>());
  }
  std::size_t bytes = 0;
  bool whole = false;
  try {
    Cursor& cursor = CursorFor(*walk.statement, identifiers.size());
    Statement& statement = cursor.Get();
    // The places that are left over repeat the first identifier.
    for (std::size_t i = 0; i < std::bit_ceil(identifiers.size()); ++i) {
      statement.Bind(static_cast<int>(i) + 1, identifiers[i < identifiers.size() ? i : 0]);
    }
    whole = ReadRows(walk.statement->plan, cursor, rows, bytes);
    statement.Reset();
  } catch (const data::RunTimeError&) {
    walk.statement->many.clear();
    walk.failed = true;
    return;
  }
  const std::size_t count = identifiers.size();
  walk.path.WasRead(whole ? count : count / 8, kUsualBytes / (bytes / count + 1));
  if (!whole) {
    walk.path.WasWasted();
    return;
  }
  if (walk.statement->plan.many->distinct) bytes = RemoveDoubles(rows);
  bytes_ += bytes;
  walk.rows.merge(rows);
}

std::size_t ReadAhead::RemoveDoubles(Rows& rows) {
  std::size_t bytes = 0;
  for (const auto& [identifier, buffer] : rows) {
    buffer->RemoveDoubles();
    bytes += buffer->Bytes();
  }
  return bytes;
}

// False when the rows are too many to be kept.
bool ReadAhead::ReadRows(const StatementPlan& plan, Cursor& cursor, Rows& rows,
                         std::size_t& bytes) const {
  const std::size_t columns = plan.ColumnsRead();
  std::int64_t last = 0;
  RowBuffer* buffer = nullptr;
  while (cursor.Get().Step()) {
    const std::int64_t identifier = cursor.Get().Read(static_cast<int>(columns)).number;
    if (buffer == nullptr || identifier != last) {
      buffer = rows.at(identifier).get();
      last = identifier;
    }
    const std::size_t before = buffer->Bytes();
    buffer->Add(cursor, columns);
    bytes += buffer->Bytes() - before;
    if (bytes_ + bytes > kMostBytes) return false;
  }
  return true;
}

Cursor& ReadAhead::CursorFor(CachedStatement& statement, std::size_t identifiers) {
  const StatementPlan& plan = statement.plan;
  const std::size_t places = std::bit_ceil(identifiers);
  std::unique_ptr<Cursor>& cursor = statement.many[places];
  if (cursor == nullptr) {
    std::string marks;
    for (std::size_t i = 0; i < places; ++i) marks.append(i == 0 ? "?" : ", ?");
    cursor = std::make_unique<Cursor>(engine_.Prepare(plan.many->before + marks + plan.many->after),
                                      plan.ColumnsRead() + 1);
  }
  return *cursor;
}

}  // namespace server
