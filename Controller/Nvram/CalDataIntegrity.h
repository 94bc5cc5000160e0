#pragma once

#include "TavoTargetAccess.h"

// Brackets a series of calibration writes with the target's integrity
// record: the constructor opens the record, the destructor closes it. The
// target uses the newer Ex commands when it has them, else the older ones;
// a target with neither works as before. Nothing is reported either way.
//
// Create it on the heap before the first write and delete it after the last;
// never nest two.
class CCalDataIntegrity {
public:
    CCalDataIntegrity();
    ~CCalDataIntegrity();

    CCalDataIntegrity(const CCalDataIntegrity &) = delete;
    CCalDataIntegrity &operator=(const CCalDataIntegrity &) = delete;

private:
    CTavoTargetAccess m_targetAccess;
};
