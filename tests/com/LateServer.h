#pragma once

#include <memory>

#include "FakeObject.h"
#include "com/CallObserver.h"
#include "data/RunTimeError.h"
#include "data/SessionServer.h"

namespace com_test {

// What a server dies of in these tests.
inline constexpr long kAccessViolation = static_cast<long>(0xC0000005);

// Texts that the adapter is given, told apart easily.
inline constexpr const wchar_t* kLost = L"lost";
inline constexpr const wchar_t* kBusy = L"busy";
inline constexpr const wchar_t* kNoMember = L"no %1 here";

// The adapter over an object of the test. The observer is told of its calls.
std::unique_ptr<data::SessionServer> Adapt(IDispatch* server,
                                           ::com::CallObserver* observer = nullptr);

// The adapter's connection to an object that a server of the test gives out.
std::unique_ptr<data::Connection> AdaptConnection(IDispatch* connection);

// The adapter's result set on an object that a connection of the test gives out.
std::unique_ptr<data::ResultSet> AdaptResultSet(IDispatch* resultSet);

// The run-time error that an action raises; number 0 when it raises none.
data::RunTimeError ErrorOf(const std::function<void()>& action);

}  // namespace com_test
