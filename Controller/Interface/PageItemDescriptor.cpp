#include "PageItemDescriptor.h"

#include "JsonPath.h"

SPageModel SPageModel::ForTestPage(QString resource, bool uplink, Update update)
{
    return {std::move(resource), "cmdIf.request.group1.memberProperty.band.trait.value",
            "cmdIf.request.group1.memberProperty.uarfcn.trait.valuePair", uplink, false, std::move(update)};
}

SPageModel SPageModel::ForCalDataPage(QString resource, QString freqPath, bool uplink, Update update)
{
    return {std::move(resource), "calDataIf.config.group1.memberProperty.band.trait.value", std::move(freqPath),
            uplink, true, std::move(update)};
}

SPageModel SPageModel::WithoutBands(QString resource, Update update)
{
    return {std::move(resource), QString(), QString(), false, false, std::move(update)};
}

CPageItemDescriptor::CPageItemDescriptor(int id, QString name, QString pageClass, SPageModel model)
    : m_id(id), m_name(std::move(name)), m_pageClass(std::move(pageClass)), m_model(std::move(model))
{
}

CPageItemDescriptor::~CPageItemDescriptor() = default;

QString CPageItemDescriptor::PageClass() { return m_pageClass; }

SPageModel CPageItemDescriptor::Model() { return m_model; }

void CPageItemDescriptor::Test(STestRun &run) { run.code = ERROR_CODE_NOT_EXECUTED; }

bool CPageItemDescriptor::Stop(STestRun &run)
{
    Q_UNUSED(run);
    return false;
}

uint16_t CPageItemDescriptor::RequestUarfcn(const QJsonObject &request)
{
    return uint16_t(
        GetJsonValueConst(request, "cmdIf.request.group1.memberValue.uarfcn").toString().toUInt(nullptr, 10));
}
