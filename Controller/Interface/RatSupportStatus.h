#pragma once

#include <QString>

// Whether the connected target runs TD-SCDMA.
struct SRatSupportStatus {
    enum EStatus { UNKNOWN = 0, SUPPORTED = 1, NOT_SUPPORTED = 2, NOT_DETERMINED = 3 };

    int status = UNKNOWN;
    QString reason;
    QString advice;
};
