#include "server/core/sql/StatementGuard.h"

#include <algorithm>
#include <utility>

#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/core/sql/StatementTokens.h"

namespace server {
namespace {

constexpr std::size_t kMostTables = 3;
constexpr int kDeepestNesting = 8;

[[noreturn]] void FailNoSuchColumn(const StatementTokens& tokens, const Token& table,
                                   const Token& column) {
  std::wstring name = tokens.Piece(column);
  if (!table.text.empty()) name = tokens.Piece(table) + L"." + name;
  FailDatabase(L"no such column: " + name);
}

// A column as it was written: with or without its table in front.
struct ColumnName {
  Token table;
  Token column;

  // As the engine is to read it; the table exists.
  std::string Sql() const {
    std::string sql;
    if (!table.text.empty()) sql.append(FindTable(table.text)->name).append(".");
    return sql.append(column.text);
  }
};

class Parser {
 public:
  explicit Parser(const StatementShape& shape)
      : tokens_(shape), oneLiteral_(shape.Literals().size() == 1) {}

  StatementPlan Parse() {
    if (tokens_.SkipWord("SELECT")) {
      ParseSelect();
    } else if (tokens_.SkipWord("DELETE")) {
      ParseDelete();
    } else {
      tokens_.ExpectWord("UPDATE");
      ParseUpdate();
    }
    tokens_.ExpectEnd();
    plan_.sql = tokens_.Sql();
    if (tables_.size() == 1) plan_.table = tables_[0];
    if (identifier_ && !hasAlternatives_) AskForMany(*identifier_);
    return std::move(plan_);
  }

 private:
  void ParseSelect() {
    const Token word = tokens_.Current();
    const bool distinct = tokens_.SkipWord("DISTINCT");
    const Token star = tokens_.Current();
    if (distinct) distinct_ = {word, star};
    const bool all = tokens_.SkipSign('*');
    std::vector<ColumnName> names;
    if (!all) {
      do names.push_back(ParseColumnName());
      while (tokens_.SkipSign(','));
    }
    const Token from = tokens_.Current();
    from_ = from;
    tokens_.ExpectWord("FROM");
    ParseTables();
    if (all) ListAllColumns(star);
    for (const ColumnName& name : names) plan_.columns.push_back(&Resolve(name));
    if (tokens_.SkipWord("WHERE")) ParseConditions(0);
    const Token order = tokens_.Current();
    if (tokens_.SkipWord("ORDER")) {
      tokens_.ExpectWord("BY");
      OrderBy(ParseColumnName(), {from, order, distinct});
    } else if (!narrowed_) {
      OrderByShownName();
    }
  }

  // The places of a statement at which it is changed for its order.
  struct OrderPlaces {
    Token from;
    Token order;
    bool distinct;
  };

  // Numbers are put in order by the engine. A text that is not shown is read as one more column.
  void OrderBy(const ColumnName& name, const OrderPlaces& places) {
    const SchemaColumn& column = Resolve(name);
    if (column.kind != ColumnKind::kText) return;
    plan_.hasOrderBy = true;
    plan_.nameOrder = PlaceOf(column);
    if (*plan_.nameOrder == plan_.columns.size()) {
      if (places.distinct) FailDatabase(L"rows told apart are ordered by a column that they show");
      tokens_.Insert(", " + name.Sql() + " ", places.from);
    }
    tokens_.LeaveOut(places.order, tokens_.Current());
  }

  void OrderByShownName() {
    const auto found =
        std::find_if(plan_.columns.begin(), plan_.columns.end(),
                     [](const SchemaColumn* column) { return column->name == "NAME"; });
    if (found != plan_.columns.end()) {
      plan_.nameOrder = static_cast<std::size_t>(found - plan_.columns.begin());
    }
  }

  std::size_t PlaceOf(const SchemaColumn& column) const {
    const auto found = std::find(plan_.columns.begin(), plan_.columns.end(), &column);
    return static_cast<std::size_t>(found - plan_.columns.begin());
  }

  void ParseDelete() {
    plan_.kind = StatementKind::kDelete;
    tokens_.ExpectWord("FROM");
    const SchemaTable& table = ParseTable();
    if (!table.rowsDeletable) FailNotModifiable(table);
    tokens_.ExpectWord("WHERE");
    do {
      Resolve(ParseColumnName());
      tokens_.ExpectSign('=');
      tokens_.ExpectLiteral(ColumnKind::kNumber);
    } while (tokens_.SkipWord("AND"));
  }

  // The name in front of a column that SET assigns is left out of what the engine gets: several
  // engines do not take it there.
  void ParseUpdate() {
    plan_.kind = StatementKind::kMarkDeleted;
    const SchemaTable& table = ParseTable();
    if (FindColumn(table, "VFLG") == nullptr) FailNotModifiable(table);
    tokens_.ExpectWord("SET");
    ParseAssignment("NAME");
    tokens_.ExpectSign(',');
    ParseAssignment("VFLG");
    tokens_.ExpectWord("WHERE");
    const Token place = tokens_.Current();
    if (!Resolve(ParseColumnName()).key) tokens_.FailAt(place);
    tokens_.ExpectSign('=');
    tokens_.ExpectLiteral(ColumnKind::kNumber);
  }

  void ParseAssignment(std::string_view column) {
    const ColumnName name = ParseColumnName();
    if (!SameName(Resolve(name).name, column)) tokens_.FailAt(name.column);
    if (!name.table.text.empty()) tokens_.LeaveOut(name.table, name.column);
    tokens_.ExpectSign('=');
    tokens_.ExpectLiteral(ColumnKind::kText);
  }

