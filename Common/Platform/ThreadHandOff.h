#pragma once

#ifdef __SANITIZE_THREAD__
#include <sanitizer/tsan_interface.h>
#endif

// Marks a hand-off of data between threads through a channel that
// ThreadSanitizer cannot see: Qt's thread pool and event queue synchronise
// with locks inside Qt, which is not built with the sanitizer. The giving
// thread releases a token before the hand-off, the taking thread acquires
// it after; everything the giver did before is then ordered before what
// the taker does after, as it really is. Without ThreadSanitizer both do
// nothing.
namespace Platform {

inline void HandOffRelease(const void *token)
{
#ifdef __SANITIZE_THREAD__
    __tsan_release(const_cast<void *>(token));
#else
    (void)token;
#endif
}

inline void HandOffAcquire(const void *token)
{
#ifdef __SANITIZE_THREAD__
    __tsan_acquire(const_cast<void *>(token));
#else
    (void)token;
#endif
}

} // namespace Platform
