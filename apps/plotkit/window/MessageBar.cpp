#include "plotkit/window/MessageBar.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QToolButton>

#include "plotkit/window/ToolIcons.h"

namespace plotkit {

namespace {

constexpr int MostLinesShown = 4;
constexpr int MostLinesKept = 500;

}  // namespace

TMessageBar::TMessageBar(QWidget* parent) : QFrame(parent), FTexts(new QPlainTextEdit(this))
{
    setObjectName("messages");
    setFrameShape(QFrame::StyledPanel);
    FTexts->setReadOnly(true);
    FTexts->setFrameShape(QFrame::NoFrame);
    FTexts->setMaximumBlockCount(MostLinesKept);
    FTexts->setAccessibleName(tr("Messages"));
    auto* close = new QToolButton(this);
    close->setIcon(ToolIcon(tiClose));
    close->setAutoRaise(true);
    close->setToolTip(tr("Close the messages"));
    connect(close, &QToolButton::clicked, this, [this] { Clear(); });
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 2, 2, 2);
    row->addWidget(FTexts);
    row->addWidget(close, 0, Qt::AlignTop);
    hide();
}

void TMessageBar::Add(const std::string& text)
{
    const QString line = QString::fromStdString(text);
    if (!FTexts->toPlainText().split('\n').contains(line))
        FTexts->appendPlainText(line);
    const int lines = std::min(FTexts->blockCount(), MostLinesShown);
    const int margins = 2 * static_cast<int>(FTexts->document()->documentMargin()) + 2;
    FTexts->setFixedHeight(lines * FTexts->fontMetrics().lineSpacing() + margins);
    show();
}

void TMessageBar::Clear()
{
    FTexts->clear();
    hide();
}

}  // namespace plotkit
