#include <gtest/gtest.h>

#include <cstdlib>

#include "FakeObject.h"
#include "ScriptHost.h"
#include "VardexLibrary.h"
#include "com/Apartment.h"
#include "tests/support/data/SampleDatabase.h"

using Microsoft::WRL::ComPtr;

namespace com_test {
namespace {

// A script that works with the reference server on a real database. What it hands to Report.Line is
// kept.
class Script : public testing::Test {
 protected:
  Script() { _wputenv_s(L"VARDEX_HOME", database_.Home().c_str()); }

  std::wstring Run(const std::wstring& body) {
    std::wstring report;
    const ComPtr<FakeObject> reporter = FakeObject::Make();
    reporter->On(L"Line", [&](const FakeCall& call) {
      VARIANT text{};
      VariantChangeType(&text, &call.Argument(0), 0, VT_BSTR);
      report += std::wstring(text.bstrVal) + L"\n";
      return VariantClear(&text);
    });
    ScriptHost host;
    host.Offer(L"Server", library_.MakeServer().Get());
    host.Offer(L"Report", reporter.Get());
    const std::wstring opening = L"Server.ReadCommandLine \"" + database_.CommandLine() +
                                 L"\", text, id\nServer.OpenSession text, id\n";
    EXPECT_TRUE(host.Run(opening + body));
    EXPECT_EQ(L"", host.Error());
    return report;
  }

  const ::com::Apartment apartment_;
  test_support::SampleDatabase database_;
  VardexLibrary library_;
};

TEST_F(Script, ReadsRowsByName) {
  EXPECT_EQ(L"1 Admin\n-1\n", Run(LR"(
    Set rows = Server.DatabaseConnection.OpenResultSet( _
        "SELECT QRUSER.USERID, QRUSER.NAME FROM QRUSER WHERE QRUSER.NAME = 'Admin'")
    Do Until rows.EndOfRows
      Report.Line rows.Column(0) & " " & rows.Column(1)
      rows.MoveNext
    Loop
    Report.Line CInt(rows.EndOfRows)
    rows.Close
  )"));
}

TEST_F(Script, WritesRowsWithItsOwnTypes) {
  EXPECT_EQ(L"7001 Équipe -1\n1\n", Run(LR"(
    Set connection = Server.DatabaseConnection
    Set rows = connection.OpenResultSet("SELECT QRGROUPV.GROUPID, QRGROUPV.NAME ,QRGROUPV.DESCR" & _
        " FROM QRGROUPV WHERE QRGROUPV.GROUPID = 7001")
    rows.AddNew
    rows.SetColumn "GROUPID", 7001
    rows.SetColumn 1, "Équipe"
    rows.SetColumn "DESCR", Null
    rows.Update
    rows.MoveFirst
    Report.Line rows.Column(0) & " " & rows.Column(1) & " " & CInt(IsNull(rows.Column(2)))
    rows.Close
    Report.Line connection.Execute("UPDATE QRGROUP SET QRGROUP.NAME = 'x(7001)', QRGROUP.VFLG = 'D'" & _
        " Where QRGROUP.GROUPID = 7001")
  )"));
}

TEST_F(Script, SeesNumberAndTextOfAFailure) {
  EXPECT_EQ(L"-2147220982 Vardex.Vardex.1\nUne session est déjà ouverte.\n", Run(LR"(
    On Error Resume Next
    Server.OpenSession text, id
    Report.Line Err.Number & " " & Err.Source
    Report.Line Err.Description
  )"));
}

}  // namespace
}  // namespace com_test
