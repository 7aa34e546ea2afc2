#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScreen>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QThread>
#include <fstream>

#include "foundation/KxConsts.h"
#include "graph/KxAxis.h"
#include "plotkit/ColourScheme.h"
#include "plotkit/window/MainWindow.h"
#include "qt/KxQtHost.h"
#include "series/KxSeries.h"
#include "widgets/KxLookEditor.h"

namespace plotkit {
namespace {

/// A host whose settings lie in a folder of the test.
class TSettingsHost : public TQtHost
{
public:
    std::optional<std::string> AppDataFolder() const override { return Folder.path().toStdString(); }
    std::string Path(const char* name) const { return Folder.filePath(name).toStdString(); }

    QTemporaryDir Folder;
};

struct WindowTest : testing::Test
{
    WindowTest()
    {
        KxUnloadPaths();
        KxLoadPaths();
        Open(CO2);
    }
    ~WindowTest() override
    {
        KxUnloadPaths();
        KxLoadPaths();
    }

    void Open(const std::string& file)
    {
        TOptions options;
        options.Scheme = ccLight;
        Window = std::make_unique<TMainWindow>(options);
        Window->Open(file);
        Window->show();
        Settle();
    }
    void Settle()
    {
        QApplication::processEvents();
        Window->grab();
        QApplication::processEvents();
    }
    void Drop(const std::string& file)
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file))});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(Window.get(), &enter);
        ASSERT_TRUE(enter.isAccepted());
        QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(Window.get(), &drop);
        Settle();
    }
    QString Messages() const
    {
        const auto* bar = Window->findChild<QFrame*>("messages");
        return bar->isVisible() ? bar->findChild<QPlainTextEdit*>()->toPlainText() : QString();
    }
    KxGraphWidget& View() const
    {
        for (QWidget* widget : Window->findChildren<QWidget*>())
            if (auto* view = dynamic_cast<KxGraphWidget*>(widget))
                return *view;
        throw EError("no graph is shown");
    }
    /// The action of a menu, by its text without "&" and dots.
    QAction* Action(const QString& text) const
    {
        for (QAction* action : Window->findChildren<QAction*>())
            if (QString(action->text()).remove('&').remove("...") == text)
                return action;
        throw EError("no action " + text.toStdString());
    }

    static constexpr const char* CO2 = PLOTKIT_SOURCE_DIR "/data/measured/mauna-loa-co2-monthly.csv";
    static constexpr const char* Ecg = PLOTKIT_SOURCE_DIR "/data/measured/ecg-mitdb208-12s.csv";
    TSettingsHost Host;
    THostGuard Guard{Host};
    std::unique_ptr<TMainWindow> Window;
};

TEST_F(WindowTest, DroppedFilesAreShownOrSayWhyNot)
{
    Drop(Ecg);
    EXPECT_EQ(Window->windowTitle(), "ecg-mitdb208-12s.csv - Plotkit");
    const QImage ecg = View().Shown();
    std::ofstream(Host.Path("bad.csv")) << "a,b\n1,\"2\n";
    Drop(Host.Path("bad.csv"));
    EXPECT_TRUE(Messages().contains("bad.csv")) << Messages().toStdString();
    EXPECT_EQ(Window->windowTitle(), "ecg-mitdb208-12s.csv - Plotkit");
    Drop(Ecg);
    EXPECT_EQ(Messages(), "");
    EXPECT_EQ(View().Shown(), ecg);
    EXPECT_EQ(TUserSettings().RecentFiles(), (std::vector<std::string>{Ecg, CO2}));
}

TEST_F(WindowTest, LooksComeBackAndBadOnesAreNamed)
{
    std::ofstream(Host.Path("look.ini")) << "[Graph]\nShowTitle=1\nCaption=Keeling\nColor=x\n";
    const QImage before = View().Shown();
    Drop(Host.Path("look.ini"));
    EXPECT_TRUE(Messages().endsWith("look.ini: [Graph] Color: \"x\" cannot be used"));
    EXPECT_NE(View().Shown(), before);
    Action("Reload")->trigger();
    Settle();
    EXPECT_TRUE(Messages().contains("look.ini"));  // the look stays with the file
}

