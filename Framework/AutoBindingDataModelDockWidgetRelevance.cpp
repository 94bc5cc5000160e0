// Value and status relevance of the page base: a publishing widget's change
// recomputes the value space, value or enabled state of its subscribers, as
// the model's publish and subscribe keys say. Nothing is written into the
// model.
#include "AutoBindingDataModelDockWidget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QSpinBox>
#include <QTableWidget>

#include "JsonPath.h"
#include "ModelBinding.h"
#include "RadbenchLog.h"

using namespace ModelBinding;

void CAutoBindingDataModelDockWidget::Slot_CheckBoxValueChange(int state)
{
    qCDebug(lcFramework) << "============ [Value Relevance]Check Box  =========== " << state;
    Slot_ValueChange(state == Qt::Checked ? "true" : "false");
}

void CAutoBindingDataModelDockWidget::Slot_CheckBoxEnableStatusChange(int state)
{
    qCDebug(lcFramework) << "============ [Status Relevance]Check Box  =========== " << state;
    Slot_EnableStatusChange(state == Qt::Checked ? "true" : "false");
}

struct CAutoBindingDataModelDockWidget::SRelevanceWalk {
    const char *publishList;   // the publisher's list of subscribers
    const char *subscribeList; // a subscriber's list of members that form its key
    bool needsEnabledPublisher;
    void (CAutoBindingDataModelDockWidget::*type1)(QString, QString);
    void (CAutoBindingDataModelDockWidget::*type3)(QString, QString);
    // The trace, in walk order.
    const char *start, *key, *listLog, *current, *groupType, *hasSubscribeList, *keyLog, *fail, *done;
};

void CAutoBindingDataModelDockWidget::Slot_ValueChange(QString currentText)
{
    static const SRelevanceWalk walk{
        "publishValueList",
        ".subscribeValueList",
        true,
        &CAutoBindingDataModelDockWidget::ValueRelevanceType1,
        &CAutoBindingDataModelDockWidget::ValueRelevanceType3,
        "============ [Start][Value Relevance] CurrentText  =========== ",
        "---> [Value Relevance] Key  <--- ",
        "---> [Value Relevance] Publish Value List <--- ",
        "---> [Value Relevance] ====== Current Publish Value ====== <--- ",
        "---> [Value Relevance] GroupType <--- ",
        "---> [Value Relevance][type1] Has the subscribeValueList <--- ",
        "---> [Value Relevance][type1] Key <--- ",
        "---> [Fail][Value Relevance] Not support this group type yet <--- ",
        "============ [Done][Value Relevance] =========== "};
    WalkRelevance(walk, currentText);
}

void CAutoBindingDataModelDockWidget::Slot_EnableStatusChange(QString currentText)
{
    // A disabled publisher still passes its state on: only visibility counts.
    static const SRelevanceWalk walk{
        "publishEnableStatusList",
        ".subscribeEnableStatusList",
        false,
        &CAutoBindingDataModelDockWidget::StatusRelevanceType1,
        &CAutoBindingDataModelDockWidget::StatusRelevanceType3,
        "============ [Start][Status Relevance] CurrentText =========== ",
        "---> [Status Relevance] Key  <--- ",
        "---> [Status Relevance] Publish Value List <--- ",
        "====== [Status Relevance] Current Publish Value ====== ",
        "---> [Status Relevance] GroupType <--- ",
        "---> [Status Relevance][type1] Has the subscribeEnableStatusList <--- ",
        "---> [Status Relevance][type1] Key <--- ",
        "---> [Fail][Status Relevance] Not support this group type yet <--- ",
        "============ [Done][Status Relevance] =========== "};
    WalkRelevance(walk, currentText);
}

