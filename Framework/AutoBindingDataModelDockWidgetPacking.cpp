// Packing and update of the page base: the widgets' values go into the
// model under memberValue for a request, and the values of a model that
// comes back go into the response and data widgets.
#include "AutoBindingDataModelDockWidget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QSpinBox>
#include <QTableWidget>

#include "JsonPath.h"
#include "ModelBinding.h"
#include "ModelUpdateResult.h"
#include "RadbenchLog.h"
#include "UnsignedSpinBox.h"

using namespace ModelBinding;

namespace {

// The text of a type 1 widget as it goes into memberValue; false for a
// class that is not packed.
bool Type1Value(QWidget *widget, QJsonValue &value)
{
    if (auto *box = AsClass<QComboBox>(widget, "QComboBox")) {
        value = box->itemText(box->currentIndex());
    } else if (auto *box = AsClass<QSpinBox>(widget, "QSpinBox")) {
        // The core always gets decimal, whatever base the box shows.
        bool ok = false;
        const int number = box->cleanText().toInt(&ok, box->displayIntegerBase());
        value = QString::number(ok ? number : box->value());
    } else if (auto *box = AsClass<QDoubleSpinBox>(widget, "QDoubleSpinBox")) {
        value = box->text();
    } else if (auto *box = AsClass<QCheckBox>(widget, "QCheckBox")) {
        value = box->isChecked() ? "true" : "false";
    } else if (auto *label = AsClass<QLabel>(widget, "QLabel")) {
        value = label->text();
    } else {
        return false;
    }
    return true;
}

// The text of a table cell of `dataType`; false when the cell is of another class.
bool CellValue(QWidget *cell, const QString &dataType, QString &value)
{
    if (!cell)
        return false;
    if (dataType == "pointRange" && IsClass(cell, "QDoubleSpinBox"))
        value = static_cast<QDoubleSpinBox *>(cell)->text();
    else if (dataType == "unsignedRange" && IsClass(cell, "CUnsignedSpinBox"))
        value = static_cast<CUnsignedSpinBox *>(cell)->text();
    else if (dataType == "range" && IsClass(cell, "QSpinBox"))
        value = static_cast<QSpinBox *>(cell)->text();
    else if (dataType == "label" && IsClass(cell, "QLabel"))
        value = static_cast<QLabel *>(cell)->text();
    else if (dataType == "list" && IsClass(cell, "QComboBox"))
        value = static_cast<QComboBox *>(cell)->currentText();
    else
        return false;
    return true;
}

// Where the value of the member at `path` goes: the group's memberValue,
// under the member's name.
struct SValueTarget {
    explicit SValueTarget(const QString &path)
    {
        const int at = path.indexOf(QLatin1String("memberProperty"));
        valuePath = path.left(at) + "memberValue";
        groupPath = path.left(at - 1);
        member = path.mid(path.lastIndexOf('.') + 1);
    }
    QString valuePath;
    QString groupPath;
    QString member;
};

// Writes `value` into memberValue, creating memberValue with the first member.
bool WriteMemberValue(QJsonObject &model, const SValueTarget &target, const QJsonValue &value)
{
    if (IsJsonPathMissing(model, target.valuePath))
        return InsertJsonValue(model, target.groupPath, "memberValue", target.member, value);
    QJsonObject values = GetJsonValue(model, target.valuePath).toObject();
    values.insert(target.member, value);
    return SetJsonValue(model, target.valuePath, values);
}

} // namespace

std::string CAutoBindingDataModelDockWidget::PackageMemberValue()
{
    const std::string text = ModelText(PackageMemberValueObject());
    qCDebug(lcFramework) << "============ [Done] Package MemberValue ============ " << QString::fromStdString(text);
    return text;
}

const QJsonObject &CAutoBindingDataModelDockWidget::PackageMemberValueObject()
{
    qCDebug(lcFramework) << "============ [Start] Package MemberValue ============ ";
    for (QWidget *widget : qAsConst(m_valueWidgets)) {
        if (!widget)
            continue;
        const QString name = widget->objectName();
        const QString path = PathOf(name);
        if (!IsJsonValueDefined(GetJsonValueConst(m_model, path))) {
            qCCritical(lcFramework).noquote() << "====== Failed to packge: Cannot get its JSON ojbect ====== " + name;
            continue;
        }
        const int groupType = GetGroupType(path);
        qCDebug(lcFramework) << "====== Packge MemberValue: objName ======" << name << ClassOf(widget)
                             << "---> GroupType <---" << groupType;
        if (groupType == 1)
            PackageType1Widget(widget, path);
        else if (groupType == 3)
            PackageType3Widget(widget, path);
        else
            qCCritical(lcFramework) << "====== Failed to packge : Not support this group type yet ======";
    }
    return m_model;
}

