#pragma once
/*
 * Gives the handle of the target the host is connected to. The host keeps one
 * process-wide handle; tools read it and never write it.
 */

class CTavoTargetAccess {
public:
    int GetHandle() const { return s_handle; }

private:
    static inline int s_handle = 0;
};
