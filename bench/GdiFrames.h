#pragma once

// Times a frame of the GDI painter against a frame in which the system draws every ellipse, in a window. False if one
// pixel of the two frames differs.
bool PrintGdiFrames();
