#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "server/core/sql/SchemaTables.h"
#include "server/core/sql/StatementShape.h"

// The second half of the statement guard: the grammar of what a client may ask of the database. It
// is a list of what is allowed, not of what is forbidden:
//   SELECT [DISTINCT] columns or * FROM up to three tables [WHERE column = value or column, joined
//   by AND, OR and parentheses] [ORDER BY column]; DELETE FROM a link table WHERE column = number
//   [AND column = number]; UPDATE of a user or group that marks it deleted: its name becomes
//   name(id), its flag D.
// Everything else is refused with a database error before the database sees anything of it.
//
// Engines order texts each in its own way, so the server puts the rows in order itself when a text
// is ordered by, and also when a statement without ORDER BY lists names: all groups, all
// permissions, the members of a group. What is asked for each user in turn comes as the engine
// gives it, and so does all that is asked without ORDER BY in a reading transaction: who reads
// thousands of lists at once puts in order what is looked at.
namespace server {

enum class StatementKind { kSelect, kDelete, kMarkDeleted };

// A shape once understood: what the engine is to run, with a parameter for each literal in turn.
struct StatementPlan {
  StatementKind kind = StatementKind::kSelect;
  std::string sql;
  // The only table of the statement; null when there are several.
  const SchemaTable* table = nullptr;
  // The columns of a result set, in order.
  std::vector<const SchemaColumn*> columns;
  // The column by whose text the server puts the rows in order, where it does. It may stand one
  // place beyond the columns: then the engine reads it for the order alone.
  std::optional<std::size_t> nameOrder;
  // Whether the statement itself asks for that order.
  bool hasOrderBy = false;

  // The same for several identifiers at once, where the statement's only literal is one that every
  // row of it has in a certain column: the text before and after the identifiers. The engine then
  // gives that column too, as the last. Rows that a statement wants told apart come with their
  // doubles: an engine that looks for them among those of all identifiers takes far longer.
  struct Many {
    std::string_view column;
    std::string before;
    std::string after;
    bool distinct = false;
  };
  std::optional<Many> many;

  // How many columns the engine gives for the statement itself.
  std::size_t ColumnsRead() const {
    return std::max(columns.size(), nameOrder ? *nameOrder + 1 : 0);
  }
};

// Understands a shape or raises a database error.
StatementPlan UnderstandStatement(const StatementShape& shape);

// Checks what depends on the literals of one statement: a row is marked deleted only with the flag
// D and under a name that ends in its own identifier in parentheses.
void CheckLiterals(const StatementPlan& plan, std::span<const Literal> literals);

}  // namespace server
