#include "calculated/KxCalculatedSeries.h"
#include "graph/KxResultLabel.h"
#include "plotkit/Document.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "foundation/KxConsts.h"
#include "foundation/KxLargeIniFile.h"
#include "graph/KxAxis.h"
#include "host/Host.h"
#include "plotkit/ColourScheme.h"
#include "plotkit/UserSettings.h"
#include "series/KxDataSeries.h"
#include "support/MessageOf.h"

namespace plotkit {
namespace {

struct DocumentTest : testing::Test
{
    DocumentTest()
    {
        std::filesystem::remove_all(Folder);
        std::filesystem::create_directories(Folder);
    }
    ~DocumentTest() override { std::filesystem::remove_all(Folder); }

    std::string Path(const char* name) const { return (Folder / name).string(); }
    static TOptions OptionsFor(const char* file, TSchemeChoice scheme = ccLight)
    {
        TOptions options;
        options.File = std::string(PLOTKIT_SOURCE_DIR) + "/data/measured/" + file;
        options.Scheme = scheme;
        return options;
    }

    std::filesystem::path Folder =
        std::filesystem::temp_directory_path() /
        ("plotkit_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
};

TEST_F(DocumentTest, ALookComesBackCommandForCommand)
{
    for (const TSchemeChoice scheme : {ccLight, ccDark}) {
        TOptions options = OptionsFor("gistemp-annual.csv", scheme);
        options.Title = "Anomaly \\sD\\rT";
        options.YScale = scLinear;
        TDocument dressed(options);
        TKx2DGraph& graph = *dressed.Plot().Graph;
        graph.GetMajorGridY().SetStyle(psDashDot);
        graph.GetMajorGridY().SetColor(clRed);
        graph.GetPrimaryXAxis()->SetMajorTickLength(14);
        graph.GetPrimaryYAxis()->SetStartEnd(AxFixed);
        graph.GetPrimaryYAxis()->SetStart(-2.5);
        dressed.Plot().Form->Picture();
        dressed.SaveLookAs(Path("look.ini"));
        const TRecording shown = dressed.Plot().Form->Picture();

        TDocument plain(OptionsFor("gistemp-annual.csv", scheme));
        EXPECT_NE(plain.Plot().Form->Picture(), shown);
        plain.UseLook(Path("look.ini"));
        EXPECT_TRUE(plain.Notes().empty());
        EXPECT_EQ(plain.Plot().Form->Picture(), shown);
        // A look kept on a dark desktop is the same look on a light one.
        plain.SaveLookAs(Path("again.ini"));
        TKxLargeIniFile first(Path("look.ini")), second(Path("again.ini"));
        EXPECT_EQ(first.Text(), second.Text());
        EXPECT_EQ(first.ReadInteger("Graph", "Color", -1), ColorToInt(clWhite));
    }
}

TEST_F(DocumentTest, LooksKeepWhatTheyDoNotKnowAndSayWhatIsBad)
{
    TDocument document(OptionsFor("sunspots-monthly.csv"));
    std::ofstream(Path("look.ini")) << "[Other]\nKey=1\n\n[Graph]\nOwn=stays\nColor=red\nShowTitle=1\n\n"
                                    << "[Graph.XAxis1]\nStart=1,5\nStop=1600\nScaling=9\n";
    document.UseLook(Path("look.ini"));
    const TKxAxis& x = *document.Plot().Graph->GetPrimaryXAxis();
    const std::string file = Path("look.ini");
    EXPECT_EQ(document.Notes(), (std::vector<std::string>{file + ": [Graph] Color: \"red\" cannot be used",
                                                          file + ": [Graph.XAxis1] Scaling: \"9\" cannot be used",
                                                          file + ": [Graph.XAxis1] Start: \"1,5\" cannot be used"}));
    EXPECT_TRUE(document.Plot().Graph->GetShowTitle());
    document.Plot().Form->Picture();
    // Automatic ends are those of the data, not of the data that the look was made with.
    EXPECT_EQ(x.GetStop(), 2050);
    document.SaveLookAs(file);
    TKxLargeIniFile kept(file);
    EXPECT_EQ(kept.ReadString("Graph", "Own", "") + kept.ReadString("Other", "Key", ""), "stays1");

    EXPECT_EQ(MessageOf<EFileError>([&] { document.UseLook(Path("none.ini")); }),
              "Cannot read \"" + Path("none.ini") + "\": there is no such file");
    std::ofstream(Path("text.ini")) << "year,value\n1,2\n";
    EXPECT_EQ(MessageOf<EConvertError>([&] { document.UseLook(Path("text.ini")); }),
              Path("text.ini") + ": no look of a graph, there is no section [Graph]");
}

TEST_F(DocumentTest, ALookFitsOtherData)
{
    TOptions options = OptionsFor("buoy-44005-2012-10-11.csv");
    options.YScale = scLog;
    options.YCaption = "own";
    TDocument(options).SaveLookAs(Path("look.ini"));
    // No dates on an axis of numbers, no caption of another column, no logarithm of what is not positive.
    options = OptionsFor("gistemp-annual.csv");
    options.LookFile = Path("look.ini");
    TDocument other(options);
    EXPECT_EQ(other.Plot().Graph->GetPrimaryXAxis()->GetScaling(), AxNormal);
    EXPECT_EQ(other.Plot().Graph->GetPrimaryXAxis()->GetUserCaption(), "year");
    EXPECT_EQ(other.Plot().Graph->GetPrimaryYAxis()->GetUserCaption(), "own");
    EXPECT_EQ(other.ChoiceDescription(), "X: year, Y: anomaly_degC (66 values, 78 missing)");
    options.YScale = scLinear;
    options.Area = true;  // the look has none
    EXPECT_TRUE(TDocument(options).Plot().Series[0]->GetAreaStyle().GetVisible());
    options.YScale = scLog;
    const TDocument noArea(options);
    EXPECT_EQ(noArea.Notes().back(), "a logarithmic Y axis has no zero; areas are left out");
}

TEST_F(DocumentTest, AnotherSchemeKeepsViewAndLook)
{
    TOptions options = OptionsFor("buoy-44005-2012-10-11.csv");
    options.Area = true;
    TDocument document(options);
    document.Plot().Form->Picture();
    document.Plot().Graph->GetMajorGridX().SetWidth(3);
    document.Plot().Graph->GetPrimaryYAxis()->SetStartEnd(AxFixed);
    document.Plot().Graph->GetPrimaryYAxis()->SetStart(-7);
    const TRecording light = document.Plot().Form->Picture();
    document.SetScheme(ccDark);
    const TRecording dark = document.Plot().Form->Picture();
    EXPECT_EQ(document.Plot().Graph->GetColor(), DarkScheme().Paper);
    EXPECT_EQ(dark.ToText().find("$00FFFFFF"), std::string::npos);
    document.SetScheme(ccLight);
    EXPECT_EQ(document.Plot().Form->Picture(), light);
}

TEST_F(DocumentTest, FitsComeBackWithTheLookAndGoBeforeIt)
{
    TOptions options = OptionsFor("buoy-44005-2012-10-11.csv");
    options.Ys = {"air_temp_degC,water_temp_degC"};
    options.Fit.Fits = {ParseFit("linear"), ParseFit("integral@water_temp_degC")};
    options.Fit.Results = {"Slope"};
    options.Fit.Weights = "pressure_hPa";
    TDocument document(options);
    TFitOptions fits = document.Options().Fit;
    fits.Fits[0].Range = TFitRange{41190, 41200.5};
    document.SetFits(fits);
    TPlottedFit line = document.Plot().Fits[0];
    line.Series->GetLineStyle().SetColor(clRed);
    line.Labels[0].Name->SetTop(300);
    const TRecording before = document.Plot().Form->Picture();
    document.SetScheme(ccDark);
    document.SaveLookAs(Path("look.ini"));
    document.SetScheme(ccLight);
    EXPECT_EQ(document.Plot().Form->Picture(), before);
    options.Fit = {};
    options.LookFile = Path("look.ini");
    const TDocument again(options);
    EXPECT_EQ(again.Options().Fit.Fits, fits.Fits);
    EXPECT_EQ(again.Options().Fit.Weights, "pressure_hPa");
    EXPECT_EQ(again.Plot().Form->Picture(), before);
    // Fits on the command line are the ones; what stays has its look.
    options.Fit.Fits = {ParseFit("poly:2"), ParseFit("linear")};
    const TDocument other(options);
    ASSERT_EQ(other.Plot().Fits.size(), 4U);
    EXPECT_EQ(other.Plot().Fits[0].Series->GetLineStyle().GetColor(), clRed);
    EXPECT_TRUE(other.Plot().Fits[0].Series->GetAutoStart());
    // Other data take what they can.
    options = OptionsFor("gistemp-annual.csv");
    options.LookFile = Path("look.ini");
    const TDocument annual(options);
    ASSERT_EQ(annual.Plot().Fits.size(), 1U);
    EXPECT_TRUE(annual.Notes().back().ends_with(
        "integral@water_temp_degC is left out: --fit: \"water_temp_degC\" is not among the ordinates anomaly_degC"))
        << annual.Notes().back();
}

TEST_F(DocumentTest, OtherColumnsMakeAnotherGraph)
{
    TDocument document(OptionsFor("buoy-44005-2012-10-11.csv"));
    EXPECT_EQ(document.XColumn(), -1);  // five columns are the date
    document.Choose(-1, {6, 7});
    EXPECT_EQ(document.YColumns(), (std::vector<int>{6, 7}));
    EXPECT_EQ(document.Plot().Graph->GetSeriesList().Count(), 2);
    document.Choose(6, {8});
    EXPECT_EQ(document.XColumn(), 6);
    EXPECT_THROW(document.Choose(99, {8}), EConvertError);
    EXPECT_EQ(document.XColumn(), 6);
}

TEST_F(DocumentTest, TheUsersSettingsLast)
{
    TFakeHost host;
    host.AppData = Folder.string();
    const THostGuard guard(host);
    KxUnloadPaths();
    KxLoadPaths();
    TUserSettings settings;
    EXPECT_TRUE(settings.RecentFiles().empty());
    for (int i = 0; i < 10; ++i)
        settings.AddRecentFile("/data/" + std::to_string(i));
    settings.AddRecentFile("/data/5");
    const std::vector<std::string> files = TUserSettings().RecentFiles();
    ASSERT_EQ(files.size(), 8U);
    EXPECT_EQ(files[0] + files[1] + files[7], "/data/5/data/9/data/2");
    settings.SetColours(ccDark);
    TForm form(nullptr), again(nullptr);
    form.SetBounds(100, 50, 700, 500);
    form.SetWindowState(wsMaximized);
    settings.WritePlace(form);
    TUserSettings().ReadPlace(again);
    EXPECT_EQ(again.GetWindowState(), wsMaximized);
    EXPECT_EQ(again.NormalBounds(), (TRect{100, 50, 800, 550}));
    form.SetWindowState(wsNormal);
    form.SetBounds(5000, 50, 700, 500);
    settings.WritePlace(form);
    TUserSettings().ReadPlace(again);
    EXPECT_EQ(again.GetLeft(), (1920 - 700) / 2);
    settings.ForgetRecentFiles();
    EXPECT_TRUE(settings.RecentFiles().empty());
    EXPECT_EQ(TUserSettings().Colours(), ccDark);
    KxUnloadPaths();
    KxLoadPaths();
}

}  // namespace
}  // namespace plotkit
