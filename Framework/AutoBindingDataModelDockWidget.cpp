#include "AutoBindingDataModelDockWidget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QJsonDocument>
#include <QLabel>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableWidget>

#include <functional>
#include <optional>
#include <type_traits>

#include "JsonPath.h"
#include "ModelBinding.h"
#include "RadbenchLog.h"
#include "UnsignedSpinBox.h"

using namespace ModelBinding;

namespace {

const QString kDashes(75, '-');
const QString kPageStyle("QGroupBox::title { color: rgb(32, 81, 124);}");

} // namespace

CAutoBindingDataModelDockWidget::CAutoBindingDataModelDockWidget(QWidget *parent) : QDockWidget(parent)
{
    // The page's look is in place before its widgets are made, so each is
    // polished once with it; given again when the page starts, every widget
    // would be polished anew.
    setStyleSheet(kPageStyle);
}

CAutoBindingDataModelDockWidget::~CAutoBindingDataModelDockWidget()
{
    // Qt deletes the widgets after this part of the page is gone; a field
    // that loses the focus on the way must not reach a check of this page.
    for (QObject *child : findChildren<QObject *>())
        QObject::disconnect(child, nullptr, this, nullptr);
}

bool CAutoBindingDataModelDockWidget::event(QEvent *e)
{
    switch (e->type()) {
    case QEvent::NonClientAreaMouseMove:
    case QEvent::NonClientAreaMouseButtonPress:
    case QEvent::NonClientAreaMouseButtonRelease:
        return false;
    default:
        return QDockWidget::event(e);
    }
}

void CAutoBindingDataModelDockWidget::showEvent(QShowEvent *event)
{
    Q_UNUSED(event);
    if (!m_isPageStarted) {
        StartInit();
        m_isPageStarted = true;
    }
}

void CAutoBindingDataModelDockWidget::StartInit()
{
    emit Signal_UpdateStatus("Start Init: " + windowTitle(), 0);
    qCDebug(lcFramework).noquote() << kDashes << " Start Init the page: " + windowTitle() << kDashes;
    if (styleSheet() != kPageStyle)
        setStyleSheet(kPageStyle);
    m_isCalDataPage = IsCalDataPage();
    m_widgetRoot = GetWidgetRoot();
    RequestDataModel();
}

void CAutoBindingDataModelDockWidget::Slot_GetDataModelDone(std::string dataModelStr)
{
    if (!dataModelStr.empty()) {
        m_model = QJsonDocument::fromJson(QByteArray::fromStdString(dataModelStr)).object();
        InitWidgets();
        m_isModelReady = true;
        CheckDateModelIntegrity(m_model);
    } else {
        qCDebug(lcFramework) << "Without any INIT info, Data Model is empty STRING format.";
        if (m_widgetRoot) {
            for (QWidget *widget : m_widgetRoot->findChildren<QWidget *>()) {
                if (IsClass(widget, "QGroupBox"))
                    widget->setFont(TitleFont());
            }
        }
    }
    qCDebug(lcFramework).noquote() << kDashes << " Init Done: " + windowTitle() << kDashes;
    emit Signal_InitDone();
}

QString CAutoBindingDataModelDockWidget::ExpandModelPath(const QString &shortPath) const
{
    return (m_isCalDataPage == 0 ? "cmdIf." : "calDataIf.") + shortPath;
}

int CAutoBindingDataModelDockWidget::GetGroupType(const QString &path) const
{
    return GetJsonValueConst(m_model, GroupPathOf(path) + "groupType").toInt(0);
}

QWidget *CAutoBindingDataModelDockWidget::FindBoundWidget(const QString &path) const
{
    if (!m_widgetRoot)
        return nullptr;
    return m_widgetRoot->findChild<QWidget *>(ObjectNameOf(path));
}

void CAutoBindingDataModelDockWidget::ShowResultMessage(QString title, SEachItemOperationResult result)
{
    m_messageBox.ShowResultMessage(title, result);
}

