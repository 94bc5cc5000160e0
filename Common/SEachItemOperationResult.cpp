#include "SEachItemOperationResult.h"

void RegisterOperationMetaTypes()
{
    qRegisterMetaType<std::string>("std::string");
    qRegisterMetaType<SEachItemOperationResult>("SEachItemOperationResult");
    qRegisterMetaType<QVector<SEachItemOperationResult>>("QVector<SEachItemOperationResult>");
}
