#pragma once

#include <mutex>

#include "LockableObject.h"

// A critical section: the thread that holds it may enter it again, and must
// leave it as often as it entered. A standard mutex rather than Qt's, so
// that ThreadSanitizer sees every enter and leave.
class PortableCriticalSection : public CLockableObject {
public:
    PortableCriticalSection() = default;

    void Lock() override;
    void Unlock() override;
    // Enters if that is possible without waiting.
    bool TryLock() override;

private:
    std::recursive_mutex m_mutex;
};

// The plug-in's one critical section, alive from load to unload.
extern PortableCriticalSection g_pluginCriticalSection;
