#include "TestPage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableWidget>

#include "JsonPath.h"
#include "UnsignedSpinBox.h"

TestPage::TestPage(int isCalDataPage) : m_calData(isCalDataPage)
{
    m_content = new QWidget(this);
    m_layout = new QVBoxLayout(m_content);
    setWidget(m_content);
    setWindowTitle("Test page");
}

void TestPage::RequestDataModel()
{
    QMetaObject::invokeMethod(
        this, [this] { Slot_GetDataModelDone(m_text); }, Qt::QueuedConnection);
}

bool TestPage::Load(const std::string &text)
{
    m_text = text;
    QSignalSpy done(this, &CAutoBindingDataModelDockWidget::Signal_InitDone);
    show();
    return done.count() == 1 || done.wait(5000);
}

bool TestPage::Load(const QJsonObject &model)
{
    return Load(QJsonDocument(model).toJson(QJsonDocument::Compact).toStdString());
}

QWidget *TestPage::AddOf(const QString &className, const QString &name)
{
    if (className == "QComboBox")
        return Add<QComboBox>(name);
    if (className == "QSpinBox")
        return Add<QSpinBox>(name);
    if (className == "QDoubleSpinBox")
        return Add<QDoubleSpinBox>(name);
    if (className == "QCheckBox")
        return Add<QCheckBox>(name);
    if (className == "QGroupBox")
        return Add<QGroupBox>(name);
    if (className == "QTableWidget")
        return Add<QTableWidget>(name);
    return Add<QLabel>(name);
}

void TestPage::AddWidgetsFor(const QJsonObject &model)
{
    static const QMap<QString, QString> classes{
        {"list", "QComboBox"}, {"range", "QSpinBox"}, {"pointRange", "QDoubleSpinBox"}, {"boolean", "QCheckBox"}};
    const QString interface = model.contains("cmdIf") ? "cmdIf" : "calDataIf";
    const QJsonObject sections = model.value(interface).toObject();
    for (auto section = sections.begin(); section != sections.end(); ++section) {
        const QJsonObject groups = section.value().toObject();
        for (auto group = groups.begin(); group != groups.end(); ++group) {
            const QJsonObject groupObject = group.value().toObject();
            const QString prefix = interface + "_" + section.key() + "_" + group.key() + "_memberProperty_";
            const QJsonObject property = groupObject.value("memberProperty").toObject();
            for (const QJsonValue &member : groupObject.value("memberList").toArray()) {
                const QString name = prefix + member.toString();
                if (groupObject.value("groupType").toInt() == 3) {
                    Add<QTableWidget>(name);
                    break;
                }
                const QString type = GetJsonValueConst(property, member.toString() + ".trait.dataType").toString();
                AddOf(classes.value(type, "QLabel"), name);
                if (type != "boolean")
                    Add<QLabel>(name + "_caption");
            }
        }
    }
}

QString Describe(QWidget *widget)
{
    if (!widget)
        return "none";
    QString text = widget->metaObject()->className();
    if (auto *box = qobject_cast<QComboBox *>(widget)) {
        QStringList items;
        for (int i = 0; i < box->count(); ++i)
            items << box->itemText(i);
        text += " items=" + items.join('|') + " current=" + box->currentText();
    } else if (auto *box = qobject_cast<QSpinBox *>(widget)) {
        text += QString(" %1..%2 value=%3 base=%4").arg(box->minimum()).arg(box->maximum()).arg(box->value()).arg(
            box->displayIntegerBase());
    } else if (auto *box = qobject_cast<QDoubleSpinBox *>(widget)) {
        text += QString(" %1..%2 value=%3").arg(box->minimum()).arg(box->maximum()).arg(box->value());
        text += QString(" decimals=%1").arg(box->decimals());
    } else if (auto *box = qobject_cast<QCheckBox *>(widget)) {
        text += QString(" text=%1 checked=%2").arg(box->text()).arg(box->isChecked());
    } else if (auto *field = qobject_cast<CUnsignedSpinBox *>(widget)) {
        text += " text=" + field->text();
    } else if (auto *label = qobject_cast<QLabel *>(widget)) {
        text += " text=" + label->text();
    }
    text += QString(" tip=%1").arg(widget->toolTip());
    if (!widget->isEnabled())
        text += " disabled";
    if (widget->isHidden())
        text += " hidden";
    return text;
}

QJsonObject Json(const QString &text) { return QJsonDocument::fromJson(text.toUtf8()).object(); }

QJsonObject GroupModel(const QJsonObject &members, int groupType, const QJsonObject &groupExtra, const QString &section)
{
    QJsonObject group = groupExtra;
    group.insert("groupType", groupType);
    if (!group.contains("memberList"))
        group.insert("memberList", QJsonArray::fromStringList(members.keys()));
    QJsonObject property = group.value("memberProperty").toObject();
    for (auto it = members.begin(); it != members.end(); ++it)
        property.insert(it.key(), it.value());
    group.insert("memberProperty", property);
    return QJsonObject{{"modelName", "test"}, {"cmdIf", QJsonObject{{section, QJsonObject{{"group1", group}}}}}};
}
