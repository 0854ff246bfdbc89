#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/controls/TestForm.h"
#include "tests/support/controls/User.h"

namespace controls_test {

using Events = std::vector<std::wstring>;

// A desktop with a user in front of it and the form with one control of every kind, shown.
class ControlsTest : public testing::Test {
 protected:
  ControlsTest() {
    desktop.EscapedError = [this] { ++escapedErrors; };
    form.Show();
  }

  test_support::ScriptedDesktop desktop;
  test_support::User user{desktop};
  TestForm form{desktop};
  Events events;
  int escapedErrors = 0;
};

}  // namespace controls_test
