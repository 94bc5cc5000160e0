#include "PortableCriticalSection.h"

PortableCriticalSection g_pluginCriticalSection;

void PortableCriticalSection::Lock()
{
    m_mutex.lock();
}

void PortableCriticalSection::Unlock()
{
    m_mutex.unlock();
}

bool PortableCriticalSection::TryLock()
{
    return m_mutex.try_lock();
}
