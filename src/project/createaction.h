#pragma once

// How a new palette is filled. Blank and NewBlank fill alike: the second is
// the palette a tile set or sprite bank makes for itself.
enum class CreateAction { Blank = 0, Copy = 1, Standard = 2, NewBlank = 3 };