// ---- The walk at initialisation ------------------------------------------------------

void CAutoBindingDataModelDockWidget::InitWidgets()
{
    qCDebug(lcFramework) << "============ [Start] Init widget ============ ";
    const QList<QWidget *> widgets = m_widgetRoot ? m_widgetRoot->findChildren<QWidget *>() : QList<QWidget *>();
    m_valueWidgets.clear();
    for (QWidget *widget : widgets) {
        if (IsClass(widget, "QGroupBox"))
            widget->setFont(TitleFont());
        const QString name = widget->objectName();
        if (IsValueName(name))
            m_valueWidgets.append(widget);
        if (!IsBoundName(name)) {
            qCDebug(lcFramework) << " Skip " << name;
            continue;
        }
        QString path = PathOf(name);
        const QJsonValue value = GetJsonValueConst(m_model, path);
        if (!IsJsonValueDefined(value)) {
            qCCritical(lcFramework).noquote()
                << "====== Failed processing name: Cannot get the JSON Object====== " + name;
            continue;
        }
        qCDebug(lcFramework) << "====== Processing Name ====== " << name << ": " << ClassOf(widget);

        if (path.contains(QLatin1String("caption"))) {
            qCDebug(lcFramework) << "---> Caption Setting: caption <---" << value;
            path.truncate(path.lastIndexOf('.'));
            const QJsonValue supportValue = GetJsonValueConst(m_model, path + ".defaultSupport");
            qCDebug(lcFramework) << "---> Caption Setting: default support <---" << supportValue;
            const int support = IsJsonValueDefined(supportValue) ? supportValue.toInt() : 1;
            if (auto *label = AsClass<QLabel>(widget, "QLabel")) {
                label->setText(value.toString());
                label->setVisible(support != 0);
            } else if (IsClass(widget, "QGroupBox")) {
                widget->setVisible(support != 0);
            }
            continue;
        }

        qCDebug(lcFramework) << "---> Memeber JASON Object " << value;
        const int groupType = GetGroupType(path);
        qCDebug(lcFramework) << "---> GroupType <---" << groupType;
        switch (groupType) {
        case 1:
            InitType1Widget(path, widget);
            break;
        case 2:
            InitType2Widget(path, widget);
            break;
        case 3:
            InitType3Widget(path, widget);
            break;
        default:
            qCCritical(lcFramework).noquote()
                << "====== Failed processing name: Not support this group type yet ====== " + name;
            break;
        }
    }
    qCDebug(lcFramework) << "============ [Done] Init widget ============ ";
}

QJsonValue CAutoBindingDataModelDockWidget::ResolveValueObject(QJsonValue member, QJsonValue trait)
{
    const QJsonObject memberObject = member.toObject();
    const QJsonObject traitObject = trait.toObject();
    QJsonValue result;
    const QJsonValue subscribeValue = memberObject.value("subscribeValue");
    const QJsonArray subscribeValueList = memberObject.value("subscribeValueList").toArray();
    if (IsJsonValueDefined(subscribeValue)) {
        const QJsonValue publisher = GetJsonValueConst(m_model, ExpandModelPath(subscribeValue.toString()));
        qCDebug(lcFramework) << "---> [Init] Has the subscibe value <---" << publisher;
        if (!IsJsonValueDefined(publisher)) {
            qCDebug(lcFramework) << "---> [Init] Failed to initialize:  Cannot get the mapping data by KEY info <---";
            return QJsonValue(QJsonValue::Undefined);
        }
        const QString key = GetJsonValueConst(publisher.toObject(), "trait.defaultValue").toString();
        qCDebug(lcFramework) << "---> [Init] Subscribe Key info <--- " << key << " default value: ";
        result = GetJsonValueConst(traitObject, "valuePair." + key);
    } else if (!subscribeValueList.isEmpty()) {
        const QString key = RebuildKeyFromModel(subscribeValueList, m_model);
        qCDebug(lcFramework) << "---> [Init] Has the subscribeValueList <--- " << subscribeValueList
                             << "---> [Init] Rebuild the key <--- " << key;
        result = GetJsonValueConst(traitObject, "valuePair." + key);
    } else {
        result = traitObject.value("value");
    }
    qCDebug(lcFramework) << "---> [Init] Final value oject <--- " << result;
    return result;
}

