#pragma once

// Something a thread can hold exclusively.
class CLockableObject {
public:
    virtual ~CLockableObject() = default;
    virtual void Lock() = 0;
    virtual void Unlock() = 0;
    // True if the object could be taken without waiting; then it is held.
    virtual bool TryLock() = 0;

protected:
    CLockableObject() = default;
    CLockableObject(const CLockableObject &) = delete;
    CLockableObject &operator=(const CLockableObject &) = delete;
};
