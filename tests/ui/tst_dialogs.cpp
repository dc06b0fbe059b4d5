#include "editors/block/tileanimationdialog.h"
#include "editors/image/imagedialog.h"
#include "editors/sprite/spritedialog.h"
#include "ui/exportmapdialog.h"
#include "ui/importzxfontdialog.h"
#include "ui/mapdialog.h"
#include "ui/messagedialog.h"
#include "ui/palettedialog.h"
#include "ui/paletteselectordialog.h"
#include "ui/projectdialog.h"
#include "ui/resizemapdialog.h"
#include "ui/tilemapwidthdialog.h"
#include "ui/tilesetdialog.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QtTest>

#include <memory>

using Tintorel::Ui::Direction;

Q_DECLARE_METATYPE(CreateAction)

namespace {

const QUuid AlphaId("{a0000000-0000-0000-0000-00000000000a}");
const QUuid BetaId("{b0000000-0000-0000-0000-00000000000b}");
// Listed by name without regard to case: "alpha" before "Beta".
const QHash<QUuid, QString> Assets{{BetaId, "Beta"}, {AlphaId, "alpha"}};

std::unique_ptr<DialogBase> makeDialog(const QString& kind)
{
    if (kind == "project") return std::make_unique<ProjectDialog>();
    if (kind == "tileSet") return std::make_unique<TileSetDialog>();
    if (kind == "map") return std::make_unique<MapDialog>();
    if (kind == "palette") return std::make_unique<PaletteDialog>();
    if (kind == "paletteSelector") return std::make_unique<PaletteSelectorDialog>();
    if (kind == "zxFont") return std::make_unique<ImportZXFontDialog>();
    if (kind == "exportMap") return std::make_unique<ExportMapDialog>();
    if (kind == "resizeMap") return std::make_unique<ResizeMapDialog>();
    if (kind == "sprite") return std::make_unique<SpriteDialog>();
    if (kind == "image") return std::make_unique<ImageDialog>();
    if (kind == "tileAnimation") return std::make_unique<TileAnimationDialog>();
    return nullptr;
}

void fill(DialogBase* dialog, const QHash<QUuid, QString>& assets)
{
    if (auto* d = qobject_cast<TileSetDialog*>(dialog)) d->setPalettes(assets);
    if (auto* d = qobject_cast<MapDialog*>(dialog)) d->setTileSets(assets);
    if (auto* d = qobject_cast<PaletteDialog*>(dialog)) d->setPaletteNames(assets.values());
    if (auto* d = qobject_cast<PaletteSelectorDialog*>(dialog)) d->setPalettes(assets);
    if (auto* d = qobject_cast<SpriteDialog*>(dialog)) d->setPalettes(assets);
    if (auto* d = qobject_cast<ImageDialog*>(dialog)) d->setPalettes(assets);
    if (auto* d = qobject_cast<TileAnimationDialog*>(dialog)) d->setTileSets(assets);
}

// Keys are object names of inputs, or the texts of check and radio buttons.
void setFields(QWidget* dialog, const QVariantMap& fields)
{
    for (auto it = fields.cbegin(); it != fields.cend(); ++it) {
        if (auto* edit = dialog->findChild<QLineEdit*>(it.key())) {
            edit->setText(it.value().toString());
        } else if (auto* box = dialog->findChild<QSpinBox*>(it.key())) {
            box->setValue(it.value().toInt());
        } else if (auto* combo = dialog->findChild<QComboBox*>(it.key())) {
            combo->setCurrentIndex(it.value().toInt());
        } else {
            QAbstractButton* found = nullptr;
            for (auto* button : dialog->findChildren<QAbstractButton*>())
                found = button->text() == it.key() ? button : found;
            QVERIFY2(found, qPrintable(it.key()));
            found->setChecked(it.value().toBool());
        }
    }
}

} // namespace

