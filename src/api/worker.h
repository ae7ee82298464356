#pragma once

// Starts a detached thread on a small stack; false when the system refuses, and errno says why.

bool start_worker(void *(*body)(void *), void *argument = nullptr);

// The error line of a start that failed; call it at once, for errno.
void report_no_worker(const char *who);
