#include "CalItemDescriptor.h"

#include <QJsonDocument>

#include "ModelUpdateResult.h"

CCalItemDescriptor::CCalItemDescriptor(int id, QString name, std::function<bool()> isSupported)
    : m_id(id), m_name(std::move(name)), m_isSupported(std::move(isSupported))
{
}

CCalItemDescriptor::~CCalItemDescriptor() = default;

bool CCalItemDescriptor::IsSupported() { return !m_isSupported || m_isSupported(); }

bool CCalItemDescriptor::IsInFile(TIniFile *file)
{
    Q_UNUSED(file);
    return false;
}

int CCalItemDescriptor::Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage)
{
    Q_UNUSED(movement);
    Q_UNUSED(file);
    errorMessage.clear();
    return ERROR_CODE_NOT_EXECUTED;
}

SCalDataRoute CCalItemDescriptor::Route(IRfCoreCalDataOperation *owner) { return {owner, m_name}; }

void CCalItemDescriptor::SetCalibrationData(const QJsonObject &model) { Q_UNUSED(model); }

std::string CCalItemDescriptor::GetCalibrationData(const QJsonObject &model)
{
    return ModelText(model);
}

QJsonObject CCalItemDescriptor::GetCalibrationDataModel(const QJsonObject &model)
{
    return QJsonDocument::fromJson(QByteArray::fromStdString(GetCalibrationData(model))).object();
}
