#include "app/JsonReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace app {
namespace {

// Whether the whole of a text can be skipped as one value.
bool CanBeSkipped(std::string_view text) {
  JsonReader json(text);
  json.Skip();
  return json.IsWhole();
}

std::wstring TextIn(std::string_view json) {
  JsonReader reader(json);
  std::wstring text = reader.Text();
  return reader.IsWhole() ? text : L"(none)";
}

TEST(JsonReader, ReadsTheMembersOfAnObjectInTheirOrder) {
  JsonReader json(R"( { "a" : 1 , "b":[true, false],"c":{"d":null} } )");
  std::vector<std::string> names;
  std::int64_t number = 0;
  int truths = 0;
  bool isNull = false;
  json.Object([&](std::string_view name) {
    names.emplace_back(name);
    if (name == "a") number = json.Number();
    if (name == "b") json.Array([&] { truths += json.Truth() ? 10 : 1; });
    if (name == "c") json.Object([&](std::string_view) { isNull = json.TakeNull(); });
  });
  EXPECT_TRUE(json.IsWhole());
  EXPECT_EQ(names, (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(number, 1);
  EXPECT_EQ(truths, 11);
  EXPECT_TRUE(isNull);
}

TEST(JsonReader, ReadsEscapedLettersAndHalves) {
  EXPECT_EQ(TextIn(R"("\"\\\/\b\f\n\r\t")"), L"\"\\/\b\f\n\r\t");
  EXPECT_EQ(TextIn(R"("\u00e9\u0001\u2028")"), L"\xE9\x01\x2028");
  EXPECT_EQ(TextIn(R"("\ud83d\ude00")"), L"\xD83D\xDE00");
  EXPECT_EQ(TextIn(R"("\ud83d")"), L"\xFFFD");
  EXPECT_EQ(TextIn(R"("\ude00\ud83dx")"), L"\xFFFD\xFFFDx");
  EXPECT_EQ(TextIn("\"\xC3\xA9\""), L"\xE9");
}

TEST(JsonReader, GivesUpWhatIsNotWellFormed) {
  for (const char* text :
       {"",          " ",           "{",        "}",          "[",     "[1,",   "[1,]",
        "[,]",       "{\"a\"}",     "{\"a\":}", "{\"a\":1,}", "{a:1}", "\"",    "\"\\",
        "\"\\u12\"", "\"\\u12g4\"", "\"\\x\"",  "\"a\nb\"",   "[1]]",  "[1] x", "?"}) {
    EXPECT_FALSE(CanBeSkipped(text)) << text;
  }
  for (const char* text :
       {"{}", "[]", "[[],{}]", "-1.5e3", "null", "\"\"", "{\"a\":[1,{\"b\":2}]}"}) {
    EXPECT_TRUE(CanBeSkipped(text)) << text;
  }
}

TEST(JsonReader, GivesUpAnotherKindOfValue) {
  const auto isRead = [](std::string_view text, auto read) {
    JsonReader json(text);
    read(json);
    return json.IsWhole();
  };
  EXPECT_FALSE(isRead("1", [](JsonReader& json) { json.Text(); }));
  EXPECT_FALSE(isRead("\"1\"", [](JsonReader& json) { json.Number(); }));
  EXPECT_FALSE(isRead("1.5", [](JsonReader& json) { json.Number(); }));
  EXPECT_FALSE(isRead("99999999999999999999", [](JsonReader& json) { json.Number(); }));
  EXPECT_FALSE(isRead("null", [](JsonReader& json) { json.Truth(); }));
  EXPECT_FALSE(isRead("[]", [](JsonReader& json) { json.Object([](std::string_view) {}); }));
  EXPECT_FALSE(isRead("{}", [](JsonReader& json) { json.Array([] {}); }));
}

TEST(JsonReader, IsNotLedIntoTheDepth) {
  EXPECT_FALSE(CanBeSkipped(std::string(1'000'000, '[')));
  const std::string tower = std::string(20, '[') + std::string(20, ']');
  EXPECT_TRUE(CanBeSkipped(tower));
}

}  // namespace
}  // namespace app
