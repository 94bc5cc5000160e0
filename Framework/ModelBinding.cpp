#include "ModelBinding.h"

namespace ModelBinding {

QFont TitleFont()
{
    QFont font("Arial", -1, -1, false);
    font.setWeight(75);
    return font;
}

QFont CellFont() { return QFont("Arial", -1, -1, false); }

int ToIntBase10(const QString &text) { return text.toInt(nullptr, 10); }

QJsonValue EntryOrLast(const QJsonArray &array, int index)
{
    if (index < array.size())
        return array.at(index);
    return array.isEmpty() ? QJsonValue(QJsonValue::Undefined) : array.last();
}

IntRange IntRangeOf(const QJsonObject &space)
{
    return IntRange{space.value("min").toInt(0), space.value("max").toInt(0)};
}

DoubleRange DoubleRangeOf(const QJsonObject &space)
{
    return DoubleRange{space.value("min").toDouble(0), space.value("max").toDouble(0)};
}

} // namespace ModelBinding
