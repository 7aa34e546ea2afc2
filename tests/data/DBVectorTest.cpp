#include "data/KxDBVector.h"

#include <gtest/gtest.h>

#include <cmath>

#include "data/DataClasses.h"
#include "host/Errors.h"
#include "host/MemoryDataSet.h"
#include "host/Streaming.h"
#include "support/MessageOf.h"

namespace plotkit {
namespace {

/// Numbers its records 7, 14, 21, ...
struct TKeyedDataSet : TMemoryDataSet
{
    using TMemoryDataSet::TMemoryDataSet;
    bool IsSequenced() const override { return false; }
    int RecNoOf(int row) const override { return 7 * (row + 1); }
};

struct DBVectorTest : testing::Test
{
    DBVectorTest()
    {
        for (const double v : {1.5, 2.5, 3.5, 4.5})
            for (TMemoryDataSet* set : {&Memory, static_cast<TMemoryDataSet*>(&Keyed)})
                set->AddRecord({v, 10 * v});
        Follow(Memory);
    }
    void Follow(TMemoryDataSet& set)
    {
        set.AddField("x");
        set.AddField("Y");
        Source.SetDataSet(&set);
        Vector.SetDataSource(&Source);
        Vector.SetDataField("y");
        Vector.ChangedList().Add(TKxValueIChangedEvent::Bind<&DBVectorTest::Changed>(this));
    }
    void Changed(int i, bool wasDeleted) { Notes += std::to_string(i) + (wasDeleted ? "d " : " "); }
    std::string Heard() { return std::exchange(Notes, ""); }
    std::vector<double> Elements() const { return {Vector.Values().begin(), Vector.Values().end()}; }