void CAutoBindingDataModelDockWidget::PackageType1Widget(QWidget *widget, QString path)
{
    QJsonValue value;
    if (!Type1Value(widget, value)) {
        qCCritical(lcFramework) << "---> [Fail][Package][type1] : Not support this type yet <--- " << ClassOf(widget);
        return;
    }
    const SValueTarget target(path);
    qCDebug(lcFramework) << "---> [Package][type1] Path in memberValue <--- " << target.valuePath << target.groupPath
                         << "---> [Package][type1] Value <--- " << value;
    if (!WriteMemberValue(m_model, target, value))
        qCCritical(lcFramework) << "---> [Fail][Package][type1] : memberValuePath <--- " << path;
}

void CAutoBindingDataModelDockWidget::PackageType3Widget(QWidget *widget, QString path)
{
    if (!IsClass(widget, "QTableWidget")) {
        qCCritical(lcFramework) << "---> [Fail][Package][type3] Now only support table widget(QTableWidget) <--- "
                                << ClassOf(widget);
        return;
    }
    auto *table = static_cast<QTableWidget *>(widget);
    const QString group = GroupOf(path);
    const QJsonObject memberProperty = GetJsonValueConst(m_model, group + ".memberProperty").toObject();
    const QJsonArray memberList = GetJsonValueConst(m_model, group + ".memberList").toArray();
    const QStringList rows = SupportedRows(memberProperty, memberList);
    static const QStringList packedTypes{"pointRange", "unsignedRange", "range", "label", "list"};
    for (int r = 0; r < rows.size(); ++r) {
        const QString dataType = GetJsonValueConst(memberProperty, rows[r] + ".trait.dataType").toString();
        if (!packedTypes.contains(dataType)) {
            qCCritical(lcFramework) << "---> [Fail][Package][type3] Not support this data type yet <---" << dataType;
            continue;
        }
        QJsonArray values;
        for (int c = 0; c < table->columnCount(); ++c) {
            QString text;
            if (CellValue(table->cellWidget(r, c), dataType, text))
                values.append(text);
        }
        const QString memberPath = group + ".memberProperty." + rows[r];
        qCDebug(lcFramework) << "---> [Package][type3] Path in memberValue <--- " << memberPath
                             << "---> [Package][type3] Value array<--- " << values;
        if (!WriteMemberValue(m_model, SValueTarget(memberPath), values))
            qCCritical(lcFramework) << "---> [Fail][Package][type3] : memberValuePath <--- " << memberPath;
    }
}

void CAutoBindingDataModelDockWidget::UpdateWidgets(QJsonObject model)
{
    qCDebug(lcFramework) << "============ [Start] Update Widget  ============ ";
    m_isModelReady = false;
    for (QWidget *widget : qAsConst(m_valueWidgets)) {
        const QString name = widget ? widget->objectName() : QString();
        if (!(name.contains(QLatin1String("cmdIf_response_")) || name.contains(QLatin1String("calDataIf_data_"))))
            continue;
        const QString path = PathOf(name);
        if (!IsJsonValueDefined(GetJsonValueConst(model, path))) {
            qCCritical(lcFramework).noquote() << "====== Failed to update: Cannot get its JSON ojbect ======" + name;
            continue;
        }
        const int groupType = GetGroupType(path);
        qCDebug(lcFramework) << "====== Update Widget: objName ======" << name << "---> GroupType <---" << groupType;
        switch (groupType) {
        case 1:
            UpdateType1Widget(widget, path, model);
            break;
        case 2:
            UpdateType2Widget(widget, path, model);
            break;
        case 3:
            UpdateType3Widget(widget, path, model);
            break;
        default:
            qCCritical(lcFramework) << "====== Failed to update : Not support this group type yet ======";
            break;
        }
    }
    qCDebug(lcFramework) << "============ [Done] Update Widget ============ ";
    CheckDateModelIntegrity(model);
    m_isModelReady = true;
}