TEST_F(WindowTest, ALookEditedByHandOutlivesTheGraph)
{
    Action("Look")->trigger();
    auto* editor = dynamic_cast<TKxLookEditor*>(Window->findChild<QDialog*>("look"));
    ASSERT_NE(editor, nullptr);
    const auto caption = [&] { return editor->Graph()->GetPrimaryXAxis()->GetCaption(); };
    editor->History()->Change(*editor->Graph()->GetPrimaryXAxis(), "Caption", TPropertyValue(std::string("Month")));
    editor->History()->Change(*editor->Graph(), "ShowTitle", TPropertyValue(true));
    auto& series = dynamic_cast<TKxSeries&>(*editor->Graph()->GetSeriesList()[0]);
    editor->History()->Change(series, "Caption", TPropertyValue(std::string("CO\\-2")));
    for (const char* change : {"Dark", "Reload", "Light"}) {
        Action(change)->trigger();
        Settle();
        Settle();
        EXPECT_EQ(caption(), "Month") << change;
        EXPECT_EQ(editor->Graph()->GetSeriesList()[0]->GetCaption(), "CO\\-2") << change;
    }
    EXPECT_EQ(editor->Graph()->Parent(), View().Root()) << "the editor has the graph that is shown";
    EXPECT_TRUE(editor->Graph()->GetShowTitle());
    EXPECT_EQ(editor->Part(), editor->Graph());

    // In place, as a step, in the colours of the window.
    Action("Dark")->trigger();
    Settle();
    Settle();
    const TKx2DGraph* const dark = editor->Graph();
    const QImage picture = View().Shown();
    editor->SaveTo(Host.Path("look.ini"));
    editor->History()->Change(*editor->Graph(), "DataColor", TPropertyValue(std::int64_t{0xFF}));
    editor->History()->Change(*editor->Graph(), "ShowTitle", TPropertyValue(false));
    editor->LoadFrom(Host.Path("look.ini"));
    Settle();
    EXPECT_EQ(View().Shown(), picture);
    EXPECT_EQ(editor->Graph(), dark);
    editor->History()->Undo();
    EXPECT_FALSE(editor->Graph()->GetShowTitle());
}

TEST_F(WindowTest, StepsOutliveAReloadAndScalesAreWhatTheAxesShow)
{
    Action("Look")->trigger();
    auto* editor = dynamic_cast<TKxLookEditor*>(Window->findChild<QDialog*>("look"));
    const auto axis = [&]() -> TKxAxis& { return *editor->Graph()->GetPrimaryYAxis(); };
    const auto checked = [&] {
        QString texts;
        for (QMenu* menu : Window->findChildren<QMenu*>())
            if (menu->title() == "&Y scale") {
                emit menu->aboutToShow();
                for (QAction* action : menu->actions())
                    texts += action->isChecked() ? action->text().remove('&') : "";
            }
        return texts;
    };
    const auto choose = [&](const char* text) {
        for (QMenu* menu : Window->findChildren<QMenu*>())
            for (QAction* action : menu->title() == "&Y scale" ? menu->actions() : QList<QAction*>())
                if (action->text().remove('&') == text)
                    return action->trigger();
    };
    EXPECT_EQ(checked(), "Automatic");
    editor->History()->Change(axis(), "AxisThicknes", TPropertyValue(std::int64_t{3}));
    editor->History()->Change(axis(), "Scaling", TPropertyValue(std::int64_t{AxLog}));
    EXPECT_EQ(checked(), "Logarithmic");
    Action("Reload")->trigger();
    Settle();
    EXPECT_EQ(axis().GetAxisThicknes(), 3);
    EXPECT_EQ(checked(), "Logarithmic");
    for (const auto& [text, scaling] : {std::pair("Automatic", AxNormal), std::pair("Logarithmic", AxLog)}) {
        choose(text);
        Settle();
        EXPECT_EQ(axis().GetScaling(), scaling) << text;
        EXPECT_EQ(checked(), text);
    }
    editor->History()->Undo();
    EXPECT_EQ(axis().GetScaling(), AxNormal);
    EXPECT_EQ(checked(), "Linear");
    editor->History()->Undo();
    EXPECT_EQ(axis().GetAxisThicknes(), 0);
    Action("Reload")->trigger();
    Settle();
    EXPECT_EQ(axis().GetAxisThicknes(), 0);
    EXPECT_EQ(checked(), "Automatic");
}

