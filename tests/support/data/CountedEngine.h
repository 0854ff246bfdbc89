#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <string>

#include "server/core/sql/Engine.h"

namespace test_support {

// What was asked of an engine, and what is to fail.
struct Traffic {
  int statements = 0;    // how often one was run
  int identifiers = 0;   // how many parameters they had in all
  int widest = 0;        // the most parameters that one had
  std::size_t rows = 0;  // that they gave
  std::function<void(const std::string& sql)> beforeRun = [](const std::string&) {};
};

// An engine whose statements are counted, as if it were far away: it says that it is better asked
// for much at once.
class CountedEngine final : public server::Engine {
 public:
  CountedEngine(std::unique_ptr<server::Engine> engine, Traffic& traffic)
      : engine_(std::move(engine)), traffic_(traffic) {}

  void CreateSchema() override { engine_->CreateSchema(); }
  bool ReadsAhead() const override { return true; }
  std::unique_ptr<server::Statement> Prepare(std::string_view sql) override {
    return std::make_unique<Counted>(engine_->Prepare(sql), std::string(sql), traffic_);
  }
  std::int32_t RowsAffected() override { return engine_->RowsAffected(); }
  void BeginReading() override { engine_->BeginReading(); }
  void BeginWriting() override { engine_->BeginWriting(); }
  void Commit() override { engine_->Commit(); }
  void Rollback() noexcept override { engine_->Rollback(); }

 private:
  class Counted final : public server::Statement {
   public:
    Counted(std::unique_ptr<server::Statement> statement, std::string sql, Traffic& traffic)
        : statement_(std::move(statement)), sql_(std::move(sql)), traffic_(traffic) {}

    void Bind(int parameter, std::int64_t number) override {
      statement_->Bind(Noted(parameter), number);
    }
    void Bind(int parameter, std::string_view text) override {
      statement_->Bind(Noted(parameter), text);
    }
    void BindNull(int parameter) override { statement_->BindNull(Noted(parameter)); }
    bool Step() override {
      if (!running_) {
        running_ = true;
        ++traffic_.statements;
        traffic_.identifiers += parameters_;
        traffic_.widest = std::max(traffic_.widest, parameters_);
        traffic_.beforeRun(sql_);
      }
      const bool row = statement_->Step();
      if (row) ++traffic_.rows;
      return row;
    }
    server::Field Read(int column) override { return statement_->Read(column); }
    void Reset() noexcept override {
      running_ = false;
      statement_->Reset();
    }

   private:
    int Noted(int parameter) {
      parameters_ = std::max(parameters_, parameter);
      return parameter;
    }

    std::unique_ptr<server::Statement> statement_;
    std::string sql_;
    Traffic& traffic_;
    int parameters_ = 0;
    bool running_ = false;
  };

  std::unique_ptr<server::Engine> engine_;
  Traffic& traffic_;
};

}  // namespace test_support
