#include "server/core/StatementCache.h"

#include <algorithm>

#include "data/Text.h"

namespace server {
namespace {

constexpr std::size_t kMostIdleCursors = 8;

// Most texts are plain ASCII throughout, which widens at a fraction of the cost of decoding.
bool IsAscii(std::string_view text) {
  unsigned char all = 0;
  for (const char letter : text) all |= static_cast<unsigned char>(letter);
  return all < 0x80;
}

void Widen(std::wstring& out, std::string_view text) {
  if (IsAscii(text)) {
    out.assign(text.begin(), text.end());
  } else {
    out.clear();
    data::AppendUtf8(out, text);
  }
}

}  // namespace

data::ColumnValue Cursor::Read(int column) {
  const Field field = statement_->Read(column);
  switch (field.kind) {
    case FieldKind::kNull:
      return {};
    case FieldKind::kNumber:
      return data::ColumnValue(field.number);
    case FieldKind::kText:
      break;
  }
  std::wstring& text = texts_[static_cast<std::size_t>(column)];
  Widen(text, field.text);
  return data::ColumnValue(text);
}

CursorLoan::CursorLoan(Engine& engine, std::shared_ptr<CachedStatement> statement)
    : statement_(std::move(statement)) {
  if (statement_->idle.empty()) {
    const StatementPlan& plan = statement_->plan;
    cursor_ = std::make_unique<Cursor>(engine.Prepare(plan.sql), plan.columns.size());
  } else {
    cursor_ = std::move(statement_->idle.back());
    statement_->idle.pop_back();
  }
}

CursorLoan::~CursorLoan() {
  cursor_->Get().Reset();
  if (statement_->idle.size() < kMostIdleCursors) statement_->idle.push_back(std::move(cursor_));
}

std::shared_ptr<CachedStatement> StatementCache::Find(const StatementShape& shape) {
  const auto known = statements_.find(shape.Text());
  if (known != statements_.end()) return known->second;
  return Keep(shape.Text(), UnderstandStatement(shape));
}

std::shared_ptr<CachedStatement> StatementCache::FindOwn(std::string_view sql) {
  const auto known = statements_.find(sql);
  if (known != statements_.end()) return known->second;
  StatementPlan plan;
  plan.sql = sql;
  return Keep(sql, std::move(plan));
}

std::shared_ptr<CachedStatement> StatementCache::Keep(std::string_view key, StatementPlan plan) {
  if (statements_.size() >= kMostShapes) statements_.clear();
  auto entry = std::make_shared<CachedStatement>(CachedStatement{std::move(plan), {}});
  statements_.emplace(key, entry);
  return entry;
}

}  // namespace server
