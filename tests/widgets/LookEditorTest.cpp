// The look of a graph is changed with real keys and the mouse, and undone to the very same saved look.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include "foundation/KxLargeIni.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "host/Streaming.h"
#include "series/KxSeries.h"
#include "support/AllClasses.h"
#include "widgets/KxCaptionEditWidget.h"
#include "widgets/KxLookEditor.h"
#include "widgets/KxLookOpener.h"
#include "widgets/KxNumberWidgets.h"

namespace plotkit {
namespace {

class TLookEditor : public testing::Test
{
protected:
    TLookEditor()
    {
        const TReadResult read =
            ReadComponentTree(ReadWholeFile(PLOTKIT_SOURCE_DIR "/tests/corpus/regression_results.form"), AllClasses());
        Form.reset(dynamic_cast<TForm*>(read.Root));
        Graph = dynamic_cast<TKx2DGraph*>(Form->FindComponent("Graph1"));
        View = std::make_unique<KxGraphWidget>(Form.get());
        View->resize(600, 400);
        View->show();
        View->grab();
        Editor.SetGraph(Graph);
        Opener = new TKxLookOpener(*View, *Graph, [this](TComponent& part) { Editor.Open(part); });
    }

    TComponent& Part(std::string_view name) const { return *Form->FindComponent(name); }
    TKxAxis& Axis() const { return dynamic_cast<TKxAxis&>(Part("XAxis1")); }

