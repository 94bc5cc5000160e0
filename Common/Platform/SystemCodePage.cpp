#include "SystemCodePage.h"

QString Platform::WidenSystemText(const std::string &text)
{
    return QString::fromStdString(text);
}

std::string Platform::NarrowSystemText(const QString &text)
{
    return text.toStdString();
}
