#include "plotkit/sql/DatabaseTable.h"

#include <fstream>

#include "data/KxVector.h"
#include "graph/KxAxis.h"
#include "host/Host.h"
#include "plotkit/Document.h"
#include "qt/KxQtHost.h"
#include "series/KxDataSeries.h"
#include "support/MessageOf.h"
#include "support/SqlFixture.h"

namespace plotkit {
namespace {

struct DatabaseTest : TSqlTest
{
    void SetUp() override
    {
        TSqlTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        UseDatabases();
        Do("CREATE TABLE log (id INTEGER PRIMARY KEY, at TIMESTAMP, v DOUBLE PRECISION, note VARCHAR(9))");
        Do("INSERT INTO log VALUES (3, '2026-03-29 02:30:00', 7, 'x'), (1, '2026-03-01 00:00:00', 5, '1.5'),"
           " (2, '2026-03-01 12:00:00', NULL, '2')");
        std::ofstream(Path("secret")) << "se-cret\n";
        QFile::setPermissions(Folder.filePath("secret"), QFile::ReadOwner | QFile::WriteOwner);
        Options.Database = ParseDatabase(IsServer() ? "postgresql://owner@127.0.0.1:" + Port.toStdString() + "/postgres"
                                                    : "sqlite:" + Path("test.db"));
        Options.Database->Table = "log";
        Options.Database->PasswordFile = IsServer() ? Path("secret") : "";
        Options.File = LabelOf(*Options.Database);
        Options.X = "at";
        Options.Ys = {"v"};
    }
    std::string Path(const char* name) const { return Folder.filePath(name).toStdString(); }
    void Open()
    {
        Document = std::make_unique<TDocument>(Options);
        Document->OnNote = [this](const std::string& note) { Notes.push_back(note); };
    }
    std::string Shown() const
    {
        std::string text;
        for (const double value : Document->Plot().Series[0]->GetYData()->Values())
            text += (value == value ? std::to_string(static_cast<int>(value)) : "-") + " ";
        return text;
    }
    bool WaitsFor(const std::string& shown)
    {
        return Waits([&] { return Shown() == shown; });
    }

