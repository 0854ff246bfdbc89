#pragma once

#include <filesystem>

// Where the test finds what it drives and leaves what it keeps. The test lies in tests/ of the
// build folder, the program beside it in bin/; UADMIN_BIN in the environment names another folder.
namespace program {

std::filesystem::path BinFolder();
std::filesystem::path TestsFolder();
// What failed tests leave behind.
std::filesystem::path FailuresFolder();
// The pictures that a run on a display leaves behind.
std::filesystem::path PicturesFolder();

}  // namespace program