TEST_F(WindowTest, TheContextMenuOpensThePartUnderIt)
{
    const auto open = [&](const TPoint& at) {
        const QPoint place(at.X, at.Y);
        QContextMenuEvent asked(QContextMenuEvent::Mouse, place, View().mapToGlobal(place));
        QApplication::sendEvent(&View(), &asked);
        QMenu* const menu = View().findChild<QMenu*>();
        menu->actions().back()->trigger();
        menu->hide();
        return dynamic_cast<TKxLookEditor*>(Window->findChild<QDialog*>("look"));
    };
    Settle();
    TKxLookEditor* const editor = open({2, 2});
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->Part(), editor->Graph());
    for (TKxAxis* axis : {editor->Graph()->GetPrimaryXAxis(), editor->Graph()->GetPrimaryYAxis()}) {
        const TRect box = axis->Bounds();
        open({(box.Left + box.Right) / 2, (box.Top + box.Bottom) / 2});
        EXPECT_EQ(editor->Part(), axis);
    }
}

TEST_F(WindowTest, ColumnsScalesAndColoursMakeAnotherGraph)
{
    auto* ys = Window->findChild<QListWidget*>();
    ys->item(3)->setCheckState(Qt::Checked);
    Settle();
    Settle();
    EXPECT_EQ(Window->findChild<QComboBox*>()->currentText(), "year_month");
    const QImage two = View().Shown();
    EXPECT_EQ(two.pixelColor(2, 2), QColor(Qt::white));
    Action("Dark")->trigger();
    Settle();
    Settle();
    EXPECT_EQ(View().Shown().pixelColor(2, 2),
              QColor(RedOf(DarkScheme().Paper), GreenOf(DarkScheme().Paper), BlueOf(DarkScheme().Paper)));
    Action("Light")->trigger();
    Settle();
    Settle();
    EXPECT_EQ(View().Shown(), two);
    for (QAction* action : Window->findChildren<QAction*>())
        if (action->text() == "Lo&garithmic")
            action->trigger();
    Settle();
    EXPECT_NE(View().Shown(), two);
}

TEST_F(WindowTest, ReadingsAreShownWhileTheCursorIs)
{
    const auto* readings = Window->findChild<QLabel*>("readings");
    EXPECT_FALSE(readings->isVisible());
    Action("Cursor")->trigger();
    Settle();
    EXPECT_TRUE(readings->isVisible());
    EXPECT_TRUE(readings->text().startsWith("co2_ppm: x = 19")) << readings->text().toStdString();
    for (QAction* action : Window->findChildren<QAction*>())
        if (action->text() == "&Linear")
            action->trigger();
    Settle();
    EXPECT_FALSE(readings->isVisible());  // the cursor went with the graph
    Action("Copy picture")->trigger();
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasFormat("image/svg+xml"));
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasImage());
}

