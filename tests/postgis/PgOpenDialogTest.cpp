#include <QApplication>
#include <QLineEdit>
#include <QPushButton>

#include "PgFixture.h"
#include "TLPgOpenDialog.h"

namespace TMObjects {
namespace {

class PgOpenDialog : public PgFixture {
protected:
    static void SetUpTestSuite() {
        static int argc = 1;
        static char name[] = "postgis_tests";
        static char* argv[] = {name, nullptr};
        if (!qApp) new QApplication(argc, argv);
    }
    static void type(TLPgOpenDialog& dialog, const char* field, const std::string& text) {
        auto* edit = dialog.findChild<QLineEdit*>(QString::fromLatin1(field));
        ASSERT_NE(edit, nullptr) << field;
        edit->setText(QString::fromStdString(text));
    }
};

TEST_F(PgOpenDialog, TheFormsKeysOpenTheDatabaseAndThePasswordStaysHidden) {
    makeRoads(4);
    TLPgOpenDialog dialog;
    QPushButton* open = dialog.findChild<QPushButton*>();
    ASSERT_NE(open, nullptr);
    EXPECT_FALSE(open->isEnabled());
    EXPECT_EQ(dialog.findChild<QLineEdit*>("mLineEditPassword")->echoMode(), QLineEdit::Password);

    const std::string server = connection();
    const std::size_t host = server.find("host=") + 5;
    type(dialog, "mLineEditServer", server.substr(host, server.find(' ', host) - host));
    type(dialog, "mLineEditDatabase", " " + database() + " ");
    type(dialog, "mLineEditUser", "tl");
    EXPECT_TRUE(open->isEnabled());
    const TLString chosen = dialog.Connection();
    EXPECT_EQ(chosen.toStdString(),
              "PG:host=" + server.substr(host, server.find(' ', host) - host) +
                  " dbname=" + database() + " user=tl");
    TLString why;
    auto workspace = TMWorkspace::Open(chosen, true, why);
    ASSERT_TRUE(workspace) << why.toStdString();
    EXPECT_EQ(roadsOf(*workspace).GetFeatureCount(), 4);

    type(dialog, "mLineEditPort", "5433");
    type(dialog, "mLineEditPassword", "two words");
    EXPECT_NE(dialog.Connection().toStdString().find(" port=5433 "), std::string::npos);
    EXPECT_NE(dialog.Connection().toStdString().find(" password='two words'"), std::string::npos);
}

}  // namespace
}  // namespace TMObjects
