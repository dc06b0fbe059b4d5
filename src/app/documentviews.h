#pragma once

class BlockSelectorWindow;
class DocumentTabView;
class MapSpritesWindow;
class MenuBar;
class PaletteWindow;
class PreferencesDialog;
class ProjectWindow;
class SpriteWindow;
class TilePickerTool;
class TileWindow;
class QToolBar;
namespace MapEditor {
class ToolBar;
}

// The views that the document controller drives, as the window made them.
struct DocumentViews
{
    DocumentTabView* tabView = nullptr;
    ProjectWindow* projectWindow = nullptr;
    PaletteWindow* paletteWindow = nullptr;
    TileWindow* tileWindow = nullptr;
    SpriteWindow* spriteWindow = nullptr;
    TilePickerTool* tilePicker = nullptr;
    BlockSelectorWindow* blockSelector = nullptr;
    MapSpritesWindow* mapSprites = nullptr;
    MapEditor::ToolBar* mapToolBar = nullptr;
    MenuBar* menuBar = nullptr;
    PreferencesDialog* preferencesDialog = nullptr;
};
