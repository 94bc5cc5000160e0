#include <QtTest>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include "Afc/TdscdmaAfcDockWidget.h"
#include "BBReg/TdscdmaBBRegDockWidget.h"
#include "JsonPath.h"
#include "ModelBinding.h"
#include "RadbenchResources.h"
#include "Rx/TdscdmaContRxDockWidget.h"
#include "Rx/TdscdmaPathlossDockWidget.h"
#include "Rx/TdscdmaRssiDockWidget.h"
#include "SimScope.h"
#include "Tadc/TdscdmaTadcDockWidget.h"
#include "TdscdmaCore.h"
#include "TestLog.h"
#include "Tx/TdscdmaContTxDockWidget.h"
#include "Tx/TdscdmaDpchTxDockWidget.h"
#include "Tx/TdscdmaTpcDockWidget.h"
#include "Tx/TdscdmaTpcDockWidgetV3.h"

// The stored models are well-formed, as they are stored and as they reach a
// page fitted to a target, and every bound widget of every page names a
// member of its page's model. A model is named as in ":/Tdscdma<name>.json".

namespace {

// A stored model by name, or "profile/page": the model of a page fitted to the target of a profile.
QJsonObject Model(const QString &name)
{
    if (!name.contains('/')) {
        QFile file(":/Tdscdma" + name + ".json");
        return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
    }
    TavoSim::LoadProfile(name.section('/', 0, 0));
    TavoSim::LoadDatabase();
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    core->ResetCapability();
    return QJsonDocument::fromJson(QByteArray::fromStdString(core->GetDataModel(name.section('/', 1)))).object();
}

QStringList Texts(const QJsonValue &value)
{
    QStringList texts;
    for (const QJsonValue &entry : value.toArray())
        texts << (entry.isString() ? entry.toString() : "<not text>");
    return texts;
}

QStringList Sorted(QStringList list)
{
    list.sort();
    return list;
}

bool IsInteger(const QJsonValue &value) { return value.isDouble() && value.toDouble() == qint64(value.toDouble()); }

// Everything wrong with one model, one line each. A fitted model is also held
// to what fitting writes: the valuePair and enableStatusPair keys of a
// supported member are exactly the values of the member it follows (the
// stored models hold placeholders there).
class ModelCheck {
public:
    QStringList problems;

    ModelCheck(const QJsonObject &model, bool fitted)
        : m_model(model), m_fitted(fitted), m_interface(model.contains("cmdIf") ? "cmdIf" : "calDataIf")
    {
        Only("model", model, {"modelName", "modelVersion", m_interface});
        if (model.value("modelName").toString().isEmpty() || model.value("modelVersion") != QJsonValue(1))
            Fail("model", "needs a modelName and modelVersion 1");
        const QJsonObject sections = model.value(m_interface).toObject();
        const QStringList names =
            m_interface == "cmdIf" ? QStringList{"request", "response"} : QStringList{"config", "data"};
        if (Sorted(sections.keys()) != names)
            Fail(m_interface, "has the sections " + sections.keys().join(','));
        for (const QString &section : names) {
            const QJsonObject groups = sections.value(section).toObject();
            for (int n = 1; n <= groups.size(); ++n) {
                const QString path = QString("%1.%2.group%3").arg(m_interface, section).arg(n);
                if (!groups.contains(path.section('.', 2)))
                    Fail(path, "is missing: groups are counted from 1");
                else
                    Group(path, groups.value(path.section('.', 2)).toObject());
            }
        }
    }

private:
    void Fail(const QString &where, const QString &what) { problems << where + ": " + what; }
    void Only(const QString &path, const QJsonObject &object, const QStringList &keys)
    {
        for (const QString &key : object.keys()) {
            if (!keys.contains(key))
                Fail(path, key + " is no key here");
        }
    }
    QJsonObject MemberAt(const QString &shortPath) const
    {
        return GetJsonValueConst(m_model, m_interface + "." + shortPath).toObject();
    }
    QString ShortPath(const QString &path) const { return path.mid(m_interface.size() + 1); }
    // What a publisher's widget can show: the keys its subscribers look up.
    static QStringList ValuesOf(const QJsonObject &member)
    {
        const QJsonObject trait = member.value("trait").toObject();
        return trait.value("dataType") == QJsonValue("boolean") ? QStringList{"false", "true"}
                                                                 : Sorted(Texts(trait.value("value")));
    }

