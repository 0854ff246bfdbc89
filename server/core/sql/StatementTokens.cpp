#include "server/core/sql/StatementTokens.h"

#include <algorithm>

#include "data/Text.h"
#include "server/core/Errors.h"

namespace server {
namespace {

bool IsNameLetter(char letter) {
  return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
         (letter >= '0' && letter <= '9') || letter == '_';
}

TokenKind KindOf(char letter) {
  if (letter == StatementShape::kNumberMark) return TokenKind::kNumber;
  if (letter == StatementShape::kTextMark) return TokenKind::kText;
  if (letter == StatementShape::kFaultMark) return TokenKind::kFault;
  return IsNameLetter(letter) ? TokenKind::kName : TokenKind::kSign;
}

}  // namespace

StatementTokens::StatementTokens(const StatementShape& shape) : shape_(shape), text_(shape.Text()) {
  Advance();
}

void StatementTokens::Advance() {
  next_ = text_.find_first_not_of(" \t\r\n", next_);
  if (next_ == std::string_view::npos) next_ = text_.size();
  const std::size_t place = next_;
  if (place == text_.size()) {
    current_ = {TokenKind::kEnd, {}, place, 0};
    return;
  }
  const TokenKind kind = KindOf(text_[next_++]);
  if (kind == TokenKind::kName) {
    while (next_ < text_.size() && IsNameLetter(text_[next_])) ++next_;
  }
  current_ = {kind, text_.substr(place, next_ - place), place, literals_};
  if (kind == TokenKind::kNumber || kind == TokenKind::kText) ++literals_;
}

bool StatementTokens::SkipWord(std::string_view word) {
  if (current_.kind != TokenKind::kName || !SameName(current_.text, word)) return false;
  Advance();
  return true;
}

bool StatementTokens::SkipSign(char sign) {
  if (current_.kind != TokenKind::kSign || current_.text[0] != sign) return false;
  Advance();
  return true;
}

void StatementTokens::ExpectWord(std::string_view word) {
  if (!SkipWord(word)) FailAt(current_);
}

void StatementTokens::ExpectSign(char sign) {
  if (!SkipSign(sign)) FailAt(current_);
}

Token StatementTokens::ExpectName() {
  if (current_.kind != TokenKind::kName) FailAt(current_);
  const Token name = current_;
  Advance();
  return name;
}

void StatementTokens::ExpectLiteral(ColumnKind kind) {
  const TokenKind wanted = kind == ColumnKind::kNumber ? TokenKind::kNumber : TokenKind::kText;
  if (current_.kind != wanted) FailAt(current_);
  Advance();
}

void StatementTokens::ExpectEnd() {
  if (current_.kind != TokenKind::kEnd) FailAt(current_);
}

void StatementTokens::LeaveOut(const Token& first, const Token& last) {
  // What was to be spelled differently in there is left out with it.
  std::erase_if(changes_, [&](const Change& change) {
    return change.place >= first.place && change.place < last.place;
  });
  changes_.push_back({first.place, last.place - first.place, {}});
}

void StatementTokens::Respell(const Token& name, std::string_view spelling) {
  if (name.text != spelling)
    changes_.push_back({name.place, name.text.size(), std::string(spelling)});
}

void StatementTokens::Replace(const Token& first, const Token& last, std::string_view piece) {
  changes_.push_back(
      {first.place, last.place + last.text.size() - first.place, std::string(piece)});
}

void StatementTokens::Insert(std::string_view piece, const Token& before) {
  changes_.push_back({before.place, 0, std::string(piece)});
}

std::string StatementTokens::Sql() const {
  std::vector<Change> changes = changes_;
  std::stable_sort(changes.begin(), changes.end(), [](const Change& left, const Change& right) {
    return left.place < right.place;
  });
  std::string sql;
  std::size_t copied = 0;
  const auto copyUpTo = [&](std::size_t place) {
    for (; copied < place; ++copied) {
      const TokenKind kind = KindOf(text_[copied]);
      const bool literal = kind == TokenKind::kNumber || kind == TokenKind::kText;
      sql += literal ? '?' : text_[copied];
    }
  };
  for (const Change& change : changes) {
    copyUpTo(change.place);
    sql += change.text;
    copied = change.place + change.size;
  }
  copyUpTo(text_.size());
  return sql;
}

std::wstring StatementTokens::Piece(const Token& token) const {
  switch (token.kind) {
    case TokenKind::kNumber:
      return data::Decimal(shape_.Literals()[token.literal].number);
    case TokenKind::kText:
      return L"'" + std::wstring(shape_.Literals()[token.literal].text) + L"'";
    default:
      return data::FromUtf8(token.text);
  }
}

void StatementTokens::FailAt(const Token& token) const {
  FailDatabase(token.kind == TokenKind::kFault ? shape_.Fault() : SyntaxError(Piece(token)));
}

}  // namespace server