void CAutoBindingDataModelDockWidget::InitType1Widget(QString path, QWidget *widget)
{
    const QJsonObject member = GetJsonValueConst(m_model, path).toObject();
    if (member.value("defaultSupport").toInt() == 0) {
        widget->hide();
        return;
    }
    if (member.value("defaultEnableStatus").toInt() == 0)
        widget->setEnabled(false);

    const QJsonValue trait = member.value("trait");
    qCDebug(lcFramework) << "---> [Init][type1] Trait object <---" << trait;
    if (!IsJsonValueDefined(trait)) {
        qCCritical(lcFramework) << "---> [Fail][Init][type1]Cannot get the Trait JSON Object <---";
        return;
    }
    const QJsonObject traitObject = trait.toObject();
    const QString dataType = traitObject.value("dataType").toString();
    const QString defaultText = traitObject.value("defaultValue").toString();
    const bool publishesValue = !member.value("publishValueList").toArray().isEmpty();
    const bool publishesStatus = !member.value("publishEnableStatusList").toArray().isEmpty();

    if (dataType == "list" && IsClass(widget, "QComboBox")) {
        auto *box = static_cast<QComboBox *>(widget);
        qCDebug(lcFramework) << "---> [Init][type1] Init Combo Box  <---";
        box->clear();
        for (const QJsonValue &item : ResolveValueObject(member, trait).toArray())
            box->addItem(item.toString());
        qCDebug(lcFramework) << "---> [Init][type1] Default value <---" << defaultText;
        box->setCurrentText(defaultText);
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        if (publishesValue) {
            qCDebug(lcFramework)
                << "---> [Init][type1] Has the publish value list: register value publish and subscribe <---";
            connect(box, &QComboBox::currentTextChanged, this, &CAutoBindingDataModelDockWidget::Slot_ValueChange);
        }
        if (publishesStatus) {
            qCDebug(lcFramework) << "---> [Init][type1] Has the enable status list: register enable status publish and "
                                    "subscribe <---";
            connect(box, &QComboBox::currentTextChanged, this,
                    &CAutoBindingDataModelDockWidget::Slot_EnableStatusChange);
        }
    } else if (dataType == "range" && IsClass(widget, "QSpinBox")) {
        auto *box = static_cast<QSpinBox *>(widget);
        qCDebug(lcFramework) << "---> [Init][type1] Init Spin Box  <---";
        const QJsonObject space = ResolveValueObject(member, trait).toObject();
        if (IsJsonValueDefined(space.value("displayBase"))) {
            qCDebug(lcFramework) << "---> [Init][type1] It has displayBase <---";
            box->setDisplayIntegerBase(space.value("displayBase").toInt());
        }
        const IntRange range = IntRangeOf(space);
        box->setRange(range.min, range.max);
        box->setToolTip(range.ToolTip());
        const int value = range.Clamp(ToIntBase10(defaultText));
        qCDebug(lcFramework) << "---> [Init][type1] Default value <---" << value;
        box->setValue(value);
        if (IsJsonValueDefined(space.value("rangeCheck"))) {
            box->setToolTip(space.value("rangeCheck").toString());
            connect(box, &QSpinBox::editingFinished, this, &CAutoBindingDataModelDockWidget::Slot_RangeCheck);
        }
        if (publishesStatus) {
            qCDebug(lcFramework) << "---> [Init][type1] Has the enable status list: register enable status publish and "
                                    "subscribe <---";
            connect(box, &QSpinBox::textChanged, this, &CAutoBindingDataModelDockWidget::Slot_EnableStatusChange);
        }
    } else if (dataType == "pointRange" && IsClass(widget, "QDoubleSpinBox")) {
        auto *box = static_cast<QDoubleSpinBox *>(widget);
        qCDebug(lcFramework) << "---> [Init][type1] Init Double Spin Box  <---";
        const DoubleRange range = DoubleRangeOf(ResolveValueObject(member, trait).toObject());
        box->setRange(range.min, range.max);
        box->setToolTip(range.ToolTip());
        const QJsonValue decimals = traitObject.value("decimals");
        if (IsJsonValueDefined(decimals)) {
            qCDebug(lcFramework) << "---> [Init][type1] == Has the decimals setting <--- " << decimals;
            box->setDecimals(decimals.toInt());
        }
        const double value = range.Clamp(defaultText.toDouble());
        qCDebug(lcFramework) << "---> [Init][type1] Default value <---" << value;
        box->setValue(value);
    } else if (dataType == "label" && IsClass(widget, "QLabel")) {
        qCDebug(lcFramework) << "---> [Init][type1] Init label  <---";
        qCDebug(lcFramework) << "---> [Init][type1] Default value <---" << defaultText;
        static_cast<QLabel *>(widget)->setText(defaultText);
    } else if (dataType == "boolean" && IsClass(widget, "QCheckBox")) {
        auto *box = static_cast<QCheckBox *>(widget);
        qCDebug(lcFramework) << "---> [Init][type1] Init Check Box  <---";
        box->setText(member.value("caption").toString());
        qCDebug(lcFramework) << "---> [Init][type1] Default value <---" << defaultText;
        box->setChecked(defaultText == "true");
        if (publishesValue) {
            qCDebug(lcFramework)
                << "---> [Init][type1] Has the publish value list: register value publish and subscribe <---";
            connect(box, &QCheckBox::stateChanged, this, &CAutoBindingDataModelDockWidget::Slot_CheckBoxValueChange);
        }
        if (publishesStatus) {
            qCDebug(lcFramework) << "---> [Init][type1] Has the enable status list: register enable status publish and "
                                    "subscribe <---";
            connect(box, &QCheckBox::stateChanged, this,
                    &CAutoBindingDataModelDockWidget::Slot_CheckBoxEnableStatusChange);
        }
    } else {
        qCCritical(lcFramework) << "---> [Fail][Init][type1]cannot find the mapping of Data Type and QWidget <---";
    }
}

