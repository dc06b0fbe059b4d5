#pragma once

class MapObjects;
class ProjectBudget;
class QJsonArray;
class SpriteBank;

// The animations of a sprite bank and of a block set, as project.json holds
// them. False when they would take the project past its budget; the
// animations read until then stay.
bool readSpriteAnimations(SpriteBank& bank, const QJsonArray& array, ProjectBudget& budget);
bool readBlockAnimations(MapObjects& blocks, const QJsonArray& array, ProjectBudget& budget);
