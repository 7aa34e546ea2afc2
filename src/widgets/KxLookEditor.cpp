#include "widgets/KxLookEditor.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QShowEvent>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "graph/KxGraph2D.h"
#include "host/EventChain.h"
#include "widgets/KxLookPage.h"

namespace plotkit {

namespace {

constexpr int TreeWidth = 210, PagesWidth = 550, Height = 520;

TComponent* PartOf(const QTreeWidgetItem* item)
{
    return item ? static_cast<TComponent*>(item->data(0, Qt::UserRole).value<void*>()) : nullptr;
}

/// The item shows `old` now.
void Rename(QTreeWidgetItem* item, const TLookNode& old, const TLookNode& node)
{
    if (node.Text != old.Text) {
        const QString text = QString::fromStdString(node.Text);
        item->setText(0, text);
        item->setToolTip(0, text);
    }
    for (std::size_t i = 0; i < node.Parts.size(); ++i)
        Rename(item->child(static_cast<int>(i)), old.Parts[i], node.Parts[i]);
}

}  // namespace

/// Hears of the end of the graph and its parts, and of paints.
class TKxLookEditor::TWatch : public TComponent
{
public:
    TWatch(TKxLookEditor& editor, TKx2DGraph& graph)
        : TComponent(nullptr),
          FEditor(editor),
          FPainted(graph.World(), graph.World().OnPaintOverlay, TEvent<TCanvas&>([this](TCanvas&) {
                       if (FEditor.isVisible())
                           FEditor.RefreshLater();
                   }))
    {
        WatchFor(&graph);
    }
    ~TWatch() override { BeginDestroy(); }

    void Watch(const std::vector<TComponent*>& parts)
    {
        for (TComponent* part : parts)
            WatchFor(part);
    }
    void EndWatch(const std::vector<TComponent*>& parts)
    {
        for (TComponent* part : parts)
            StopWatching(part);
    }

protected:
    void Notification(TComponent* component, TOperation operation) override
    {
        TComponent::Notification(component, operation);
        if (operation == opRemove)
            FEditor.Forget(component);
    }

private:
    TKxLookEditor& FEditor;
    TEventChain<TCanvas&> FPainted;
};

TKxLookEditor::TKxLookEditor(QWidget* parent) : QDialog(parent)
{
    setObjectName("look");
    setWindowTitle(tr("Look"));
    FTree = new QTreeWidget(this);
    FTree->setHeaderHidden(true);
    FTree->setAccessibleName(tr("Parts of the graph"));
    FPages = new QTabWidget(this);
    FPages->setUsesScrollButtons(true);
    auto* split = new QSplitter(this);
    split->addWidget(FTree);
    split->addWidget(FPages);
    split->setStretchFactor(1, 1);
    split->setSizes({TreeWidth, PagesWidth});
    split->setChildrenCollapsible(false);
    FMessage = new QLabel(this);
    FMessage->setObjectName("message");
    FMessage->setTextFormat(Qt::PlainText);
    FMessage->setWordWrap(true);
    FMessage->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QSizePolicy keepsItsLine = FMessage->sizePolicy();
    keepsItsLine.setRetainSizeWhenHidden(true);
    FMessage->setSizePolicy(keepsItsLine);
    FMessage->hide();
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(split, 1);
    rows->addWidget(FMessage);
    auto* row = new QHBoxLayout;
    rows->addLayout(row);
    AddSteps(*row);
    AddButtons(*row);
    connect(FTree, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (!FIsFilling)
            ShowPart(PartOf(item));
    });
    connect(FPages, &QTabWidget::currentChanged, this, [this](int index) {
        if (!FIsFilling && index >= 0)
            FPageName = FPages->tabText(index);
    });
    connect(new QShortcut(Qt::Key_F2, this), &QShortcut::activated, this, [this] { EditCaption(); });
    for (const auto& [key, step] : {std::pair(Qt::Key_PageDown, 1), std::pair(Qt::Key_PageUp, -1)}) {
        const auto turn = [this, pages = step] {
            const int count = std::max(FPages->count(), 1);
            FPages->setCurrentIndex((FPages->currentIndex() + pages + count) % count);
        };
        connect(new QShortcut(Qt::CTRL | key, this), &QShortcut::activated, this, turn);
    }
    resize(TreeWidth + PagesWidth, Height);
    Refresh();
}

TKxLookEditor::~TKxLookEditor()
{
    SetGraph(nullptr);
}

