#include "RfCoreCalDataOperation.h"

IRfCoreCalDataOperation::IRfCoreCalDataOperation(QObject *parent) : QObject(parent) {}

IRfCoreCalDataOperation::~IRfCoreCalDataOperation() = default;

QString IRfCoreCalDataOperation::GetErrorMessage() { return m_errorMessage; }

void IRfCoreCalDataOperation::ResetItemResults()
{
    m_isAllSuccess = true;
    m_itemResults.clear();
    m_errorMessage.clear();
}

void IRfCoreCalDataOperation::AddItemResult(QString name, int code, QString message)
{
    m_itemResults.append(SEachItemOperationResult{name, code, message});
}

SEachItemOperationResult IRfCoreCalDataOperation::GetItemResult(int index) { return m_itemResults.value(index); }