void CAutoBindingDataModelDockWidget::WalkRelevance(const SRelevanceWalk &walk, const QString &currentText)
{
    qCDebug(lcFramework) << walk.start << currentText;
    if (currentText.isEmpty())
        return; // a combo box being cleared says nothing
    auto *publisher = qobject_cast<QWidget *>(sender());
    if (!publisher || !publisher->isVisible() || (walk.needsEnabledPublisher && !publisher->isEnabled()))
        return;
    qCDebug(lcFramework) << walk.key << currentText;
    const QJsonValue member = GetJsonValueConst(m_model, PathOf(publisher->objectName()));
    const QJsonArray list = member.toObject().value(walk.publishList).toArray();
    if (IsJsonValueDefined(member))
        qCDebug(lcFramework) << walk.listLog << list << "count: " << list.size();
    for (int i = 0; i < list.size() && i < 255; ++i) {
        const QString path = ExpandModelPath(list[i].toString());
        qCDebug(lcFramework) << walk.current << path;
        const int groupType = GetGroupType(path);
        qCDebug(lcFramework) << walk.groupType << groupType;
        QString key = currentText;
        const QJsonArray subscribeList = GetJsonValueConst(m_model, path + walk.subscribeList).toArray();
        if (!subscribeList.isEmpty()) {
            key = RebuildKeyFromWidgets(subscribeList, m_model);
            qCDebug(lcFramework) << walk.hasSubscribeList << subscribeList;
        }
        qCDebug(lcFramework) << walk.keyLog << key;
        if (groupType == 1)
            (this->*walk.type1)(path, key);
        else if (groupType == 3)
            (this->*walk.type3)(path, key);
        else
            qCCritical(lcFramework) << walk.fail;
    }
    qCDebug(lcFramework) << walk.done;
}

namespace {

// What a subscribed member's widget shows now, as a key part; empty when
// its type and class don't go together.
QString ShownText(QWidget *widget, const QString &dataType, bool &found)
{
    found = true;
    if (dataType == "list" && IsClass(widget, "QComboBox"))
        return static_cast<QComboBox *>(widget)->currentText();
    if (dataType == "range" && IsClass(widget, "QSpinBox"))
        return static_cast<QSpinBox *>(widget)->text();
    if (dataType == "boolean" && IsClass(widget, "QCheckBox"))
        return static_cast<QCheckBox *>(widget)->isChecked() ? "true" : "false";
    found = false;
    return QString();
}

} // namespace

QString CAutoBindingDataModelDockWidget::RebuildKeyFromWidgets(QJsonArray list, QJsonObject model)
{
    QString key;
    const QList<QWidget *> widgets = m_widgetRoot ? m_widgetRoot->findChildren<QWidget *>() : QList<QWidget *>();
    for (int i = 0; i < list.size() && i < 255; ++i) {
        const QString path = ExpandModelPath(list[i].toString());
        qCDebug(lcFramework) << "---> subscribeValue <---" << path;
        for (QWidget *widget : widgets) {
            if (PathOf(widget->objectName()) != path)
                continue;
            const QJsonValue dataType = GetJsonValueConst(model, path + ".trait.dataType");
            if (!IsJsonValueDefined(dataType))
                continue;
            bool found = false;
            const QString text = ShownText(widget, dataType.toString(), found);
            if (!found)
                continue;
            key += text;
            break;
        }
        if (i != list.size() - 1)
            key += ",";
    }
    return key;
}

QString CAutoBindingDataModelDockWidget::RebuildKeyFromModel(QJsonArray list, QJsonObject model)
{
    QString key;
    const QList<QWidget *> widgets = m_widgetRoot ? m_widgetRoot->findChildren<QWidget *>() : QList<QWidget *>();
    for (int i = 0; i < list.size() && i < 255; ++i) {
        const QString path = ExpandModelPath(list[i].toString());
        qCDebug(lcFramework) << "---> subscribeValue <---" << path;
        for (QWidget *widget : widgets) {
            if (PathOf(widget->objectName()) != path)
                continue;
            const QJsonValue dataType = GetJsonValueConst(model, path + ".trait.dataType");
            if (!IsJsonValueDefined(dataType))
                continue;
            bool found = false;
            ShownText(widget, dataType.toString(), found);
            if (!found)
                continue;
            key += GetJsonValueConst(model, path + ".trait.defaultValue").toString();
            break;
        }
        if (i != list.size() - 1)
            key += ",";
    }
    return key;
}

