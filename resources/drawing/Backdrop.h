#pragma once

#include "resources/drawing/CImage.h"

// The tile behind the main window's controls: dark slate-teal with a faint grain, without a seam when repeated.
CImage DrawBackdrop();
