#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/data/RawDatabase.h"
#include "tests/support/journal/JsonValue.h"

namespace test_support {

// All bytes of the journal's files below a folder, those of an earlier month first.
std::string JournalBytes(const std::filesystem::path& folder);

// Its lines. One that is no JSON is a std::runtime_error.
std::vector<JsonValue> JournalLines(const std::filesystem::path& folder);

// Does in a database what a line says was done. Passwords are in no journal: they stay as they are.
void Replay(const JsonValue& line, RawDatabase& database);

}  // namespace test_support