    void Group(const QString &path, const QJsonObject &group)
    {
        const int type = group.value("groupType").toInt(0);
        if (type != 1 && type != 3)
            Fail(path, "groupType is neither 1 nor 3");
        const QStringList members = Texts(group.value("memberList"));
        const QJsonObject property = group.value("memberProperty").toObject();
        QStringList keys = members;
        const int columns = property.value("dimentionCount").toInt(0);
        if (type == 3) {
            keys << "dimentionCount" << "startIndex" << "indexStep" << "colFieldCaptionList";
            if (!IsInteger(property.value("dimentionCount")) || columns < 1 || columns > 15)
                Fail(path, "dimentionCount is no number of columns from 1 to 15");
            if (property.contains("colFieldCaptionList")
                    ? Texts(property.value("colFieldCaptionList")).size() != columns
                    : !IsInteger(property.value("startIndex")) || !IsInteger(property.value("indexStep")))
                Fail(path, "the column headers are not given");
        }
        Only(path + ".memberProperty", property, keys);
        for (const QString &member : members) {
            if (member.contains('_') || member.contains('.') || !property.value(member).isObject() ||
                members.count(member) > 1)
                Fail(path, member + " of memberList is no member of memberProperty a widget can be named after");
            else
                Member(path + ".memberProperty." + member, property.value(member).toObject(), type, columns);
        }
    }

    void Member(const QString &path, const QJsonObject &member, int groupType, int columns)
    {
        if (member.value("caption").toString().isEmpty())
            Fail(path, "has no caption");
        for (const char *flag : {"defaultSupport", "defaultEnableStatus"}) {
            if (member.value(flag) != QJsonValue(0) && member.value(flag) != QJsonValue(1))
                Fail(path, QString(flag) + " is neither 0 nor 1");
        }
        const bool supported = member.value("defaultSupport") == QJsonValue(1);
        const QJsonObject trait = member.value("trait").toObject();
        const QString dataType = trait.value("dataType").toString();
        const QStringList served = groupType == 3 ? QStringList{"list", "range", "pointRange", "unsignedRange", "label"}
                                                  : QStringList{"list", "range", "pointRange", "label", "boolean"};
        if (!served.contains(dataType))
            Fail(path, QString("a group of type %1 has no widget for \"%2\"").arg(groupType).arg(dataType));

        // One text, or in a table one per column, or fewer that the last fills
        // up; a column of combo boxes needs one for each.
        const QJsonValue value = trait.value("defaultValue");
        const QStringList defaults = groupType == 3 ? Texts(value) : QStringList{value.toString("<not text>")};
        if (defaults.contains("<not text>") || defaults.isEmpty() ||
            (groupType == 3 && (defaults.size() > columns || (dataType == "list" && defaults.size() != columns))))
            Fail(path, "defaultValue does not fit the widget");

        if (member.contains("subscribeValue")) {
            const QJsonObject publisher = MemberAt(member.value("subscribeValue").toString());
            if (!Texts(publisher.value("publishValueList")).contains(ShortPath(path)))
                Fail(path, "subscribes to a member that does not publish to it");
            const QJsonObject pairs = trait.value("valuePair").toObject();
            if (pairs.isEmpty() || (m_fitted && supported && Sorted(pairs.keys()) != ValuesOf(publisher)))
                Fail(path, "valuePair keys " + pairs.keys().join(',') + " are not the publisher's values");
            const QString key = publisher.value("trait").toObject().value("defaultValue").toString();
            for (auto pair = pairs.begin(); pair != pairs.end(); ++pair)
                Space(path + ".trait.valuePair." + pair.key(), dataType, pair.value(), defaults, pair.key() == key);
        } else if (dataType != "label") {
            Space(path + ".trait.value", dataType, trait.value("value"), defaults, true);
        }

        for (const QString &subscriber : Texts(member.value("publishValueList"))) {
            if (dataType != "list" && dataType != "boolean")
                Fail(path, "a \"" + dataType + "\" widget publishes no value");
            if (MemberAt(subscriber).value("subscribeValue").toString() != ShortPath(path))
                Fail(path, "publishes to " + subscriber + ", which is no member that subscribes to it");
        }
        for (const QString &subscriber : Texts(member.value("publishEnableStatusList"))) {
            const QJsonObject other = MemberAt(subscriber);
            const QJsonObject pairs = other.value("trait").toObject().value("enableStatusPair").toObject();
            bool numbers = true;
            for (const QJsonValue &enabled : pairs)
                numbers = numbers && enabled.isDouble();
            if (!numbers || pairs.isEmpty() ||
                (m_fitted && other.value("defaultSupport") == QJsonValue(1) &&
                 Sorted(pairs.keys()) != ValuesOf(member)))
                Fail(subscriber, "enableStatusPair keys " + pairs.keys().join(',') + " are not the publisher's values");
        }
        const QString statusPublisher = member.value("subscribeEnableStatus").toString();
        if (!statusPublisher.isEmpty() &&
            !Texts(MemberAt(statusPublisher).value("publishEnableStatusList")).contains(ShortPath(path)))
            Fail(path, "subscribeEnableStatus names a member that does not publish to it");
    }

