#include "editors/tile/exportdialog.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>

namespace TileEditor {

ExportDialog::ExportDialog(QWidget* parent)
    : DialogBase(tr("Export Tile Data"), parent)
    , mFile(new QLineEdit(this))
    , mStart(new QSpinBox(this))
    , mEnd(new QSpinBox(this))
    , mRotate(new QCheckBox(tr("Rotate"), this))
{
    okButton()->setText(tr("Export Tiles"));
    mFile->setPlaceholderText(tr("Select a file to export..."));
    auto* browse = new QToolButton(this);
    browse->setText(QStringLiteral("..."));
    auto* file = new QHBoxLayout;
    file->addWidget(mFile);
    file->addWidget(browse);
    mStart->setRange(1, 512);
    mEnd->setRange(1, 512);
    mEnd->setValue(512);
    mRotate->setToolTip(tr("Writes each tile by columns"));
    mRotate->setEnabled(false);
    form()->addRow(tr("File"), file);
    form()->addRow(tr("Start Block"), mStart);
    form()->addRow(tr("End Block"), mEnd);
    form()->addRow(QString(), mRotate);
    connect(browse, &QToolButton::clicked, this, &ExportDialog::browse);
    connect(mFile, &QLineEdit::textChanged, this, &ExportDialog::fileAccepted);
    connect(mStart, qOverload<int>(&QSpinBox::valueChanged), this, &ExportDialog::startBlockUpdated);
    connect(mEnd, qOverload<int>(&QSpinBox::valueChanged), this, &ExportDialog::endBlockUpdated);
}

void ExportDialog::setTileCount(int count)
{
    mStart->setValue(1);
    mEnd->setValue(qBound(1, count, 512));
}

void ExportDialog::browse()
{
    QFileDialog dialog(this, tr("Export Tiles"), mFile->text(), tr("Tile data (*.nxt);;Blocks (*.bin)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("nxt"));
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty())
        mFile->setText(dialog.selectedFiles().first());
}

void ExportDialog::startBlockUpdated(int)
{
    setMessage(QString());
}

void ExportDialog::endBlockUpdated(int)
{
    setMessage(QString());
}

void ExportDialog::fileAccepted()
{
    // Only the 8-bit form can be written by columns.
    mRotate->setEnabled(QFileInfo(mFile->text()).suffix().toLower() == QLatin1String("bin"));
}

QString ExportDialog::validate() const
{
    if (mFile->text().trimmed().isEmpty())
        return tr("Please choose a file!");
    if (mStart->value() > mEnd->value())
        return tr("The starting block is greater than then end block!");
    return {};
}

void ExportDialog::emitAccepted()
{
    emit accepted(mFile->text().trimmed(), mStart->value(), mEnd->value(), mRotate->isEnabled() && mRotate->isChecked());
}

} // namespace TileEditor
