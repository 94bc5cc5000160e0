#include "ThreadHandOff.h"

#ifdef __SANITIZE_THREAD__
#include <sanitizer/tsan_interface.h>

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#endif

namespace Platform {

#ifdef __SANITIZE_THREAD__

namespace {

char s_channels[2];

void *Token(EHandOff channel) { return &s_channels[channel == EHandOff::ThreadPool ? 0 : 1]; }

// Sees every event of the user interface thread's objects before they do.
class CEventQueueWatch : public QObject {
public:
    using QObject::QObject;

    // Before the event is looked at: a posted event was written by its poster.
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        HandOffAcquire(EHandOff::EventQueue);
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void HandOffRelease(EHandOff channel) { __tsan_release(Token(channel)); }

void HandOffAcquire(EHandOff channel) { __tsan_acquire(Token(channel)); }

void WatchEventQueueHandOffs()
{
    QCoreApplication *application = QCoreApplication::instance();
    if (!application)
        return;
    // The filter lives on the application's thread, whichever thread asks,
    // and only that thread looks at the application's filter.
    QMetaObject::invokeMethod(application, [application] {
        static QCoreApplication *watched = nullptr;
        if (watched == application)
            return;
        watched = application;
        application->installEventFilter(new CEventQueueWatch(application));
    });
}

#else

void HandOffRelease(EHandOff) {}

void HandOffAcquire(EHandOff) {}

void WatchEventQueueHandOffs() {}

#endif

} // namespace Platform
