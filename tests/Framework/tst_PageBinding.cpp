#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QSpinBox>
#include <QTableWidget>
#include <QtTest>

#include "JsonPath.h"
#include "ModalBoxCatcher.h"
#include "SimScope.h"
#include "TdscdmaCore.h"
#include "TestLog.h"
#include "TestPage.h"
#include "UnsignedSpinBox.h"

// The binding of a page to its model: widgets of each data type, captions,
// relations, tables, and the values packed for the core and updated from it.

namespace {

const QString kMember = "cmdIf_request_group1_memberProperty_m";

QString CellText(QTableWidget *table, int row, int column) { return Describe(table->cellWidget(row, column)); }

QJsonObject Parse(const std::string &text) { return QJsonDocument::fromJson(QByteArray::fromStdString(text)).object(); }
QString Text(const QJsonValue &value)
{
    const QString array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

// A fitted page model of the controller, on `profile`.
std::string FittedModel(const QString &profile, const QString &page)
{
    TavoSim::LoadProfile(profile);
    TavoSim::LoadDatabase();
    CTdscdmaCore::GetInstance()->ResetCapability();
    return CTdscdmaCore::GetInstance()->GetDataModel(page);
}

// Every value member of a model, as full paths, with the group's type.
QVector<QPair<QString, int>> ValueMembers(const QJsonObject &model)
{
    QVector<QPair<QString, int>> members;
    const QString interface = model.contains("cmdIf") ? "cmdIf" : "calDataIf";
    const QJsonObject sections = model.value(interface).toObject();
    for (auto section = sections.begin(); section != sections.end(); ++section) {
        const QJsonObject groups = section.value().toObject();
        for (auto group = groups.begin(); group != groups.end(); ++group) {
            const QJsonObject g = group.value().toObject();
            for (const QJsonValue &member : g.value("memberList").toArray())
                members << qMakePair(interface + "." + section.key() + "." + group.key() + ".memberProperty." +
                                         member.toString(),
                                     g.value("groupType").toInt());
        }
    }
    return members;
}

// What a type 1 widget shows, as the core must receive it.
QString ShownValue(QWidget *widget)
{
    if (auto *box = qobject_cast<QComboBox *>(widget))
        return box->currentText();
    if (auto *box = qobject_cast<QSpinBox *>(widget))
        return QString::number(box->value());
    if (auto *box = qobject_cast<QDoubleSpinBox *>(widget))
        return box->text();
    if (auto *box = qobject_cast<QCheckBox *>(widget))
        return box->isChecked() ? "true" : "false";
    if (auto *label = qobject_cast<QLabel *>(widget))
        return label->text();
    return "?";
}

} // namespace

class TestPageBinding : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        TestLog::MuteOffscreenPlatformNotes();
        TestLog::SetChannel(QtCriticalMsg, false);
    }
    void cleanup() { TavoSim::Reset(); }

    void memberWidgets_data()
    {
        QTest::addColumn<QString>("widgetClass");
        QTest::addColumn<QString>("member");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("failure");
        const QString on = R"("defaultSupport":1,"defaultEnableStatus":1,)";
        QTest::newRow("list") << "QComboBox"
                              << on + R"("trait":{"dataType":"list","defaultValue":"b","value":["a","b"]})"
                              << "QComboBox items=a|b current=b tip=" << "";
        QTest::newRow("list, default not an item")
            << "QComboBox" << on + R"("trait":{"dataType":"list","defaultValue":"z","value":["a","b"]})"
            << "QComboBox items=a|b current=a tip=" << "";
        QTest::newRow("range") << "QSpinBox"
                               << on + R"("trait":{"dataType":"range","defaultValue":"12","value":{"min":10,"max":20}})"
                               << "QSpinBox 10..20 value=12 base=10 tip=10~20" << "";
        QTest::newRow("range, default outside: middle toward 0")
            << "QSpinBox" << on + R"("trait":{"dataType":"range","defaultValue":"9","value":{"min":-5,"max":2}})"
            << "QSpinBox -5..2 value=-1 base=10 tip=-5~2" << "";
        QTest::newRow("range in hexadecimal")
            << "QSpinBox"
            << on + R"("trait":{"dataType":"range","defaultValue":"255","value":{"min":0,"max":4095,"displayBase":16}})"
            << "QSpinBox 0..4095 value=255 base=16 tip=0~4095" << "";
        QTest::newRow("range with its check")
            << "QSpinBox"
            << on + R"("trait":{"dataType":"range","defaultValue":"0","value":{"min":0,"max":9999,"rangeCheck":"9500~9600,0"}})"
            << "QSpinBox 0..9999 value=0 base=10 tip=9500~9600,0" << "";
        QTest::newRow("point range, decimals of the trait")
            << "QDoubleSpinBox"
            << on + R"("trait":{"dataType":"pointRange","defaultValue":"0.25","decimals":3,"value":{"min":-1.5,"max":1.5}})"
            << "QDoubleSpinBox -1.5..1.5 value=0.25 decimals=3 tip=-1.5~1.5" << "";
        QTest::newRow("label") << "QLabel" << on + R"("trait":{"dataType":"label","defaultValue":"N/A"})"
                               << "QLabel text=N/A tip=" << "";
        QTest::newRow("boolean takes the caption")
            << "QCheckBox" << on + R"("caption":"Fix Power","trait":{"dataType":"boolean","defaultValue":"true"})"
            << "QCheckBox text=Fix Power checked=1 tip=" << "";
        QTest::newRow("disabled by the model")
            << "QLabel" << R"("defaultSupport":1,"defaultEnableStatus":0,"trait":{"dataType":"label","defaultValue":"x"})"
            << "QLabel text=x tip= disabled" << "";
        QTest::newRow("not supported: hidden, untouched")
            << "QLabel" << R"("defaultSupport":0,"defaultEnableStatus":1,"trait":{"dataType":"label","defaultValue":"x"})"
            << "QLabel text= tip= hidden" << "";
        QTest::newRow("list in a spin box")
            << "QSpinBox" << on + R"("trait":{"dataType":"list","defaultValue":"a","value":["a"]})"
            << "QSpinBox 0..99 value=0 base=10 tip=" << "cannot find the mapping of Data Type and QWidget";
        QTest::newRow("no trait") << "QLabel" << on + R"("caption":"c")" << "QLabel text= tip="
                                  << "Cannot get the Trait JSON Object";
    }
    void memberWidgets()
    {
        QFETCH(QString, widgetClass);
        QFETCH(QString, member);
        QFETCH(QString, failure);
        TestPage page;
        QWidget *widget = page.AddOf(widgetClass, kMember);
        TestLog::Capture log(QtCriticalMsg);
        QVERIFY(page.Load(GroupModel(QJsonObject{{"m", Json("{" + member + "}")}})));
        QTEST(Describe(widget), "shown");
        if (failure.isEmpty())
            QCOMPARE(log.Lines(), QStringList());
        else
            QCOMPARE(log.Count(failure), 1);
    }

    void captions_data()
    {
        QTest::addColumn<QString>("captionClass");
        QTest::addColumn<QString>("captionName");
        QTest::addColumn<int>("support");
        QTest::addColumn<QString>("shown");
        QTest::newRow("label of a supported member") << "QLabel" << kMember + "_caption" << 1 << "QLabel text=AFC DAC tip=";
        QTest::newRow("label of a member that isn't there")
            << "QLabel" << kMember + "_caption" << 0 << "QLabel text=AFC DAC tip= hidden";
        QTest::newRow("group box follows support only")
            << "QGroupBox" << kMember + "_caption" << 0 << "QGroupBox tip= hidden";
        QTest::newRow("a second label can't be bound") << "QLabel" << kMember + "_caption_2" << 1 << "QLabel text= tip=";
    }
    void captions()
    {
        QFETCH(QString, captionClass);
        QFETCH(QString, captionName);
        QFETCH(int, support);
        TestPage page;
        QWidget *field = page.Add<QLabel>(kMember);
        QWidget *caption = page.AddOf(captionClass, captionName);
        const QJsonObject member{{"caption", "AFC DAC"},
                                 {"defaultSupport", support},
                                 {"defaultEnableStatus", 1},
                                 {"trait", QJsonObject{{"dataType", "label"}, {"defaultValue", "7"}}}};
        TestLog::Capture log(QtCriticalMsg);
        QVERIFY(page.Load(GroupModel(QJsonObject{{"m", member}})));
        QTEST(Describe(caption), "shown");
        QCOMPARE(field->isHidden(), support == 0);
        QCOMPARE(log.Count("Cannot get the JSON Object"), captionName.endsWith("_2") ? 1 : 0);
    }

    void subscriptionsChooseTheValueSpace_data()
    {
        QTest::addColumn<QString>("subscription");
        QTest::addColumn<QString>("shown");
        QTest::newRow("one publisher") << R"("subscribeValue":"request.group1.memberProperty.band")"
                                       << "QSpinBox 9500..9600 value=9550 base=10 tip=9500~9600";
        QTest::newRow("two publishers: key with a comma")
            << R"("subscribeValueList":["request.group1.memberProperty.band","request.group1.memberProperty.mode"])"
            << "QSpinBox 1..3 value=2 base=10 tip=1~3";
        QTest::newRow("publisher not in the model") << R"("subscribeValue":"request.group1.memberProperty.nothing")"
                                                    << "QSpinBox 0..0 value=0 base=10 tip=0~0";
        QTest::newRow("key without an entry") << R"("subscribeValue":"request.group1.memberProperty.mode")"
                                              << "QSpinBox 0..0 value=0 base=10 tip=0~0";
    }
    void subscriptionsChooseTheValueSpace()
    {
        QFETCH(QString, subscription);
        TestPage page;
        page.Add<QComboBox>("cmdIf_request_group1_memberProperty_band");
        page.Add<QComboBox>("cmdIf_request_group1_memberProperty_mode");
        auto *uarfcn = page.Add<QSpinBox>("cmdIf_request_group1_memberProperty_uarfcn");
        const QString on = R"("defaultSupport":1,"defaultEnableStatus":1,)";
        const QJsonObject members{
            {"band", Json("{" + on + R"("trait":{"dataType":"list","defaultValue":"A","value":["A","B"]}})")},
            {"mode", Json("{" + on + R"("trait":{"dataType":"list","defaultValue":"x","value":["x"]}})")},
            {"uarfcn", Json("{" + on + subscription + R"(,"trait":{"dataType":"range","defaultValue":"9550",)"
                            R"("valuePair":{"A":{"min":9500,"max":9600},"A,x":{"min":1,"max":3}}}})")},
        };
        QVERIFY(page.Load(GroupModel(members)));
        QTEST(Describe(uarfcn), "shown");
    }

    void tables_data()
    {
        QTest::addColumn<QString>("group");
        QTest::addColumn<QStringList>("headers");
        QTest::addColumn<QStringList>("cells");
        const QString rows = R"("memberProperty":{"dimentionCount":3,"startIndex":1,"indexStep":2,)"
                             R"("a":{"caption":"A","defaultSupport":1,"defaultEnableStatus":1,"trait":{"dataType":"range","defaultValue":["1","2"],"value":{"min":0,"max":9}}},)"
                             R"("b":{"caption":"B","defaultSupport":0,"trait":{"dataType":"range","defaultValue":["5"],"value":{"min":0,"max":9}}},)"
                             R"("c":{"caption":"C","defaultSupport":1,"defaultEnableStatus":0,"trait":{"dataType":"label","defaultValue":["x"]}}})";
        QTest::newRow("supported rows, stepped columns, short arrays")
            << "{" + rows + "}" << QStringList{"1", "3", "5", "|", "A", "C"}
            << QStringList{"QSpinBox 0..9 value=1 base=10 tip=0~9", "QSpinBox 0..9 value=2 base=10 tip=0~9",
                           "QSpinBox 0..9 value=2 base=10 tip=0~9", "QLabel text=x tip= disabled",
                           "QLabel text=0 tip= disabled", "QLabel text=0 tip= disabled"};
        QTest::newRow("column captions win")
            << R"({"memberProperty":{"dimentionCount":2,"colFieldCaptionList":["H","L"],"startIndex":7,)"
               R"("a":{"caption":"A","defaultSupport":1,"defaultEnableStatus":1,"trait":{"dataType":"pointRange","defaultValue":["0.5","9"],"value":{"min":0,"max":1,"decimals":2}}}}})"
            << QStringList{"H", "L", "|", "A"}
            << QStringList{"QDoubleSpinBox 0..1 value=0.5 decimals=2 tip=0~1",
                           "QDoubleSpinBox 0..1 value=0.5 decimals=2 tip=0~1"};
        QTest::newRow("unsigned cells in hexadecimal")
            << R"({"memberProperty":{"dimentionCount":2,)"
               R"("a":{"caption":"Reg","defaultSupport":1,"defaultEnableStatus":1,"trait":{"dataType":"unsignedRange","defaultValue":["255","4294967295"],"value":{"min":"0","max":"4294967295","displayBase":16}}}}})"
            << QStringList{"0", "0", "|", "Reg"}
            << QStringList{"CUnsignedSpinBox text=FF tip=0~4294967295", "CUnsignedSpinBox text=FFFFFFFF tip=0~4294967295"};
        QTest::newRow("list cells")
            << R"({"memberProperty":{"dimentionCount":2,)"
               R"("a":{"caption":"Mode","defaultSupport":1,"defaultEnableStatus":1,"trait":{"dataType":"list","defaultValue":["DL","UL"],"value":["UL","DL"]}}}})"
            << QStringList{"0", "0", "|", "Mode"}
            << QStringList{"QComboBox items=UL|DL current=DL tip=", "QComboBox items=UL|DL current=UL tip="};
        QTest::newRow("nothing supported: table hidden")
            << R"({"memberProperty":{"dimentionCount":2,"a":{"defaultSupport":0,"trait":{"dataType":"label","defaultValue":["x"]}}}})"
            << QStringList{"|"} << QStringList{};
    }
    void tables()
    {
        QFETCH(QString, group);
        QFETCH(QStringList, cells);
        TestPage page;
        auto *table = page.Add<QTableWidget>(kMember.left(kMember.lastIndexOf('_') + 1) + "a");
        QJsonObject groupObject = Json(group);
        QJsonObject members;
        const QJsonObject property = groupObject.value("memberProperty").toObject();
        for (const QString &key : property.keys()) {
            if (property.value(key).isObject())
                members.insert(key, property.value(key));
        }
        QVERIFY(page.Load(GroupModel(members, 3, groupObject)));

        QStringList shownHeaders;
        for (int c = 0; c < table->columnCount(); ++c)
            shownHeaders << table->horizontalHeaderItem(c)->text();
        shownHeaders << "|";
        for (int r = 0; r < table->rowCount(); ++r)
            shownHeaders << table->verticalHeaderItem(r)->text();
        QStringList shownCells;
        for (int r = 0; r < table->rowCount(); ++r) {
            for (int c = 0; c < table->columnCount(); ++c)
                shownCells << CellText(table, r, c);
        }
        QTEST(shownHeaders, "headers");
        QCOMPARE(shownCells, cells);
        QCOMPARE(table->isHidden(), cells.isEmpty());
    }

    void wideTablesScroll_data()
    {
        QTest::addColumn<int>("columns");
        QTest::addColumn<int>("fitted");
        QTest::newRow("16 columns fit whole") << 16 << 16;
        QTest::newRow("17 columns show 15 and scroll") << 17 << 15;
    }
    void wideTablesScroll()
    {
        QFETCH(int, columns);
        QFETCH(int, fitted);
        TestPage page;
        auto *table = page.Add<QTableWidget>("cmdIf_request_group1_memberProperty_a");
        const QJsonObject member = Json(R"({"caption":"A","defaultSupport":1,"defaultEnableStatus":1,)"
                                        R"("trait":{"dataType":"label","defaultValue":["0"]}})");
        QVERIFY(page.Load(GroupModel(QJsonObject{{"a", member}}, 3,
                                     QJsonObject{{"memberProperty", QJsonObject{{"dimentionCount", columns}}}})));
        QCOMPARE(table->columnCount(), columns);
        QCOMPARE(table->columnWidth(0), 58);
        QCOMPARE(table->minimumWidth(), table->verticalHeader()->width() + fitted * 58);
        QCOMPARE(table->horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff, columns <= 16);
        QCOMPARE(table->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    }

    void instanceTable()
    {
        TestPage page;
        auto *table = page.Add<QTableWidget>("cmdIf_response_group1_memberProperty_gain");
        const QJsonObject group = Json(
            R"({"instanceList":["hi","lo"],"instanceProperty":{"hi":{"caption":"High"},"lo":{"caption":"Low"}},)"
            R"("memberProperty":{"hi":{"gain":{"defaultValue":"3"},"note":{"defaultValue":"ok"}},"lo":{"gain":{"defaultValue":"99"}}}})");
        const QJsonObject members{
            {"gain", Json(R"({"caption":"Gain","defaultSupport":1,"trait":{"dataType":"range","value":{"min":0,"max":9}}})")},
            {"note", Json(R"({"caption":"Note","defaultSupport":1,"trait":{"dataType":"label"}})")}};
        const QJsonObject model = GroupModel(members, 2, group, "response");
        QVERIFY(page.Load(model));
        QCOMPARE(table->rowCount(), 2);
        QCOMPARE(table->columnCount(), 2);
        QCOMPARE(table->verticalHeaderItem(1)->text(), QString("Low"));
        QCOMPARE(CellText(table, 0, 0), QString("QSpinBox 0..9 value=3 base=10 tip=0~9"));
        QCOMPARE(CellText(table, 1, 0), QString("QSpinBox 0..9 value=4 base=10 tip=0~9"));
        QCOMPARE(CellText(table, 1, 1), QString("QLabel text=0 tip="));

        // An answer with an instance and a member more than the table has cells
        // shows what fits.
        QJsonObject answer = model;
        QJsonObject answerGroup = GetJsonValueConst(model, "cmdIf.response.group1").toObject();
        answerGroup["instanceList"] = QJsonArray{"hi", "lo", "extra"};
        answerGroup["memberList"] = QJsonArray{"gain", "note", "more"};
        QJsonObject property = answerGroup["memberProperty"].toObject();
        property["more"] = Json(R"({"trait":{"dataType":"label"}})");
        property["hi"] = Json(R"({"gain":{"defaultValue":"7"},"more":{"defaultValue":"x"}})");
        property["extra"] = Json(R"({"gain":{"defaultValue":"1"}})");
        answerGroup["memberProperty"] = property;
        QVERIFY(SetJsonValue(answer, "cmdIf.response.group1", answerGroup));
        page.UpdateWidgets(answer);
        QCOMPARE(CellText(table, 0, 0), QString("QSpinBox 0..9 value=7 base=10 tip=0~9"));
        QCOMPARE(table->rowCount(), 2);
    }

    void textThatIsNoModel_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("ready");
        QTest::addColumn<int>("failures");
        QTest::newRow("not JSON") << "{\"cmdIf\": [" << true << 2;
        QTest::newRow("empty text") << "" << false << 0;
        QTest::newRow("group type 4") << R"({"cmdIf":{"request":{"group1":{"groupType":4,"memberProperty":{"m":{},"n":{}}}}}})"
                                      << true << 2;
    }
    void textThatIsNoModel()
    {
        QFETCH(QString, text);
        TestPage page;
        page.Add<QLabel>(kMember);
        page.Add<QLabel>("cmdIf_request_group1_memberProperty_n");
        TestLog::Capture log(QtCriticalMsg);
        QVERIFY(page.Load(text.toStdString()));
        QTEST(page.IsModelReady(), "ready");
        QTEST(log.Count("====== Failed processing name"), "failures");
    }

    void packedTexts_data()
    {
        QTest::addColumn<QString>("member");
        QTest::addColumn<QString>("widgetClass");
        QTest::addColumn<QString>("packed");
        const QString on = R"("defaultSupport":1,"defaultEnableStatus":1,)";
        QTest::newRow("hexadecimal spin box packs decimal")
            << on + R"("trait":{"dataType":"range","defaultValue":"255","value":{"min":0,"max":4095,"displayBase":16}})"
            << "QSpinBox" << R"("255")";
        QTest::newRow("double as shown")
            << on + R"("trait":{"dataType":"pointRange","defaultValue":"1.5","decimals":3,"value":{"min":0,"max":9}})"
            << "QDoubleSpinBox" << R"("1.500")";
        QTest::newRow("combo without items packs nothing")
            << on + R"("trait":{"dataType":"list","defaultValue":"a","value":[]})" << "QComboBox" << R"("")";
        QTest::newRow("check box") << on + R"("trait":{"dataType":"boolean","defaultValue":"true"})" << "QCheckBox"
                                   << R"("true")";
        QTest::newRow("table in display form")
            << on + R"("trait":{"dataType":"unsignedRange","defaultValue":["10","4096"],"value":{"min":"0","max":"65535","displayBase":16}})"
            << "QTableWidget" << R"(["A","1000"])";
    }
    void packedTexts()
    {
        QFETCH(QString, member);
        QFETCH(QString, widgetClass);
        TestPage page;
        const bool table = widgetClass == "QTableWidget";
        page.AddOf(widgetClass, "cmdIf_request_group1_memberProperty_m");
        page.Add<QLabel>("cmdIf_request_group1_memberProperty_other");
        QJsonObject members{{"m", Json("{" + member + "}")}};
        QJsonObject extra{{"memberList", QJsonArray{"m", "other"}}};
        if (table)
            extra.insert("memberProperty", QJsonObject{{"dimentionCount", 2}});
        else
            members.insert("other", Json(R"({"defaultSupport":1,"trait":{"dataType":"label","defaultValue":"x"}})"));
        QVERIFY(page.Load(GroupModel(members, table ? 3 : 1, extra)));

        // The first widget creates memberValue, the next adds to it, and a second
        // packing refreshes the values.
        page.PackageMemberValue();
        const QJsonObject model = Parse(page.PackageMemberValue());
        QTEST(Text(GetJsonValueConst(model, "cmdIf.request.group1.memberValue.m")), "packed");
        if (!table)
            QCOMPARE(Text(GetJsonValueConst(model, "cmdIf.request.group1.memberValue.other")), QString(R"("x")"));
    }

    // Trace lines whose wording belongs to the system.
    void traceLines_data()
    {
        QTest::addColumn<bool>("pack"); // else: a band change
        QTest::addColumn<QString>("line");
        QTest::newRow("packing a field names the value and group paths")
            << true << R"(---> [Package][type1] Path in memberValue <---  "cmdIf.request.group1.memberValue" )"
                       R"("cmdIf.request.group1" ---> [Package][type1] Value <---  QJsonValue(string, "B"))";
        QTest::newRow("value relevance of a table: columns") << false << "---> [Value Relevance][type3] Get column info <---  3";
        QTest::newRow("value relevance of a table: found") << false << "---> [Value Relevance][type3] Find!!!!!!!!! <--- ";
    }
    void traceLines()
    {
        QFETCH(bool, pack);
        QFETCH(QString, line);
        TestPage page;
        auto *band = page.Add<QComboBox>("cmdIf_request_group1_memberProperty_band");
        page.Add<QTableWidget>("cmdIf_request_group2_memberProperty_u");
        QVERIFY(page.Load(Json(
            R"({"cmdIf":{"request":{"group1":{"groupType":1,"memberList":["band"],"memberProperty":{)"
            R"("band":{"defaultSupport":1,"defaultEnableStatus":1,"publishValueList":["request.group2.memberProperty.u"],)"
            R"("trait":{"dataType":"list","defaultValue":"A","value":["A","B"]}}}},)"
            R"("group2":{"groupType":3,"memberList":["u"],"memberProperty":{"dimentionCount":3,)"
            R"("u":{"defaultSupport":1,"defaultEnableStatus":1,"subscribeValue":"request.group1.memberProperty.band",)"
            R"("trait":{"dataType":"range","defaultValue":["0"],"valuePair":{"A":{"min":0,"max":9},"B":{"min":5,"max":7}}}}}}}}})")));
        TestLog::Capture log(QtDebugMsg);
        band->setCurrentText("B");
        if (pack)
            page.PackageMemberValue();
        QVERIFY2(log.Lines().contains(line), qPrintable(log.Lines().join('\n')));
    }

    void storedModels_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QString>("page");
        for (const char *profile : {"default", "legacy-v1"}) {
            for (const char *page : {"AFC Control", "Continuous TX", "Tpc", "Rx Pathloss", "Temperature ADC",
                                     "Continuous RX", "Dpch TX", "Rssi", "Baseband Register"})
                QTest::addRow("%s, %s", profile, page) << profile << page;
        }
    }
    // Every stored model, fitted to the target, binds without a failure, offers
    // the target's bands, and travels to the core and back unchanged.
    void storedModels()
    {
        QFETCH(QString, profile);
        QFETCH(QString, page);
        const std::string text = FittedModel(profile, page);
        const bool calData = page == "Tpc" || page == "Rx Pathloss";
        TestPage testPage(calData);
        testPage.AddWidgetsFor(Parse(text));
        TestLog::Capture log(QtCriticalMsg);
        QVERIFY(testPage.Load(text));
        QCOMPARE(log.Lines(), QStringList());
        QVERIFY(testPage.IsModelReady());
        const QString bandPath = calData ? "calDataIf.config.group1.memberProperty.band" : "cmdIf.request.group1.memberProperty.band";
        if (auto *band = qobject_cast<QComboBox *>(testPage.Widget(QString(bandPath).replace('.', '_'))))
            QCOMPARE(band->count(), GetJsonValueConst(Parse(text), bandPath + ".trait.value").toArray().size());

        // What leaves the page is what its widgets show.
        QJsonObject sent = Parse(testPage.PackageMemberValue());
        for (const auto &member : ValueMembers(sent)) {
            QWidget *widget = testPage.Widget(QString(member.first).replace('.', '_'));
            const QJsonObject property = GetJsonValueConst(sent, member.first).toObject();
            const QString valuePath = QString(member.first).replace("memberProperty", "memberValue");
            if (member.second != 1 || property.value("defaultSupport").toInt() != 1)
                continue;
            QCOMPARE(GetJsonValueConst(sent, valuePath).toString(), ShownValue(widget));
        }

        // The core answers with new values in every response and data member.
        int changed = 0;
        for (const auto &member : ValueMembers(sent)) {
            if (!member.first.contains(".response.") && !member.first.contains(".data."))
                continue;
            const QString path = member.first + ".trait";
            QJsonObject trait = GetJsonValueConst(sent, path).toObject();
            const QString type = trait.value("dataType").toString();
            const QJsonObject space = trait.value("value").toObject();
            QString value = type == "label" ? "new" : type == "range" || type == "pointRange"
                                                      ? QString::number(space.value("max").toInt(99))
                                                      : QString();
            if (value.isEmpty())
                continue;
            trait.insert("defaultValue", member.second == 3 ? QJsonValue(QJsonArray{value}) : QJsonValue(value));
            QVERIFY(SetJsonValue(sent, path, trait));
            ++changed;
        }
        // The transmit and receive tests answer with a status only.
        QCOMPARE(changed > 0, !page.endsWith(" TX") && page != "Continuous RX");
        if (changed == 0)
            return;
        testPage.UpdateWidgets(sent);
        QCOMPARE(log.Lines(), QStringList());
        QVERIFY(testPage.IsModelReady());
        QCOMPARE(testPage.Model(), sent);

        // Packed again, the page sends exactly what came back.
        const QJsonObject again = Parse(testPage.PackageMemberValue());
        for (const auto &member : ValueMembers(again)) {
            if (!member.first.contains(".response.") && !member.first.contains(".data."))
                continue;
            const QJsonValue expected = GetJsonValueConst(sent, member.first + ".trait.defaultValue");
            const QJsonValue packed =
                GetJsonValueConst(again, QString(member.first).replace("memberProperty", "memberValue"));
            if (!IsJsonValueDefined(packed) || !expected.isString() || expected.toString() != "new")
                continue;
            QCOMPARE(packed.toString(), QString("new"));
        }
    }

    void updateOfWhatCameBack_data()
    {
        QTest::addColumn<QString>("response");
        QTest::addColumn<QStringList>("shown");
        QTest::newRow("values of the answer")
            << R"("m":"7","list":"b","flag":"true","cells":["1","2"])"
            << QStringList{"QSpinBox 0..9 value=7 base=10 tip=0~9", "QComboBox items=a|b current=b tip=",
                           "QCheckBox text=Flag checked=1 tip=", "QSpinBox 0..9 value=1 base=10 tip=0~9",
                           "QSpinBox 0..9 value=2 base=10 tip=0~9", "QSpinBox 0..9 value=2 base=10 tip=0~9"};
        QTest::newRow("a text that is no item blanks the box, a short array fills")
            << R"("m":"3","list":"zzz","flag":"false","cells":["4"])"
            << QStringList{"QSpinBox 0..9 value=3 base=10 tip=0~9", "QComboBox items=a|b current= tip=",
                           "QCheckBox text=Flag checked=0 tip=", "QSpinBox 0..9 value=4 base=10 tip=0~9",
                           "QSpinBox 0..9 value=4 base=10 tip=0~9", "QSpinBox 0..9 value=4 base=10 tip=0~9"};
    }
    void updateOfWhatCameBack()
    {
        QFETCH(QString, response);
        const QJsonObject values = Json("{" + response + "}");
        auto model = [&values](bool answer) {
            auto member = [&](const char *name, const QString &trait) {
                QJsonObject t = Json(trait);
                if (answer)
                    t.insert("defaultValue", values.value(name));
                return QJsonObject{{"caption", "Flag"}, {"defaultSupport", 1}, {"defaultEnableStatus", 1}, {"trait", t}};
            };
            const QJsonObject type1{
                {"groupType", 1},
                {"memberList", QJsonArray{"m", "list", "flag"}},
                {"memberProperty",
                 QJsonObject{{"m", member("m", R"({"dataType":"range","defaultValue":"5","value":{"min":0,"max":9}})")},
                             {"list", member("list", R"({"dataType":"list","defaultValue":"a","value":["a","b"]})")},
                             {"flag", member("flag", R"({"dataType":"boolean","defaultValue":"false"})")}}}};
            const QJsonObject type3{
                {"groupType", 3},
                {"memberList", QJsonArray{"cells"}},
                {"memberProperty",
                 QJsonObject{{"dimentionCount", 3},
                             {"cells", member("cells", R"({"dataType":"range","defaultValue":["0"],"value":{"min":0,"max":9}})")}}}};
            const QJsonObject request{{"groupType", 1},
                                      {"memberList", QJsonArray{"m"}},
                                      {"memberProperty", QJsonObject{{"m", member("m", R"({"dataType":"range","defaultValue":"5","value":{"min":0,"max":9}})")}}}};
            return QJsonObject{{"cmdIf", QJsonObject{{"request", QJsonObject{{"group1", request}}},
                                                     {"response", QJsonObject{{"group1", type1}, {"group2", type3}}}}}};
        };

        TestPage page;
        auto *request = page.Add<QSpinBox>("cmdIf_request_group1_memberProperty_m");
        QList<QWidget *> widgets{page.Add<QSpinBox>("cmdIf_response_group1_memberProperty_m"),
                                 page.Add<QComboBox>("cmdIf_response_group1_memberProperty_list"),
                                 page.Add<QCheckBox>("cmdIf_response_group1_memberProperty_flag")};
        auto *table = page.Add<QTableWidget>("cmdIf_response_group2_memberProperty_cells");
        QVERIFY(page.Load(model(false)));
        page.UpdateWidgets(model(true));

        QStringList seen;
        for (QWidget *widget : widgets)
            seen << Describe(widget);
        for (int c = 0; c < table->columnCount(); ++c)
            seen << Describe(table->cellWidget(0, c));
        QTEST(seen, "shown");
        QCOMPARE(request->value(), 5);
    }

    void integrityDecidesTheModel_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<bool>("taken");
        QTest::addColumn<QString>("boxText");
        QTest::addColumn<QString>("boxInformative");
        QTest::newRow("no integrity block") << R"({"modelName":"new"})" << true << "" << "";
        QTest::newRow("integrity true")
            << R"({"modelName":"new","modelIntegrity":{"integrity":true,"messageList":[""]}})" << true << "" << "";
        QTest::newRow("integrity false")
            << R"({"modelName":"new","modelIntegrity":{"integrity":false,"messageList":["Update Band info failed","x"]}})"
            << false << "There are some error in this page:  Test page\n" << "Update Band info failed\nx\n";
        QTest::newRow("empty, integrity true")
            << R"({"emptyModel":"","modelIntegrity":{"integrity":true,"messageList":[]}})" << false
            << "This is empty data to update." << "";
        QTest::newRow("empty alone") << R"({"emptyModel":""})" << false << "There are some error in this page:  Test page\n"
                                     << "";
    }
    void integrityDecidesTheModel()
    {
        QFETCH(QString, answer);
        QFETCH(bool, taken);
        QFETCH(QString, boxText);
        TestPage page;
        QVERIFY(page.Load(Json(R"({"modelName":"old"})")));
        ModalBoxCatcher boxes;
        page.UpdateWidgets(Json(answer));
        QCOMPARE(page.Model().value("modelName").toString(), QString(taken ? "new" : "old"));
        QVERIFY(!page.Model().contains("modelIntegrity"));
        QCOMPARE(boxes.Count(), boxText.isEmpty() ? 0 : 1);
        if (!boxText.isEmpty()) {
            QCOMPARE(boxes.Boxes()[0].title, QString("Error"));
            QCOMPARE(boxes.Boxes()[0].text, CMessageBoxMan::WrapText(boxText));
            QTEST(boxes.Boxes()[0].informativeText, "boxInformative");
            QCOMPARE(boxes.Boxes()[0].icon, QMessageBox::Critical);
        }
    }

    void bandChoosesTheUarfcnRange_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<int>("calData");
        QTest::addColumn<QString>("uarfcn");
        QTest::addColumn<QString>("band");
        QTest::addColumn<QString>("shown");
        // A test page jumps to the middle of the new range (tests/PluginInterface/
        // tst_TestPages); a calibration page keeps a stored value inside it.
        QTest::newRow("test page, no entry for the band: range stays")
            << "Continuous TX" << 0 << "cmdIf_request_group1_memberProperty_uarfcn" << "unknown"
            << "QSpinBox 9500..9600 value=9550 base=10 tip=9500~9600";
        QTest::newRow("calibration page keeps the stored value")
            << "Tpc" << 1 << "calDataIf_data_group7_memberProperty_uarfcn" << "2010-2025MHz"
            << "QSpinBox 10050..10125 value=10087 base=10 tip=10050~10125,0";
    }
    void bandChoosesTheUarfcnRange()
    {
        QFETCH(QString, page);
        QFETCH(int, calData);
        QFETCH(QString, uarfcn);
        QFETCH(QString, band);
        const std::string text = FittedModel("default", page);
        TestPage testPage(calData);
        testPage.AddWidgetsFor(Parse(text));
        QVERIFY(testPage.Load(text));
        auto *bandBox = qobject_cast<QComboBox *>(
            testPage.Widget(calData ? "calDataIf_config_group1_memberProperty_band" : "cmdIf_request_group1_memberProperty_band"));
        QVERIFY(bandBox);
        if (band == "unknown")
            bandBox->addItem(band);
        TestLog::Capture log(QtCriticalMsg);
        bandBox->setCurrentText(band);

        QWidget *field = testPage.Widget(uarfcn);
        if (auto *table = qobject_cast<QTableWidget *>(field))
            field = table->cellWidget(0, 0);
        QTEST(Describe(field), "shown");
        QCOMPARE(log.Count("Cannot get the mapping of key and value"), band == "unknown" ? 1 : 0);
    }

    void statusRelevance()
    {
        // The AFC selection switches the two DAC fields.
        const std::string text = FittedModel("default", "AFC Control");
        TestPage afc;
        afc.AddWidgetsFor(Parse(text));
        QVERIFY(afc.Load(text));
        auto *select = qobject_cast<QComboBox *>(afc.Widget("cmdIf_request_group1_memberProperty_afcSelect"));
        QWidget *dac1 = afc.Widget("cmdIf_request_group1_memberProperty_afcdac1");
        QWidget *dac2 = afc.Widget("cmdIf_request_group1_memberProperty_afcdac2");
        select->setCurrentText("AFC2");
        QVERIFY(!dac1->isEnabled() && dac2->isEnabled());
        select->setCurrentText("AFC1");
        QVERIFY(dac1->isEnabled() && !dac2->isEnabled());

        // A check box disabled by the status of another clears itself, and
        // enabling it again does not bring the check back.
        TestPage page;
        auto *publisher = page.Add<QComboBox>("cmdIf_request_group1_memberProperty_p");
        auto *box = page.Add<QCheckBox>("cmdIf_request_group1_memberProperty_c");
        QVERIFY(page.Load(Json(R"({"cmdIf":{"request":{"group1":{"groupType":1,"memberProperty":{)"
                               R"("p":{"defaultSupport":1,"defaultEnableStatus":1,"publishEnableStatusList":["request.group1.memberProperty.c"],)"
                               R"("trait":{"dataType":"list","defaultValue":"on","value":["on","off"]}},)"
                               R"("c":{"defaultSupport":1,"defaultEnableStatus":1,)"
                               R"("trait":{"dataType":"boolean","defaultValue":"true","enableStatusPair":{"on":1,"off":0}}}}}}}})")));
        QVERIFY(box->isChecked());
        publisher->setCurrentText("off");
        QVERIFY(!box->isEnabled() && !box->isChecked());
        publisher->setCurrentText("on");
        QVERIFY(box->isEnabled() && !box->isChecked());

        // A hidden page changes nothing.
        page.hide();
        publisher->setCurrentText("off");
        QVERIFY(box->isEnabled());
    }

    void relevanceOfAComposedKey()
    {
        TestPage page;
        auto *band = page.Add<QComboBox>("cmdIf_request_group1_memberProperty_band");
        auto *mode = page.Add<QCheckBox>("cmdIf_request_group1_memberProperty_mode");
        auto *label = page.Add<QLabel>("cmdIf_request_group1_memberProperty_info");
        QVERIFY(page.Load(Json(
            R"({"cmdIf":{"request":{"group1":{"groupType":1,"memberProperty":{)"
            R"("band":{"defaultSupport":1,"defaultEnableStatus":1,"publishValueList":["request.group1.memberProperty.info"],"trait":{"dataType":"list","defaultValue":"A","value":["A","B"]}},)"
            R"("mode":{"defaultSupport":1,"defaultEnableStatus":1,"publishValueList":["request.group1.memberProperty.info"],"trait":{"dataType":"boolean","defaultValue":"false"}},)"
            R"("info":{"defaultSupport":1,"defaultEnableStatus":1,"subscribeValueList":["request.group1.memberProperty.band","request.group1.memberProperty.mode"],)"
            R"("trait":{"dataType":"label","defaultValue":"","valuePair":{"A,false":"a off","B,false":"b off","B,true":"b on"}}}}}}}})")));
        QCOMPARE(label->text(), QString());
        band->setCurrentText("B");
        QCOMPARE(label->text(), QString("b off"));
        mode->setChecked(true);
        QCOMPARE(label->text(), QString("b on"));
        // "A,true" has no entry: the label keeps what it shows.
        band->setCurrentText("A");
        QCOMPARE(label->text(), QString("b on"));
    }

    void rangeChecks_data()
    {
        QTest::addColumn<bool>("point");
        QTest::addColumn<QString>("check");
        QTest::addColumn<double>("typed");
        QTest::addColumn<double>("kept");
        QTest::newRow("inside the interval") << false << "9500~9600,0" << 9550.0 << 9550.0;
        QTest::newRow("single value") << false << "9500~9600,0" << 0.0 << 0.0;
        QTest::newRow("outside: middle of the first interval") << false << "9500~9600,0" << 50.0 << 9550.0;
        QTest::newRow("single value first") << false << "7,1~3" << 5.0 << 7.0;
        QTest::newRow("only zero") << false << "0" << 4.0 << 0.0;
        QTest::newRow("empty check leaves the value") << false << "" << 4.0 << 4.0;
        QTest::newRow("empty items are skipped") << false << ",,9500~9600,,0," << 50.0 << 9550.0;
        QTest::newRow("negative interval, middle toward 0") << false << "-10~-5" << 0.0 << -7.0;
        QTest::newRow("reversed interval matches nothing") << false << "9600~9500" << 9600.0 << 9550.0;
        QTest::newRow("spaces around the numbers") << false << " 9500 ~ 9600 , 0" << 9599.0 << 9599.0;
        QTest::newRow("point: outside") << true << "0.5~1.5,9" << 3.0 << 1.0;
        QTest::newRow("point: single compared as number") << true << "2.50" << 2.5 << 2.5;
    }
    void rangeChecks()
    {
        QFETCH(bool, point);
        QFETCH(QString, check);
        QFETCH(double, typed);
        TestPage page;
        QAbstractSpinBox *field = nullptr;
        const QString member = point ? R"("dataType":"pointRange","value":{"min":-100,"max":10000,"decimals":2,"rangeCheck":"%1"})"
                                     : R"("dataType":"range","value":{"min":-100,"max":10000,"rangeCheck":"%1"})";
        if (point) {
            auto *table = page.Add<QTableWidget>("cmdIf_request_group1_memberProperty_m");
            QVERIFY(page.Load(Json(QString(R"({"cmdIf":{"request":{"group1":{"groupType":3,"memberList":["m"],)"
                                           R"("memberProperty":{"dimentionCount":1,"m":{"defaultSupport":1,"defaultEnableStatus":1,"trait":{"defaultValue":["0"],)") +
                                   member.arg(check) + "}}}}}}}")));
            field = qobject_cast<QAbstractSpinBox *>(table->cellWidget(0, 0));
            static_cast<QDoubleSpinBox *>(field)->setValue(typed);
        } else {
            page.Add<QSpinBox>("cmdIf_request_group1_memberProperty_m");
            QVERIFY(page.Load(Json(QString(R"({"cmdIf":{"request":{"group1":{"groupType":1,)"
                                           R"("memberProperty":{"m":{"defaultSupport":1,"defaultEnableStatus":1,"trait":{"defaultValue":"0",)") +
                                   member.arg(check) + "}}}}}}}")));
            field = qobject_cast<QAbstractSpinBox *>(page.Widget("cmdIf_request_group1_memberProperty_m"));
            static_cast<QSpinBox *>(field)->setValue(int(typed));
        }
        QVERIFY(field);
        if (check.isEmpty())
            field->setToolTip(""); // a check that names nothing
        emit field->editingFinished();
        const double value = point ? static_cast<QDoubleSpinBox *>(field)->value() : static_cast<QSpinBox *>(field)->value();
        QTEST(value, "kept");
    }

    void unsignedField_data()
    {
        QTest::addColumn<int>("base");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("wheel");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("lastGood");
        QTest::newRow("hexadecimal in upper case") << 16 << "ff" << 0 << "FF" << "ff";
        QTest::newRow("not a number: back to the last") << 16 << "zz" << 0 << "" << "";
        QTest::newRow("above the maximum") << 10 << "4294967296" << 0 << "" << "";
        QTest::newRow("wheel up") << 10 << "41" << 1 << "42" << "42";
        QTest::newRow("wheel stops at the maximum") << 10 << "4294967295" << 1 << "4294967295" << "4294967295";
        QTest::newRow("wheel stops at the minimum") << 10 << "0" << -1 << "0" << "0";
        QTest::newRow("wheel from nothing readable") << 16 << "" << 1 << "1" << "1";
    }
    void unsignedField()
    {
        QFETCH(int, base);
        QFETCH(QString, typed);
        QFETCH(int, wheel);
        CUnsignedSpinBox field(nullptr, base);
        field.setText(typed);
        if (wheel != 0) {
            QWheelEvent event(QPointF(1, 1), QPointF(1, 1), QPoint(), QPoint(0, wheel * 120), Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(&field, &event);
        }
        QTEST(field.text(), "shown");
        QTEST(field.m_lastText, "lastGood");
    }
};

QTEST_MAIN(TestPageBinding)
#include "tst_PageBinding.moc"
