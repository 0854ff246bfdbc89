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
  // Stand for a literal in the shape, and for whatever cannot be part of an accepted statement.
  // None of them may occur in a statement itself.
  static constexpr char kNumberMark = '#';
  static constexpr char kTextMark = '$';
  static constexpr char kFaultMark = '!';

  // Takes a statement apart; the statement must outlive the literals. Two statements with the same
  // shape differ in nothing but their literals. Reading ends with a fault mark at the first
  // character that no accepted statement has outside a literal: a semicolon, a comment, another
  // quote, another operator, a letter beyond ASCII.
  void Read(std::wstring_view statement);

  std::string_view Text() const { return text_; }
  std::span<const Literal> Literals() const { return literals_; }
  // What the database has to say about the fault, where there is one.
  const std::wstring& Fault() const { return fault_; }

 private:
  std::size_t ReadText(std::wstring_view statement, std::size_t quote);
  std::size_t ReadNumber(std::wstring_view statement, std::size_t first);
  std::size_t EndAt(std::wstring_view statement, std::wstring fault);

  std::string text_;
  std::vector<Literal> literals_;
  std::wstring fault_;
};

// The database's message about a statement that goes wrong at a certain piece of its text.
std::wstring SyntaxError(std::wstring_view piece);

}  // namespace server