template <typename Box, typename Range>
void CAutoBindingDataModelDockWidget::InitSpinCells(QTableWidget *table, int row, int columns, const Range &range,
                                                    const QJsonArray &values, const QJsonValue &rangeCheck,
                                                    bool enabled, int decimals)
{
    for (int c = 0; c < columns; ++c) {
        auto *cell = new Box;
        cell->setRange(range.min, range.max);
        if constexpr (std::is_same_v<Box, QDoubleSpinBox>)
            cell->setDecimals(decimals);
        else
            Q_UNUSED(decimals);
        cell->setToolTip(range.ToolTip());
        cell->setValue(range.Clamp(Range::Parse(EntryOrLast(values, c).toString())));
        cell->setFont(CellFont());
        cell->setEnabled(enabled);
        cell->setButtonSymbols(QAbstractSpinBox::NoButtons);
        table->setCellWidget(row, c, cell);
        if (IsJsonValueDefined(rangeCheck)) {
            cell->setToolTip(rangeCheck.toString());
            if constexpr (std::is_same_v<Box, QDoubleSpinBox>)
                connect(cell, &Box::editingFinished, this, &CAutoBindingDataModelDockWidget::Slot_PointRangeCheck);
            else
                connect(cell, &Box::editingFinished, this, &CAutoBindingDataModelDockWidget::Slot_RangeCheck);
        }
    }
}

