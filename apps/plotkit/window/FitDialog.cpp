#include "plotkit/window/FitDialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "host/Errors.h"
#include "host/NumberFormat.h"
#include "plotkit/fit/FitCurve.h"

namespace plotkit {

namespace {

struct TQuestion
{
    const char *Title, *Caption, *Hint;
};

TQuestion QuestionFor(TFitKind kind)
{
    switch (kind) {
        case fkPolynomial:
            return {"Polynomial", "&Order", "A whole number from 2 to 30"};
        case fkSmooth:
            return {"Smoothed", "&Range",
                    "Half the width of the moving window, in units of X (decades where X is not linear)"};
        case fkSpline:
            return {"Smoothing spline", "&Weight",
                    "The larger, the nearer the curve comes to the points; a tenth smooths a little more"};
        case fkFormula:
            return {"Formula", "&Formula", "x is the abscissa, every other single letter a coefficient"};
        default:
            return {"Straight line", "&Offset", "Where the line meets x = 0"};
    }
}

class TDialog : public QDialog
{
public:
    TDialog(QWidget* parent, const TFitWish& begin);
    TFitWish Wish() const;

private:
    void Check();
    bool IsFormula() const { return FBegin.Kind == fkFormula; }

    TFitWish FBegin;
    QLineEdit *FText, *FStart = nullptr;
    QLabel* FWord;
    QPushButton* FAccept = nullptr;
};

TDialog::TDialog(QWidget* parent, const TFitWish& begin)
    : QDialog(parent), FBegin(begin), FText(new QLineEdit(this)), FWord(new QLabel(this))
{
    constexpr int width = 420;
    const TQuestion question = QuestionFor(begin.Kind);
    setWindowTitle(tr(question.Title));
    auto* form = new QFormLayout(this);
    form->addRow(tr(question.Caption), FText);
    FText->setText(QString::fromStdString(IsFormula()   ? begin.Formula
                                          : begin.Value ? FormatExact(*begin.Value)
                                                        : std::string()));
    FText->selectAll();
    FText->setMinimumWidth(width);
    if (IsFormula()) {
        FText->setPlaceholderText("a*exp(-b*x)+c");
        FStart = new QLineEdit(QString::fromStdString(StartValuesText(begin.Start)), this);
        FStart->setPlaceholderText(tr("a=1, b=0.5; what is not named starts from 1"));
        form->addRow(tr("&Start values"), FStart);
        connect(FStart, &QLineEdit::textChanged, this, [this] { Check(); });
    }
    FWord->setWordWrap(true);
    // Room for two lines, so that the buttons stay where they are.
    FWord->setMinimumHeight(2 * FWord->fontMetrics().lineSpacing());
    FWord->setAlignment(Qt::AlignTop);
    FWord->setTextFormat(Qt::PlainText);
    form->addRow(FWord);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    FAccept = buttons->button(QDialogButtonBox::Ok);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(FText, &QLineEdit::textChanged, this, [this] { Check(); });
    Check();
}

TFitWish TDialog::Wish() const
{
    TFitWish wish = FBegin;
    const std::string text = FText->text().trimmed().toStdString();
    if (IsFormula()) {
        wish.Formula = text;
        wish.Start = ParseStartValues(FStart->text().toStdString());
        const std::string letters = CoefficientsOf(wish);
        for (const TStartValue& start : wish.Start)
            if (letters.find(start.Letter) == std::string::npos)
                throw EConvertError(std::string("The formula has no coefficient \"") + start.Letter + "\"");
        return wish;
    }
    wish.Value = 2;
    const std::string whole = FitText(wish);
    wish = ParseFit(whole.substr(0, whole.find(':') + 1) + text);
    wish.Column = FBegin.Column;
    return wish;
}

void TDialog::Check()
{
    QString word = tr(QuestionFor(FBegin.Kind).Hint);
    bool isGood = false;
    try {
        if (!FText->text().trimmed().isEmpty()) {
            const TFitWish wish = Wish();
            isGood = true;
            if (const std::string letters = CoefficientsOf(wish); !letters.empty())
                word = tr("Coefficients: %1")
                           .arg(QStringList(QString::fromStdString(letters).split("", Qt::SkipEmptyParts)).join(", "));
        }
    } catch (const EError& error) {
        word = QString::fromStdString(error.Message());
    }
    FWord->setText(word);
    FAccept->setEnabled(isGood);
}

}  // namespace

std::optional<TFitWish> AskForFit(QWidget* parent, const TFitWish& begin)
{
    TDialog dialog(parent, begin);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Wish()) : std::nullopt;
}

}  // namespace plotkit
