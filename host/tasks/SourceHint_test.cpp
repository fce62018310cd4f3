#include "host/tasks/SourceHint.h"

#include <gtest/gtest.h>

#include "platform/testing/PlainEncodings.h"

namespace imptable {
namespace {

class HintAtSources : public testing::Test {
 protected:
  std::string Hint(const std::vector<std::string>& drivers, Language language) {
    return SourceHint(drivers, "~/.odbc.ini", "/home/me", HostTexts(language, encoding));
  }
  Utf8TextEncoding encoding;
};

TEST_F(HintAtSources, ShowsAWholeSectionForADriverOfThisMachine) {
  EXPECT_EQ(Hint({"PostgreSQL Unicode", "SQLite", "SQLite3"}, Language::kEnglish),
            "no ODBC data source: add a section to ~/.odbc.ini, for example\n\n"
            "[Shop]\nDriver=SQLite3\nDatabase=/home/me/shop.db\n\n"
            "The installed drivers are: PostgreSQL Unicode, SQLite, SQLite3");
  EXPECT_EQ(Hint({"SQLite3"}, Language::kFrench),
            "aucune source de données ODBC : ajouter une section à ~/.odbc.ini, par exemple\n\n"
            "[Shop]\nDriver=SQLite3\nDatabase=/home/me/shop.db\n\n"
            "Les pilotes installés sont : SQLite3");
}

TEST_F(HintAtSources, NamesTheServerAsEachMakeOfDriverWantsIt) {
  EXPECT_NE(Hint({"PostgreSQL ANSI", "PostgreSQL Unicode"}, Language::kEnglish)
                .find("[Shop]\nDriver=PostgreSQL Unicode\nServername=localhost\nDatabase=shop\n"),
            std::string::npos);
  EXPECT_NE(Hint({"MariaDB Unicode"}, Language::kEnglish)
                .find("[Shop]\nDriver=MariaDB Unicode\nServer=localhost\nDatabase=shop\n"),
            std::string::npos);
  EXPECT_NE(Hint({"Some ~/Driver"}, Language::kEnglish)
                .find("[Shop]\nDriver=Some ~/Driver\nServer=localhost\nDatabase=shop\n"),
            std::string::npos);
}

TEST_F(HintAtSources, NamesDriversToInstallWhenThereIsNone) {
  EXPECT_EQ(Hint({}, Language::kEnglish),
            "no ODBC driver and no data source: install a driver (libsqliteodbc, odbc-postgresql, "
            "odbc-mariadb), then run \"imptable sources\" again");
  EXPECT_EQ(Hint({}, Language::kFrench),
            "ni pilote ni source de données ODBC : installer un pilote (libsqliteodbc, "
            "odbc-postgresql, odbc-mariadb), puis relancer \"imptable sources\"");
}

}  // namespace
}  // namespace imptable
