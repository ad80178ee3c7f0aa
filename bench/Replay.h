#pragma once

// Measures the time of each cell of the largest scene on one thread, and replays these times through the rule of the
// wavefront for several numbers of threads. Prints the table, and writes it as a picture (SVG) to a file if sPicture is
// not null. False if the file cannot be written.
bool PrintReplay(const char* sPicture);
