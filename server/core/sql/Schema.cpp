#include "server/core/sql/Schema.h"

namespace server {
namespace {

// Accounts are never removed, so that links and sessions always find theirs. Link tables are read
// from both sides; each link exists once. Names are looked up and sorted by, and are not unique: a
// name is free again as soon as its account is marked deleted, and the program sees to the rest.
// $TEXT and the like stand for what the engine has there.
constexpr std::string_view kStatements[] = {
    "CREATE TABLE QRUSER (USERID INTEGER NOT NULL PRIMARY KEY, NAME $TEXT NOT NULL,"
    " FULLNAME $TEXT, PASSWORD $TEXT, VFLG $KEYTEXT NOT NULL DEFAULT '')",
    "CREATE INDEX QRUSER_NAME ON QRUSER $NAMEINDEX",
    "CREATE TABLE QRGROUP (GROUPID INTEGER NOT NULL PRIMARY KEY, NAME $TEXT NOT NULL,"
    " DESCR $TEXT, VFLG $KEYTEXT NOT NULL DEFAULT '')",
    "CREATE INDEX QRGROUP_NAME ON QRGROUP $NAMEINDEX",
    "CREATE TABLE QRPERM (PERMID INTEGER NOT NULL PRIMARY KEY, NAME $TEXT NOT NULL,"
    " RIGHTS INTEGER NOT NULL DEFAULT 0)",

    "CREATE TABLE QRUSGP (USERID INTEGER NOT NULL, GROUPID INTEGER NOT NULL,"
    " PRIMARY KEY (USERID, GROUPID), FOREIGN KEY (USERID) REFERENCES QRUSER (USERID),"
    " FOREIGN KEY (GROUPID) REFERENCES QRGROUP (GROUPID))$KEYED",
    "CREATE UNIQUE INDEX QRUSGP_GROUP ON QRUSGP (GROUPID, USERID)",
    "CREATE TABLE QRUPRM (USERID INTEGER NOT NULL, PERMID INTEGER NOT NULL,"
    " PRIMARY KEY (USERID, PERMID), FOREIGN KEY (USERID) REFERENCES QRUSER (USERID),"
    " FOREIGN KEY (PERMID) REFERENCES QRPERM (PERMID))$KEYED",
    "CREATE UNIQUE INDEX QRUPRM_PERM ON QRUPRM (PERMID, USERID)",
    "CREATE TABLE QRGPRM (GROUPID INTEGER NOT NULL, PERMID INTEGER NOT NULL,"
    " PRIMARY KEY (GROUPID, PERMID), FOREIGN KEY (GROUPID) REFERENCES QRGROUP (GROUPID),"
    " FOREIGN KEY (PERMID) REFERENCES QRPERM (PERMID))$KEYED",
    "CREATE UNIQUE INDEX QRGPRM_PERM ON QRGPRM (PERMID, GROUPID)",

    "CREATE TABLE QRAUSR (USERID INTEGER NOT NULL, SESID INTEGER NOT NULL PRIMARY KEY,"
    " TOKENHASH $KEYTEXT NOT NULL, OPENED BIGINT NOT NULL,"
    " FOREIGN KEY (USERID) REFERENCES QRUSER (USERID))",
    "CREATE INDEX QRAUSR_USER ON QRAUSR (USERID)",
    "CREATE TABLE QRAUSRX (SESID INTEGER NOT NULL PRIMARY KEY, CLOSED BIGINT NOT NULL)",

    "CREATE TABLE QRCOUNTER (NAME $KEYTEXT NOT NULL PRIMARY KEY, LASTVALUE BIGINT NOT NULL)$KEYED",
    "INSERT INTO QRCOUNTER (NAME, LASTVALUE) VALUES ('QRUSRN', 0), ('QRGPRN', 0)",
    "CREATE TABLE QRDISPLAY (CODE INTEGER NOT NULL, GIVEN $KEYTEXT NOT NULL,"
    " MAPPED $TEXT NOT NULL, PRIMARY KEY (CODE, GIVEN))$KEYED",

    "CREATE VIEW QRUSERV AS SELECT USERID, NAME, FULLNAME, PASSWORD FROM QRUSER"
    " WHERE VFLG <> 'D'",
    "CREATE VIEW QRGROUPV AS SELECT GROUPID, NAME, DESCR FROM QRGROUP WHERE VFLG <> 'D'",
    "CREATE VIEW QRUSGPV AS SELECT QRUSGP.USERID, QRUSGP.GROUPID FROM QRUSGP, QRUSERV, QRGROUPV"
    " WHERE QRUSERV.USERID = QRUSGP.USERID AND QRGROUPV.GROUPID = QRUSGP.GROUPID",
};

void ReplaceAll(std::string& text, std::string_view mark, std::string_view with) {
  for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos; at += with.size()) {
    text.replace(at, mark.size(), with);
  }
}

}  // namespace

std::vector<std::string> Schema(const SchemaWords& words) {
  std::vector<std::string> statements(std::begin(kStatements), std::end(kStatements));
  for (std::string& statement : statements) {
    ReplaceAll(statement, "$TEXT", words.textType);
    ReplaceAll(statement, "$KEYTEXT", words.keyTextType);
    ReplaceAll(statement, "$NAMEINDEX", words.nameIndex);
    ReplaceAll(statement, "$KEYED", words.keyedTable);
  }
  return statements;
}

}  // namespace server
