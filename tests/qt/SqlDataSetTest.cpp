#include "qt/KxSqlDataSet.h"

#include <QSqlTableModel>

#include "data/KxDBVector.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "qt/KxModelDataSet.h"
#include "series/KxDataSeries.h"
#include "support/MessageOf.h"
#include "support/SqlFixture.h"

namespace plotkit {
namespace {

using TReals = std::vector<double>;

struct SqlDataSetTest : TSqlTest
{
    void SetUp() override
    {
        TSqlTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        Do("CREATE TABLE log (id INTEGER PRIMARY KEY, v DOUBLE PRECISION, note TEXT)");
        Do("INSERT INTO log VALUES (1, 1.5, 'a'), (2, 2.5, 'b'), (3, 3.5, '7')");
        Vector.SetDataSource(&Source);
        Vector.SetDataField("v");
        Vector.ChangedList().Add(TKxValueIChangedEvent::Bind<&SqlDataSetTest::Changed>(this));
    }
    void Changed(int i, bool wasDeleted) { Notes += std::to_string(i) + (wasDeleted ? "d " : " "); }
    std::string Heard() { return std::exchange(Notes, ""); }
    TReals Elements() const { return {Vector.Values().begin(), Vector.Values().end()}; }
    void OpenLive(TKxSqlDataSet& live)
    {
        live.SetConnection("reads");
        live.SetQuery("SELECT * FROM log ORDER BY id");
        live.OnTrouble = [this](const std::string& trouble) { Troubles.push_back(trouble); };
        Source.SetDataSet(&live);
        live.Open();
        EXPECT_EQ(Heard(), "-1d ");
    }

