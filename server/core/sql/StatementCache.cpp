#include "server/core/sql/StatementCache.h"

#include <algorithm>

#include "data/Text.h"

namespace server {
namespace {

constexpr std::size_t kMostIdleCursors = 8;

// Decodes a text into a buffer that only ever grows. ASCII and the letters of Western languages are
// done here, at the pace at which the rows arrive; a text with any other is left to the general
// decoder.
std::wstring_view Widen(std::wstring& buffer, std::string_view utf8) {
  if (buffer.size() < utf8.size()) buffer.resize(utf8.size());
  wchar_t* out = buffer.data();
  const std::size_t size = utf8.size();
  for (std::size_t i = 0; i < size; ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    if (byte < 0x80) {
      *out++ = static_cast<wchar_t>(byte);
      continue;
    }
    const auto next = i + 1 < size ? static_cast<unsigned char>(utf8[i + 1]) : 0U;
    if (byte < 0xC2 || byte > 0xDF || (next & 0xC0U) != 0x80U) {
      buffer.clear();
      data::AppendUtf8(buffer, utf8);
      return buffer;
    }
    *out++ = static_cast<wchar_t>((byte & 0x1FU) << 6 | (next & 0x3FU));
    ++i;
  }
  return {buffer.data(), static_cast<std::size_t>(out - buffer.data())};
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
  return data::ColumnValue(Widen(texts_[static_cast<std::size_t>(column)], field.text));
}

CursorLoan::CursorLoan(Engine& engine, std::shared_ptr<CachedStatement> statement)
    : statement_(std::move(statement)) {
  if (statement_->idle.empty()) {
    const StatementPlan& plan = statement_->plan;
    cursor_ = std::make_unique<Cursor>(engine.Prepare(plan.sql), plan.ColumnsRead());
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
  auto entry = std::make_shared<CachedStatement>(CachedStatement{std::move(plan), {}, {}});
  statements_.emplace(key, entry);
  return entry;
}

}  // namespace server
