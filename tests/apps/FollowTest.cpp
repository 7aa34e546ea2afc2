#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "data/KxVector.h"
#include "graph/KxAxis.h"
#include "graph/KxResultLabel.h"
#include "host/Errors.h"
#include "host/Host.h"
#include "host/StringList.h"
#include "plotkit/Document.h"
#include "plotkit/FollowedPlot.h"
#include "plotkit/LogColumns.h"
#include "plotkit/TableOrigin.h"
#include "plotkit/table/FileFollower.h"
#include "plotkit/TableNotes.h"
#include "series/KxDataSeries.h"
#include "support/MessageOf.h"

namespace plotkit {
namespace {

namespace fs = std::filesystem;

class Follow : public testing::Test
{
protected:
    Follow() { fs::create_directories(Room); }
    ~Follow() override { fs::remove_all(Room); }

    void Write(const std::string& text) { WriteWholeFile(File, text); }
    void Append(const std::string& text) { std::ofstream(File, std::ios::app | std::ios::binary) << text; }

    void Open(const std::vector<std::string>& ys = {})
    {
        TReadOptions reading;
        reading.IsGrowing = true;
        const TCsvTable table = ReadCsvFile(File, reading);
        Choice = ChooseColumns(table, std::nullopt, ys);
        Options.Follow = 2;
        Options.File = File;
        Plot = BuildPlot(Choice, Options);
        Followed = std::make_unique<TFollowedPlot>(
            Plot, OriginOf(Options)->Follow(table, FollowedColumns(Choice), Options.Reading), Options);
        Followed->OnNote = [this](const std::string& note) { Notes += note.substr(File.size()) + "\n"; };
    }
    /// Looks, and shows the X and Y values of the first series.
    std::string Look()
    {
        Followed->Poll();
        return Shown();
    }
    std::string Shown()
    {
        std::ostringstream out;
        for (auto* vector : {Plot.Series[0]->GetXData(), Plot.Series[0]->GetYData()}) {
            out << (out.tellp() > 0 ? "|" : "");
            for (const double value : vector->Values())
                out << " " << (std::isnan(value) ? "-" : (std::ostringstream() << value).str());
        }
        return out.str();
    }