    TDataSource Source{nullptr};
    TKxDBVector Vector{nullptr};
    std::string Notes;
    std::vector<std::string> Troubles;
};

TEST_P(SqlDataSetTest, EditsOfATableModelReachTheVectorOneByOne)
{
    QSqlDatabase::database("reads");
    QSqlTableModel model(nullptr, QSqlDatabase::database("reads"));
    model.setTable("log");
    model.setSort(0, Qt::AscendingOrder);
    ASSERT_TRUE(model.select());
    model.setHeaderData(1, Qt::Horizontal, "Value");
    TKxModelDataSet set(nullptr);
    set.SetModel(&model);
    Source.SetDataSet(&set);
    set.Open();
    EXPECT_EQ(Elements(), (TReals{1.5, 2.5, 3.5}));
    EXPECT_EQ(Heard(), "-1d ");
    model.setData(model.index(1, 1), 20.0);  // as a view does
    EXPECT_EQ(Elements(), (TReals{1.5, 20, 3.5}));
    set.SetRecNo(3);
    set.Edit();
    set.SetField(1, 30.0);
    set.Post();
    EXPECT_EQ(Heard(), "1 2 ");
    set.Append();
    set.SetField(0, 4.0);
    set.SetField(1, 4.5);
    set.Post();
    EXPECT_EQ(Elements(), (TReals{1.5, 20, 30, 4.5}));
    set.First();
    set.Delete();
    EXPECT_EQ(Elements(), (TReals{20, 30, 4.5}));
    Do("UPDATE log SET v = NULL WHERE id = 3");
    set.Refresh();
    EXPECT_EQ(Elements(), (TReals{20}));
    set.Append();
    set.SetField(0, 2.0);
    set.SetField(1, 9.0);
    EXPECT_NE(MessageOf<EFileError>([&] { set.Post(); }), "");  // the key is there already
    set.Cancel();
    EXPECT_EQ(Elements(), (TReals{20}));
    Do("DROP TABLE log");
    EXPECT_NE(MessageOf<EFileError>([&] { set.Refresh(); }).find("log"), std::string::npos);
    EXPECT_EQ(Elements(), (TReals{20}));
}

TEST_P(SqlDataSetTest, ALiveQueryFollowsTheTableAndKeepsWhatItHas)
{
    TKxSqlDataSet live(nullptr);
    live.SetRefreshInterval(20);
    OpenLive(live);
    EXPECT_EQ(Elements(), (TReals{1.5, 2.5, 3.5}));
    TForm form(nullptr);
    auto* graph = new TKx2DGraph(&form);
    graph->SetParent(&form);
    auto* series = new TKxDataSeries(&form);
    series->SetXAxis(graph->GetPrimaryXAxis());
    series->SetYAxis(graph->GetPrimaryYAxis());
    series->SetXData(&Vector);
    series->SetYData(&Vector);
    form.Picture();
    Do("INSERT INTO log VALUES (4, 450, 'c')");
    EXPECT_TRUE(Waits([&] { return Vector.GetCount() == 4; }));
    form.Picture();
    EXPECT_GE(graph->GetPrimaryYAxis()->GetStop(), 450);
    Heard();
    EXPECT_TRUE(Waits([n = 0]() mutable { return ++n > 15; }));
    EXPECT_EQ(Heard(), "");  // nothing new, no notes
    Do("DROP TABLE log");
    EXPECT_TRUE(Waits([&] { return !live.Trouble().empty(); }));
    EXPECT_NE(live.Trouble().find("log"), std::string::npos) << live.Trouble();
    EXPECT_EQ(live.Trouble().find('\n'), std::string::npos);
    EXPECT_EQ(Vector.GetCount(), 4);
    Do("CREATE TABLE log (id INTEGER, v TEXT)");
    Do("INSERT INTO log VALUES (1, '8'), (2, ''), (3, 'x')");
    EXPECT_TRUE(Waits([&] { return Vector.GetCount() == 1; }));
    EXPECT_EQ(Elements(), (TReals{8}));
    EXPECT_EQ(Troubles.size(), 2U);
    EXPECT_THROW(live.Delete(), EComponentError);
    series->SetXData(nullptr);
    series->SetYData(nullptr);
}

TEST_P(SqlDataSetTest, SaysWhatCannotBeReadAndStaysClosed)
{
    TKxSqlDataSet live(nullptr);
    live.SetConnection("reads");
    live.SetQuery("SELECT * FROM nowhere");
    EXPECT_NE(MessageOf<EFileError>([&] { live.Open(); }).find("nowhere"), std::string::npos);
    live.SetQuery("UPDATE log SET v = 1 WHERE id = 77");
    EXPECT_EQ(MessageOf<EFileError>([&] { live.Open(); }), "the query gives no rows");
    EXPECT_FALSE(live.GetActive());
    Vector.SetDataField("note");
    EXPECT_EQ(MessageOf<EConvertError>([&] { OpenLive(live); }), "field \"note\": \"a\" is no number (record 1)");
    EXPECT_EQ(MessageOf<EFileError>([&] { live.SetConnection("none"); }), "there is no database connection \"none\"");
    EXPECT_FALSE(live.GetActive());
}

TEST_P(SqlDataSetTest, TheServerTellsAndMayGoForAWhile)
{
    TKxSqlDataSet live(nullptr);
    if (!IsServer()) {
        live.SetChannel("news");
        EXPECT_EQ(MessageOf<EFileError>([&] { OpenLive(live); }), "this database tells of no changes");
        return;
    }
    live.SetChannel("news");
    OpenLive(live);
    Do("INSERT INTO log VALUES (4, 4.5, '')");
    Do("NOTIFY news");
    EXPECT_TRUE(Waits([&] { return Vector.GetCount() == 4; }));
    QString said;
    PostgresDo("stop", Server(), said);
    EXPECT_TRUE(Waits([&] { return !live.Trouble().empty(); }));
    EXPECT_EQ(Vector.GetCount(), 4);
    ASSERT_TRUE(PostgresDo("start", Server(), said)) << said.toStdString();
    EXPECT_TRUE(Waits([&] { return live.Trouble().empty(); })) << live.Trouble();
    QSqlDatabase::database("writes").close();
    QSqlDatabase::database("writes").open();
    Do("DELETE FROM log WHERE id > 1");
    Do("NOTIFY news");
    EXPECT_TRUE(Waits([&] { return Vector.GetCount() == 1; }));
    EXPECT_EQ(Troubles.size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(Databases, SqlDataSetTest, testing::Values("sqlite", "postgresql"),
                         [](const auto& test) { return std::string(test.param); });

}  // namespace
}  // namespace plotkit