void CAutoBindingDataModelDockWidget::UpdateType1Widget(QWidget *widget, QString path, QJsonObject model)
{
    const QJsonObject member = GetJsonValueConst(model, path).toObject();
    const QJsonValue trait = member.value("trait");
    qCDebug(lcFramework) << "---> [Update][type1] Trait JSON object <---" << trait;
    if (!IsJsonValueDefined(trait)) {
        qCCritical(lcFramework) << "---> [Fail][Update][type1] Cannot get the trait info <---";
        return;
    }
    const QString dataType = trait.toObject().value("dataType").toString();
    const QJsonValue value = trait.toObject().value("defaultValue");
    qCDebug(lcFramework) << "---> [Update][type1] DataType <---" << dataType
                         << "---> [Update][type1] Value to update <---" << value;
    if (!IsJsonValueDefined(value))
        return;
    const QString text = value.toString();

    if (dataType == "list" && IsClass(widget, "QComboBox")) {
        auto *box = static_cast<QComboBox *>(widget);
        if (box->findData(text, Qt::DisplayRole, Qt::MatchCaseSensitive) >= 0)
            box->setCurrentText(text);
        else
            box->setCurrentIndex(-1);
    } else if (dataType == "range" && IsClass(widget, "QSpinBox")) {
        static_cast<QSpinBox *>(widget)->setValue(ToIntBase10(text));
    } else if (dataType == "pointRange" && IsClass(widget, "QDoubleSpinBox")) {
        static_cast<QDoubleSpinBox *>(widget)->setValue(text.toDouble());
    } else if (dataType == "label" && IsClass(widget, "QLabel")) {
        static_cast<QLabel *>(widget)->setText(text);
    } else if (dataType == "boolean" && IsClass(widget, "QCheckBox")) {
        auto *box = static_cast<QCheckBox *>(widget);
        box->setText(member.value("caption").toString());
        box->setChecked(text == "true");
    } else {
        qCCritical(lcFramework) << "---> [Fail][Update][type1] Not support this data type yet <---";
    }
}

void CAutoBindingDataModelDockWidget::UpdateType3Widget(QWidget *widget, QString path, QJsonObject model)
{
    if (!IsClass(widget, "QTableWidget")) {
        qCCritical(lcFramework) << "---> [Fail][Update][type3] Now only support table widget(QTableWidget) <--- "
                                << ClassOf(widget);
        return;
    }
    auto *table = static_cast<QTableWidget *>(widget);
    const QString group = GroupOf(path);
    const QJsonObject memberProperty = GetJsonValueConst(model, group + ".memberProperty").toObject();
    const int columns = memberProperty.value("dimentionCount").toInt(0);
    const QJsonArray memberList = GetJsonValueConst(model, group + ".memberList").toArray();
    const QStringList rows = SupportedRows(memberProperty, memberList);
    qCDebug(lcFramework) << "---> [Update][type3] Column info <--- dimention" << columns
                         << "---> [Update][type3] Row info - after checking the support status in memeber list <---"
                         << rows.size() << rows;

    QStringList captions;
    for (int r = 0; r < rows.size(); ++r) {
        const QJsonObject member = memberProperty.value(rows[r]).toObject();
        const QJsonObject trait = member.value("trait").toObject();
        const QString dataType = trait.value("dataType").toString();
        const QJsonArray values = trait.value("defaultValue").toArray();
        captions << member.value("caption").toString();
        qCDebug(lcFramework) << "---> [Update][type3] Update Row <--- " << rows[r]
                             << "---> [Update][type3] == " << rows[r] << " == DataType <---" << dataType
                             << " == DefaultValueArray " << values << " == <--- ";
        int base = 10;
        if (dataType == "unsignedRange" && IsJsonValueDefined(trait.value("value").toObject().value("displayBase"))) {
            qCDebug(lcFramework) << "---> [Update][type3]UnsignedRange: It has displayBase <--- ";
            base = trait.value("value").toObject().value("displayBase").toInt();
        }
        if (dataType != "pointRange" && dataType != "unsignedRange" && dataType != "range" && dataType != "label") {
            if (dataType != "list")
                qCCritical(lcFramework) << "---> [Fail][Update][type3] Not support this data type yet <---";
            continue;
        }
        // A cell is of the class its row's data type made at initialisation;
        // a model with more columns, or with rows that moved since, meets
        // missing cells or cells of another class, which keep what they show.
        for (int c = 0; c < columns; ++c) {
            QWidget *cell = table->cellWidget(r, c);
            const QString value = EntryOrLast(values, c).toString();
            if (auto *real = qobject_cast<QDoubleSpinBox *>(cell); real && dataType == "pointRange")
                real->setValue(value.toDouble());
            else if (auto *field = qobject_cast<CUnsignedSpinBox *>(cell); field && dataType == "unsignedRange")
                field->setText(QString::number(value.toUInt(nullptr, 10), base).toUpper());
            else if (auto *number = qobject_cast<QSpinBox *>(cell); number && dataType == "range")
                number->setValue(ToIntBase10(value));
            else if (auto *label = qobject_cast<QLabel *>(cell); label && dataType == "label")
                label->setText(value);
        }
    }
    table->setVerticalHeaderLabels(captions);
}

