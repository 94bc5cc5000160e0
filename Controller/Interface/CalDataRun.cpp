#include "CalDataRun.h"

void SCalDataRun::ResetItemResults()
{
    m_isAllSuccess = true;
    m_itemResults.clear();
    m_errorMessage.clear();
}

void SCalDataRun::AddItemResult(const QString &name, int code, const QString &message)
{
    m_itemResults.append(SEachItemOperationResult{name, code, message});
}
