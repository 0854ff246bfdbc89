#pragma once

#include <utility>

#include "server/engines/odbc/OdbcHeaders.h"

namespace server {

// An owned ODBC handle of one type: SQL_HANDLE_ENV, SQL_HANDLE_DBC or SQL_HANDLE_STMT.
template <SQLSMALLINT kType>
class OdbcHandle {
 public:
  OdbcHandle() = default;
  // Allocates under the parent, which must outlive this. Stays empty when that fails.
  explicit OdbcHandle(SQLHANDLE parent) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(kType, parent, &handle_))) handle_ = nullptr;
  }
  ~OdbcHandle() {
    if (handle_ != nullptr) SQLFreeHandle(kType, handle_);
  }
  OdbcHandle(OdbcHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  OdbcHandle& operator=(OdbcHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }

  SQLHANDLE Get() const { return handle_; }

 private:
  SQLHANDLE handle_ = nullptr;
};

using OdbcEnvironmentHandle = OdbcHandle<SQL_HANDLE_ENV>;
using OdbcConnectionHandle = OdbcHandle<SQL_HANDLE_DBC>;
using OdbcStatementHandle = OdbcHandle<SQL_HANDLE_STMT>;

}  // namespace server
