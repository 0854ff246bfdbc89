#pragma once

#include <span>

namespace resources_test {

// A text whose wording is fixed, down to its odd spellings and its blanks at the end.
struct GivenText {
  int id;
  const char* text;
};

std::span<const GivenText> GivenTexts();

}  // namespace resources_test