    // A value space of `dataType`; `defaults` lie in it if `holdsDefaults`.
    void Space(const QString &path, const QString &dataType, const QJsonValue &space, const QStringList &defaults,
               bool holdsDefaults)
    {
        if (path.section(".valuePair.", 1).contains('.'))
            Fail(path, "a key with a \".\" is never found");
        if (dataType == "label") {
            if (!space.isString())
                Fail(path, "is no text to show");
            return;
        }
        if (dataType == "list" || dataType == "boolean") {
            const QStringList items = Texts(space);
            if (items.isEmpty() || items.contains("<not text>") || QStringList(items).removeDuplicates() > 0 ||
                (dataType == "boolean" && items != QStringList{"true", "false"}))
                Fail(path, "is no list of distinct texts");
            for (const QString &value : defaults) {
                if (holdsDefaults && !items.contains(value))
                    Fail(path, "lacks the default " + value);
            }
            return;
        }
        const QJsonObject range = space.toObject();
        const bool isUnsigned = dataType == "unsignedRange", isInt = dataType == "range";
        // A JSON number of the kind of the space; decimal digits in a text for an unsigned range.
        const auto bound = [&](const char *key, bool &ok) {
            ok = isInt ? IsInteger(range.value(key)) : range.value(key).isDouble();
            return isUnsigned ? range.value(key).toString().toUInt(&ok, 10) : range.value(key).toDouble();
        };
        bool ok = false, maxOk = false;
        const double min = bound("min", ok), max = bound("max", maxOk);
        if (!ok || !maxOk || min > max)
            Fail(path, "has no min and max with min <= max");
        const QJsonValue base = range.value("displayBase");
        if (range.contains("displayBase") && (!IsInteger(base) || base.toInt() < 2 || base.toInt() > 36))
            Fail(path, "displayBase is no number base");
        const QStringList allowed = range.value("rangeCheck").toString().split(',');
        for (const QString &value : defaults) {
            const double n = isUnsigned ? value.toUInt(&ok, 10) : isInt ? value.toInt(&ok, 10) : value.toDouble(&ok);
            if (!ok)
                Fail(path, "the default " + value + " is no number of its kind");
            else if (holdsDefaults && (n < min || n > max) && !allowed.contains(value))
                Fail(path, "the default " + value + " lies outside");
        }
    }

    QJsonObject m_model;
    bool m_fitted;
    QString m_interface;
};

QStringList Problems(const QJsonObject &model, bool fitted) { return ModelCheck(model, fitted).problems; }

// The pages, with the stored models they may be given.
const QPair<const QMetaObject *, const char *> kPages[] = {
    {&CTdscdmaContTxDockWidget::staticMetaObject, "ContTx"}, {&CTdscdmaContRxDockWidget::staticMetaObject, "ContRx"},
    {&CTdscdmaDpchTxDockWidget::staticMetaObject, "DpchTx"}, {&CTdscdmaRssiDockWidget::staticMetaObject, "Rssi"},
    {&CTdscdmaBBRegDockWidget::staticMetaObject, "BBReg"},   {&CTdscdmaAfcDockWidget::staticMetaObject, "Afc"},
    {&CTdscdmaTadcDockWidget::staticMetaObject, "Tadc"},     {&CTdscdmaTpcDockWidget::staticMetaObject, "Tpc"},
    {&CTdscdmaTpcDockWidgetV3::staticMetaObject, "TpcV3"},
    {&CTdscdmaPathlossDockWidget::staticMetaObject, "Pathloss PathlossV3"}};

} // namespace

