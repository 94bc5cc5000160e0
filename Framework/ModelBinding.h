#pragma once

#include <QFont>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QWidget>

// Small pieces shared by the binding walks of the page base: how widget
// names map to model paths, how a value space reads, the fonts of the page.
namespace ModelBinding {

// The widget's class by its meta object, exactly: a subclass is another class.
inline QString ClassOf(const QWidget *widget) { return QString::fromLatin1(widget->metaObject()->className()); }
inline bool IsClass(const QWidget *widget, const char *className)
{
    return qstrcmp(widget->metaObject()->className(), className) == 0;
}
template <typename T>
T *AsClass(QWidget *widget, const char *className)
{
    return IsClass(widget, className) ? static_cast<T *>(widget) : nullptr;
}

// A name that takes part in binding, and one that also takes part in
// packing and update (captions do not).
inline bool IsBoundName(const QString &name)
{
    return name.contains(QLatin1String("cmdIf_")) || name.contains(QLatin1String("calDataIf_"));
}
inline bool IsValueName(const QString &name) { return IsBoundName(name) && !name.contains(QLatin1String("caption")); }

// Widget names and model paths: every "_" of a name is a "." of the path.
inline QString PathOf(QString objectName) { return objectName.replace('_', '.'); }
inline QString ObjectNameOf(QString path) { return path.replace('.', '_'); }

// The path of the group that holds `path`, with the "." before
// "memberProperty" kept: "cmdIf.request.group1." for a member of group1.
inline QString GroupPathOf(const QString &path) { return path.left(path.indexOf(QLatin1String("memberProperty"))); }
// The same without the trailing ".".
inline QString GroupOf(const QString &path) { return path.left(path.indexOf(QLatin1String("memberProperty")) - 1); }

QFont TitleFont();
QFont CellFont();

// Text read as a decimal int; 0 when it is not one.
int ToIntBase10(const QString &text);
// Entry `index` of the array, or its last entry when it is shorter.
QJsonValue EntryOrLast(const QJsonArray &array, int index);

// The min and max of a value space, with the value a field takes when its
// own is outside them: the middle, truncated toward 0.
struct IntRange {
    static int Parse(const QString &text) { return ToIntBase10(text); }
    int min = 0;
    int max = 0;
    int Middle() const { return int((qint64(min) + max) / 2); }
    int Clamp(int value) const { return value < min || value > max ? Middle() : value; }
    QString ToolTip() const { return QString("%1~%2").arg(min).arg(max); }
};
struct DoubleRange {
    static double Parse(const QString &text) { return text.toDouble(); }
    double min = 0;
    double max = 0;
    double Middle() const { return (min + max) * 0.5; }
    double Clamp(double value) const { return value < min || value > max ? Middle() : value; }
    QString ToolTip() const { return QString::number(min, 'g', 6) + "~" + QString::number(max, 'g', 6); }
};
IntRange IntRangeOf(const QJsonObject &space);
DoubleRange DoubleRangeOf(const QJsonObject &space);

} // namespace ModelBinding