class TestDialogs : public QObject
{
    Q_OBJECT
private slots:
    void titles_data();
    void titles();
    void badInputKeepsTheDialogOpen_data();
    void badInputKeepsTheDialogOpen();
    void messageClearsOnClose();
    void projectNeedsANonBlankName();
    void tileSetCarriesItsChoices();
    void mapCarriesNameTileSetAndSize();
    void tileMapWidthMakesWholeRows();
    void paletteAction_data();
    void paletteAction();
    void paletteSelectorNeedsAPalette();
    void zxFontConvertsToZeroBased();
    void exportOptions();
    void resizeAlignmentPerAnchor_data();
    void resizeAlignmentPerAnchor();
    void messageDialogShowsHeading();
    void spriteOptions_data();
    void spriteOptions();
    void imagePaletteAndResolution_data();
    void imagePaletteAndResolution();
    void tileAnimationWithoutTileSetsSaysSoAtOnce();
};

void TestDialogs::titles_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("title");
    QTest::newRow("project") << "project" << "Create a new project";
    QTest::newRow("tile set") << "tileSet" << "Create a new Tile Set";
    QTest::newRow("map") << "map" << "Create a new Map";
    QTest::newRow("palette") << "palette" << "Create a new palette";
    QTest::newRow("palette selector") << "paletteSelector" << "Select a palette";
    QTest::newRow("zx font") << "zxFont" << "Import ZX Font Data";
    QTest::newRow("export map") << "exportMap" << "Export Map Data";
    QTest::newRow("resize map") << "resizeMap" << "Resize Map";
    QTest::newRow("sprite") << "sprite" << "Create a new Sprite Bank";
    QTest::newRow("image") << "image" << "New Image";
    QTest::newRow("tile animation") << "tileAnimation" << "Animated Tiles";
}

void TestDialogs::titles()
{
    QFETCH(QString, kind);
    QFETCH(QString, title);
    QCOMPARE(makeDialog(kind)->windowTitle(), title);
}

void TestDialogs::badInputKeepsTheDialogOpen_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("withAssets");
    QTest::addColumn<QVariantMap>("fields");
    QTest::addColumn<QString>("message");
    QTest::newRow("tile set, blank name") << "tileSet" << true << QVariantMap{{"name", "  "}} << "Name is required";
    QTest::newRow("map, no name") << "map" << true << QVariantMap{} << "Name is required";
    QTest::newRow("map, no tile set") << "map" << false << QVariantMap{{"name", "Level"}} << "Select a tile set";
    QTest::newRow("palette, no name") << "palette" << true << QVariantMap{} << "Palette name is required";
    QTest::newRow("palette, name taken in another case")
        << "palette" << true << QVariantMap{{"name", " ALPHA "}} << "Palette names must be unique";
    QTest::newRow("zx font, no file") << "zxFont" << false << QVariantMap{{"file", " "}} << "No file selected";
    QTest::newRow("export, nothing chosen")
        << "exportMap" << false
        << QVariantMap{{"Export Map Data", false}, {"Export Tile Data", false}, {"Export Palette Data", false}}
        << "At least one option must be chosen";
    QTest::newRow("sprite, blank name") << "sprite" << true << QVariantMap{{"name", " "}} << "Name cannot be blank";
    QTest::newRow("image, no name") << "image" << true << QVariantMap{} << "Please enter a name";
    QTest::newRow("tile animation, no name") << "tileAnimation" << true << QVariantMap{} << "Please enter a name";
    QTest::newRow("tile animation, no tile set")
        << "tileAnimation" << false << QVariantMap{{"name", "Water"}} << "There are no usable tile sets";
}

void TestDialogs::badInputKeepsTheDialogOpen()
{
    QFETCH(QString, kind);
    QFETCH(bool, withAssets);
    QFETCH(QVariantMap, fields);
    QFETCH(QString, message);
    auto dialog = makeDialog(kind);
    fill(dialog.get(), withAssets ? Assets : QHash<QUuid, QString>());
    setFields(dialog.get(), fields);
    QSignalSpy closed(dialog.get(), &QDialog::finished);
    dialog->show();
    QTest::mouseClick(dialog->okButton(), Qt::LeftButton);
    QCOMPARE(dialog->message(), message);
    QVERIFY(dialog->isVisible());
    QCOMPARE(closed.count(), 0);
}

