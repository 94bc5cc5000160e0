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

// A band list that publishes to a UARFCN field whose range follows the band:
// a field of the same group, or with `table` a column of a table in group2.
// Band D has no range; band E forces a value and has a check.
QJsonObject BandModel(bool calData, bool table)
{
    QJsonObject uarfcn = Json(
        R"({"defaultSupport":1,"defaultEnableStatus":1,"subscribeValue":"request.group1.memberProperty.band","trait":)"
        R"({"dataType":"range","defaultValue":"25","valuePair":{"A":{"min":10,"max":30},"B":{"min":20,"max":40},)"
        R"("C":{"min":50,"max":60},"E":{"min":0,"max":99,"value":"7","rangeCheck":"1~99,0"}}}})");
    QJsonObject band = Json(R"({"defaultSupport":1,"defaultEnableStatus":1,)"
                            R"("trait":{"dataType":"list","defaultValue":"A","value":["A","B","C","D","E"]}})");
    band["publishValueList"] = QJsonArray{QString("request.group%1.memberProperty.uarfcn").arg(table ? 2 : 1)};
    QJsonObject members{{"band", band}};
    QJsonObject request;
    if (table) {
        QJsonObject trait = uarfcn["trait"].toObject();
        trait["defaultValue"] = QJsonArray{"25"};
        uarfcn["trait"] = trait;
        request["group2"] = QJsonObject{{"groupType", 3},
                                        {"memberList", QJsonArray{"uarfcn"}},
                                        {"memberProperty", QJsonObject{{"dimentionCount", 2}, {"uarfcn", uarfcn}}}};
    } else {
        members["uarfcn"] = uarfcn;
    }
    request["group1"] = QJsonObject{{"groupType", 1}, {"memberProperty", members}};
    return QJsonObject{{calData ? "calDataIf" : "cmdIf", QJsonObject{{"request", request}}}};
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

    // One member bound to a widget of its class, with its caption when
    // `caption` names the caption's class; shown: the widget / the caption.
    void memberWidgets_data()
    {
        QTest::addColumn<QString>("widgetClass");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("member");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<bool>("fails");
        const QString on = R"("defaultSupport":1,"defaultEnableStatus":1,)";
        QTest::newRow("list") << "QComboBox" << ""
                              << on + R"("trait":{"dataType":"list","defaultValue":"b","value":["a","b"]})"
                              << "QComboBox items=a|b current=b tip=" << false;
        QTest::newRow("list, default not an item")
            << "QComboBox" << "" << on + R"("trait":{"dataType":"list","defaultValue":"z","value":["a","b"]})"
            << "QComboBox items=a|b current=a tip=" << false;
        QTest::newRow("range, default outside: middle toward 0; caption")
            << "QSpinBox" << "QLabel"
            << on + R"("caption":"AFC DAC","trait":{"dataType":"range","defaultValue":"9","value":{"min":-5,"max":2}})"
            << "QSpinBox -5..2 value=-1 base=10 tip=-5~2 / QLabel text=AFC DAC tip=" << false;
        QTest::newRow("range in hexadecimal, with its check")
            << "QSpinBox" << ""
            << on + R"("trait":{"dataType":"range","defaultValue":"255","value":{"min":0,"max":4095,"displayBase":16,"rangeCheck":"1~9,255"}})"
            << "QSpinBox 0..4095 value=255 base=16 tip=1~9,255" << false;
        QTest::newRow("point range, decimals of the trait")
            << "QDoubleSpinBox" << ""
            << on + R"("trait":{"dataType":"pointRange","defaultValue":"0.25","decimals":3,"value":{"min":-1.5,"max":1.5}})"
            << "QDoubleSpinBox -1.5..1.5 value=0.25 decimals=3 tip=-1.5~1.5" << false;
        QTest::newRow("label, disabled by the model")
            << "QLabel" << ""
            << R"("defaultSupport":1,"defaultEnableStatus":0,"trait":{"dataType":"label","defaultValue":"N/A"})"
            << "QLabel text=N/A tip= disabled" << false;
        QTest::newRow("boolean takes the caption")
            << "QCheckBox" << "" << on + R"("caption":"Fix Power","trait":{"dataType":"boolean","defaultValue":"true"})"
            << "QCheckBox text=Fix Power checked=1 tip=" << false;
        const QString unsupported =
            R"("caption":"x","defaultSupport":0,"defaultEnableStatus":1,"trait":{"dataType":"label","defaultValue":"x"})";
        QTest::newRow("not supported: hidden, untouched; the caption hidden")
            << "QLabel" << "QLabel" << unsupported << "QLabel text= tip= hidden / QLabel text=x tip= hidden" << false;
        QTest::newRow("a group box caption follows support only")
            << "QLabel" << "QGroupBox" << unsupported << "QLabel text= tip= hidden / QGroupBox tip= hidden" << false;
        QTest::newRow("list in a spin box")
            << "QSpinBox" << "" << on + R"("trait":{"dataType":"list","defaultValue":"a","value":["a"]})"
            << "QSpinBox 0..99 value=0 base=10 tip=" << true;
        QTest::newRow("no trait") << "QLabel" << "" << on + R"("caption":"c")" << "QLabel text= tip=" << true;
    }
    void memberWidgets()
    {
        QFETCH(QString, widgetClass);
        QFETCH(QString, caption);
        QFETCH(QString, member);
        TestPage page;
        QWidget *widget = page.AddOf(widgetClass, kMember);
        QWidget *captionWidget = caption.isEmpty() ? nullptr : page.AddOf(caption, kMember + "_caption");
        TestLog::Capture log(QtCriticalMsg);
        QVERIFY(page.Load(GroupModel(QJsonObject{{"m", Json("{" + member + "}")}})));
        QTEST(Describe(widget) + (captionWidget ? " / " + Describe(captionWidget) : QString()), "shown");
        QTEST(!log.Lines().isEmpty(), "fails");
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
        QCOMPARE(table->minimumWidth(), table->verticalHeader()->width() + fitted * table->columnWidth(0));
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
        QTest::newRow("not JSON") << "{\"cmdIf\": [" << true;
        QTest::newRow("empty text") << "" << false;
        QTest::newRow("group type 4") << R"({"cmdIf":{"request":{"group1":{"groupType":4,"memberProperty":{"m":{}}}}}})"
                                      << true;
    }
    void textThatIsNoModel()
    {
        QFETCH(QString, text);
        TestPage page;
        QWidget *label = page.Add<QLabel>(kMember);
        QVERIFY(page.Load(text.toStdString()));
        QTEST(page.IsModelReady(), "ready");
        QCOMPARE(Describe(label), QString("QLabel text= tip="));
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
        QTest::newRow("value relevance of a table: columns") << false << "---> [Value Relevance][type3] Get column info <---  2";
        QTest::newRow("value relevance of a table: found") << false << "---> [Value Relevance][type3] Find!!!!!!!!! <--- ";
    }
    void traceLines()
    {
        QFETCH(bool, pack);
        QFETCH(QString, line);
        TestPage page;
        auto *band = page.Add<QComboBox>("cmdIf_request_group1_memberProperty_band");
        page.Add<QTableWidget>("cmdIf_request_group2_memberProperty_uarfcn");
        QVERIFY(page.Load(BandModel(false, true)));
        TestLog::Capture log(QtDebugMsg);
        band->setCurrentText("B");
        if (pack)
            page.PackageMemberValue();
        QVERIFY2(log.Lines().contains(line), qPrintable(log.Lines().join('\n')));
    }

    void updateOfWhatCameBack_data()
    {
        QTest::addColumn<QString>("response");
        QTest::addColumn<QStringList>("shown");
        QTest::newRow("values of the answer")
            << R"("m":"7","list":"b","flag":"true","level":"1.5","note":"ok","cells":["1","2"])"
            << QStringList{"QSpinBox 0..9 value=7 base=10 tip=0~9", "QComboBox items=a|b current=b tip=",
                           "QCheckBox text=Flag checked=1 tip=", "QDoubleSpinBox -5..5 value=1.5 decimals=2 tip=-5~5",
                           "QLabel text=ok tip=", "QSpinBox 0..9 value=1 base=10 tip=0~9",
                           "QSpinBox 0..9 value=2 base=10 tip=0~9", "QSpinBox 0..9 value=2 base=10 tip=0~9"};
        QTest::newRow("a text that is no item blanks the box, a value outside is clamped, a short array fills")
            << R"("m":"3","list":"zzz","flag":"false","level":"-9","note":"","cells":["4"])"
            << QStringList{"QSpinBox 0..9 value=3 base=10 tip=0~9", "QComboBox items=a|b current= tip=",
                           "QCheckBox text=Flag checked=0 tip=", "QDoubleSpinBox -5..5 value=-5 decimals=2 tip=-5~5",
                           "QLabel text= tip=", "QSpinBox 0..9 value=4 base=10 tip=0~9",
                           "QSpinBox 0..9 value=4 base=10 tip=0~9", "QSpinBox 0..9 value=4 base=10 tip=0~9"};
    }
    void updateOfWhatCameBack()
    {
        QFETCH(QString, response);
        auto member = [](const char *trait) {
            return R"({"caption":"Flag","defaultSupport":1,"defaultEnableStatus":1,"trait":)" + QString(trait) + "}";
        };
        const QString range = member(R"({"dataType":"range","defaultValue":"5","value":{"min":0,"max":9}})");
        const QJsonObject loaded = Json(
            QString(R"({"cmdIf":{"request":{"group1":{"groupType":1,"memberProperty":{"m":%1}}},"response":{)"
                    R"("group1":{"groupType":1,"memberProperty":{"m":%1,"list":%2,"flag":%3,"level":%4,"note":%5}},)"
                    R"("group2":{"groupType":3,"memberList":["cells"],"memberProperty":{"dimentionCount":3,"cells":%6}}}}})")
                .arg(range, member(R"({"dataType":"list","defaultValue":"a","value":["a","b"]})"),
                     member(R"({"dataType":"boolean","defaultValue":"false"})"),
                     member(R"({"dataType":"pointRange","defaultValue":"0","value":{"min":-5,"max":5}})"),
                     member(R"({"dataType":"label","defaultValue":"-"})"),
                     member(R"({"dataType":"range","defaultValue":["0"],"value":{"min":0,"max":9}})")));
        QJsonObject answer = loaded;
        const QJsonObject values = Json("{" + response + "}");
        for (auto value = values.begin(); value != values.end(); ++value) {
            const QString path = QString("cmdIf.response.group%1.memberProperty.%2.trait.defaultValue");
            QVERIFY(SetJsonValue(answer, path.arg(value.key() == "cells" ? 2 : 1).arg(value.key()), value.value()));
        }

        TestPage page;
        auto *request = page.Add<QSpinBox>("cmdIf_request_group1_memberProperty_m");
        const QStringList names{"m", "list", "flag", "level", "note"};
        const QStringList classes{"QSpinBox", "QComboBox", "QCheckBox", "QDoubleSpinBox", "QLabel"};
        QList<QWidget *> widgets;
        for (int i = 0; i < names.size(); ++i)
            widgets << page.AddOf(classes[i], "cmdIf_response_group1_memberProperty_" + names[i]);
        auto *table = page.Add<QTableWidget>("cmdIf_response_group2_memberProperty_cells");
        QVERIFY(page.Load(loaded));
        page.UpdateWidgets(answer);

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

    void valueRelevance_data()
    {
        QTest::addColumn<int>("calData");
        QTest::addColumn<bool>("table");
        QTest::addColumn<QString>("band");
        QTest::addColumn<QString>("shown"); // the field, or the table's second cell
        QTest::newRow("test page: middle of the new range, though the value fits")
            << 0 << false << "B" << "QSpinBox 20..40 value=30 base=10 tip=20~40";
        QTest::newRow("calibration page keeps a stored value that fits")
            << 1 << false << "B" << "QSpinBox 20..40 value=25 base=10 tip=20~40";
        QTest::newRow("calibration page: middle when it does not")
            << 1 << false << "C" << "QSpinBox 50..60 value=55 base=10 tip=50~60";
        QTest::newRow("band without a range: the old one stays")
            << 0 << false << "D" << "QSpinBox 10..30 value=25 base=10 tip=10~30";
        QTest::newRow("test page takes the forced value, the check is the tip")
            << 0 << false << "E" << "QSpinBox 0..99 value=7 base=10 tip=1~99,0";
        QTest::newRow("calibration page: no forced value") << 1 << false << "E" << "QSpinBox 0..99 value=25 base=10 tip=1~99,0";
        QTest::newRow("table on a test page") << 0 << true << "B" << "QSpinBox 20..40 value=30 base=10 tip=20~40";
        QTest::newRow("table on a calibration page") << 1 << true << "B" << "QSpinBox 20..40 value=25 base=10 tip=20~40";
    }
    void valueRelevance()
    {
        QFETCH(int, calData);
        QFETCH(bool, table);
        QFETCH(QString, band);
        TestPage page(calData);
        const QString prefix = calData ? "calDataIf_request_" : "cmdIf_request_";
        auto *bands = page.Add<QComboBox>(prefix + "group1_memberProperty_band");
        QWidget *field = table ? static_cast<QWidget *>(page.Add<QTableWidget>(prefix + "group2_memberProperty_uarfcn"))
                               : page.Add<QSpinBox>(prefix + "group1_memberProperty_uarfcn");
        QVERIFY(page.Load(BandModel(calData, table)));
        bands->setCurrentText(band);
        QTEST(Describe(table ? static_cast<QTableWidget *>(field)->cellWidget(0, 1) : field), "shown");
    }

    void statusRelevance()
    {
        // A check box disabled by the status of another clears itself, and
        // enabling it again does not bring the check back; a spin box follows
        // the other way round.
        TestPage page;
        auto *publisher = page.Add<QComboBox>("cmdIf_request_group1_memberProperty_p");
        auto *box = page.Add<QCheckBox>("cmdIf_request_group1_memberProperty_c");
        auto *spin = page.Add<QSpinBox>("cmdIf_request_group1_memberProperty_s");
        QVERIFY(page.Load(Json(
            R"({"cmdIf":{"request":{"group1":{"groupType":1,"memberProperty":{"p":{"defaultSupport":1,"defaultEnableStatus":1,)"
            R"("publishEnableStatusList":["request.group1.memberProperty.c","request.group1.memberProperty.s"],)"
            R"("trait":{"dataType":"list","defaultValue":"on","value":["on","off"]}},)"
            R"("c":{"defaultSupport":1,"defaultEnableStatus":1,)"
            R"("trait":{"dataType":"boolean","defaultValue":"true","enableStatusPair":{"on":1,"off":0}}},)"
            R"("s":{"defaultSupport":1,"defaultEnableStatus":0,)"
            R"("trait":{"dataType":"range","defaultValue":"1","value":{"min":0,"max":9},"enableStatusPair":{"on":0,"off":1}}}}}}}})")));
        QVERIFY(box->isChecked() && !spin->isEnabled());
        publisher->setCurrentText("off");
        QVERIFY(!box->isEnabled() && !box->isChecked() && spin->isEnabled());
        publisher->setCurrentText("on");
        QVERIFY(box->isEnabled() && !box->isChecked() && !spin->isEnabled());

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
        QTest::newRow("single value") << false << "9500~9600,0" << 0.0 << 0.0;
        QTest::newRow("outside: middle of the first interval") << false << "9500~9600,0" << 50.0 << 9550.0;
        QTest::newRow("single value first") << false << "7,1~3" << 5.0 << 7.0;
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
