#pragma once

// Starts a detached thread on a small stack; `who` is named in the error line when the system refuses, and
// errno says why. The handle is kept for whoever looks with a debugger.

#include <pthread.h>

bool start_worker(const char *who, pthread_t *ret_thread, void *(*body)(void *), void *argument = nullptr);
