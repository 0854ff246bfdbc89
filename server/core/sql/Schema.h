#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace server {

// What an engine has of its own in the statements that create the schema.
struct SchemaWords {
  // The types of a text and of a short text that is part of a key. Both compare by their letters
  // alone, whatever the language of the server, blanks at the end included.
  std::string_view textType;
  std::string_view keyTextType;
  // The index by which a name is looked up, as CREATE INDEX has it after the table.
  std::string_view nameIndex;
  // What CREATE TABLE has at its end for rows that are kept by their primary key; with a blank in
  // front.
  std::string_view keyedTable;
};

// The statements that create the schema on an engine, in order.
std::vector<std::string> Schema(const SchemaWords& words);

}  // namespace server