    TMemoryDataSet Memory{nullptr};
    TKeyedDataSet Keyed{nullptr};
    TDataSource Source{nullptr};
    TKxDBVector Vector{nullptr};
    std::string Notes;
};

using TReals = std::vector<double>;

TEST_F(DBVectorTest, FollowsRecordsAsTheyAreEdited)
{
    EXPECT_EQ(Vector.GetCount(), 0);
    Memory.Open();
    EXPECT_EQ(Elements(), (TReals{15, 25, 35, 45}));
    EXPECT_EQ(Heard(), "-1d ");
    Memory.SetRecNo(3);
    Memory.Edit();
    EXPECT_EQ(Heard(), "");
    Memory.SetField(1, 36.0);
    EXPECT_EQ(Elements(), (TReals{15, 25, 36, 45}));
    Memory.Cancel();
    EXPECT_EQ(Elements(), (TReals{15, 25, 35, 45}));
    EXPECT_EQ(Heard(), "2 2 ");
    Memory.Edit();
    Memory.SetField(1, "37.5");
    Memory.Next();  // posts
    EXPECT_EQ(Memory.GetRecNo(), 4);
    EXPECT_EQ(Elements(), (TReals{15, 25, 37.5, 45}));
    EXPECT_EQ(Heard(), "2 ");
    Memory.Insert();
    Memory.SetField(1, 40.0);
    EXPECT_EQ(Elements(), (TReals{15, 25, 37.5, 45, 40}));
    Memory.Post();
    EXPECT_EQ(Elements(), (TReals{15, 25, 37.5, 40, 45}));
    EXPECT_EQ(Memory.GetRecNo(), 4);
    Memory.Delete();
    EXPECT_EQ(Elements(), (TReals{15, 25, 37.5, 45}));
    EXPECT_EQ(Heard(), "4 -1d -1d ");
    Memory.Close();
    EXPECT_EQ(Elements(), (TReals{15, 25, 37.5, 45}));
}

TEST_F(DBVectorTest, EndsAtTheFirstEmptyField)
{
    Memory.Open();
    Memory.SetRecNo(2);
    Memory.Edit();
    Memory.SetField(1, {});
    EXPECT_TRUE(std::isnan(Vector.GetValue(1)));
    Memory.Post();
    Memory.Refresh();
    EXPECT_EQ(Elements(), (TReals{15}));
    EXPECT_EQ(Memory.GetRecNo(), 2);
    Memory.SetRecNo(4);
    Memory.Edit();
    Memory.SetField(1, 46.0);
    EXPECT_EQ(Vector.GetCount(), 4);
    EXPECT_EQ(Vector.GetValue(2), 35);  // what the storage held
    EXPECT_EQ(Vector.GetValue(3), 46);
}

TEST_F(DBVectorTest, FindsRecordsThatAreNotNumberedInSequence)
{
    Follow(Keyed);
    Keyed.Open();
    EXPECT_EQ(Vector.GetFirstRecNo(), 7);
    Keyed.SetRecNo(21);
    Keyed.Edit();
    Keyed.SetField(1, -3.0);
    EXPECT_EQ(Keyed.GetState(), dsEdit);
    EXPECT_EQ(Keyed.GetRecNo(), 21);
    EXPECT_EQ(Elements(), (TReals{15, 25, -3, 45}));
    Vector.UpdateVector();  // an edit lives through a full load
    EXPECT_EQ(Keyed.GetState(), dsEdit);
    Keyed.Append();
    Keyed.SetField(1, 5.0);
    EXPECT_EQ(Vector.GetValue(4), 5);
    EXPECT_EQ(Vector.FindIdx(28), 3);
    EXPECT_EQ(Vector.FindIdx(99), 4);
    EXPECT_EQ(Keyed.GetRecNo(), -1);
}

TEST_F(DBVectorTest, ManyEditsAreOneLoadAndTroubleKeepsTheValues)
{
    Memory.Open();
    Heard();
    Memory.DisableControls();
    for (Memory.First(); !Memory.IsEnd(); Memory.Next()) {
        Memory.Edit();
        Memory.SetField(1, double(Memory.GetRecNo()));
    }
    Memory.Post();
    Memory.EnableControls();
    EXPECT_EQ(Elements(), (TReals{1, 2, 3, 4}));
    EXPECT_EQ(Heard(), "-1d ");
    Vector.SetDataField("no such field");
    EXPECT_EQ(Elements(), (TReals{1, 2, 3, 4}));
    EXPECT_EQ(MessageOf<EConvertError>([&] {
                  Vector.SetDataField("Y");
                  Memory.AddRecord({0.0, "off"});
              }),
              "field \"Y\": \"off\" is no number (record 5)");
    EXPECT_EQ(Elements(), (TReals{1, 2, 3, 4}));
    EXPECT_FALSE(Memory.ControlsDisabled());
}

TEST_F(DBVectorTest, AnEditMendsWhatCouldNotBeLoaded)
{
    Memory.AddRecord({0.0, "off"});
    EXPECT_THROW(Memory.Open(), EConvertError);
    const auto set = [&](int recNo, const TFieldValue& value) {
        Memory.SetRecNo(recNo);
        Memory.Edit();
        Memory.SetField(1, value);
    };
    set(1, 16.0);  // not said again
    Memory.Refresh();
    EXPECT_EQ(Vector.GetCount(), 0);
    EXPECT_THROW(set(2, "low"), EConvertError);
    EXPECT_THROW(set(2, 26.0), EConvertError);  // record 5 again
    set(5, 55.0);
    EXPECT_EQ(Elements(), (TReals{16, 26, 35, 45, 55}));
    Heard();
    Vector.SetDataSource(&Source);
    EXPECT_EQ(Heard(), "-1d ");
}

TEST_F(DBVectorTest, EveryEditReachesItsOwnRecord)
{
    Memory.Open();
    for (const double v : {55.0, 65.0}) {
        Memory.Append();
        Memory.SetField(1, v);
    }
    Memory.Post();
    EXPECT_EQ(Elements(), (TReals{15, 25, 35, 45, 55, 65}));
    Memory.DisableControls();
    Memory.SetRecNo(3);
    Memory.Edit();
    Memory.SetField(1, 36.0);
    Memory.First();
    Memory.Delete();
    Memory.Insert();
    Memory.SetField(1, 16.0);
    Memory.SetRecNo(3);  // 45, behind the record to be inserted the fourth
    Memory.Edit();
    Memory.SetField(1, 37.0);
    Memory.Post();
    Memory.EnableControls();
    EXPECT_EQ(Elements(), (TReals{16, 25, 36, 37, 55, 65}));
}

TEST_F(DBVectorTest, LinksGoWithEitherEnd)
{
    TMemoryDataSet other(nullptr);
    {
        TDataSource source(nullptr);
        source.SetDataSet(&other);
        Vector.SetDataSource(&source);
    }
    EXPECT_EQ(Vector.GetDataSource(), nullptr);
    other.Open();
    Vector.SetDataSource(&Source);
    {
        TMemoryDataSet shortLived(nullptr);
        Source.SetDataSet(&shortLived);
    }
    EXPECT_EQ(Source.GetDataSet(), nullptr);
    Vector.UpdateVector();
    std::unique_ptr<TComponent> read;
    const auto classes = {HostClasses(), DataClasses()};
    std::vector<const TClassInfo*> all;
    for (const auto folder : classes)
        all.insert(all.end(), folder.begin(), folder.end());
    TReadResult result = ReadComponentTree(
        "object F: TForm\n object V: TKxDBVector\n  DataSource = S\n  DataField = \"y\"\n end\n"
        " object S: TDataSource\n  DataSet = M\n end\n object M: TMemoryDataSet\n  Active = True\n end\nend\n",
        all);
    read.reset(result.Root);
    EXPECT_TRUE(result.Problems.empty());
    const auto* vector = dynamic_cast<TKxDBVector*>(read->FindComponent("V"));
    EXPECT_EQ(vector->GetDataSource()->GetDataSet(), read->FindComponent("M"));
}

}  // namespace
}  // namespace plotkit