QStringList CAutoBindingDataModelDockWidget::SupportedRows(const QJsonObject &memberProperty,
                                                          const QJsonArray &memberList)
{
    QStringList rows;
    for (const QJsonValue &name : memberList) {
        if (memberProperty.value(name.toString()).toObject().value("defaultSupport").toInt(0) == 1)
            rows << name.toString();
    }
    return rows;
}

void CAutoBindingDataModelDockWidget::InitType3Widget(QString path, QWidget *widget)
{
    if (!IsClass(widget, "QTableWidget")) {
        qCCritical(lcFramework) << "---> [[Fail][Init][type3] Now only support table widget(QTableWidget) <--- "
                                << ClassOf(widget);
        return;
    }
    auto *table = static_cast<QTableWidget *>(widget);
    qCDebug(lcFramework) << "---> [Init][type3] Initialize <---";
    const QJsonObject group = GetJsonValueConst(m_model, GroupOf(path)).toObject();
    const QJsonObject memberProperty = group.value("memberProperty").toObject();
    const int columns = memberProperty.value("dimentionCount").toInt(0);

    QStringList columnHeaders;
    const QJsonValue captionList = memberProperty.value("colFieldCaptionList");
    if (IsJsonValueDefined(captionList)) {
        for (const QJsonValue &caption : captionList.toArray())
            columnHeaders << caption.toString();
        qCDebug(lcFramework) << "---> [Init][type3] Column info <---"
                             << " dimention: " << columns << " Caption Array:" << columnHeaders;
    } else {
        const int start = memberProperty.value("startIndex").toInt(0);
        const int step = memberProperty.value("indexStep").toInt(0);
        for (int c = 0; c < columns; ++c)
            columnHeaders << QString::number(start + c * step);
        qCDebug(lcFramework) << "---> [Init][type3] Column info <---"
                             << " dimention: " << columns << " startLabel:" << start << " steps: " << step;
    }

    const QJsonArray memberList = group.value("memberList").toArray();
    qCDebug(lcFramework) << "---> [Init][type3] Row info - from member list <---" << memberList;
    const QStringList rows = SupportedRows(memberProperty, memberList);
    if (rows.isEmpty()) {
        qCDebug(lcFramework) << "---> [Init][type3] Set visible to false, all member value are not support <---";
        table->hide();
        return;
    }
    qCDebug(lcFramework) << "---> [Init][type3] Row info - after checking memeber support <---" << rows;
    table->setColumnCount(columns);
    table->setRowCount(rows.size());
    for (int c = 0; c < columns; ++c)
        table->horizontalHeader()->resizeSection(c, 58);

    // The cells go into a hidden viewport and are shown with it, in one pass
    // rather than one show (and one look at all their siblings) per cell.
    QWidget *viewport = table->viewport();
    const bool viewportShown = !viewport->isHidden();
    viewport->hide();

    QStringList rowHeaders;
    for (int r = 0; r < rows.size(); ++r) {
        const QJsonObject member = memberProperty.value(rows[r]).toObject();
        rowHeaders << member.value("caption").toString();
        table->verticalHeader()->resizeSection(r, 22);
        const QJsonObject traitObject = member.value("trait").toObject();
        const QString dataType = traitObject.value("dataType").toString();
        qCDebug(lcFramework) << "---> [Init][type3] ==" << r << "== Member JSON Object  <---" << member
                             << "== DataType <--- " << dataType;
        const bool enabled = member.value("defaultEnableStatus").toInt() != 0;
        const QJsonArray defaults = traitObject.value("defaultValue").toArray();

        if (dataType.contains(QLatin1String("Range")) || dataType.contains(QLatin1String("range"))) {
            const QJsonObject space = ResolveValueObject(member, traitObject).toObject();
            if (dataType == "pointRange" || dataType == "range") {
                QJsonArray values = defaults;
                const QJsonValue rangeCheck = space.value("rangeCheck");
                if (IsJsonValueDefined(rangeCheck)) {
                    qCDebug(lcFramework) << "== Has the rangeCheck <--- " << rangeCheck;
                    if (IsJsonValueDefined(space.value("value"))) {
                        qCDebug(lcFramework) << "== Has the value and rangeCheck <--- ";
                        values = QJsonArray{space.value("value")};
                    }
                }
                if (dataType == "range") {
                    InitSpinCells<QSpinBox>(table, r, columns, IntRangeOf(space), values, rangeCheck, enabled, 0);
                } else {
                    int decimals = 5;
                    if (IsJsonValueDefined(space.value("decimals"))) {
                        decimals = space.value("decimals").toInt();
                        qCDebug(lcFramework) << "== Has the decimals setting <--- " << decimals;
                    }
                    InitSpinCells<QDoubleSpinBox>(table, r, columns, DoubleRangeOf(space), values, rangeCheck, enabled,
                                                  decimals);
                }
            } else if (dataType == "unsignedRange") {
                for (int c = 0; c < columns; ++c)
                    table->horizontalHeader()->resizeSection(c, 75);
                const quint32 min = space.value("min").toString().toUInt(nullptr, 10);
                const quint32 max = space.value("max").toString().toUInt(nullptr, 10);
                int base = 10;
                if (IsJsonValueDefined(space.value("displayBase"))) {
                    base = space.value("displayBase").toInt();
                    qCDebug(lcFramework) << "== It has displayBase <--- " << base;
                }
                for (int c = 0; c < columns; ++c) {
                    auto *cell = new CUnsignedSpinBox(table, base);
                    cell->m_maximum = max;
                    cell->m_minimum = min;
                    cell->setToolTip(QString("%1~%2").arg(min).arg(max));
                    bool ok = false;
                    quint32 value = EntryOrLast(defaults, c).toString().toUInt(&ok, 10);
                    if (value < min || value > max)
                        value = quint32((quint64(min) + max) / 2);
                    cell->setText(QString::number(value, base).toUpper());
                    cell->setFont(CellFont());
                    table->setCellWidget(r, c, cell);
                }
            } else {
                qCCritical(lcFramework)
                    << "---> [Fail][Init][type3] Cannot get the row info: dataType not support yet <--- " << dataType;
            }
        } else if (dataType == "label") {
            qCDebug(lcFramework) << "== defaultValueArray <--- " << defaults;
            for (int c = 0; c < columns; ++c) {
                auto *cell = new QLabel("0");
                cell->setFrameShape(QFrame::StyledPanel);
                cell->setFont(CellFont());
                cell->setEnabled(enabled);
                if (c < defaults.size())
                    cell->setText(defaults[c].toString());
                table->setCellWidget(r, c, cell);
            }
        } else if (dataType == "list") {
            const QJsonArray items = traitObject.value("value").toArray();
            qCDebug(lcFramework) << "== defaultValueArray <--- " << defaults << "== listValue <--- " << items;
            for (int c = 0; c < columns; ++c) {
                auto *cell = new QComboBox;
                for (const QJsonValue &item : items)
                    cell->addItem(item.toString());
                cell->setFont(CellFont());
                cell->setCurrentText(EntryOrLast(defaults, c).toString());
                table->setCellWidget(r, c, cell);
            }
        } else {
            qCCritical(lcFramework)
                << "---> [Fail][Init][type3] Cannot get the row info: dataType not support yet <--- " << dataType;
        }
    }
    viewport->setVisible(viewportShown);
    table->setHorizontalHeaderLabels(columnHeaders);
    table->setVerticalHeaderLabels(rowHeaders);
    SizeTable(table, columns, false);
}

