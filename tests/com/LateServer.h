#pragma once

#include <memory>

#include "FakeObject.h"
#include "data/RunTimeError.h"
#include "data/SessionServer.h"

namespace com_test {

// Texts that the adapter is given, told apart easily.
inline constexpr const wchar_t* kLost = L"lost";
inline constexpr const wchar_t* kNoMember = L"no %1 here";

// The adapter over an object of the test.
std::unique_ptr<data::SessionServer> Adapt(IDispatch* server);

// The adapter's connection to an object that a server of the test gives out.
std::unique_ptr<data::Connection> AdaptConnection(IDispatch* connection);

// The adapter's result set on an object that a connection of the test gives out.
std::unique_ptr<data::ResultSet> AdaptResultSet(IDispatch* resultSet);

// The run-time error that an action raises; number 0 when it raises none.
data::RunTimeError ErrorOf(const std::function<void()>& action);

}  // namespace com_test
