#include "api/worker.h"

#include "backend/log.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <pthread.h>

#ifdef __has_feature
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define SANITIZED_FRAMES
#endif
#endif

namespace {

#if defined(SANITIZED_FRAMES) || defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr std::size_t stack_size = 1 << 20; // a sanitizer's frames do not fit the real one
#else
constexpr std::size_t stack_size = 32768;
#endif

} // namespace

bool start_worker(void *(*body)(void *), void *argument) {
    pthread_t thread; // detached, so nobody asks for it
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, std::max(stack_size, static_cast<std::size_t>(PTHREAD_STACK_MIN)));
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    const int error = pthread_create(&thread, &attributes, body, argument);
    pthread_attr_destroy(&attributes);
    errno = error;
    return error == 0;
}

void report_no_worker(const char *who) {
    log_error("[ZAV-API] Error %s thread creation failed %s (%d).\n", who, strerror(errno), errno);
}
