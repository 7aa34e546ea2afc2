#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QWheelEvent>

#include "data/KxVector.h"
#include "graph/KxAxis.h"
#include "host/Form.h"
#include "qt/KxGraphInteraction.h"
#include "series/KxDataSeries.h"

namespace plotkit {
namespace {

struct TScene
{
    TScene()
    {
        Graph->SetParent(&Form);
        Graph->SetAlign(alClient);
        auto* x = new TKxRealVector(&Form);
        auto* series = new TKxDataSeries(&Form);
        x->Assign(std::vector<double>{0, 50, 100});
        series->SetCaption("a");
        series->SetXAxis(Graph->GetPrimaryXAxis());
        series->SetYAxis(Graph->GetPrimaryYAxis());
        series->SetXData(x);
        series->SetYData(x);
        Widget = std::make_unique<KxGraphWidget>(&Form);
        Widget->resize(500, 400);
        Widget->show();
        Widget->grab();
    }
    void Key(int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {})
    {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers, text);
            QApplication::sendEvent(Widget.get(), &event);
        }
        Widget->grab();
    }
    void Wheel(int delta)
    {
        const QPointF at(250, 200);
        QWheelEvent event(at, Widget->mapToGlobal(at), {}, {0, delta}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(Widget.get(), &event);
        Widget->grab();
    }

    TForm Form{nullptr};
    TKx2DGraph* Graph = new TKx2DGraph(&Form);
    std::unique_ptr<KxGraphWidget> Widget;
};

TEST(GraphInteraction, ActionsTellTheTruth)
{
    TScene scene;
    KxGraphInteraction interaction(*scene.Widget);
    QString status;
    interaction.OnStatus = [&](const QString& text) { status = text; };
    const auto enabled = [&] {
        QString names;
        for (const TGraphAction which : {gaHome, gaBack, gaForward, gaCopyValues})
            names += QLatin1Char(interaction.Action(which)->isEnabled() ? '1' : '0');
        return names;
    };
    const TKxAxis& x = *scene.Graph->PrimaryXAxis();
    EXPECT_EQ(enabled(), "0000");
    scene.Wheel(120);
    EXPECT_EQ(enabled(), "1100");
    EXPECT_NEAR(x.GetStop() - x.GetStart(), 80, 1e-9);
    interaction.Action(gaBack)->trigger();
    EXPECT_EQ(enabled(), "0010");
    scene.Key(Qt::Key_Backspace, {}, Qt::ShiftModifier);
    EXPECT_EQ(enabled(), "1100");
    interaction.Action(gaPan)->trigger();
    EXPECT_FALSE(scene.Graph->GetAutoZoom() || interaction.Action(gaZoom)->isChecked());
    interaction.Action(gaCursor)->trigger();
    EXPECT_TRUE(status.startsWith("a: x = 50.0"));
    scene.Key(Qt::Key_C, QStringLiteral("\x03"), Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "series\tpoint\tx\ty\na\t2\t50\t50\n");
    int copied = 0;
    interaction.OnCopyPicture = [&] { ++copied; };
    interaction.Action(gaCopyPicture)->trigger();
    EXPECT_EQ(copied, 1);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, {250, 200}, scene.Widget->mapToGlobal(QPoint(250, 200)));
    QApplication::sendEvent(scene.Widget.get(), &menu);
    EXPECT_TRUE(interaction.Menu()->isVisible());
    interaction.Menu()->close();
    delete scene.Graph;
    EXPECT_EQ(enabled(), "0000");
    interaction.Action(gaZoomIn)->trigger();
    EXPECT_FALSE(interaction.Action(gaMarkers)->isEnabled());
}

TEST(GraphInteraction, WhatIsSwitchedOffIsOff)
{
    TScene scene;
    int wheels = 0;
    scene.Graph->OnMouseWheel = [&](TShiftState, int, int, int) { ++wheels; };
    {
        TInteractionOptions options;
        options.ZoomRectangle = options.Wheel = options.Pan = options.History = false;
        options.Cursor = options.Keys = options.ContextMenu = false;
        KxGraphInteraction interaction(*scene.Widget, nullptr, options);
        scene.Wheel(120);
        scene.Key(Qt::Key_Plus, QStringLiteral("+"));
        interaction.Action(gaCursor)->trigger();
        EXPECT_TRUE(interaction.Action(gaMarkers)->isVisible());
        EXPECT_FALSE(interaction.Action(gaHome)->isVisible() || interaction.Action(gaCursor)->isVisible());
        EXPECT_FALSE(interaction.Input().Cursor().GetShown() || scene.Graph->GetAutoZoom());
    }
    auto* owned = new KxGraphInteraction(*scene.Widget);
    scene.Wheel(120);
    EXPECT_EQ(wheels, 2) << "the program's own handler goes on hearing";
    EXPECT_TRUE(owned->Input().Navigator().CanGoBack());
    scene.Widget.reset();
    EXPECT_FALSE(scene.Graph->GetAutoZoom());
    TForm empty(nullptr);
    KxGraphWidget widget(&empty);
    EXPECT_THROW(KxGraphInteraction{widget}, EComponentError);
}

}  // namespace
}  // namespace plotkit
