#pragma once

// Starts the daemon some times, prints how long that takes until its first answer and what memory it then
// has.
int measure_start(const char *daemon);