    fs::path Room = fs::temp_directory_path() / ("plotkit_follow_" + std::to_string(std::random_device()()));
    std::string File = (Room / "log.csv").string();
    TOptions Options;
    TColumnChoice Choice;
    TPlot Plot;
    std::unique_ptr<TFollowedPlot> Followed;
    std::string Notes;
};

TEST_F(Follow, WholeLinesAloneAndBadOnesCounted)
{
    Write("t;v;w\n1,5;2;x\n2,5;3;y\n3,5;4");
    Open();
    EXPECT_EQ(Shown(), " 1.5 2.5| 2 3");
    EXPECT_EQ(Look(), " 1.5 2.5| 2 3");
    Append(",25;z");
    EXPECT_EQ(Look(), " 1.5 2.5| 2 3");
    Append("\r");
    EXPECT_EQ(Look(), " 1.5 2.5| 2 3");
    Append("\n# pause\n\n4,5;\"5\";\"two\nlines\"\n5,5;\"6");
    EXPECT_EQ(Look(), " 1.5 2.5 3.5 4.5| 2 3 4.25 5");
    EXPECT_EQ(Notes, "");
    Append("\";q\n6,5;oops;r\n7,5\n8,5;1 000;s\n");
    EXPECT_EQ(Look(), " 1.5 2.5 3.5 4.5 5.5 6.5 7.5 8.5| 2 3 4.25 5 6 - - -");
    EXPECT_EQ(Notes, ": line 10, column \"v\": \"oops\" is no number\n: line 11: 1 cells where there are 3 columns\n");
}

TEST_F(Follow, AFileThatIsCutReplacedOrGone)
{
    Write("t,v\n1,2\n2,3\n");
    Open();
    Write("t,v\n");
    EXPECT_EQ(Look(), " 1 2| 2 3");
    Append("5,6\n");
    EXPECT_EQ(Look(), " 5| 6");
    // As long as before, and longer.
    Write("t,v\n7,8\n");
    EXPECT_EQ(Look(), " 7| 8");
    Write("t,v\n1,2\n2,3\n3,4\n");
    EXPECT_EQ(Look(), " 1 2 3| 2 3 4");
    fs::remove(File);
    Look();
    EXPECT_EQ(Look(), " 1 2 3| 2 3 4");
    Write("t,v\n1,2\n2,3\n3,4\n4,5\n");
    EXPECT_EQ(Look(), " 1 2 3 4| 2 3 4 5");
    const std::string cut = ": the file was cut or replaced; it is read from its start\n";
    EXPECT_EQ(Notes, cut + ": no rows behind line 1, which names the columns\n" + cut + cut +
                         ": the file is gone; it is waited for\n");
    Write("t,u\n1,2\n");
    Notes.clear();
    EXPECT_EQ(Look(), " 1 2 3 4| 2 3 4 5");
    EXPECT_EQ(Notes, cut + ": the columns are others than before; they are waited for\n");
}

TEST_F(Follow, DatesRowNumbersAndEncodings)
{
    Write("year,month,day,v\n1900,1,1,5\n1900,1,1,4\n");
    Open();
    Append("1900,1,3,6\n1900,2,30,7\n1900,,1,8\n");
    EXPECT_EQ(Look(), " 2 2 4 - -| 5 4 6 7 8");
    EXPECT_EQ(Notes, ": line 5, column \"year..day\": the parts are no date\n");
    Write("day,time,v\n1/2/1900,6:00,5\n1/13/1900,12:00,4\n");
    Open();
    Append("3/1/1900,18:00,6\n");
    EXPECT_EQ(Look(), " 3.25 14.5 61.75| 5 4 6");
    Write("v\n5\n4\n");
    Open();
    Append("6\n");
    EXPECT_EQ(Look(), " 1 2 3| 5 4 6");
    const auto utf16 = [](const std::u16string& text) {
        return std::string(reinterpret_cast<const char*>(text.data()), 2 * text.size());
    };
    Write(utf16(u"\uFEFFt\tv \u00B5\U0001F600\n1\t2\n2\t4"));
    Open();
    Append(utf16(u"\n3\t5\n"));
    EXPECT_EQ(Look(), " 1 2 3| 2 4 5");
    EXPECT_EQ(MessageOf<EFileError>([] {
                  std::istringstream stream("t,v\n1,2\n");
                  TFileFollower(ReadCsv(stream, "pipe"), {}, {});
              }),
              "pipe: only a file can be followed");
}

TEST_F(Follow, TheGraphIsThatOfTheWholeFile)
{
    TFakeHost host;
    const THostGuard guard(host);
    std::string text = "t,a,b\n";
    for (int i = 1; i < 40; ++i)
        text += std::to_string(i) + "," + std::to_string(i * i - 500) + "," + std::to_string(1000.0 / i) + "\n";
    Options.YScale = scLog;
    const std::size_t half = text.find("\n20,");
    Write(text.substr(0, half));
    Open({"a", "b"});
    FitToLogScales(Choice, Options);
    Plot = BuildPlot(Choice, Options);
    TReadOptions reading;
    reading.IsGrowing = true;
    const TCsvTable table = ReadCsvFile(File, reading);
    Followed = std::make_unique<TFollowedPlot>(
            Plot, OriginOf(Options)->Follow(table, FollowedColumns(Choice), Options.Reading), Options);
    int grown = 0;
    Followed->OnGrown = [&](const TFollowedRows&) { ++grown; };
    Followed->Start();
    Plot.Form->Picture();
    Append(text.substr(half, 100));
    host.Advance(std::chrono::milliseconds(1999));
    EXPECT_EQ(grown, 0);
    host.Advance(std::chrono::milliseconds(1));
    Plot.Form->Picture();
    Append(text.substr(half + 100));
    host.Advance(std::chrono::seconds(4));
    EXPECT_EQ(grown, 2);
    TColumnChoice whole = ChooseColumns(ReadCsvFile(File), std::nullopt, {"a", "b"});
    FitToLogScales(whole, Options);
    EXPECT_EQ(Plot.Form->Picture(), BuildPlot(whole, Options).Form->Picture());
    Followed.reset();
}

TEST_F(Follow, FitsWeightsAndLabelsGrowWithTheFile)
{
    TFakeHost clock;
    const THostGuard guard(clock);
    const std::string start = "t,a,w\n1,2,1\n", rest = "2,4,1\n3,7,2\n4,8,9\n";
    Options.Fit.Fits = {ParseFit("linear"), ParseFit("poly:2")};
    Options.Fit.Results = {"Slope", "c"};
    Options.Fit.Weights = "w";
    Options.Follow = 2;
    Write(start);
    Options.File = File;
    TDocument document(Options);
    std::vector<std::string> told;
    document.OnNote = [&](const std::string& note) { told.push_back(note); };
    const auto labels = [](const TDocument& shown) {
        shown.Plot().Form->Picture();
        std::string texts;
        for (const TPlottedFit& fit : shown.Plot().Fits)
            texts += fit.Labels.at(0).Value->GetCaption() + " ";
        return texts;
    };
    EXPECT_EQ(document.Plot().News->Failures().back(), "polynomial of order 2: Not enough data!");
    EXPECT_TRUE(labels(document).ends_with("... "));
    Append(rest);
    clock.Advance(std::chrono::seconds(3));
    const std::string grown = labels(document);
    EXPECT_TRUE(document.Plot().News->Failures().empty());
    EXPECT_TRUE(told.empty());
    Options.Follow.reset();
    EXPECT_EQ(grown, labels(TDocument(Options)));
}

}  // namespace
}  // namespace plotkit
