#pragma once

// Numbers of the resources in panorell.rc. The resource compiler reads this file too, so they are macros.

#define PANORELL_ICON 1     // the program's icon, 16 to 256 pixels
#define PANORELL_POINTER 2  // the show's own pointer, 32 to 64 pixels
