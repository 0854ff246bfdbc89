#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "server/core/sql/SchemaTables.h"
#include "server/core/sql/StatementShape.h"

namespace server {

enum class TokenKind { kName, kNumber, kText, kSign, kFault, kEnd };

struct Token {
  TokenKind kind = TokenKind::kEnd;
  std::string_view text;    // of the shape
  std::size_t place = 0;    // in the shape
  std::size_t literal = 0;  // which literal, where it is one
};

// A shape read token by token, with the text for the engine written alongside. Whatever is expected
// and not there raises a syntax error at the token in its place.
class StatementTokens {
 public:
  explicit StatementTokens(const StatementShape& shape);

  const Token& Current() const { return current_; }
  // Step over the current token if it is this word or sign; false if it is something else.
  bool SkipWord(std::string_view word);
  bool SkipSign(char sign);
  void ExpectWord(std::string_view word);
  void ExpectSign(char sign);
  Token ExpectName();
  void ExpectLiteral(ColumnKind kind);
  void ExpectEnd();
  // Keeps the shape from one token up to another out of the text for the engine.
  void LeaveOut(const Token& first, const Token& last);
  // Puts a piece into the text for the engine in the place of two tokens and what is between them.
  void Replace(const Token& first, const Token& last, std::string_view piece);
  // Puts a name in another spelling into the text for the engine.
  void Respell(const Token& name, std::string_view spelling);
  // Puts a piece into the text for the engine in front of a token.
  void Insert(std::string_view piece, const Token& before);
  // The text for the engine: the shape with a parameter for each literal.
  std::string Sql() const;

  // A token as it stood in the statement.
  std::wstring Piece(const Token& token) const;
  [[noreturn]] void FailAt(const Token& token) const;

 private:
  // A piece of the shape that the engine gets differently.
  struct Change {
    std::size_t place;
    std::size_t size;
    std::string text;
  };

  void Advance();

  const StatementShape& shape_;
  std::string_view text_;
  Token current_;
  std::size_t next_ = 0;
  std::size_t literals_ = 0;
  std::vector<Change> changes_;
};

}  // namespace server
