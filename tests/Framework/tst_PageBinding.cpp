#include <QComboBox>
#include <QHeaderView>
#include <QJsonArray>
#include <QLabel>
#include <QSpinBox>
#include <QTableWidget>
#include <QtTest>

#include "TestLog.h"
#include "TestPage.h"

namespace {

const QString kMember = "cmdIf_request_group1_memberProperty_m";

QString CellText(QTableWidget *table, int row, int column) { return Describe(table->cellWidget(row, column)); }

} // namespace

class TestPageBinding : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { TestLog::MuteOffscreenPlatformNotes(); }

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
        TestLog::CriticalCapture log;
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
        TestLog::CriticalCapture log;
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
        auto *table = page.Add<QTableWidget>("cmdIf_request_group1_memberProperty_gain");
        const QJsonObject group = Json(
            R"({"instanceList":["hi","lo"],"instanceProperty":{"hi":{"caption":"High"},"lo":{"caption":"Low"}},)"
            R"("memberProperty":{"hi":{"gain":{"defaultValue":"3"},"note":{"defaultValue":"ok"}},"lo":{"gain":{"defaultValue":"99"}}}})");
        const QJsonObject members{
            {"gain", Json(R"({"caption":"Gain","defaultSupport":1,"trait":{"dataType":"range","value":{"min":0,"max":9}}})")},
            {"note", Json(R"({"caption":"Note","defaultSupport":1,"trait":{"dataType":"label"}})")}};
        QVERIFY(page.Load(GroupModel(members, 2, group)));
        QCOMPARE(table->rowCount(), 2);
        QCOMPARE(table->columnCount(), 2);
        QCOMPARE(table->verticalHeaderItem(1)->text(), QString("Low"));
        QCOMPARE(CellText(table, 0, 0), QString("QSpinBox 0..9 value=3 base=10 tip=0~9"));
        QCOMPARE(CellText(table, 1, 0), QString("QSpinBox 0..9 value=4 base=10 tip=0~9"));
        QCOMPARE(CellText(table, 1, 1), QString("QLabel text=0 tip="));
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
        TestLog::CriticalCapture log;
        QVERIFY(page.Load(text.toStdString()));
        QTEST(page.IsModelReady(), "ready");
        QTEST(log.Count("====== Failed processing name"), "failures");
    }
};

QTEST_MAIN(TestPageBinding)
#include "tst_PageBinding.moc"
