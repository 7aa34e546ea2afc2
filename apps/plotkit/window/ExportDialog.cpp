#include "plotkit/window/ExportDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace plotkit {

namespace {

const char* const Kinds = QT_TRANSLATE_NOOP("ExportDialog", "Pictures (*.svg *.pdf *.png)");

bool IsPng(const QString& file)
{
    return PictureFormatOf(file.toStdString()) == pfPng;
}

QString WithEnding(const QString& file)
{
    return PictureFormatOf(file.toStdString()) ? file : file + ".svg";
}

class TDialog : public QDialog
{
public:
    TDialog(QWidget* parent, const TExportWish& wish);
    TExportWish Wish() const;

private:
    QWidget* NewFileRow();
    QWidget* NewSizeRow();
    QDoubleSpinBox* NewLength(double value);
    void UseUnit(TLengthUnit unit);
    void Browse();
    void Refresh();

    QLineEdit* FFile;
    QDoubleSpinBox *FWidth, *FHeight;
    QComboBox* FUnit;
    QSpinBox* FDpi;
    QCheckBox *FAntialias, *FLight;
    QPushButton* FWrite = nullptr;
    TLengthUnit FShownUnit;
};

TDialog::TDialog(QWidget* parent, const TExportWish& wish)
    : QDialog(parent),
      FFile(new QLineEdit(wish.File, this)),
      FWidth(NewLength(wish.Picture.Width)),
      FHeight(NewLength(wish.Picture.Height)),
      FUnit(new QComboBox(this)),
      FDpi(new QSpinBox(this)),
      FAntialias(new QCheckBox(tr("&Smooth edges"), this)),
      FLight(new QCheckBox(tr("&Light background"), this)),
      FShownUnit(wish.Picture.Unit)
{
    setWindowTitle(tr("Export picture"));
    FDpi->setRange(10, 4800);
    FDpi->setSuffix(tr(" dpi"));
    FDpi->setValue(wish.Picture.Dpi);
    FAntialias->setChecked(wish.Picture.Antialias);
    FLight->setChecked(wish.Picture.LightBackground);
    FLight->setToolTip(tr("A graph on a dark ground in colours for white paper"));
    auto* form = new QFormLayout(this);
    form->addRow(tr("&File"), NewFileRow());
    form->addRow(tr("Si&ze"), NewSizeRow());
    form->addRow(tr("&Resolution"), FDpi);
    form->addRow({}, FAntialias);
    form->addRow({}, FLight);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel, this);
    FWrite = buttons->button(QDialogButtonBox::Save);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(FFile, &QLineEdit::textChanged, this, [this] { Refresh(); });
    Refresh();
}

QWidget* TDialog::NewFileRow()
{
    auto* row = new QWidget(this);
    auto* parts = new QHBoxLayout(row);
    parts->setContentsMargins(0, 0, 0, 0);
    FFile->setMinimumWidth(320);
    FFile->setPlaceholderText(tr("graph.svg, graph.pdf or graph.png"));
    auto* browse = new QPushButton(tr("&Browse..."), row);
    browse->setAutoDefault(false);
    connect(browse, &QPushButton::clicked, this, [this] { Browse(); });
    parts->addWidget(FFile);
    parts->addWidget(browse);
    row->setFocusProxy(FFile);
    return row;
}

QDoubleSpinBox* TDialog::NewLength(double value)
{
    auto* length = new QDoubleSpinBox(this);
    length->setRange(1, 20000);
    length->setDecimals(1);
    length->setValue(value);
    return length;
}

QWidget* TDialog::NewSizeRow()
{
    auto* row = new QWidget(this);
    auto* parts = new QHBoxLayout(row);
    parts->setContentsMargins(0, 0, 0, 0);
    FUnit->addItem(tr("mm"), luMillimetres);
    FUnit->addItem(tr("1/96 inch"), luInch96);
    FUnit->setCurrentIndex(FShownUnit == luMillimetres ? 0 : 1);
    connect(FUnit, &QComboBox::activated, this,
            [this] { UseUnit(static_cast<TLengthUnit>(FUnit->currentData().toInt())); });
    parts->addWidget(FWidth);
    parts->addWidget(new QLabel(QStringLiteral("\u00D7"), row));
    parts->addWidget(FHeight);
    parts->addWidget(FUnit);
    parts->addStretch();
    row->setFocusProxy(FWidth);
    return row;
}

void TDialog::UseUnit(TLengthUnit unit)
{
    const double factor = Inches96(1, FShownUnit, 96) / Inches96(1, unit, 96);
    FShownUnit = unit;
    FWidth->setValue(FWidth->value() * factor);
    FHeight->setValue(FHeight->value() * factor);
}

void TDialog::Browse()
{
    const QString file = QFileDialog::getSaveFileName(this, windowTitle(), FFile->text(), tr(Kinds));
    if (!file.isEmpty())
        FFile->setText(WithEnding(file));
}

void TDialog::Refresh()
{
    const QString file = FFile->text().trimmed();
    FWrite->setEnabled(!file.isEmpty());
    FDpi->setEnabled(IsPng(file));
    FAntialias->setEnabled(IsPng(file));
}

TExportWish TDialog::Wish() const
{
    TExportWish wish;
    wish.File = WithEnding(FFile->text().trimmed());
    wish.Picture = {*PictureFormatOf(wish.File.toStdString()),
                    FWidth->value(),
                    FHeight->value(),
                    FShownUnit,
                    FDpi->value(),
                    FAntialias->isChecked(),
                    FLight->isChecked(),
                    {}};
    return wish;
}

}  // namespace

std::optional<TExportWish> AskForPicture(QWidget* parent, const TExportWish& wish)
{
    TDialog dialog(parent, wish);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Wish()) : std::nullopt;
}

}  // namespace plotkit
