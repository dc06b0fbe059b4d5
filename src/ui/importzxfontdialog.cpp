#include "ui/importzxfontdialog.h"

#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QToolButton>

namespace {

QSpinBox* numberBox(const QString& name, int minimum, int maximum, int value, QWidget* parent)
{
    auto* box = new QSpinBox(parent);
    box->setObjectName(name);
    box->setRange(minimum, maximum);
    box->setValue(value);
    return box;
}

} // namespace

ImportZXFontDialog::ImportZXFontDialog(QWidget* parent)
    : DialogBase(tr("Import ZX Font Data"), parent)
    , mFile(new QLineEdit(this))
    , mStartTile(numberBox(QStringLiteral("startTile"), 1, 512, 1, this))
    // Ink and paper are colour indices within the tile's bank of sixteen;
    // the canvas starts with the same two.
    , mInk(numberBox(QStringLiteral("ink"), 0, 15, 1, this))
    , mPaper(numberBox(QStringLiteral("paper"), 0, 15, 0, this))
    , mOffset(numberBox(QStringLiteral("offset"), 1, 16, 1, this))
{
    mFile->setObjectName(QStringLiteral("file"));
    auto* browseButton = new QToolButton(this);
    browseButton->setText(QStringLiteral("..."));
    connect(browseButton, &QToolButton::clicked, this, [this] { browse(); });

    auto* fileRow = new QHBoxLayout;
    fileRow->addWidget(mFile);
    fileRow->addWidget(browseButton);

    auto* colours = new QHBoxLayout;
    colours->addWidget(new QLabel(tr("Ink"), this));
    colours->addWidget(mInk);
    colours->addWidget(new QLabel(tr("Paper"), this));
    colours->addWidget(mPaper);
    colours->addWidget(new QLabel(tr("Offset"), this));
    colours->addWidget(mOffset);

    form()->addRow(tr("File"), fileRow);
    form()->addRow(tr("Start Tile"), mStartTile);
    form()->addRow(tr("Colours"), colours);
}

void ImportZXFontDialog::setTileCount(int count)
{
    mStartTile->setMaximum(qMax(1, count));
}

QString ImportZXFontDialog::validate() const
{
    return mFile->text().trimmed().isEmpty() ? tr("No file selected") : QString();
}

void ImportZXFontDialog::emitAccepted()
{
    emit accepted(mStartTile->value() - 1, mInk->value(), mPaper->value(), mOffset->value() - 1,
                  mFile->text().trimmed());
}

void ImportZXFontDialog::browse()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Choose a file to import"), mFile->text(),
                                                      tr("Raw Data (*.bin *.raw *.ch8)"));
    if (!file.isEmpty())
        mFile->setText(file);
}
