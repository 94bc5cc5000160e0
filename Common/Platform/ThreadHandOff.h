#pragma once

// Tells ThreadSanitizer about the hand-offs of data between threads that go
// through Qt: the global thread pool's queue of runs and the user interface
// thread's event queue (queued signals, posted calls). Qt orders them with
// locks of its own, which ThreadSanitizer cannot see in a Qt that is not
// built with it. The giving thread releases the channel right before it
// hands over; the taking thread acquires it right after; everything the
// giver did before is then ordered before what the taker does after, as
// the lock in Qt orders it. Without ThreadSanitizer all of it does nothing.
namespace Platform {

enum class EHandOff { ThreadPool, EventQueue };

void HandOffRelease(EHandOff channel);
void HandOffAcquire(EHandOff channel);

// Acquires the event queue before every event that reaches an object of the
// user interface thread: one filter on the application, installed
// once (from then on, as long as the application lives; from another thread
// it takes effect when the application's thread next handles its events).
void WatchEventQueueHandOffs();

} // namespace Platform
