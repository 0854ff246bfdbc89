#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The first half of the statement guard, run on every statement: one pass that takes the literals
// out of a text. What is left, the shape, is the same for all statements that differ in their
// literals alone, so that a shape has to be understood and prepared only once.
namespace server {

struct Literal {
  bool isText = false;
  std::int64_t number = 0;
  std::wstring_view text;  // borrowed from the statement
};

class StatementShape {
 public:
  // Stand for a literal in the shape. Neither may occur in a statement.
  static constexpr char kNumberMark = '#';
  static constexpr char kTextMark = '$';

  // Takes a statement apart; the statement must outlive the literals. Raises a database error for
  // every character that no accepted statement has outside a literal: semicolons, comments, other
  // quotes, other operators, letters beyond ASCII. Two statements with the same shape differ in
  // nothing but their literals.
  void Read(std::wstring_view statement);

  std::string_view Text() const { return text_; }
  std::span<const Literal> Literals() const { return literals_; }

 private:
  std::size_t ReadText(std::wstring_view statement, std::size_t quote);
  std::size_t ReadNumber(std::wstring_view statement, std::size_t first);

  std::string text_;
  std::vector<Literal> literals_;
};

// Raises the database error for a statement that goes wrong at a certain piece of its text.
[[noreturn]] void FailSyntax(std::wstring_view piece);

}  // namespace server
