#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDeadlineTimer>
#include <QMimeData>
#include <QPalette>
#include <stdexcept>

#include "host/DateTime.h"
#include "host/Metafile.h"
#include "qt/KxQtHost.h"
#include "qt/KxQtLocale.h"

namespace plotkit {

namespace {

void WaitFor(const std::function<bool()>& isDone)
{
    for (const QDeadlineTimer end(5000); !isDone() && !end.hasExpired();)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
}

}  // namespace

TEST(QtHost, TimersRunUntilTheyAreStopped)
{
    TQtHost host;
    int stopping = 0, failing = 0, errors = 0, first = 0;
    host.OnError = [&](const std::exception&) { ++errors; };
    first = host.StartTimer(std::chrono::milliseconds(1), [&] {
        if (++stopping == 3)
            host.StopTimer(first);
    });
    const int second = host.StartTimer(std::chrono::milliseconds(1), [&] {
        ++failing;
        throw std::runtime_error("late");
    });
    WaitFor([&] { return stopping >= 3 && failing >= 12; });
    EXPECT_EQ(stopping, 3);
    EXPECT_GE(failing, 12);
    EXPECT_EQ(errors, failing);
    host.StopTimer(second);
    host.StopTimer(second);
    QApplication::processEvents(QEventLoop::AllEvents, 20);
    EXPECT_EQ(errors, failing);
}

TEST(QtHost, ClipboardHoldsOneThing)
{
    TQtHost host;
    host.SetClipboardText("größe\n");
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("größe\n"));
    TMetafile metafile;
    metafile.Width = 30;
    metafile.Height = 20;
    metafile.Recording.Rectangle({0, 0, 30, 20}, {clBlack, psClear, 1}, {clBlue, bsSolid}, {});
    auto* foreign = new QMimeData;  // the clipboard takes it
    foreign->setData(QStringLiteral("application/x-plotkit-picture"), "of another process");
    foreign->setText(QStringLiteral("from elsewhere"));
    host.SetClipboardMetafile(metafile);
    ASSERT_TRUE(host.ClipboardMetafile());
    EXPECT_EQ(host.ClipboardText(), "");
    const QImage image = QApplication::clipboard()->image();
    EXPECT_EQ(image.size(), QSize(30, 20));
    EXPECT_EQ(image.pixel(10, 10), 0xFF0000FF);
    QApplication::clipboard()->setMimeData(foreign);
    WaitFor([&] { return !host.ClipboardMetafile(); });
    EXPECT_FALSE(host.ClipboardMetafile());
    EXPECT_EQ(host.ClipboardText(), "from elsewhere");
}

TEST(QtHost, ColoursAndCursorAreTheApplications)
{
    TQtHost host;
    const QPalette before = QApplication::palette();
    QPalette palette = before;
    palette.setColor(QPalette::Active, QPalette::Highlight, QColor(10, 20, 30));
    QApplication::setPalette(palette);
    EXPECT_EQ(host.ResolveColor(clHighlight), RgbColor(10, 20, 30));
    QApplication::setPalette(before);
    host.SetScreenCursor(crHourGlass);
    host.SetScreenCursor(crCross);
    ASSERT_TRUE(QApplication::overrideCursor());
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::CrossCursor);
    host.SetScreenCursor(crDefault);
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST(QtLocale, WritesDatesAsTheLocaleDoes)
{
    const std::pair<const char*, const char*> cases[] = {{"C", "2024/03/09 15:07:05 March Saturday ."},
                                                         {"de_DE", "09.03.24 15:07:05 März Samstag ,"},
                                                         {"en_US", "3/9/24 3:07:05 pm March Saturday ."},
                                                         {"sv_SE", "2024-03-09 15:07:05 mars lördag ,"}};
    const TDateTime moment = EncodeDateTime({2024, 3, 9, 15, 7, 5, 0});
    for (const auto& [name, formatted] : cases) {
        const TLocaleFormats formats = LocaleFormatsOf(QLocale(QString::fromLatin1(name)));
        const std::string format = formats.ShortDateFormat + " " + formats.LongTimeFormat + " mmmm dddd ";
        EXPECT_EQ(FormatDateTime(format, moment, formats) + formats.DecimalSeparator, formatted) << name;
    }
}

}  // namespace plotkit
