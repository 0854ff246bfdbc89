#pragma once

#include <string>
#include <string_view>

namespace server {

// Reads and writes the text that names an ODBC data source: KEYWORD=value;KEYWORD={value}. In
// braces a value may hold any character; a closing brace in it is written twice.

// A value, in braces where its characters ask for them.
std::string ConnectionValue(std::string_view value);

// Whether a connection string gives a value for a keyword, whatever the case of its letters.
bool HasKeyword(std::string_view connectionString, std::string_view keyword);

// The connection string with another value for a keyword, in the place of any that it has.
std::string WithValue(std::string_view connectionString, std::string_view keyword,
                      std::string_view value);

// The connection string to another host, written NAME, NAME:PORT or [ADDRESS]:PORT.
std::string WithHost(std::string_view connectionString, std::string_view host);

}  // namespace server
