#pragma once

#include <windows.h>

#include <objbase.h>
#include <wrl/client.h>

#include <string>

namespace com_test {

// A ProgID of the test's own in the registry, with a class of its own, both gone when the test
// ends.
class ClassEntry {
 public:
  ClassEntry();
  ~ClassEntry();
  ClassEntry(const ClassEntry&) = delete;
  ClassEntry& operator=(const ClassEntry&) = delete;

  const std::wstring& ProgId() const { return progId_; }
  const CLSID& ClassId() const { return classId_; }
  const std::wstring& ClassIdText() const { return classIdText_; }

  void SetLibrary(const std::wstring& file);
  // Enters a program that offers the class, with its arguments.
  void SetProgram(const std::wstring& commandLine);
  // Enters the class for programs of the other word size alone.
  void SetLibraryOfTheOtherView(const std::wstring& file);

 private:
  CLSID classId_{};
  std::wstring classIdText_;
  std::wstring progId_;
};

// A class whose factory fails with this result, leaving a text for it, while the test runs.
class FailingClass {
 public:
  FailingClass(const CLSID& classId, HRESULT result, const wchar_t* text);
  ~FailingClass();
  FailingClass(const FailingClass&) = delete;
  FailingClass& operator=(const FailingClass&) = delete;

 private:
  DWORD cookie_ = 0;
};

// An object given out as the class's only instance while the test runs.
class RunningClass {
 public:
  RunningClass(const CLSID& classId, IDispatch* instance);
  ~RunningClass();
  RunningClass(const RunningClass&) = delete;
  RunningClass& operator=(const RunningClass&) = delete;

 private:
  DWORD cookie_ = 0;
};

}  // namespace com_test