void TestDialogs::messageClearsOnClose()
{
    TileSetDialog dialog;
    QSignalSpy accepted(&dialog, &TileSetDialog::accepted);
    dialog.show();
    dialog.accept();
    QVERIFY(!dialog.message().isEmpty());
    setFields(&dialog, {{"name", "Tiles"}});
    dialog.accept();
    QCOMPARE(accepted.count(), 1);
    QVERIFY(!dialog.isVisible());
    QVERIFY(dialog.message().isEmpty());
}

void TestDialogs::projectNeedsANonBlankName()
{
    ProjectDialog dialog;
    QSignalSpy accepted(&dialog, &ProjectDialog::accepted);
    QVERIFY(!dialog.okButton()->isEnabled());
    setFields(&dialog, {{"name", "   "}});
    dialog.accept();
    QCOMPARE(accepted.count(), 0);
    setFields(&dialog, {{"name", " Game "}});
    QVERIFY(dialog.okButton()->isEnabled());
    dialog.accept();
    QCOMPARE(accepted.value(0), QVariantList{"Game"});
    dialog.reset();
    QVERIFY(!dialog.okButton()->isEnabled());
}

void TestDialogs::tileSetCarriesItsChoices()
{
    TileSetDialog dialog;
    dialog.setPalettes(Assets);
    QSignalSpy accepted(&dialog, &TileSetDialog::accepted);
    setFields(&dialog, {{"name", "Font"}, {"tileCount", 1}, {"High resolution", true}});
    dialog.accept();
    QCOMPARE(accepted.value(0), (QVariantList{"Font", QUuid(), 512, true}));
    setFields(&dialog, {{"name", "Font"}, {"palette", 2}});
    dialog.accept();
    QCOMPARE(accepted.value(1).at(1).toUuid(), BetaId);
}

void TestDialogs::mapCarriesNameTileSetAndSize()
{
    MapDialog dialog;
    dialog.setTileSets(Assets);
    QString name;
    QUuid tileSet;
    QSize size;
    connect(&dialog, &MapDialog::accepted, this, [&](QString n, QUuid id, QSize& s) {
        name = n;
        tileSet = id;
        size = s;
    });
    setFields(&dialog, {{"name", "Level 1"}, {"width", 64}, {"height", 48}});
    dialog.accept();
    QCOMPARE(name, QStringLiteral("Level 1"));
    QCOMPARE(tileSet, AlphaId);
    QCOMPARE(size, QSize(64, 48));
}

void TestDialogs::tileMapWidthMakesWholeRows()
{
    TileMapWidthDialog dialog;
    dialog.setMapFile("level.map", 1000);
    QCOMPARE(dialog.width(), 40); // the first of the usual widths that makes whole rows
    int accepted = 0;
    connect(&dialog, &TileMapWidthDialog::accepted, this, [&](QString file, int width) {
        QCOMPARE(file, QStringLiteral("level.map"));
        accepted = width;
    });
    setFields(&dialog, {{"width", 30}});
    dialog.accept();
    QCOMPARE(dialog.message(), QStringLiteral("1000 cells are not whole rows of 30"));
    QCOMPARE(accepted, 0);
    setFields(&dialog, {{"width", 25}});
    dialog.accept();
    QCOMPARE(accepted, 25);
}

void TestDialogs::paletteAction_data()
{
    QTest::addColumn<QString>("choice");
    QTest::addColumn<bool>("copyAvailable");
    QTest::addColumn<CreateAction>("action");
    QTest::newRow("standard") << "Use the default Next palette" << true << CreateAction::Standard;
    QTest::newRow("blank") << "Create a blank palette" << true << CreateAction::Blank;
    QTest::newRow("copy") << "Copy colours from current palette" << true << CreateAction::Copy;
    QTest::newRow("copy withdrawn falls back to standard")
        << "Copy colours from current palette" << false << CreateAction::Standard;
}