void CAutoBindingDataModelDockWidget::ValueRelevanceType1(QString path, QString key)
{
    QWidget *widget = FindBoundWidget(path);
    if (!widget) {
        qCCritical(lcFramework) << "---> [Fail][Value Relevance][type1] Cannot find widget pointer <--- " << path;
        return;
    }
    qCDebug(lcFramework) << "---> [Value Relevance][type1] Find!!!!!!! <--- " << path;
    if (!widget->isVisible()) {
        qCDebug(lcFramework) << "---> Skip - invisible <---";
        return;
    }
    const QJsonValue trait = GetJsonValueConst(m_model, path + ".trait");
    if (!IsJsonValueDefined(trait)) {
        qCCritical(lcFramework) << "---> [Fail][Value Relevance][type1] Cannot get the Trait JSON object <---";
        return;
    }
    const QJsonValue valuePair = trait.toObject().value("valuePair");
    qCDebug(lcFramework) << "---> [Value Relevance][type1] Vair Pair JSON object <--- " << valuePair;
    if (!IsJsonValueDefined(valuePair)) {
        qCCritical(lcFramework) << "---> [Fail][Value Relevance][type1] Cannot get the valuePair JSON object <---";
        return;
    }
    const QJsonValue entry = GetJsonValueConst(valuePair.toObject(), key);
    if (!IsJsonValueDefined(entry)) {
        qCCritical(lcFramework) << "---> [Fail][Value Relevance][type1] Cannot get the mapping of key and value in the "
                                   "ValuePair JSON Object"
                                << key;
        return;
    }

    const QString dataType = trait.toObject().value("dataType").toString();
    const QString defaultText = trait.toObject().value("defaultValue").toString();
    const bool calData = m_isCalDataPage != 0;
    if (dataType == "list" && IsClass(widget, "QComboBox")) {
        auto *box = static_cast<QComboBox *>(widget);
        qCDebug(lcFramework) << "---> [Value Relevance][type1] Combobox List <---"
                             << "---> [Value Relevance][type1] Final value <---" << entry;
        box->clear();
        for (const QJsonValue &item : entry.toArray())
            box->addItem(item.toString());
        box->setCurrentIndex(0);
    } else if (dataType == "range" && IsClass(widget, "QSpinBox")) {
        auto *box = static_cast<QSpinBox *>(widget);
        qCDebug(lcFramework) << "---> [Value Relevance][type1] Spin Box <---";
        const QJsonObject space = entry.toObject();
        const IntRange range = IntRangeOf(space);
        const int defaultValue = ToIntBase10(defaultText);
        const int value = calData ? range.Clamp(defaultValue) : range.Middle();
        box->setRange(range.min, range.max);
        box->setToolTip(range.ToolTip());
        box->setValue(value);
        if (IsJsonValueDefined(space.value("rangeCheck"))) {
            qCDebug(lcFramework) << "---> [Value Relevance][type1] Has the range check <---";
            box->setToolTip(space.value("rangeCheck").toString());
        }
        if (IsJsonValueDefined(space.value("value")) && !calData) {
            qCDebug(lcFramework) << "---> [Value Relevance][type1] Has the value in valuePair <---";
            box->setValue(ToIntBase10(space.value("value").toString()));
        }
        qCDebug(lcFramework) << "---> [Value Relevance][type1] Final Value <---" << box->value();
    } else if (dataType == "pointRange" && IsClass(widget, "QDoubleSpinBox")) {
        auto *box = static_cast<QDoubleSpinBox *>(widget);
        qCDebug(lcFramework) << "---> [Value Relevance][type1] Double Spin Box <---";
        const DoubleRange range = DoubleRangeOf(entry.toObject());
        const double value = calData ? range.Clamp(defaultText.toDouble()) : range.Middle();
        box->setRange(range.min, range.max);
        box->setToolTip(range.ToolTip());
        box->setValue(value);
        qCDebug(lcFramework) << "---> [Value Relevance][type1] Final Value <---" << box->value();
    } else if (dataType == "label" && IsClass(widget, "QLabel")) {
        qCDebug(lcFramework) << "---> [Value Relevance][type1] Label <---";
        static_cast<QLabel *>(widget)->setText(entry.toString());
        qCDebug(lcFramework) << "---> [Value Relevance][type1] Final Value <---" << entry.toString();
    } else if (dataType == "boolean" && IsClass(widget, "QCheckBox")) {
        qCDebug(lcFramework) << "---> [Value Relevance][type1] Check Box <---";
        static_cast<QCheckBox *>(widget)->setChecked(entry.toString() == "true");
        qCDebug(lcFramework) << "---> [Value Relevance][type1] Final Value <---" << entry.toString();
    } else {
        qCCritical(lcFramework)
            << "---> [Fail][Value Relevance][type1] Cannot get the mapping of dataType and widget <--- " << dataType
            << ClassOf(widget);
    }
}