void CAutoBindingDataModelDockWidget::UpdateType2Widget(QWidget *widget, QString path, QJsonObject model)
{
    if (!IsClass(widget, "QTableWidget")) {
        qCCritical(lcFramework) << "---> [Fail][Update][type2] Now only support table widget(QTableWidget) <--- "
                                << ClassOf(widget);
        return;
    }
    auto *table = static_cast<QTableWidget *>(widget);
    const QString group = GroupOf(path);
    const QJsonObject memberProperty = GetJsonValueConst(model, group + ".memberProperty").toObject();
    const QJsonArray memberList = GetJsonValueConst(model, group + ".memberList").toArray();
    const QJsonArray instanceList = GetJsonValueConst(model, group + ".instanceList").toArray();
    qCDebug(lcFramework) << "---> [Update][type2] Column info(from memeber list) <---" << memberList
                         << "---> [Update][type2] Row info(from instance list) <---" << instanceList;
    for (int c = 0; c < memberList.size(); ++c) {
        const QString member = memberList[c].toString();
        const QString dataType = GetJsonValueConst(memberProperty, member + ".trait.dataType").toString();
        for (int r = 0; r < instanceList.size(); ++r) {
            const QString value =
                GetJsonValueConst(memberProperty, instanceList[r].toString() + "." + member + ".defaultValue")
                    .toString();
            qCDebug(lcFramework) << "---> [Update][type2] ==" << r << c << "== Data type <---" << dataType
                                 << "== defaultValue <---" << value;
            // A model with more instances or members than the table has
            // cells leaves the rest unshown.
            QWidget *cell = table->cellWidget(r, c);
            if (!cell)
                continue;
            if (dataType == "pointRange" && IsClass(cell, "QDoubleSpinBox"))
                static_cast<QDoubleSpinBox *>(cell)->setValue(value.toDouble());
            else if (dataType == "range" && IsClass(cell, "QSpinBox"))
                static_cast<QSpinBox *>(cell)->setValue(ToIntBase10(value));
            else if (dataType == "label" && IsClass(cell, "QLabel"))
                static_cast<QLabel *>(cell)->setText(value);
            else
                qCCritical(lcFramework) << "---> [Fail][Update][type2] Not support this data type yet<---";
        }
    }
}

void CAutoBindingDataModelDockWidget::CheckDateModelIntegrity(QJsonObject model)
{
    const QJsonValue integrity = GetJsonValueConst(model, "modelIntegrity.integrity");
    const QJsonArray messages = GetJsonValueConst(model, "modelIntegrity.messageList").toArray();
    const QJsonValue emptyModel = model.value("emptyModel");
    if (!IsJsonPathMissing(model, "modelIntegrity")) {
        qCDebug(lcFramework) << "Check finish: find defined the modelIntegrity: remove it to avoid unexpected failed!";
        model.remove("modelIntegrity");
        m_model.remove("modelIntegrity");
    }
    qCDebug(lcFramework) << "CheckDateModelIntegrity ----- " << integrity << emptyModel;

    const bool hasIntegrity = IsJsonValueDefined(integrity);
    const bool isEmpty = IsJsonValueDefined(emptyModel);
    if (hasIntegrity && integrity.toBool() && isEmpty) {
        m_messageBox.ShowMessage(CMessageBoxMan::KIND_ERROR, "Error", "This is empty data to update.", QString(),
                                 QString(), -1);
        return;
    }
    if ((hasIntegrity && !integrity.toBool()) || (!hasIntegrity && isEmpty)) {
        QString informative;
        for (const QJsonValue &message : messages)
            informative += message.toString() + "\n";
        m_messageBox.ShowMessage(CMessageBoxMan::KIND_ERROR, "Error",
                                 "There are some error in this page:  " + windowTitle() + "\n", informative,
                                 QString(), -1);
        return;
    }
    qCDebug(lcFramework) << "CheckDateModelIntegrity -- Update DataMode --";
    m_model = model;
}
