#include <gtest/gtest.h>

// Every test program's entry. -municode is in force for the whole Windows build, hence the second
// form.
#ifdef _WIN32
int wmain(int argc, wchar_t** argv) {
#else
int main(int argc, char** argv) {
#endif
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