struct CAutoBindingDataModelDockWidget::STableSearchTrace {
    const char *rowInfo;
    const char *columnInfo; // nullptr: not traced
    const char *notTable;
    const char *noTable;
    const char *tableFound;
    const char *noRow;
    const char *rowFound;
};

QTableWidget *CAutoBindingDataModelDockWidget::FindGroupTable(const QString &path, const STableSearchTrace &trace,
                                                              int &row, int &columns)
{
    const QJsonObject group = GetJsonValueConst(m_model, GroupOf(path)).toObject();
    const QJsonObject memberProperty = group.value("memberProperty").toObject();
    columns = memberProperty.value("dimentionCount").toInt(0);
    const QStringList rows = SupportedRows(memberProperty, group.value("memberList").toArray());
    qCDebug(lcFramework) << trace.rowInfo << rows;
    if (trace.columnInfo)
        qCDebug(lcFramework) << trace.columnInfo << columns;

    QTableWidget *table = nullptr;
    for (const QString &member : rows) {
        QWidget *candidate = FindBoundWidget(GroupOf(path) + ".memberProperty." + member);
        if (!candidate)
            continue;
        if (!IsClass(candidate, "QTableWidget")) {
            qCCritical(lcFramework) << trace.notTable << ClassOf(candidate);
            continue;
        }
        table = static_cast<QTableWidget *>(candidate);
        break;
    }
    if (!table) {
        qCCritical(lcFramework) << trace.noTable << path;
        return nullptr;
    }
    qCDebug(lcFramework) << trace.tableFound;
    row = rows.indexOf(path.mid(path.lastIndexOf('.') + 1));
    if (row < 0) {
        qCCritical(lcFramework) << trace.noRow << path;
        return nullptr;
    }
    qCDebug(lcFramework) << trace.rowFound << row;
    return table;
}

template <typename Box, typename Range>
void CAutoBindingDataModelDockWidget::RecomputeSpinCells(QTableWidget *table, int row, int columns,
                                                         const Range &range, const QJsonArray &defaults,
                                                         const QJsonValue &rangeCheck, const QJsonValue &forced)
{
    const bool calData = m_isCalDataPage != 0;
    for (int c = 0; c < columns; ++c) {
        auto *cell = qobject_cast<Box *>(table->cellWidget(row, c));
        if (!cell)
            continue;
        const auto value =
            calData ? range.Clamp(Range::Parse(EntryOrLast(defaults, c).toString())) : range.Middle();
        cell->setRange(range.min, range.max);
        cell->setToolTip(range.ToolTip());
        cell->setValue(value);
        qCDebug(lcFramework) << "---> [Value Relevance][type3] Final value <--- index[" << c << "] " << value;
        // Here the forced value goes with the check, unlike in a type 1 field.
        if (IsJsonValueDefined(rangeCheck)) {
            if (IsJsonValueDefined(forced) && !calData)
                cell->setValue(Range::Parse(forced.toString()));
            cell->setToolTip(rangeCheck.toString());
        }
    }
}

