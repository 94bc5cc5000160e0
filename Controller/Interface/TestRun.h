#pragma once

#include <QJsonObject>
#include <QString>

#include <string>

#include "ErrorCodeInfo.h"

// One test or stop of a page item from its start to its done signal: the
// request it was given and what it answers. Lives on the pool thread that
// runs it.
struct STestRun {
    QString item;
    // The page's model with the widgets' values; empty when the text was no JSON.
    QJsonObject request;
    int code = ERROR_CODE_NOT_EXECUTED;
    QString errorMessage;
    // The model with the target's answer, for pages that show one.
    std::string resultModel;
};