QToolButton* TKxLookEditor::AddStep(QBoxLayout& row, QAction*& action, const QString& text,
                                    void (TLookHistory::*step)(), const QList<QKeySequence>& keys)
{
    action = new QAction(text, this);
    action->setShortcuts(keys);
    addAction(action);
    connect(action, &QAction::triggered, this, [this, step] {
        if (FHistory)
            Try([&] { (FHistory.get()->*step)(); });
    });
    auto* button = new QToolButton(this);
    button->setDefaultAction(action);
    button->setFocusPolicy(Qt::TabFocus);
    row.addWidget(button);
    return button;
}

void TKxLookEditor::AddSteps(QBoxLayout& row)
{
    AddStep(row, FUndo, tr("Undo"), &TLookHistory::Undo, {QKeySequence(Qt::CTRL | Qt::Key_Z)});
    AddStep(row, FRedo, tr("Redo"), &TLookHistory::Redo,
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
}

QPushButton* TKxLookEditor::AddButton(QBoxLayout& row, const QString& text, const QString& tip,
                                      const std::function<void()>& press)
{
    auto* button = new QPushButton(text, this);
    button->setToolTip(tip);
    // Enter ends the editing of a field and nothing else.
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, press);
    row.addWidget(button);
    return button;
}

void TKxLookEditor::AddButtons(QBoxLayout& row)
{
    row.addStretch(1);
    AddButton(row, tr("&Load..."), tr("Give the graph a look from a file"), [this] { AskWhatToLoad(); });
    AddButton(row, tr("&Save..."), tr("Keep this look in a file"), [this] { AskWhereToSave(); });
    row.addStretch(1);
    FApply = AddButton(row, tr("&Apply"), tr("Keep what stands now: Revert comes back to it"), [this] {
        if (FHistory)
            FHistory->Apply();
        RefreshSteps();
    });
    FRevert = AddButton(row, tr("&Revert"), tr("Take back all changes since the last Apply"), [this] {
        if (FHistory)
            Try([this] { FHistory->Revert(); });
    });
    AddButton(row, tr("&Close"), {}, [this] { close(); });
}

void TKxLookEditor::SetGraph(TKx2DGraph* graph)
{
    if (graph == Graph() && graph)
        return;
    Forget(Graph());
    FWatch.reset();
    FHistory.reset();
    if (graph) {
        FHistory = std::make_shared<TLookHistory>(*graph);
        FHistory->OnChanged = [this] { Refresh(); };
        FWatch = std::make_unique<TWatch>(*this, *graph);
    }
    Say({});
    Refresh();
}

void TKxLookEditor::GoOnWith(TKx2DGraph& graph, const std::function<TColor(TColor)>& exchange)
{
    if (!FHistory)
        return SetGraph(&graph);
    if (&graph == Graph())
        return;
    Forget(Graph());
    const std::size_t lost = FHistory->GoOnWith(graph, exchange);
    FWatch = std::make_unique<TWatch>(*this, graph);
    Say({});
    Refresh();
    if (lost > 0)
        Say(tr("The graph was made anew: changes of parts that are gone cannot be undone any more."));
}

void TKxLookEditor::Open(TComponent& part)
{
    FPartName = part.GetName();
    Say({});
    Refresh();
    for (QTreeWidgetItemIterator item(FTree); *item; ++item)
        if (PartOf(*item) == &part)
            FTree->setCurrentItem(*item);
    show();
    raise();
    activateWindow();
}

void TKxLookEditor::EditCaption()
{
    for (int i = 0; i < FPages->count(); ++i)
        if (auto* caption = FPages->widget(i)->findChild<QWidget*>("Caption")) {
            FPages->setCurrentIndex(i);
            caption->setFocus(Qt::ShortcutFocusReason);
        }
}

void TKxLookEditor::Try(const std::function<void()>& action)
{
    Say({});
    try {
        action();
    } catch (const std::exception& error) {
        Say(QString::fromUtf8(error.what()));
    }
}

void TKxLookEditor::Say(const QString& text)
{
    FMessage->setText(text);
    FMessage->setVisible(!text.isEmpty());
}

void TKxLookEditor::Fill(QTreeWidgetItem* item, const TLookNode& node)
{
    item->setData(0, Qt::UserRole, QVariant::fromValue(static_cast<void*>(node.Component)));
    Rename(item, {}, {nullptr, node.Text, {}});
    for (const TLookNode& part : node.Parts)
        Fill(new QTreeWidgetItem(item), part);
}