void CAutoBindingDataModelDockWidget::ValueRelevanceType3(QString path, QString key)
{
    static const STableSearchTrace trace{
        "---> [Value Relevance][type3] Get row info <--- ",
        "---> [Value Relevance][type3] Get column info <--- ",
        "---> [Fail][Value Relevance][type3] The widget is no table: ",
        "---> [Fail][Value Relevance][type3] Cannot fine widget pointer",
        "---> [Value Relevance][type3] Find!!!!!!!!! <--- ",
        "---> [Fail][Value Relevance][type3] Cannot fine row index",
        "---> [Value Relevance][type3] Find the row index <--- "};
    int row = 0;
    int columns = 0;
    QTableWidget *table = FindGroupTable(path, trace, row, columns);
    if (!table)
        return;
    const QJsonValue trait = GetJsonValueConst(m_model, path + ".trait");
    if (!IsJsonValueDefined(trait)) {
        qCCritical(lcFramework) << "---> [Fail][Value Relevance][type3] Cannot fine the Trait JSON Object";
        return;
    }
    const QJsonValue valuePair = trait.toObject().value("valuePair");
    if (!IsJsonValueDefined(valuePair)) {
        qCCritical(lcFramework) << "---> [Fail][Value Relevance][type3] Cannot get the ValuePair JSON Object";
        return;
    }
    const QJsonValue entry = GetJsonValueConst(valuePair.toObject(), key);
    if (!IsJsonValueDefined(entry)) {
        qCCritical(lcFramework)
            << "---> [Fail][Value Relevance][type3] Cannot get the mapping of key and value in the ValuePair "
               "JSON Object"
            << key;
        return;
    }
    qCDebug(lcFramework) << "---> [Value Relevance][type3] Vair Pair JSON object <--- " << valuePair;

    const QJsonObject space = entry.toObject();
    const QString dataType = trait.toObject().value("dataType").toString();
    const QJsonArray defaults = trait.toObject().value("defaultValue").toArray();
    const QJsonValue rangeCheck = space.value("rangeCheck");
    const QJsonValue forced = space.value("value");

    if (dataType == "range" || dataType == "pointRange") {
        qCDebug(lcFramework) << (dataType == "range" ? "---> [Value Relevance][type3] Spin Box <---"
                                                     : "---> [Value Relevance][type3] Double Spin Box <---");
        if (IsJsonValueDefined(rangeCheck))
            qCDebug(lcFramework) << "---> [Value Relevance][type3] Has the range check <---";
        if (IsJsonValueDefined(rangeCheck) && IsJsonValueDefined(forced) && m_isCalDataPage == 0)
            qCDebug(lcFramework) << "---> [Value Relevance][type3] Has the value in valuePair <---";
        if (dataType == "range")
            RecomputeSpinCells<QSpinBox>(table, row, columns, IntRangeOf(space), defaults, rangeCheck, forced);
        else
            RecomputeSpinCells<QDoubleSpinBox>(table, row, columns, DoubleRangeOf(space), defaults, rangeCheck, forced);
    } else {
        qCCritical(lcFramework) << "---> [Fail][Value Relevance][type3] Not support this data type yet" << dataType;
    }
}