void TestDialogs::paletteAction()
{
    QFETCH(QString, choice);
    QFETCH(bool, copyAvailable);
    QFETCH(CreateAction, action);
    PaletteDialog dialog;
    dialog.setPaletteNames({"Sky"});
    setFields(&dialog, {{"name", "Sea"}, {choice, true}});
    dialog.setCopyAvailable(copyAvailable);
    QSignalSpy accepted(&dialog, &PaletteDialog::accepted);
    dialog.accept();
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.at(0).at(0).value<CreateAction>(), action);
    QCOMPARE(accepted.at(0).at(1).toString(), QStringLiteral("Sea"));
}

void TestDialogs::paletteSelectorNeedsAPalette()
{
    PaletteSelectorDialog dialog;
    QSignalSpy accepted(&dialog, &PaletteSelectorDialog::accepted);
    dialog.setPalettes({});
    QVERIFY(!dialog.okButton()->isEnabled());
    dialog.accept();
    QCOMPARE(accepted.count(), 0);
    dialog.setPalettes(Assets, BetaId);
    dialog.accept();
    QCOMPARE(accepted.value(0), QVariantList{BetaId});
}

void TestDialogs::zxFontConvertsToZeroBased()
{
    ImportZXFontDialog dialog;
    dialog.setTileCount(64);
    QSignalSpy accepted(&dialog, &ImportZXFontDialog::accepted);
    setFields(&dialog, {{"file", "/tmp/font.ch8"}, {"startTile", 100}, {"ink", 7}, {"paper", 2}, {"offset", 16}});
    dialog.accept();
    QCOMPARE(accepted.value(0), (QVariantList{63, 7, 2, 15, "/tmp/font.ch8"}));
}

void TestDialogs::exportOptions()
{
    ExportMapDialog dialog;
    QSignalSpy accepted(&dialog, &ExportMapDialog::accepted);
    setFields(&dialog, {{"Export Tile Data", false}});
    dialog.accept();
    const auto expected = ExportMapDialog::MapData | ExportMapDialog::PaletteData;
    QCOMPARE(accepted.value(0).value(0).value<ExportMapDialog::Options>(), expected);
    QCOMPARE(dialog.options(), expected);
}

void TestDialogs::resizeAlignmentPerAnchor_data()
{
    QTest::addColumn<Direction>("anchor");
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::newRow("NW") << Direction::NorthWest << (Qt::AlignLeft | Qt::AlignTop);
    QTest::newRow("N") << Direction::North << (Qt::AlignHCenter | Qt::AlignTop);
    QTest::newRow("NE") << Direction::NorthEast << (Qt::AlignRight | Qt::AlignTop);
    QTest::newRow("W") << Direction::West << (Qt::AlignLeft | Qt::AlignVCenter);
    QTest::newRow("Centre") << Direction::None << Qt::Alignment(Qt::AlignCenter);
    QTest::newRow("E") << Direction::East << (Qt::AlignRight | Qt::AlignVCenter);
    QTest::newRow("SW") << Direction::SouthWest << (Qt::AlignLeft | Qt::AlignBottom);
    QTest::newRow("S") << Direction::South << (Qt::AlignHCenter | Qt::AlignBottom);
    QTest::newRow("SE") << Direction::SouthEast << (Qt::AlignRight | Qt::AlignBottom);
}

void TestDialogs::resizeAlignmentPerAnchor()
{
    QFETCH(Direction, anchor);
    QFETCH(Qt::Alignment, alignment);
    ResizeMapDialog dialog;
    dialog.setMapSize(QSize(40, 32));
    QSignalSpy accepted(&dialog, &ResizeMapDialog::accepted);
    dialog.show();
    QTest::mouseClick(dialog.anchorButton(anchor), Qt::LeftButton);
    setFields(&dialog, {{"width", 50}});
    QTest::mouseClick(dialog.okButton(), Qt::LeftButton);
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.at(0).at(0).toSize(), QSize(50, 32));
    QCOMPARE(accepted.at(0).at(1).value<Qt::Alignment>(), alignment);
    dialog.setMapSize(QSize(8, 8));
    QCOMPARE(dialog.alignment(), Qt::AlignLeft | Qt::AlignTop);
}

