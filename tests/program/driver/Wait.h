#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace driver {

// How long a state is waited for before a test gives up. Far beyond what a loaded machine needs.
inline constexpr std::chrono::milliseconds kPatience{30000};

// Looks at the condition again and again until it holds. False when the time is over first.
bool WaitUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds patience = kPatience);

// The same; throws a Failure that names what was waited for.
void Await(const std::string& what, const std::function<bool()>& condition,
           std::chrono::milliseconds patience = kPatience);

}  // namespace driver
