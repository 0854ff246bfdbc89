#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "data/Text.h"
#include "server/core/sql/Engine.h"

namespace server {

// A statement of the server's own with its parameters: numbers, UTF-8 texts, UTF-16 texts, nullptr.
class Query {
 public:
  Query(Engine& engine, std::string_view sql) : statement_(engine.Prepare(sql)) {}

  template <class... Values>
  Query& Bind(const Values&... values) {
    statement_->Reset();
    int parameter = 0;
    (BindOne(++parameter, values), ...);
    return *this;
  }

  // Runs a statement that returns no rows, or whose rows do not matter.
  template <class... Values>
  void Run(const Values&... values) {
    Bind(values...);
    while (statement_->Step()) {
    }
    statement_->Reset();
  }

  bool Next() { return statement_->Step(); }
  std::int64_t Number(int column) { return statement_->Read(column).number; }
  std::string Text(int column) { return std::string(statement_->Read(column).text); }
  std::wstring WideText(int column) { return data::FromUtf8(statement_->Read(column).text); }

 private:
  template <std::integral Number>
  void BindOne(int parameter, Number number) {
    statement_->Bind(parameter, static_cast<std::int64_t>(number));
  }
  void BindOne(int parameter, std::string_view text) { statement_->Bind(parameter, text); }
  void BindOne(int parameter, std::wstring_view text) {
    statement_->Bind(parameter, data::ToUtf8(text));
  }
  void BindOne(int parameter, std::nullptr_t) { statement_->BindNull(parameter); }

  std::unique_ptr<Statement> statement_;
};

// Runs one statement of the server's own.
template <class... Values>
void Run(Engine& engine, std::string_view sql, const Values&... values) {
  Query(engine, sql).Run(values...);
}

// A writing transaction: what is not committed when it ends is undone.
class WriteTransaction {
 public:
  explicit WriteTransaction(Engine& engine) : engine_(&engine) { engine.BeginWriting(); }
  ~WriteTransaction() {
    if (engine_ != nullptr) engine_->Rollback();
  }
  WriteTransaction(const WriteTransaction&) = delete;
  WriteTransaction& operator=(const WriteTransaction&) = delete;

  void Commit() {
    engine_->Commit();
    engine_ = nullptr;
  }

 private:
  Engine* engine_;  // null once committed
};

}  // namespace server