void CAutoBindingDataModelDockWidget::StatusRelevanceType1(QString path, QString key)
{
    QWidget *widget = FindBoundWidget(path);
    if (!widget) {
        qCCritical(lcFramework) << "---> [Fail][Status Relevance][type1] Cannot find widget pointer <--- " << path;
        return;
    }
    qCDebug(lcFramework) << "---> [Status Relevance][type1] Find the widget pointer!!!!!!!!! <--- " << path;
    if (!widget->isVisible()) {
        qCDebug(lcFramework) << "---> Skip: invisible <--- ";
        return;
    }
    const QJsonValue trait = GetJsonValueConst(m_model, path + ".trait");
    if (!IsJsonValueDefined(trait)) {
        qCCritical(lcFramework) << "---> [Fail][Status Relevance][type1] Cannot find the trait JSON object <--- ";
        return;
    }
    const QJsonValue pair = trait.toObject().value("enableStatusPair");
    qCDebug(lcFramework) << "---> [Status Relevance][type1] Enable Status Pair <--- " << pair;
    if (!IsJsonValueDefined(pair)) {
        qCCritical(lcFramework)
            << "---> [Fail][Status Relevance][type1] Cannot find the EnableStatusPair JSON object <--- ";
        return;
    }
    const QJsonValue entry = GetJsonValueConst(pair.toObject(), key);
    qCDebug(lcFramework) << "---> [Status Relevance][type1] Final enable <--- " << entry;
    if (!IsJsonValueDefined(entry)) {
        qCCritical(lcFramework)
            << "---> [Fail][Status Relevance][type1] Cannot get the mapping of key and value in the "
               "ValuePair JSON Object"
            << key;
        return;
    }
    widget->setEnabled(entry.toInt() != 0);

    if (auto *box = AsClass<QCheckBox>(widget, "QCheckBox")) {
        if (!box->isEnabled()) {
            qCDebug(lcFramework) << "---> [Status Relevance][type1] check box publish current check status <---";
            box->setChecked(false);
        }
    } else if (auto *box = AsClass<QComboBox>(widget, "QComboBox")) {
        qCDebug(lcFramework) << "---> [Status Relevance][type1] combox box publish current text change <---";
        emit box->currentTextChanged(box->currentText());
    } else if (auto *box = AsClass<QSpinBox>(widget, "QSpinBox")) {
        qCDebug(lcFramework) << "---> [Status Relevance][type1] spin box publish current text change <---";
        emit box->textChanged(box->text());
    }
}

void CAutoBindingDataModelDockWidget::StatusRelevanceType3(QString path, QString key)
{
    static const STableSearchTrace trace{
        "---> [Status Relevance][type3] Get row info <--- ",
        nullptr,
        "---> [Fail][Status Relevance][type3] The widget is no table: ",
        "---> [Fail][Status Relevance][type3] Cannot fine widget pointer",
        "---> [Status Relevance][type3] Find the widget pointer!!!!!!!!! <--- ",
        "---> [Fail][Status Relevance][type3] Cannot fine row index",
        "---> [Status Relevance][type3] Find the row index <--- "};
    int row = 0;
    int columns = 0;
    QTableWidget *table = FindGroupTable(path, trace, row, columns);
    if (!table)
        return;
    const QJsonValue trait = GetJsonValueConst(m_model, path + ".trait");
    qCDebug(lcFramework) << "---> [Status Relevance][type3] Trait Object <--- " << trait;
    if (!IsJsonValueDefined(trait)) {
        qCCritical(lcFramework) << "---> [Fail][Status Relevance][type3] Cannot fine the Trait JSON Object";
        return;
    }
    const QJsonValue pair = trait.toObject().value("enableStatusPair");
    if (!IsJsonValueDefined(pair)) {
        qCCritical(lcFramework) << "---> [Fail][Status Relevance][type3] Cannot fine the EnableStatusPair JSON Object";
        return;
    }
    const QJsonValue entry = GetJsonValueConst(pair.toObject(), key);
    qCDebug(lcFramework) << "---> [Status Relevance][type3] Final enable <--- " << entry;
    if (!IsJsonValueDefined(entry)) {
        qCCritical(lcFramework)
            << "---> [Fail][Status Relevance][type3] Cannot get the mapping of key and value in the "
               "ValuePair JSON Object"
            << key;
        return;
    }
    for (int c = 0; c < columns; ++c) {
        if (QWidget *cell = table->cellWidget(row, c))
            cell->setEnabled(entry.toInt() != 0);
    }
}