    std::string Saved() const
    {
        TKxIniList list;
        Graph->World().ReorderSeriesList();
        Graph->SaveOutfit("G", list);
        return list.Text();
    }
    /// The field of a property, its page being in front and the focus in the field.
    template <class TWidget>
    TWidget& Field(const char* part, const char* path)
    {
        Editor.Open(Part(part));
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Editor));
        auto* pages = Editor.findChild<QTabWidget*>();
        for (int i = 0; i < pages->count(); ++i)
            for (QWidget* widget : pages->widget(i)->findChildren<QWidget*>(path)) {
                pages->setCurrentIndex(i);
                widget->setFocus();
                auto* field = dynamic_cast<TWidget*>(widget->focusProxy() ? widget->focusProxy() : widget);
                EXPECT_NE(field, nullptr) << path;
                return *field;
            }
        throw std::runtime_error(path);
    }
    static void Type(QWidget& field, const QString& text)
    {
        QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&field, text);
    }
    void Press(const QString& text) const
    {
        for (auto* button : Editor.findChildren<QPushButton*>())
            if (button->text().remove('&') == text)
                QTest::mouseClick(button, Qt::LeftButton);
    }
    QString Message() const
    {
        const auto* label = Editor.findChild<QLabel*>("message");
        return label->isVisible() ? label->text() : QString();
    }
    void DoubleClick(QPoint at, QPoint released) const
    {
        QTest::mouseClick(View.get(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(View.get(), Qt::LeftButton, {}, at);
        QTest::mouseMove(View.get(), released);
        QTest::mouseRelease(View.get(), Qt::LeftButton, {}, released);
        QTest::qWait(1);
    }
    /// A pixel of the graph in the view.
    QPoint At(int x, int y) const
    {
        const TPoint origin = Graph->OriginInRoot();
        return (QPointF(x + origin.X, y + origin.Y) / View->devicePixelRatioF()).toPoint();
    }

    std::unique_ptr<TForm> Form;
    TKx2DGraph* Graph = nullptr;
    std::unique_ptr<KxGraphWidget> View;
    TKxLookOpener* Opener = nullptr;
    TKxLookEditor Editor;
};

TEST_F(TLookEditor, EditsWithKeysAndMouseShowAtOnceAndAreUndoneToTheSameSavedLook)
{
    const std::string before = Saved();
    Type(Field<TKxCaptionEditWidget>("XAxis1", "Caption"), "Time");
    EXPECT_EQ(Axis().GetCaption(), "Time");
    EXPECT_EQ(Editor.findChild<QTreeWidget*>()->currentItem()->text(0), "X axis: Time");
    auto& twisted = Field<QCheckBox>("XAxis1", "Twisted");
    QTest::keyClick(&twisted, Qt::Key_Space);
    EXPECT_TRUE(Axis().GetTwisted());
    auto& width = Field<TKxSpinIntegerEditWidget>("Measured", "LineStyle.Width");
    QTest::keyClick(&width, Qt::Key_Up);
    QTest::keyClick(&width, Qt::Key_Up);
    EXPECT_EQ(dynamic_cast<TKxSeries&>(Part("Measured")).GetLineStyle().GetWidth(), 3);
    auto& scale = Field<QComboBox>("XAxis1", "StopEnd");
    EXPECT_FALSE(Field<QWidget>("XAxis1", "Stop").isEnabled());
    scale.setFocus();
    QTest::keyClick(&scale, Qt::Key_End);
    EXPECT_EQ(Axis().GetStopEnd(), AxFixed);
    auto& stop = Field<TKxFloatEditWidget>("XAxis1", "Stop");
    ASSERT_TRUE(stop.isEnabled());
    Type(stop, "12");
    EXPECT_EQ(Axis().GetStop(), 12);
    const std::string changed = Saved();

    // The keys undo wherever the focus is: four steps and the fixed end.
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(Editor.focusWidget(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Saved(), before);
    EXPECT_EQ(Editor.History()->UndoText(), "");
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(Editor.focusWidget(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Saved(), changed);
    Press("Apply");
    Type(Field<TKxCaptionEditWidget>("Graph1", "Caption"), "T");
    EXPECT_NE(Saved(), changed);
    Press("Revert");
    EXPECT_EQ(Saved(), changed);
}

TEST_F(TLookEditor, HalfTypedAndOutOfBoundsNumbersLeaveNoTraces)
{
    const std::string before = Saved();
    auto& width = Field<TKxSpinIntegerEditWidget>("Measured", "LineStyle.Width");
    const auto& line = dynamic_cast<TKxSeries&>(Part("Measured")).GetLineStyle();
    Type(width, "5000");
    EXPECT_EQ(line.GetWidth(), 100);
    Type(width, "7");
    Field<QWidget>("Measured", "LineStyle.Visible").setFocus();
    QTest::qWait(1);
    EXPECT_EQ(width.Edit().GetText(), "7");
    Editor.History()->Undo();
    EXPECT_EQ(width.Edit().GetText(), "1");

    for (const char* end : {"StartEnd", "StopEnd"})
        Editor.History()->Change(Axis(), end, TPropertyValue(std::int64_t{AxFixed}));
    const double stop = Axis().GetStop();
    Editor.History()->Change(Axis(), "Stop", TPropertyValue(40.0));
    const std::string at40 = Saved();
    Editor.History()->Undo();
    auto& end = Field<TKxFloatEditWidget>("XAxis1", "Stop");
    Type(end, "-3e");
    EXPECT_NE(Axis().GetStop(), stop);
    Type(end, "40");
    EXPECT_EQ(Saved(), at40);
    QTest::keyClick(&end, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Axis().GetStop(), stop);
    Editor.History()->Undo();
    Editor.History()->Undo();
    EXPECT_EQ(Saved(), before);

    QTest::keyClick(&Field<QCheckBox>("XAxis1", "AutoTicks"), Qt::Key_Space);
    for (const char* step : {"0.00000001", "-", "1e300", "0"})
        Type(Field<TKxFloatEditWidget>("XAxis1", "TickPart"), step);
    Editor.History()->Revert();
    EXPECT_EQ(Saved(), before);
}

TEST_F(TLookEditor, AxesWithDatesTakeDates)
{
    Editor.History()->Change(Axis(), "StopEnd", TPropertyValue(std::int64_t{AxFixed}));
    auto& scale = Field<QComboBox>("XAxis1", "Scaling");
    QTest::keyClick(&scale, Qt::Key_End);
    auto& stop = Field<QLineEdit>("XAxis1", "Stop");
    Type(stop, "1900-02-30");
    const double before = Axis().GetStop();
    EXPECT_EQ(stop.text(), "1900-02-30");
    Type(stop, "1900-02-01 06:00");
    EXPECT_EQ(Axis().GetStop(), 33.25);
    EXPECT_NE(before, 33.25);
    Type(stop, "x");
    Field<QWidget>("XAxis1", "Scaling").setFocus();
    QTest::qWait(1);
    EXPECT_EQ(stop.text(), "1900-02-01 06:00");
}

TEST_F(TLookEditor, ADoubleClickOpensThePartButADragDoesNot)
{
    const TRect data = Graph->World().DataRect();
    const TRect axis = Axis().Bounds();
    const QPoint free = At(data.Left + data.Width() * 9 / 10, data.Top + data.Height() / 4);
    DoubleClick(free, free + QPoint(40, 30));
    EXPECT_FALSE(Editor.isVisible());
    const QPoint onAxis = At(axis.Left + axis.Width() / 2, axis.Bottom - 4);
    DoubleClick(onAxis, onAxis);
    EXPECT_TRUE(Editor.isVisible());
    EXPECT_EQ(Editor.Part(), &Axis());
    EXPECT_EQ(Editor.findChild<QTreeWidget*>()->currentItem()->text(0), "X axis: Depth / m");

    const auto& measured = dynamic_cast<TKxSeries&>(Part("Measured"));
    const auto middle = [](const TRect& box) { return TPoint{(box.Left + box.Right) / 2, (box.Top + box.Bottom) / 2}; };
    const auto boundsOf = [&](const char* name) { return dynamic_cast<TControl&>(Part(name)).Bounds(); };
    const std::pair<TPoint, TComponent*> places[] = {
        {{measured.RealToIntX(2.5), measured.RealToIntY(255)}, &Part("Decay")},
        {middle(boundsOf("Legend1")), &Part("Legend1")},
        {middle(boundsOf("Slope1")), &Part("Slope1")},
        {{measured.RealToIntX(4.5), measured.RealToIntY(700)}, Graph},
        {middle(boundsOf("YAxis1")), &Part("YAxis1")},
    };
    for (const auto& place : places) {
        const QPoint at = At(place.first.X, place.first.Y);
        DoubleClick(at, at);
        EXPECT_EQ(Editor.Part(), place.second) << place.second->GetName();
    }
}

TEST_F(TLookEditor, FieldsFollowAZoomAndUndoLeavesIt)
{
    for (const char* end : {"StartEnd", "StopEnd"})
        Editor.History()->Change(Axis(), end, TPropertyValue(std::int64_t{AxFixed}));
    auto& stop = Field<TKxFloatEditWidget>("XAxis1", "Stop");
    Editor.findChild<QTreeWidget*>()->setFocus();
    const std::string before = Saved();
    Editor.History()->Change(Axis(), "TickLength", TPropertyValue(std::int64_t{9}));
    const TRect data = Graph->World().DataRect();
    Graph->ZoomTo({data.Left, data.Top, data.Left + data.Width() / 2, data.Bottom});
    View->grab();
    QTest::qWait(1);
    EXPECT_EQ(stop.GetValue(), Axis().GetStop());
    const double zoomed = Axis().GetStop();
    Editor.History()->Undo();
    EXPECT_EQ(Axis().GetStop(), zoomed);
    Axis().ZoomBack();
    dynamic_cast<TKxAxis&>(Part("YAxis1")).ZoomBack();
    View->grab();
    EXPECT_EQ(Saved(), before);
}

TEST_F(TLookEditor, AGraphMadeAnewKeepsTheStepsAndEditorsDoNotMeet)
{
    TKxLookEditor other;
    const TReadResult read =
        ReadComponentTree(ReadWholeFile(PLOTKIT_SOURCE_DIR "/tests/corpus/regression_results.form"), AllClasses());
    const std::unique_ptr<TForm> second(dynamic_cast<TForm*>(read.Root));
    auto* graph = dynamic_cast<TKx2DGraph*>(second->FindComponent("Graph1"));
    other.SetGraph(graph);
    Editor.History()->Change(*Graph, "DataColor", TPropertyValue(std::int64_t{0xFF}));
    EXPECT_FALSE(other.History()->CanUndo());
    EXPECT_NE(graph->GetDataColor(), clRed);

    Editor.Open(Axis());
    Editor.History()->Change(Part("Decay"), "IncludeInLegend", TPropertyValue(false));
    Form.reset();
    View.reset();
    delete second->FindComponent("Decay");
    Editor.GoOnWith(*graph);
    EXPECT_TRUE(Message().contains("cannot be undone")) << Message().toStdString();
    EXPECT_EQ(Editor.Part(), second->FindComponent("XAxis1"));
    graph->SetDataColor(clRed);
    Editor.History()->Undo();
    EXPECT_NE(graph->GetDataColor(), clRed);
    EXPECT_FALSE(Editor.History()->CanUndo());
}

TEST_F(TLookEditor, FilesThatAreNoLooksSayItAndLoseNothing)
{
    const QTemporaryDir folder;
    const auto write = [&](const char* name, const QByteArray& text) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName().toStdString();
    };
    Editor.Open(*Graph);
    const std::string before = Saved();
    for (const std::string& file : {write("a.csv", "x,y\n1,2\n"), write("b.ini", QByteArray("\0\xFF[\x80", 4)),
                                    write("c.ini", ""), folder.path().toStdString()}) {
        Editor.LoadFrom(file);
        EXPECT_TRUE(Message().contains(QString::fromStdString(file))) << file << Message().toStdString();
        EXPECT_EQ(Saved(), before);
        EXPECT_FALSE(Editor.History()->CanUndo());
    }
    Editor.LoadFrom(write("half.ini", "[Graph]\nShowTitle=1\nColor=red\nDataColor=\n[Graph.XAx"));
    EXPECT_TRUE(Message().contains("Color: \"red\" cannot be used")) << Message().toStdString();
    EXPECT_TRUE(Graph->GetShowTitle());
    Editor.History()->Undo();
    EXPECT_EQ(Saved(), before);

    for (const std::string& file : {folder.filePath("a.csv").toStdString(), std::string("/nowhere/look.ini"),
                                    folder.filePath("b.ini").toStdString()}) {
        Editor.SaveTo(file);
        EXPECT_TRUE(Message().contains(QString::fromStdString(file))) << Message().toStdString();
    }
    EXPECT_EQ(ReadWholeFile(folder.filePath("a.csv").toStdString()), "x,y\n1,2\n");
    Editor.SaveTo(folder.filePath("c.ini").toStdString());
    EXPECT_EQ(Message(), "");
}

TEST_F(TLookEditor, LoadsAndSavesAndOutlivesPartsAndGraph)
{
    const QTemporaryDir folder;
    const std::string file = folder.filePath("look.ini").toStdString();
    Editor.Open(*Graph);
    const std::string before = Saved();
    Editor.SaveTo(file);
    Type(Field<TKxCaptionEditWidget>("Graph1", "Caption"), "Other");
    const std::string changed = Saved();
    Type(Field<TKxCaptionEditWidget>("XAxis1", "Caption"), "mine");
    const std::string file2 = folder.filePath("mine.ini").toStdString();
    Editor.SaveTo(file2);
    Editor.History()->Undo();
    Editor.LoadFrom(file2);
    EXPECT_EQ(Axis().GetCaption(), "mine");
    Editor.History()->Undo();
    EXPECT_EQ(Saved(), changed);
    Editor.LoadFrom(file);
    EXPECT_EQ(Saved(), before);
    EXPECT_EQ(Editor.History()->UndoText(), "Look from look.ini");
    Editor.History()->Undo();
    EXPECT_EQ(Saved(), changed);
    Editor.LoadFrom(folder.filePath("none.ini").toStdString());
    EXPECT_TRUE(Message().contains("none.ini")) << Message().toStdString();
    EXPECT_EQ(Saved(), changed);

    auto& edit = Field<TKxCaptionEditWidget>("Decay", "Caption");
    delete &Part("Decay");
    Type(edit, "late");
    QTest::qWait(1);
    EXPECT_EQ(Editor.Part(), Graph);
    Form.reset();
    QTest::qWait(1);
    EXPECT_EQ(Editor.Graph(), nullptr);
    EXPECT_EQ(Editor.Part(), nullptr);
}

}  // namespace
}  // namespace plotkit