  void ParseTables() {
    do {
      const Token place = tokens_.Current();
      if (tables_.size() == kMostTables) tokens_.FailAt(place);
      const SchemaTable* const before = FindTable(place.text);
      for (const SchemaTable* const table : tables_) {
        if (table == before) tokens_.FailAt(place);
      }
      ParseTable();
    } while (tokens_.SkipSign(','));
  }

  const SchemaTable& ParseTable() {
    const Token name = tokens_.ExpectName();
    const SchemaTable* const table = FindTable(name.text);
    if (table == nullptr) FailDatabase(L"no such table: " + tokens_.Piece(name));
    tokens_.Respell(name, table->name);
    tables_.push_back(table);
    return *table;
  }

  ColumnName ParseColumnName() {
    ColumnName name;
    name.column = tokens_.ExpectName();
    if (tokens_.SkipSign('.')) {
      name.table = name.column;
      name.column = tokens_.ExpectName();
      // Some engines tell the names of tables apart by their case.
      const SchemaTable* const table = FindTable(name.table.text);
      if (table != nullptr) tokens_.Respell(name.table, table->name);
    }
    return name;
  }

  void ParseConditions(int depth) {
    if (depth > kDeepestNesting) tokens_.FailAt(tokens_.Current());
    do {
      if (tokens_.SkipSign('(')) {
        ParseConditions(depth + 1);
        tokens_.ExpectSign(')');
      } else {
        ParseComparison();
      }
      hasAlternatives_ = hasAlternatives_ || SameName(tokens_.Current().text, "OR");
    } while (tokens_.SkipWord("AND") || tokens_.SkipWord("OR"));
  }

  void ParseComparison() {
    const ColumnName name = ParseColumnName();
    const SchemaColumn& left = Resolve(name);
    const Token sign = tokens_.Current();
    tokens_.ExpectSign('=');
    if (tokens_.Current().kind != TokenKind::kName) {
      // The rows of one group may be many; those of one user, or of a name looked for, are few.
      if (left.name != "GROUPID") narrowed_ = true;
      if (oneLiteral_ && left.key)
        identifier_ = Identifier{name, left.name, sign, tokens_.Current()};
      tokens_.ExpectLiteral(left.kind);
      return;
    }
    const Token place = tokens_.Current();
    if (Resolve(ParseColumnName()).kind != left.kind) tokens_.FailAt(place);
  }

  // A condition that asks for one identifier.
  struct Identifier {
    ColumnName name;
    std::string_view column;
    Token sign;
    Token literal;
  };

  // The last change of the statement: its text as it is has been taken before.
  void AskForMany(const Identifier& identifier) {
    constexpr char kPlace = '\1';
    tokens_.Insert(", " + identifier.name.Sql() + " ", from_);
    tokens_.Replace(identifier.sign, identifier.literal, std::string(" IN (") + kPlace + ")");
    if (distinct_) tokens_.LeaveOut(distinct_->first, distinct_->second);
    const std::string sql = tokens_.Sql();
    const std::size_t place = sql.find(kPlace);
    plan_.many = {identifier.column, sql.substr(0, place), sql.substr(place + 1),
                  distinct_.has_value()};
  }

  void ListAllColumns(const Token& star) {
    if (tables_.size() != 1 || !tables_[0]->allColumnsListed) tokens_.FailAt(star);
    for (const SchemaColumn& column : tables_[0]->columns) plan_.columns.push_back(&column);
  }

  const SchemaColumn& Resolve(const ColumnName& name) {
    const SchemaColumn* found = nullptr;
    for (const SchemaTable* const table : tables_) {
      if (!name.table.text.empty() && !SameName(table->name, name.table.text)) continue;
      const SchemaColumn* const column = FindColumn(*table, name.column.text);
      if (column == nullptr) continue;
      if (found != nullptr) FailDatabase(L"ambiguous column name: " + tokens_.Piece(name.column));
      found = column;
    }
    if (found == nullptr) FailNoSuchColumn(tokens_, name.table, name.column);
    return *found;
  }

  [[noreturn]] static void FailNotModifiable(const SchemaTable& table) {
    FailDatabase(L"table " + data::FromUtf8(table.name) + L" may not be modified");
  }

  StatementTokens tokens_;
  StatementPlan plan_;
  std::vector<const SchemaTable*> tables_;
  bool narrowed_ = false;  // to the rows of one user, or to what was looked for
  Token from_;
  std::optional<std::pair<Token, Token>> distinct_;  // the word and what comes after it
  bool oneLiteral_;
  bool hasAlternatives_ = false;          // an OR anywhere
  std::optional<Identifier> identifier_;  // the only literal
};

}  // namespace

StatementPlan UnderstandStatement(const StatementShape& shape) {
  return Parser(shape).Parse();
}

void CheckLiterals(const StatementPlan& plan, std::span<const Literal> literals) {
  if (plan.kind != StatementKind::kMarkDeleted) return;
  const std::wstring ending = L"(" + data::Decimal(literals[2].number) + L")";
  if (!literals[0].text.ends_with(ending)) {
    FailDatabase(L"row " + data::Decimal(literals[2].number) +
                 L" may not be renamed to a name that does not end in " + ending);
  }
  if (literals[1].text != L"D") FailDatabase(L"flag may not be set to anything but D");
}

}  // namespace server