void TestDialogs::messageDialogShowsHeading()
{
    MessageDialog dialog;
    dialog.showMessage("Warning!", "Save <failed>", "Disk full");
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Warning!"));
    QCOMPARE(dialog.heading(), QStringLiteral("<h2>Save &lt;failed&gt;</h2>"));
    QCOMPARE(dialog.message(), QStringLiteral("Disk full"));
}

void TestDialogs::spriteOptions_data()
{
    QTest::addColumn<QString>("depth");
    QTest::addColumn<int>("palette");
    QTest::addColumn<SpriteDialog::CreateOptions>("options");
    QTest::addColumn<QUuid>("paletteId");
    QTest::newRow("256 colours, new palette")
        << "256 Colour Sprites" << 0 << (SpriteDialog::EightBit | SpriteDialog::CreateNewPalette) << QUuid();
    QTest::newRow("16 colours, project palette")
        << "16 Colour Sprites" << 1 << (SpriteDialog::FourBit | SpriteDialog::UseProjectPalette) << AlphaId;
}

void TestDialogs::spriteOptions()
{
    QFETCH(QString, depth);
    QFETCH(int, palette);
    QFETCH(SpriteDialog::CreateOptions, options);
    QFETCH(QUuid, paletteId);
    SpriteDialog dialog;
    dialog.show(Assets);
    QSignalSpy accepted(&dialog, &SpriteDialog::accepted);
    setFields(&dialog, {{"name", "Hero"}, {depth, true}, {"palette", palette}});
    dialog.accept();
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.at(0).at(0).value<SpriteDialog::CreateOptions>(), options);
    QCOMPARE(accepted.at(0).at(2).toUuid(), paletteId);
}

void TestDialogs::imagePaletteAndResolution_data()
{
    QTest::addColumn<int>("resolution");
    QTest::addColumn<QString>("text");
    QTest::addColumn<Tintorel::ImageMode>("mode");
    QTest::addColumn<int>("palette");
    QTest::addColumn<QUuid>("paletteId");
    QTest::newRow("new blank palette") << 0 << "256x192 256 colours" << Tintorel::ImageMode::Layer2_256x192 << 0
                                       << QUuid("{00000000-0000-0000-0000-000000000000}");
    QTest::newRow("new standard palette") << 1 << "320x256 256 colours" << Tintorel::ImageMode::Layer2_320x256 << 1
                                          << QUuid("{00000000-0000-0000-0000-000000000001}");
    QTest::newRow("project palette") << 2 << "640x256 16 colours" << Tintorel::ImageMode::Layer2_640x256 << 3
                                     << BetaId;
    QTest::newRow("lores") << 3 << "128x96 256 colours" << Tintorel::ImageMode::LoRes_128x96 << 2 << AlphaId;
}

void TestDialogs::imagePaletteAndResolution()
{
    QFETCH(int, resolution);
    QFETCH(QString, text);
    QFETCH(Tintorel::ImageMode, mode);
    QFETCH(int, palette);
    QFETCH(QUuid, paletteId);
    ImageDialog dialog;
    dialog.setPalettes(Assets);
    QCOMPARE(dialog.findChild<QComboBox*>("resolution")->itemText(resolution), text);
    QSignalSpy accepted(&dialog, &ImageDialog::accepted);
    setFields(&dialog, {{"name", "Title"}, {"resolution", resolution}, {"palette", palette}});
    dialog.accept();
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.at(0).at(1).value<Tintorel::ImageMode>(), mode);
    QCOMPARE(accepted.at(0).at(2).toUuid(), paletteId);
}

void TestDialogs::tileAnimationWithoutTileSetsSaysSoAtOnce()
{
    TileAnimationDialog dialog;
    dialog.show(QHash<QUuid, QString>());
    QCOMPARE(dialog.message(), QStringLiteral("There are no usable tile sets"));
    dialog.show(Assets);
    QVERIFY(dialog.message().isEmpty());
    QSignalSpy accepted(&dialog, &TileAnimationDialog::accepted);
    setFields(&dialog, {{"name", "Water"}, {"tileSet", 1}});
    dialog.accept();
    QCOMPARE(accepted.value(0), (QVariantList{"Water", BetaId}));
}

QTEST_MAIN(TestDialogs)
#include "tst_dialogs.moc"
