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
const QString kOn = R"("defaultSupport":1,"defaultEnableStatus":1,)";

// A supported, enabled member: `keys` (each with its comma) and the trait's keys.
QJsonObject Member(const QString &trait, const QString &keys = QString())
{
    return Json("{" + kOn + keys + R"("trait":{)" + trait + "}}");
}

// What the page packs under cmdIf.request.group1.memberValue`path`, as a JSON array of one, packed twice:
// the first packing makes memberValue, the second refreshes it.
QString Packed(TestPage &page, const QString &path = QString())
{
    page.PackageMemberValue();
    const QJsonObject model = QJsonDocument::fromJson(QByteArray::fromStdString(page.PackageMemberValue())).object();
    const QJsonValue value = GetJsonValueConst(model, "cmdIf.request.group1.memberValue" + path);
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
}

// "column headers|row headers", then every cell.
QStringList Table(QTableWidget *table)
{
    QStringList columns, rows, cells;
    for (int c = 0; c < table->columnCount(); ++c)
        columns << table->horizontalHeaderItem(c)->text();
    for (int r = 0; r < table->rowCount(); ++r) {
        rows << table->verticalHeaderItem(r)->text();
        for (int c = 0; c < table->columnCount(); ++c)
            cells << Describe(table->cellWidget(r, c));
    }
    return QStringList{columns.join(',') + "|" + rows.join(',')} + cells;
}

// The value a widget shows.
QString ValueOf(QWidget *widget)
{
    if (auto *box = qobject_cast<QComboBox *>(widget))
        return box->currentText();
    if (auto *box = qobject_cast<QAbstractSpinBox *>(widget))
        return box->text();
    if (auto *box = qobject_cast<QCheckBox *>(widget))
        return box->isChecked() ? "true" : "false";
    return qobject_cast<QLabel *>(widget)->text();
}