void CAutoBindingDataModelDockWidget::InitType2Widget(QString path, QWidget *widget)
{
    if (!IsClass(widget, "QTableWidget")) {
        qCCritical(lcFramework) << "---> [Fail][Init][type2] Now only support table widget(QTableWidget) <--- "
                                << ClassOf(widget);
        return;
    }
    auto *table = static_cast<QTableWidget *>(widget);
    qCDebug(lcFramework) << "---> [Init][type2] Initialize <---";
    const QJsonObject group = GetJsonValueConst(m_model, GroupOf(path)).toObject();
    const QJsonObject memberProperty = group.value("memberProperty").toObject();
    const QJsonArray memberList = group.value("memberList").toArray();
    const QJsonArray instanceList = group.value("instanceList").toArray();

    bool supported = false;
    for (const QJsonValue &name : memberList) {
        const QJsonValue support = memberProperty.value(name.toString()).toObject().value("defaultSupport");
        if (IsJsonValueDefined(support))
            supported = support.toInt() == 1;
    }
    if (!supported) {
        qCDebug(lcFramework) << "---> [Init][type2] Set visible to false, all member value are not support <---";
        table->hide();
        return;
    }
    table->setColumnCount(memberList.size());
    table->setRowCount(instanceList.size());
    qCDebug(lcFramework) << "---> [Init][type2] Column info - from memeber list <---" << memberList
                         << "---> [Init][type2] Row info - from instance list <---" << instanceList;

    QStringList columnHeaders;
    for (int c = 0; c < memberList.size(); ++c) {
        const QString name = memberList[c].toString();
        const QJsonObject member = memberProperty.value(name).toObject();
        columnHeaders << member.value("caption").toString();
        const QJsonObject traitObject = member.value("trait").toObject();
        const QString dataType = traitObject.value("dataType").toString();
        const QJsonObject space = traitObject.value("value").toObject();
        bool filling = true;
        for (int r = 0; r < instanceList.size() && filling; ++r) {
            table->verticalHeader()->resizeSection(r, 22);
            const QJsonValue defaultValue =
                GetJsonValueConst(memberProperty, instanceList[r].toString() + "." + name + ".defaultValue");
            if (dataType == "pointRange") {
                const DoubleRange range = DoubleRangeOf(space);
                auto *cell = new QDoubleSpinBox;
                cell->setRange(range.min, range.max);
                cell->setDecimals(IsJsonValueDefined(space.value("decimals")) ? space.value("decimals").toInt() : 5);
                cell->setToolTip(range.ToolTip());
                cell->setValue(range.Clamp(defaultValue.toString().toDouble()));
                cell->setFont(CellFont());
                cell->setButtonSymbols(QAbstractSpinBox::NoButtons);
                table->setCellWidget(r, c, cell);
            } else if (dataType == "range") {
                const IntRange range = IntRangeOf(space);
                auto *cell = new QSpinBox;
                cell->setRange(range.min, range.max);
                cell->setToolTip(range.ToolTip());
                cell->setValue(range.Clamp(ToIntBase10(defaultValue.toString())));
                cell->setFont(CellFont());
                cell->setButtonSymbols(QAbstractSpinBox::NoButtons);
                table->setCellWidget(r, c, cell);
            } else if (dataType == "label") {
                auto *cell = new QLabel(IsJsonValueDefined(defaultValue) ? defaultValue.toString() : "0");
                cell->setFont(CellFont());
                cell->setAlignment(Qt::AlignCenter);
                table->setCellWidget(r, c, cell);
            } else {
                qCCritical(lcFramework)
                    << "---> [Fail][Init][type2] Cannot get the row info - dataType not support yet <--- " << dataType;
                filling = false;
            }
        }
    }

    QStringList rowHeaders;
    const QJsonObject instanceProperty = group.value("instanceProperty").toObject();
    for (const QJsonValue &instance : instanceList)
        rowHeaders << instanceProperty.value(instance.toString()).toObject().value("caption").toString();
    table->setHorizontalHeaderLabels(columnHeaders);
    table->setVerticalHeaderLabels(rowHeaders);
    SizeTable(table, memberList.size(), true);
}