    TQtHost Host;
    THostGuard Guard{Host};
    TOptions Options;
    std::unique_ptr<TDocument> Document;
    std::vector<std::string> Notes;
};

TEST_P(DatabaseTest, TablesAreReadByTheirKeyWithDatesAndGaps)
{
    qputenv("TZ", "Europe/Berlin");  // where 02:30 was left out that night
    tzset();
    Open();
    qunsetenv("TZ");
    tzset();
    EXPECT_EQ(Shown(), "5 - 7 ");
    const auto at = Document->Plot().Series[0]->GetXData()->Values();
    EXPECT_EQ(at[0], EncodeDateTime({2026, 3, 1}));
    EXPECT_EQ(at[2], EncodeDateTime({2026, 3, 29, 2, 30}));
    EXPECT_EQ(Document->Description(),
              "Read: 3 rows, 4 columns from " + Options.File + "\nX: at (date), Y: v (2 values, 1 missing)");
    Options.Ys = {"note"};
    Open();
    EXPECT_EQ(Document->Notes(),
              std::vector<std::string>{Options.File + ": row 3, column \"note\": \"x\" is no number"});
    Options.Database->Table = "logs";
    EXPECT_EQ(MessageOf<EConvertError>([&] { Open(); }),
              Options.File + ": --table: there is no table \"logs\"; the tables are log");
    Options.Database->Query = "DELETE FROM log";
    EXPECT_NE(MessageOf<EFileError>([&] { Open(); }), "");
    Options.Database->Query = "SELECT 1 AS v WHERE 1 = 2";
    EXPECT_EQ(MessageOf<EConvertError>([&] { Open(); }), Options.File + ": there are no rows");
}

TEST_P(DatabaseTest, FollowedTablesGrowAndChange)
{
    Options.Follow = 0.02;
    Open();
    Do("INSERT INTO log VALUES (4, '2026-03-30 00:00:00', 8, NULL)");
    EXPECT_TRUE(WaitsFor("5 - 7 8 ")) << Shown();
    TKxAxis& y = *Document->Plot().Graph->GetPrimaryYAxis();
    Document->Plot().Form->Picture();
    y.ZoomIn(6, 7);
    Do("UPDATE log SET v = 6 WHERE id = 2");
    EXPECT_TRUE(WaitsFor("5 6 7 8 ")) << Shown();
    Document->Plot().Form->Picture();
    EXPECT_LT(y.GetStop(), 8);  // the reader stays where he looks
    Do("ALTER TABLE log RENAME TO gone");
    EXPECT_TRUE(Waits([&] { return Notes.size() == 1; }));
    EXPECT_TRUE(Waits([n = 0]() mutable { return ++n > 10; }));
    EXPECT_EQ(Shown(), "5 6 7 8 ");
    Do("ALTER TABLE gone RENAME TO log");
    Do("DELETE FROM log WHERE id > 1");
    EXPECT_TRUE(WaitsFor("5 ")) << Shown();
    Do("DELETE FROM log");
    EXPECT_TRUE(WaitsFor("")) << Shown();
    Do("INSERT INTO log VALUES (9, '2026-03-30 00:00:00', 9, NULL)");
    EXPECT_TRUE(WaitsFor("9 ")) << Shown();
    ASSERT_EQ(Notes.size(), 2U);
    EXPECT_EQ(Notes[0].find(Options.File + ": "), 0U);
    EXPECT_NE(Notes[1].find("can be read again at"), std::string::npos) << Notes[1];
}

TEST_P(DatabaseTest, AServerThatIsGoneIsWaitedFor)
{
    if (!IsServer()) {
        // A file in the place of another has other rows.
        Options.Follow = 0.02;
        Open();
        QFile::copy(Folder.filePath("test.db"), Folder.filePath("other.db"));
        QSqlDatabase writes = QSqlDatabase::database("writes");
        writes.close();
        writes.setDatabaseName(Folder.filePath("other.db"));
        writes.open();
        Do("DELETE FROM log WHERE id = 1");
        std::rename(Path("other.db").c_str(), Path("test.db").c_str());
        EXPECT_TRUE(WaitsFor("- 7 ")) << Shown();
        return;
    }
    Options.Follow = 2;
    Options.Database->IsOnlyTold = true;
    Options.Database->Channel = "news";
    Open();
    Do("INSERT INTO log VALUES (4, '2026-03-30 00:00:00', 8, NULL)");
    Do("NOTIFY news");
    EXPECT_TRUE(WaitsFor("5 - 7 8 ")) << Shown();
    QString said;
    PostgresDo("stop", Server(), said);
    EXPECT_TRUE(Waits([&] { return !Notes.empty(); }));
    EXPECT_EQ(Shown(), "5 - 7 8 ");
    ASSERT_TRUE(PostgresDo("start", Server(), said)) << said.toStdString();
    EXPECT_TRUE(Waits([&] { return Notes.size() == 2; }));
    QSqlDatabase::database("writes").close();
    QSqlDatabase::database("writes").open();
    Do("DELETE FROM log WHERE id > 1");
    Do("NOTIFY news");
    EXPECT_TRUE(WaitsFor("5 ")) << Shown();
    Do("BEGIN");
    Do("LOCK TABLE log");
    EXPECT_NE(MessageOf<EFileError>([&] { Open(); }).find("lock timeout"), std::string::npos);
    Do("ROLLBACK");
    Options.Database->User = "nobody";
    Notes.push_back(MessageOf<EFileError>([&] { Open(); }));
    EXPECT_NE(Notes.back().find("password authentication failed"), std::string::npos);
    Options.Database->User.clear();
    Notes.push_back(MessageOf<EFileError>([&] { Open(); }));
    EXPECT_NE(Notes.back().find("failed for the user"), std::string::npos) << Notes.back();
    for (const std::string& note : Notes)
        for (const char* secret : {"se-cret", "owner", "nobody"})
            EXPECT_EQ(note.find(secret), std::string::npos) << note;
    QFile::setPermissions(Folder.filePath("secret"), QFile::ReadOwner | QFile::ReadOther);
    EXPECT_NE(MessageOf<EFileError>([&] { Open(); }).find("chmod 600"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Databases, DatabaseTest, testing::Values("sqlite", "postgresql"),
                         [](const auto& test) { return std::string(test.param); });

}  // namespace
}  // namespace plotkit