class TestStoredModels : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        InitRadbenchResources();
        TestLog::MuteOffscreenPlatformNotes();
    }
    void cleanupTestCase() { TavoSim::Reset(); }

    // The check is live, for stored and for fitted models.
    void checkFindsFaults_data()
    {
        QTest::addColumn<QString>("model"); // stored, or "profile/page" fitted
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("value"); // JSON
        QTest::addColumn<QString>("problem");
        const QString request = "cmdIf.request.group1.memberProperty.";
        QTest::newRow("list default not an item")
            << "Rssi" << request + "mode.trait.defaultValue" << R"("Ext9")" << "lacks the default Ext9";
        QTest::newRow("publish to nothing") << "ContTx" << request + "band.publishValueList"
                                            << R"(["request.group1.memberProperty.x"])" << "publishes to";
        QTest::newRow("table too wide") << "Pathloss" << "calDataIf.data.group2.memberProperty.dimentionCount" << "16"
                                        << "from 1 to 15";
        QTest::newRow("band without a range") << "default/Continuous TX" << request + "uarfcn.trait.valuePair"
                                              << R"j({"1900-1920MHz(a)":{"min":1,"max":2}})j" << "valuePair keys";
    }
    void checkFindsFaults()
    {
        QFETCH(QString, model);
        QFETCH(QString, path);
        QFETCH(QString, value);
        QFETCH(QString, problem);
        QJsonObject object = Model(model);
        QVERIFY(SetJsonValue(object, path, QJsonDocument::fromJson("[" + value.toUtf8() + "]").array().at(0)));
        const QStringList problems = Problems(object, model.contains('/'));
        QVERIFY2(problems.filter(problem).size() == 1, qPrintable(problems.join('\n')));
    }

    // The rows are the bands a target can be offered (the default target
    // offers all), and a band's UARFCN range is five times its frequencies in
    // MHz, the same both ways.
    void bandTable()
    {
        const QJsonObject bands = Model("3gpp").value("operatingBand").toObject();
        QStringList offered;
        for (const QString path : {"Continuous TX:cmdIf.request", "Tpc:calDataIf.config"})
            offered += Texts(GetJsonValueConst(Model("default/" + path.section(':', 0, 0)),
                                               path.section(':', 1) + ".group1.memberProperty.band.trait.value"));
        QCOMPARE(Sorted(offered), Sorted(bands.keys()));
        for (auto band = bands.begin(); band != bands.end(); ++band) {
            const QRegularExpressionMatch mhz = QRegularExpression("^(\\d+)-(\\d+)MHz").match(band.key());
            const QJsonObject range{{"low", 5 * mhz.captured(1).toInt()}, {"high", 5 * mhz.captured(2).toInt()}};
            QCOMPARE(band.value().toObject(), (QJsonObject{{"uplink", range}, {"downlink", range}}));
        }
    }

    void modelsAreWellFormed_data()
    {
        QTest::addColumn<QString>("model");
        QTest::addColumn<int>("page"); // of kPages; -1: none
        for (int page = 0; page < int(std::size(kPages)); ++page) {
            for (const QString &model : QString(kPages[page].second).split(' '))
                QTest::addRow("%s, %s", kPages[page].first->className(), qPrintable(model)) << model << page;
        }
        // The first target has the V3 models, the second the others.
        for (const char *profile : {"default", "legacy-v1"}) {
            for (const char *page : {"AFC Control", "Continuous TX", "Tpc", "Rx Pathloss", "Temperature ADC",
                                     "Continuous RX", "Dpch TX", "Rssi", "Baseband Register"})
                QTest::addRow("%s/%s", profile, page) << QString("%1/%2").arg(profile, page) << -1;
        }
    }
    // Each model is well-formed, and each bound widget of a page that may be
    // given a stored model names a member of it: a name that is no path of
    // the model leaves its widget as the form drew it, and a widget of the
    // wrong class for its member is never set.
    void modelsAreWellFormed()
    {
        QFETCH(QString, model);
        QFETCH(int, page);
        const QJsonObject object = Model(model);
        QVERIFY2(!object.isEmpty(), "resource missing, empty or no JSON object");
        QCOMPARE(Problems(object, model.contains('/')), QStringList());
        if (page < 0)
            return;
        QScopedPointer<QObject> instance(kPages[page].first->newInstance(Q_ARG(QWidget *, nullptr)));
        QVERIFY(instance);
        static const QMap<QString, QString> classes{{"list", "QComboBox"}, {"range", "QSpinBox"}, {"label", "QLabel"},
                                                    {"pointRange", "QDoubleSpinBox"}, {"boolean", "QCheckBox"}};
        QStringList problems;
        for (QWidget *widget : instance->findChildren<QWidget *>()) {
            const QString name = widget->objectName(), path = ModelBinding::PathOf(name);
            const QString widgetClass = ModelBinding::ClassOf(widget);
            if (!ModelBinding::IsBoundName(name))
                continue;
            QString expected;
            if (name.contains("caption"))
                expected = GetJsonValueConst(object, path).isString() ? "QLabel or QGroupBox" : "caption of a member";
            else if (GetJsonValueConst(object, ModelBinding::GroupOf(path) + ".groupType").toInt() == 3)
                expected = "QTableWidget";
            else
                expected = classes.value(GetJsonValueConst(object, path + ".trait.dataType").toString(), "member");
            if (!expected.split(" or ").contains(widgetClass))
                problems << name + ": a " + widgetClass + " where the model wants a " + expected;
        }
        QCOMPARE(problems, QStringList());
    }
};

QTEST_MAIN(TestStoredModels)
#include "tst_StoredModels.moc"