void CAutoBindingDataModelDockWidget::SizeTable(QTableWidget *table, int columns, bool singleRowTall)
{
    // The headers take their real size from their contents once polished; the
    // table lays them out at once instead of at its next show or resize, so
    // the page need not be hidden and shown for it (which costs a show event
    // to every widget of the page for every table).
    table->ensurePolished();
    table->verticalHeader()->ensurePolished();
    table->horizontalHeader()->ensurePolished();
    QMetaObject::invokeMethod(table, "updateGeometries", Qt::DirectConnection);

    const int fitted = columns > 16 ? 15 : columns;
    int width = table->verticalHeader()->width();
    for (int c = 0; c < fitted; ++c)
        width += table->columnWidth(c);
    int height = table->horizontalHeader()->height() * (columns > 16 ? 2 : 1);
    for (int r = 0; r < table->rowCount(); ++r)
        height += table->rowHeight(r);
    if (singleRowTall && table->rowCount() <= 1)
        height *= 6;
    table->setMaximumSize(width, height);
    table->setMinimumSize(width, height);
    if (columns <= 16)
        table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

// ---- Range checks when the user leaves a field ---------------------------------------
//
// The allowed values live in the field's tool tip: items separated by ",",
// an item with "~" a closed interval, any other item a single value. A value
// that matches none jumps to the middle of the first interval, or to the
// first single value when that comes first.

namespace {

template <typename Number>
struct SRangeCheck {
    std::function<Number(const QString &)> parse;
    std::function<bool(Number low, Number high)> inInterval;
    std::function<bool(const QString &item)> isSingle;
    std::function<Number(Number low, Number high)> middle;

    // The value the field must take; nothing when it may stay as it is (a
    // match, or a check that names no item at all).
    std::optional<Number> Correction(const QStringList &items) const
    {
        std::optional<Number> fallback;
        for (const QString &item : items) {
            const int tilde = item.indexOf('~');
            if (tilde >= 0) {
                const Number low = parse(item.left(tilde));
                const Number high = parse(item.mid(tilde + 1));
                if (inInterval(low, high)) {
                    qCDebug(lcFramework) << "find return";
                    return std::nullopt;
                }
                if (!fallback)
                    fallback = middle(low, high);
            } else {
                if (isSingle(item)) {
                    qCDebug(lcFramework) << "find return";
                    return std::nullopt;
                }
                if (!fallback)
                    fallback = parse(item);
            }
        }
        return fallback;
    }
};

} // namespace

void CAutoBindingDataModelDockWidget::Slot_RangeCheck()
{
    auto *box = qobject_cast<QSpinBox *>(sender());
    if (!box)
        return;
    const QString text = box->text();
    const QStringList items = box->toolTip().split(',', Qt::SkipEmptyParts);
    qCDebug(lcFramework) << "---> Slot_RangeCheck <--- " << items;
    const int value = ToIntBase10(text);
    const SRangeCheck<int> check{
        ToIntBase10, [value](int low, int high) { return value >= low && value <= high; },
        [&text](const QString &item) { return item == text; },
        [](int low, int high) { return int((qint64(low) + high) / 2); }};
    if (const std::optional<int> correction = check.Correction(items))
        box->setValue(*correction);
}

void CAutoBindingDataModelDockWidget::Slot_PointRangeCheck()
{
    auto *box = qobject_cast<QDoubleSpinBox *>(sender());
    if (!box)
        return;
    const QStringList items = box->toolTip().split(',', Qt::SkipEmptyParts);
    qCDebug(lcFramework) << "---> Slot_PointRangeCheck <--- " << items;
    const double value = box->value();
    const SRangeCheck<double> check{
        [](const QString &item) { return item.toDouble(); },
        [value](double low, double high) { return value >= low && value <= high; },
        [value](const QString &item) { return item.toDouble() == value; },
        [](double low, double high) { return (low + high) * 0.5; }};
    if (const std::optional<double> correction = check.Correction(items))
        box->setValue(*correction);
}