// A band list that publishes to a UARFCN field whose range follows the band:
// a field of the same group, or with `table` a column of a table in group2.
// Band D has no range; band E forces a value and has a check.
QJsonObject BandModel(bool calData, bool table)
{
    const QJsonObject uarfcn =
        Member(QString(R"("dataType":"range","defaultValue":%1,"valuePair":{"A":{"min":10,"max":30},)"
                       R"("B":{"min":20,"max":40},"C":{"min":50,"max":60},)"
                       R"("E":{"min":0,"max":99,"value":"7","rangeCheck":"1~99,0"}})")
                   .arg(table ? R"(["25"])" : R"("25")"),
               R"("subscribeValue":"request.group1.memberProperty.band",)");
    QJsonObject members{{"band", Member(R"("dataType":"list","defaultValue":"A","value":["A","B","C","D","E"])",
                                        QString(R"("publishValueList":["request.group%1.memberProperty.uarfcn"],)")
                                            .arg(table ? 2 : 1))}};
    QJsonObject request;
    if (table) {
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
    // `caption` names the caption's class; shown: the widget / the caption;
    // packed: the value the core gets. A member that does not give its support
    // and status is supported and enabled.
    void memberWidgets_data()
    {
        QTest::addColumn<QString>("widgetClass");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("member");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("packed");
        QTest::addColumn<bool>("fails");
        QTest::newRow("list") << "QComboBox" << ""
                              << R"("trait":{"dataType":"list","defaultValue":"b","value":["a","b"]})"
                              << "QComboBox items=a|b current=b tip=" << R"(["b"])" << false;
        QTest::newRow("range, default outside: middle toward 0; caption")
            << "QSpinBox" << "QLabel"
            << R"("caption":"AFC DAC","trait":{"dataType":"range","defaultValue":"9","value":{"min":-5,"max":2}})"
            << "QSpinBox -5..2 value=-1 base=10 tip=-5~2 / QLabel text=AFC DAC tip=" << R"(["-1"])" << false;
        QTest::newRow("range in hexadecimal, with its check: packed in decimal")
            << "QSpinBox" << ""
            << R"("trait":{"dataType":"range","defaultValue":"255",)"
               R"("value":{"min":0,"max":4095,"displayBase":16,"rangeCheck":"1~9,255"}})"
            << "QSpinBox 0..4095 value=255 base=16 tip=1~9,255" << R"(["255"])" << false;
        QTest::newRow("point range, decimals of the trait")
            << "QDoubleSpinBox" << ""
            << R"("trait":{"dataType":"pointRange","defaultValue":"0.25","decimals":3,"value":{"min":-1.5,"max":1.5}})"
            << "QDoubleSpinBox -1.5..1.5 value=0.25 decimals=3 tip=-1.5~1.5" << R"(["0.250"])" << false;
        QTest::newRow("label, disabled by the model")
            << "QLabel" << ""
            << R"("defaultSupport":1,"defaultEnableStatus":0,"trait":{"dataType":"label","defaultValue":"N/A"})"
            << "QLabel text=N/A tip= disabled" << R"(["N/A"])" << false;
        QTest::newRow("boolean takes the caption")
            << "QCheckBox" << "" << R"("caption":"Fix Power","trait":{"dataType":"boolean","defaultValue":"true"})"
            << "QCheckBox text=Fix Power checked=1 tip=" << R"(["true"])" << false;
        const QString unsupported =
            R"("defaultSupport":0,"caption":"x","trait":{"dataType":"label","defaultValue":"x"})";
        QTest::newRow("not supported: hidden, untouched; the caption hidden")
            << "QLabel" << "QLabel" << unsupported << "QLabel text= tip= hidden / QLabel text=x tip= hidden"
            << R"([""])" << false;
        QTest::newRow("a group box caption follows support only")
            << "QLabel" << "QGroupBox" << unsupported << "QLabel text= tip= hidden / QGroupBox tip= hidden"
            << R"([""])" << false;
        QTest::newRow("list in a spin box")
            << "QSpinBox" << "" << R"("trait":{"dataType":"list","defaultValue":"a","value":["a"]})"
            << "QSpinBox 0..99 value=0 base=10 tip=" << R"(["0"])" << true;
        QTest::newRow("no trait") << "QLabel" << "" << R"("caption":"c")" << "QLabel text= tip=" << R"([""])" << true;
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
        const QString flags = member.startsWith(R"("defaultSupport")") ? QString() : kOn;
        QVERIFY(page.Load(GroupModel(QJsonObject{{"m", Json("{" + flags + member + "}")}})));
        QTEST(Describe(widget) + (captionWidget ? " / " + Describe(captionWidget) : QString()), "shown");
        QTEST(!log.Lines().isEmpty(), "fails");
        QTEST(Packed(page, ".m"), "packed");
    }

    // Rows of the supported members, in columns; packed: what group1 packs.
    void tables_data()
    {
        QTest::addColumn<QString>("group");
        QTest::addColumn<QStringList>("shown"); // headers, cells
        QTest::addColumn<QString>("packed");
        QTest::newRow("supported rows, stepped columns, short arrays")
            << R"({"memberList":["a","b","c"],"memberProperty":{"dimentionCount":3,"startIndex":1,"indexStep":2,)"
               R"("a":{"caption":"A","defaultSupport":1,"defaultEnableStatus":1,)"
               R"("trait":{"dataType":"range","defaultValue":["1","2"],"value":{"min":0,"max":9}}},)"
               R"("b":{"caption":"B","defaultSupport":0,)"
               R"("trait":{"dataType":"range","defaultValue":["5"],"value":{"min":0,"max":9}}},)"
               R"("c":{"caption":"C","defaultSupport":1,"defaultEnableStatus":0,)"
               R"("trait":{"dataType":"label","defaultValue":["x"]}}}})"
            << QStringList{"1,3,5|A,C", "QSpinBox 0..9 value=1 base=10 tip=0~9",
                           "QSpinBox 0..9 value=2 base=10 tip=0~9", "QSpinBox 0..9 value=2 base=10 tip=0~9",
                           "QLabel text=x tip= disabled", "QLabel text=0 tip= disabled", "QLabel text=0 tip= disabled"}
            << R"([{"a":["1","2","2"],"c":["x","0","0"]}])";
        QTest::newRow("column captions win")
            << R"({"memberList":["a"],"memberProperty":{"dimentionCount":2,"colFieldCaptionList":["H","L"],)"
               R"("startIndex":7,"a":{"caption":"A","defaultSupport":1,"defaultEnableStatus":1,"trait":)"
               R"({"dataType":"pointRange","defaultValue":["0.5","9"],"value":{"min":0,"max":1,"decimals":2}}}}})"
            << QStringList{"H,L|A", "QDoubleSpinBox 0..1 value=0.5 decimals=2 tip=0~1",
                           "QDoubleSpinBox 0..1 value=0.5 decimals=2 tip=0~1"}
            << R"([{"a":["0.50","0.50"]}])";
        QTest::newRow("unsigned cells in hexadecimal, packed as shown")
            << R"({"memberList":["a"],"memberProperty":{"dimentionCount":2,)"
               R"("a":{"caption":"Reg","defaultSupport":1,"defaultEnableStatus":1,"trait":{"dataType":"unsignedRange",)"
               R"("defaultValue":["255","4294967295"],"value":{"min":"0","max":"4294967295","displayBase":16}}}}})"
            << QStringList{"0,0|Reg", "CUnsignedSpinBox text=FF tip=0~4294967295",
                           "CUnsignedSpinBox text=FFFFFFFF tip=0~4294967295"}
            << R"([{"a":["FF","FFFFFFFF"]}])";
        QTest::newRow("list cells")
            << R"({"memberList":["a"],"memberProperty":{"dimentionCount":2,"a":{"caption":"Mode","defaultSupport":1,)"
               R"("defaultEnableStatus":1,"trait":{"dataType":"list","defaultValue":["DL","UL"],)"
               R"("value":["UL","DL"]}}}})"
            << QStringList{"0,0|Mode", "QComboBox items=UL|DL current=DL tip=", "QComboBox items=UL|DL current=UL tip="}
            << R"([{"a":["DL","UL"]}])";
        QTest::newRow("nothing supported: table hidden")
            << R"({"memberList":["a"],"memberProperty":{"dimentionCount":2,)"
               R"("a":{"defaultSupport":0,"trait":{"dataType":"label","defaultValue":["x"]}}}})"
            << QStringList{"|"} << "[null]";
    }
    void tables()
    {
        QFETCH(QString, group);
        QFETCH(QStringList, shown);
        TestPage page;
        auto *table = page.Add<QTableWidget>("cmdIf_request_group1_memberProperty_a");
        QVERIFY(page.Load(GroupModel({}, 3, Json(group))));
        QCOMPARE(Table(table), shown);
        QCOMPARE(table->isHidden(), shown.size() == 1);
        QTEST(Packed(page), "packed");
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
        auto *table = page.Add<QTableWidget>(kMember);
        QVERIFY(page.Load(GroupModel({{"m", Member(R"("dataType":"label","defaultValue":["0"])")}}, 3,
                                     QJsonObject{{"memberProperty", QJsonObject{{"dimentionCount", columns}}}})));
        // The headers have their real size when the table is sized.
        QCOMPARE(table->verticalHeader()->width(), table->verticalHeader()->sizeHint().width());
        QCOMPARE(table->horizontalHeader()->height(), table->horizontalHeader()->sizeHint().height());
        QCOMPARE(table->minimumWidth(), table->verticalHeader()->width() + fitted * table->columnWidth(0));
        QCOMPARE(table->horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff, columns <= 16);
    }

    // Instances as rows, members as columns. An answer with an instance and
    // a member more than the table has cells shows what fits.
    void instanceTable()
    {
        TestPage page;
        auto *table = page.Add<QTableWidget>("cmdIf_response_group1_memberProperty_gain");
        const QJsonObject members{
            {"gain", Json(R"({"caption":"Gain","defaultSupport":1,)"
                          R"("trait":{"dataType":"range","value":{"min":0,"max":9}}})")},
            {"note", Json(R"({"caption":"Note","defaultSupport":1,"trait":{"dataType":"label"}})")}};
        const QJsonObject group =
            Json(R"({"instanceList":["hi","lo"],"instanceProperty":{"hi":{"caption":"High"},"lo":{"caption":"Low"}},)"
                 R"("memberProperty":{"hi":{"gain":{"defaultValue":"3"},"note":{"defaultValue":"ok"}},)"
                 R"("lo":{"gain":{"defaultValue":"99"}}}})");
        QJsonObject model = GroupModel(members, 2, group, "response");
        QVERIFY(page.Load(model));
        QCOMPARE(Table(table), (QStringList{"Gain,Note|High,Low", "QSpinBox 0..9 value=3 base=10 tip=0~9",
                                            "QLabel text=ok tip=", "QSpinBox 0..9 value=4 base=10 tip=0~9",
                                            "QLabel text=0 tip="}));

        const QString path = "cmdIf.response.group1.";
        QVERIFY(SetJsonValue(model, path + "instanceList", QJsonArray{"hi", "lo", "extra"}));
        QVERIFY(SetJsonValue(model, path + "memberList", QJsonArray{"gain", "note", "more"}));
        QVERIFY(SetJsonValue(model, path + "memberProperty.hi.gain.defaultValue", "7"));
        QVERIFY(InsertJsonValue(model, path + "memberProperty", "more", "trait", Json(R"({"dataType":"label"})")));
        QVERIFY(InsertJsonValue(model, path + "memberProperty", "extra", "gain", Json(R"({"defaultValue":"1"})")));
        page.UpdateWidgets(model);
        QCOMPARE(ValueOf(table->cellWidget(0, 0)), QString("7"));
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

    // An answer sets the response fields and cells; the request's field keeps its value.
    void updateOfWhatCameBack_data()
    {
        QTest::addColumn<QString>("response");
        QTest::addColumn<QString>("shown"); // m, list, flag, level, note, the cells
        QTest::newRow("values of the answer")
            << R"("m":"7","list":"b","flag":"true","level":"1.5","note":"ok","cells":["1","2"])"
            << "7|b|true|1.50|ok|1|2|2";
        QTest::newRow("a text that is no item blanks the box, a value outside is clamped, a short array fills")
            << R"("m":"3","list":"zzz","flag":"false","level":"-9","note":"","cells":["4"])"
            << "3||false|-5.00||4|4|4";
    }
    void updateOfWhatCameBack()
    {
        QFETCH(QString, response);
        const QString member = R"({"caption":"Flag","defaultSupport":1,"defaultEnableStatus":1,"trait":{%1}})";
        const QString range = member.arg(R"("dataType":"range","defaultValue":"5","value":{"min":0,"max":9})");
        QJsonObject model = Json(
            QString(R"({"cmdIf":{"request":{"group1":{"groupType":1,"memberProperty":{"m":%1}}},"response":{)"
                    R"("group1":{"groupType":1,"memberProperty":{"m":%1,"list":%2,"flag":%3,"level":%4,"note":%5}},)"
                    R"("group2":{"groupType":3,"memberList":["cells"],)"
                    R"("memberProperty":{"dimentionCount":3,"cells":%6}}}}})")
                .arg(range, member.arg(R"("dataType":"list","defaultValue":"a","value":["a","b"])"),
                     member.arg(R"("dataType":"boolean","defaultValue":"false")"),
                     member.arg(R"("dataType":"pointRange","defaultValue":"0","value":{"min":-5,"max":5})"),
                     member.arg(R"("dataType":"label","defaultValue":"-")"),
                     member.arg(R"("dataType":"range","defaultValue":["0"],"value":{"min":0,"max":9})")));
        TestPage page;
        auto *request = page.Add<QSpinBox>(kMember);
        QList<QWidget *> widgets;
        const QStringList classes{"QSpinBox", "QComboBox", "QCheckBox", "QDoubleSpinBox", "QLabel"};
        for (const char *name : {"m", "list", "flag", "level", "note"})
            widgets << page.AddOf(classes[widgets.size()], QString("cmdIf_response_group1_memberProperty_") + name);
        auto *table = page.Add<QTableWidget>("cmdIf_response_group2_memberProperty_cells");
        QVERIFY(page.Load(model));

        const QJsonObject values = Json("{" + response + "}");
        for (auto value = values.begin(); value != values.end(); ++value) {
            const QString path = QString("cmdIf.response.group%1.memberProperty.%2.trait.defaultValue");
            QVERIFY(SetJsonValue(model, path.arg(value.key() == "cells" ? 2 : 1).arg(value.key()), value.value()));
        }
        page.UpdateWidgets(model);
        for (int c = 0; c < table->columnCount(); ++c)
            widgets << table->cellWidget(0, c);
        QStringList seen;
        for (QWidget *widget : widgets)
            seen << ValueOf(widget);
        QTEST(seen.join('|'), "shown");
        QCOMPARE(request->value(), 5);
    }

    void integrityDecidesTheModel_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<bool>("taken");
        QTest::addColumn<QString>("boxText");
        QTest::addColumn<QString>("boxInformative");
        const QString error = "There are some error in this page:  Test page\n";
        QTest::newRow("integrity true")
            << R"({"modelName":"new","modelIntegrity":{"integrity":true,"messageList":[""]}})" << true << "" << "";
        QTest::newRow("integrity false") << R"({"modelName":"new","modelIntegrity":{"integrity":false,)"
                                            R"("messageList":["Update Band info failed","x"]}})"
            << false << error << "Update Band info failed\nx\n";
        QTest::newRow("empty, integrity true")
            << R"({"emptyModel":"","modelIntegrity":{"integrity":true,"messageList":[]}})" << false
            << "This is empty data to update." << "";
        QTest::newRow("empty alone") << R"({"emptyModel":""})" << false << error << "";
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
            QCOMPARE(boxes.Boxes()[0].buttons, QMessageBox::StandardButtons(QMessageBox::Close));
        }
    }

    void valueRelevance_data()
    {
        QTest::addColumn<int>("calData");
        QTest::addColumn<bool>("table");
        QTest::addColumn<QString>("band");
        QTest::addColumn<QString>("shown"); // the field, or the table's second cell
        // Trace lines of the change and of the packing after it whose wording belongs to the system.
        QTest::addColumn<QStringList>("trace");
        const QStringList none;
        QTest::newRow("test page: middle of the new range, though the value fits")
            << 0 << false << "B" << "QSpinBox 20..40 value=30 base=10 tip=20~40" << none;
        QTest::newRow("calibration page keeps a stored value that fits")
            << 1 << false << "B" << "QSpinBox 20..40 value=25 base=10 tip=20~40" << none;
        QTest::newRow("calibration page: middle when it does not")
            << 1 << false << "C" << "QSpinBox 50..60 value=55 base=10 tip=50~60" << none;
        QTest::newRow("band without a range: the old one stays")
            << 0 << false << "D" << "QSpinBox 10..30 value=25 base=10 tip=10~30" << none;
        QTest::newRow("test page takes the forced value, the check is the tip")
            << 0 << false << "E" << "QSpinBox 0..99 value=7 base=10 tip=1~99,0" << none;
        QTest::newRow("calibration page: no forced value")
            << 1 << false << "E" << "QSpinBox 0..99 value=25 base=10 tip=1~99,0" << none;
        QTest::newRow("table on a test page")
            << 0 << true << "B" << "QSpinBox 20..40 value=30 base=10 tip=20~40"
            << QStringList{R"(---> [Package][type1] Path in memberValue <---  "cmdIf.request.group1.memberValue" )"
                           R"("cmdIf.request.group1" ---> [Package][type1] Value <---  QJsonValue(string, "B"))",
                           "---> [Value Relevance][type3] Get column info <---  2",
                           "---> [Value Relevance][type3] Find!!!!!!!!! <--- "};
        QTest::newRow("table on a calibration page")
            << 1 << true << "B" << "QSpinBox 20..40 value=25 base=10 tip=20~40" << none;
    }
    void valueRelevance()
    {
        QFETCH(int, calData);
        QFETCH(bool, table);
        QFETCH(QString, band);
        QFETCH(QStringList, trace);
        TestPage page(calData);
        const QString prefix = calData ? "calDataIf_request_" : "cmdIf_request_";
        auto *bands = page.Add<QComboBox>(prefix + "group1_memberProperty_band");
        QWidget *field = page.AddOf(table ? "QTableWidget" : "QSpinBox",
                                    prefix + (table ? "group2" : "group1") + "_memberProperty_uarfcn");
        QVERIFY(page.Load(BandModel(calData, table)));
        TestLog::Capture log(QtDebugMsg);
        bands->setCurrentText(band);
        page.PackageMemberValue();
        QTEST(Describe(table ? static_cast<QTableWidget *>(field)->cellWidget(0, 1) : field), "shown");
        for (const QString &line : trace)
            QVERIFY2(log.Lines().contains(line), qPrintable(log.Lines().join('\n')));
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
        QVERIFY(page.Load(GroupModel({
            {"p", Member(R"("dataType":"list","defaultValue":"on","value":["on","off"])",
                         R"("publishEnableStatusList":["request.group1.memberProperty.c",)"
                         R"("request.group1.memberProperty.s"],)")},
            {"c", Member(R"("dataType":"boolean","defaultValue":"true","enableStatusPair":{"on":1,"off":0})")},
            {"s", Json(R"({"defaultSupport":1,"defaultEnableStatus":0,"trait":{"dataType":"range","defaultValue":"1",)"
                       R"("value":{"min":0,"max":9},"enableStatusPair":{"on":0,"off":1}}})")},
        })));
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

    // A key of two publishers, "band,mode", at loading and on each change; a
    // key without an entry leaves a field as it is, at loading with no range.
    void composedKeys()
    {
        TestPage page;
        auto *band = page.Add<QComboBox>("cmdIf_request_group1_memberProperty_band");
        auto *mode = page.Add<QCheckBox>("cmdIf_request_group1_memberProperty_mode");
        auto *info = page.Add<QLabel>("cmdIf_request_group1_memberProperty_info");
        auto *uarfcn = page.Add<QSpinBox>("cmdIf_request_group1_memberProperty_uarfcn");
        auto *lone = page.Add<QSpinBox>("cmdIf_request_group1_memberProperty_lone");
        const QString publishes =
            R"("publishValueList":["request.group1.memberProperty.info","request.group1.memberProperty.uarfcn"],)";
        const QString subscribes =
            R"("subscribeValueList":["request.group1.memberProperty.band","request.group1.memberProperty.mode"],)";
        QVERIFY(page.Load(GroupModel({
            {"band", Member(R"("dataType":"list","defaultValue":"A","value":["A","B"])", publishes)},
            {"mode", Member(R"("dataType":"boolean","defaultValue":"false")", publishes)},
            {"info", Member(R"("dataType":"label","defaultValue":"",)"
                            R"("valuePair":{"A,false":"a off","B,false":"b off","B,true":"b on"})",
                            subscribes)},
            {"uarfcn", Member(R"("dataType":"range","defaultValue":"9",)"
                              R"("valuePair":{"A,false":{"min":1,"max":3},"B,true":{"min":4,"max":6}})",
                              subscribes)},
            {"lone", Member(R"("dataType":"range","defaultValue":"9","valuePair":{"true":{"min":1,"max":3}})",
                            R"("subscribeValue":"request.group1.memberProperty.mode",)")},
        })));
        const auto shown = [&] { return info->text() + " / " + Describe(uarfcn); };
        QCOMPARE(shown(), QString(" / QSpinBox 1..3 value=2 base=10 tip=1~3"));
        QCOMPARE(Describe(lone), QString("QSpinBox 0..0 value=0 base=10 tip=0~0"));
        band->setCurrentText("B");
        QCOMPARE(shown(), QString("b off / QSpinBox 1..3 value=2 base=10 tip=1~3"));
        mode->setChecked(true);
        QCOMPARE(shown(), QString("b on / QSpinBox 4..6 value=5 base=10 tip=4~6"));
        band->setCurrentText("A"); // "A,true" has no entry
        QCOMPARE(shown(), QString("b on / QSpinBox 4..6 value=5 base=10 tip=4~6"));
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
    // A field with a check, type 1 or a table cell (a point range has its
    // check in a table only), left with the typed value.
    void rangeChecks()
    {
        QFETCH(bool, point);
        QFETCH(QString, check);
        QFETCH(double, typed);
        TestPage page;
        QWidget *widget = page.AddOf(point ? "QTableWidget" : "QSpinBox", kMember);
        const QString trait = R"("dataType":"%1","defaultValue":%2,"value":{"min":-100,"max":10000,"rangeCheck":"%3"})";
        const QJsonObject member = Member(trait.arg(point ? "pointRange" : "range", point ? R"(["0"])" : "0", check));
        const QJsonObject oneColumn = Json(R"({"memberProperty":{"dimentionCount":1}})");
        QVERIFY(page.Load(GroupModel({{"m", member}}, point ? 3 : 1, oneColumn)));
        auto *field =
            qobject_cast<QAbstractSpinBox *>(point ? static_cast<QTableWidget *>(widget)->cellWidget(0, 0) : widget);
        QVERIFY(field && field->setProperty("value", typed));
        emit field->editingFinished();
        QTEST(field->property("value").toDouble(), "kept");
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
            QWheelEvent event(QPointF(1, 1), QPointF(1, 1), QPoint(), QPoint(0, wheel * 120), Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(&field, &event);
        }
        QTEST(field.text(), "shown");
        QTEST(field.m_lastText, "lastGood");
    }
};

QTEST_MAIN(TestPageBinding)
#include "tst_PageBinding.moc"