void TKxLookEditor::FillTree()
{
    FIsFilling = true;
    FTree->clear();
    FNames = LookTree(*Graph());
    auto* top = new QTreeWidgetItem(FTree);
    Fill(top, FNames);
    FTree->expandAll();
    FWatch->EndWatch(FOutline);
    FOutline = LookParts(*Graph());
    FWatch->Watch(FOutline);
    QTreeWidgetItem* chosen = top;
    for (QTreeWidgetItemIterator item(FTree); *item; ++item)
        if (FPart ? PartOf(*item) == FPart : PartOf(*item)->GetName() == FPartName)
            chosen = *item;
    FTree->setCurrentItem(chosen);
    FIsFilling = false;
    ShowPart(PartOf(chosen));
}

void TKxLookEditor::ShowPart(TComponent* part)
{
    if (part == FPart)
        return;
    FPart = part;
    FIsFilling = true;
    while (FPages->count() > 0) {
        QWidget* page = FPages->widget(0);
        FPages->removeTab(0);
        // It may be one of its fields that brought this about.
        page->hide();
        page->deleteLater();
    }
    if (FPart) {
        FPartName = FPart->GetName();
        for (const TLookPage& page : LookPages(*FPart)) {
            auto* sheet = new TKxLookPage(FHistory, *FPart, page, FRecent, FPages);
            sheet->OnEdited = [this](const QString& problem) { Say(problem); };
            const QString text = QString::fromUtf8(page.Text.data(), static_cast<qsizetype>(page.Text.size()));
            const int index = FPages->addTab(sheet, text);
            if (text == FPageName)
                FPages->setCurrentIndex(index);
        }
    }
    FIsFilling = false;
}

void TKxLookEditor::Forget(TComponent* part)
{
    if (!part || std::find(FOutline.begin(), FOutline.end(), part) == FOutline.end())
        return;
    if (FWatch)
        FWatch->EndWatch(FOutline);
    FOutline.clear();
    FIsFilling = true;
    FTree->clear();
    FIsFilling = false;
    ShowPart(nullptr);
    RefreshLater();
}

void TKxLookEditor::RefreshLater()
{
    if (FRefreshWanted)
        return;
    FRefreshWanted = true;
    QTimer::singleShot(0, this, [this] { Refresh(); });
}

void TKxLookEditor::Refresh()
{
    FRefreshWanted = false;
    FTree->setEnabled(Graph());
    FPages->setEnabled(Graph());
    if (Graph()) {
        if (LookParts(*Graph()) != FOutline) {
            FHistory->FindParts();
            FillTree();
        } else {
            TLookNode tree = LookTree(*Graph());
            Rename(FTree->topLevelItem(0), FNames, tree);
            FNames = std::move(tree);
        }
        for (int i = 0; i < FPages->count(); ++i)
            static_cast<TKxLookPage*>(FPages->widget(i))->Refresh();
    }
    RefreshSteps();
}

void TKxLookEditor::RefreshSteps()
{
    const auto show = [](QAction& action, bool isPossible, const QString& text, const std::string& step) {
        action.setEnabled(isPossible);
        const QString keys = action.shortcut().toString(QKeySequence::NativeText);
        action.setToolTip(step.empty() ? keys : tr("%1 %2 (%3)").arg(text, QString::fromStdString(step), keys));
    };
    const bool has = Graph() != nullptr;
    show(*FUndo, has && FHistory->CanUndo(), tr("Undo:"), has ? FHistory->UndoText() : std::string());
    show(*FRedo, has && FHistory->CanRedo(), tr("Redo:"), has ? FHistory->RedoText() : std::string());
    FApply->setEnabled(has && !FHistory->IsApplied());
    FRevert->setEnabled(has && FHistory->CanRevert());
}

void TKxLookEditor::PlaceBeside(const QWidget& other)
{
    constexpr int gap = 8;
    constexpr int title = 32;
    const QRect room = other.screen()->availableGeometry();
    resize(size().boundedTo(room.size() - QSize(0, title)));
    const QRect around = other.frameGeometry();
    QPoint at(around.right() + gap, around.top());
    if (at.x() + width() > room.right())
        at.setX(around.left() - gap - width());
    if (at.x() < room.left())
        at.setX(std::max(room.left(), room.right() - width()));
    at.setY(std::clamp(at.y(), room.top(), std::max(room.top(), room.bottom() - title - height())));
    move(at);
}

void TKxLookEditor::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!FWasPlaced && parentWidget())
        PlaceBeside(*parentWidget()->window());
    FWasPlaced = true;
    RefreshLater();
}

}  // namespace plotkit