TEST_F(WindowTest, FollowedFilesGrow)
{
    const std::string file = Host.Path("log.csv");
    std::ofstream(file) << "t,v\n1,2\n2,3\n";
    Open(file);
    Action("Follow as it grows")->trigger();
    Settle();
    Action("Zoom in")->trigger();
    Settle();
    const auto abscissae = [&] {
        const QImage shown = View().Shown();
        return shown.copy(0, shown.height() - 50, shown.width(), 50);
    };
    const QImage zoomed = abscissae();
    std::ofstream(file, std::ios::app) << "3,30\n";
    const auto* said = Window->statusBar()->findChildren<QLabel*>().back();
    for (int i = 0; i < 100 && !said->text().contains("3 values"); ++i) {
        QThread::msleep(50);
        QApplication::processEvents();
    }
    EXPECT_TRUE(said->text().endsWith("v (3 values)")) << said->text().toStdString();
    EXPECT_EQ(abscissae(), zoomed);
    Action("Reload")->trigger();
    Settle();
    EXPECT_EQ(abscissae(), zoomed);  // the reader stays where he looks
    Action("Home")->trigger();
    Settle();
    const QImage before = View().Shown();
    std::ofstream(file, std::ios::app) << "4,40\n";
    for (int i = 0; i < 100 && View().Shown() == before; ++i) {
        QThread::msleep(50);
        QApplication::processEvents();
    }
    EXPECT_NE(View().Shown(), before);
    EXPECT_TRUE(Action("Follow as it grows")->isChecked());
}

TEST_F(WindowTest, AFollowedFileMayGetItsFirstRowsLater)
{
    const std::string file = Host.Path("log.csv");
    std::ofstream(file) << "t,v\n";
    TOptions options;
    options.Scheme = ccLight;
    options.Follow = 0.05;
    Window = std::make_unique<TMainWindow>(options);
    Window->Open(file);
    Window->show();
    Settle();
    EXPECT_TRUE(Messages().endsWith("names the columns; it is shown when there are some")) << Messages().toStdString();
    std::ofstream(file, std::ios::app) << "1,2\n2,3\n";
    const auto* said = Window->statusBar()->findChildren<QLabel*>().back();
    for (int i = 0; i < 100 && !said->text().endsWith("(2 values)"); ++i) {
        QThread::msleep(20);
        QApplication::processEvents();
    }
    EXPECT_TRUE(said->text().endsWith("v (2 values)")) << said->text().toStdString();
    EXPECT_EQ(Messages(), "");
    EXPECT_EQ(Window->windowTitle(), "log.csv - Plotkit");
}

TEST_F(WindowTest, FitsAreDrawnLimitedCopiedAndRemoved)
{
    const QImage plain = View().Shown();
    Action("Straight line")->trigger();
    Settle();
    EXPECT_NE(View().Shown(), plain);
    const auto slope = [&] {
        Action("Copy results")->trigger();
        const QString text = QApplication::clipboard()->text();
        return text.section("\tSlope\t", 1).section('\n', 0, 0).toDouble();
    };
    const double whole = slope();
    EXPECT_NEAR(whole, 0.004566, 1e-6);
    Action("Markers")->trigger();
    Settle();
    Action("Range from markers")->trigger();
    Settle();
    EXPECT_NEAR(slope(), 0.0043, 1e-4);
    const QImage unlabelled = View().Shown();
    Action("Slope")->trigger();
    Settle();
    EXPECT_NE(View().Shown(), unlabelled);
    Action("Markers")->trigger();
    Action("Whole range")->trigger();
    EXPECT_DOUBLE_EQ(slope(), whole);
    Action("Remove all fits")->trigger();
    Settle();
    Action("Home")->trigger();
    Settle();
    EXPECT_EQ(View().Shown(), plain);
    Action("Akima")->trigger();
    Settle();
    Action("Range from markers")->trigger();
    EXPECT_TRUE(Messages().contains("show the two markers first")) << Messages().toStdString();
}

TEST_F(WindowTest, ThePlaceIsRemembered)
{
    Window->setGeometry(120, 90, 640, 480);
    Window->close();
    Open(CO2);
    Window->RestorePlace();
    EXPECT_EQ(Window->geometry(), QRect(120, 90, 640, 480));
    Window->setGeometry(5000, -300, 640, 480);
    Window->close();
    Open(CO2);
    Window->RestorePlace();
    EXPECT_TRUE(Window->screen()->availableGeometry().contains(Window->geometry()));
}

}  // namespace
}  // namespace plotkit

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
