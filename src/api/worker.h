#pragma once

// Starts a detached thread on a small stack; false when the system refuses, and errno says why. The handle is
// kept for whoever looks with a debugger.

#include <pthread.h>

bool start_worker(pthread_t *ret_thread, void *(*body)(void *), void *argument = nullptr);

// The error line of a start that failed; call it at once, for errno.
void report_no_worker(const char *who);
