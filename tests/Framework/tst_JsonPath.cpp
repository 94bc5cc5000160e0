#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

#include "JsonPath.h"
#include "ModelUpdateResult.h"
#include "TestLog.h"

namespace {

QJsonObject Json(const char *text) { return QJsonDocument::fromJson(text).object(); }
QString Text(const QJsonObject &object) { return QJsonDocument(object).toJson(QJsonDocument::Compact); }

const char *const kModel = R"({"a": {"b": 1, "n": null, "z": 0, "f": false, "e": "", "arr": [1, 2],
                               "deep": {"x": {"y": "v"}}, "k-ey w#th": {"ü": 5}}, "s": "text"})";

} // namespace

class TestJsonPath : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { TestLog::SetChannel(QtCriticalMsg, false); }

    void read_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QJsonValue>("value");
        QTest::addColumn<bool>("missing");
        QTest::newRow("nested number") << "a.b" << QJsonValue(1) << false;
        QTest::newRow("object") << "a.deep.x" << QJsonValue(QJsonObject{{"y", "v"}}) << false;
        QTest::newRow("array ends the path") << "a.arr" << QJsonValue(QJsonArray{1, 2}) << false;
        QTest::newRow("no index into an array") << "a.arr.0" << QJsonValue(QJsonValue::Undefined) << true;
        QTest::newRow("absent key") << "a.c" << QJsonValue(QJsonValue::Undefined) << true;
        QTest::newRow("absent first key") << "x.y" << QJsonValue(QJsonValue::Undefined) << true;
        QTest::newRow("through a number") << "a.b.c" << QJsonValue(QJsonValue::Undefined) << true;
        QTest::newRow("null counts as absent") << "a.n" << QJsonValue(QJsonValue::Null) << true;
        QTest::newRow("zero is there") << "a.z" << QJsonValue(0) << false;
        QTest::newRow("unusual key characters") << "a.k-ey w#th.ü" << QJsonValue(5) << false;
        QTest::newRow("empty path") << "" << QJsonValue(QJsonValue::Undefined) << true;
        QTest::newRow("trailing dot") << "a." << QJsonValue(QJsonObject(Json(kModel)["a"].toObject())) << false;
    }
    void read()
    {
        QFETCH(QString, path);
        QFETCH(QJsonValue, value);
        const QJsonObject model = Json(kModel);
        QJsonObject copy = model;
        const QJsonValue mutableRead = GetJsonValue(copy, path);
        const QJsonValue constRead = GetJsonValueConst(model, path);
        QCOMPARE(constRead.type(), value.type() == QJsonValue::Null && path.contains('.') ? QJsonValue::Null
                                                                                          : constRead.type());
        QCOMPARE(IsJsonValueDefined(constRead), IsJsonValueDefined(value));
        if (IsJsonValueDefined(value)) {
            QCOMPARE(constRead, value);
            QCOMPARE(mutableRead, value);
        } else {
            QVERIFY(!IsJsonValueDefined(mutableRead));
        }
        QTEST(IsJsonPathMissing(model, path), "missing");
        QCOMPARE(Text(model), Text(Json(kModel)));
    }

    void readLeavesANullOnlyUnderAnAbsentFirstKey()
    {
        QJsonObject model = Json(kModel);
        QVERIFY(!IsJsonValueDefined(GetJsonValue(model, "x.y")));
        QVERIFY(model.contains("x"));
        QVERIFY(model.value("x").isNull());
        QVERIFY(!IsJsonValueDefined(GetJsonValue(model, "a.q.r")));
        QVERIFY(!model.value("a").toObject().contains("q"));

        QJsonObject untouched = Json(kModel);
        GetJsonValueConst(untouched, "x.y");
        QVERIFY(!untouched.contains("x"));
    }

    void write_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QJsonValue>("value");
        QTest::addColumn<bool>("written");
        QTest::newRow("replace a number") << "a.b" << QJsonValue(2) << true;
        QTest::newRow("replace an object by a string") << "a.deep" << QJsonValue("flat") << true;
        QTest::newRow("absent last key") << "a.c" << QJsonValue(2) << false;
        QTest::newRow("absent deep path") << "a.q.r.s" << QJsonValue(2) << false;
        QTest::newRow("null can't be overwritten") << "a.n" << QJsonValue(2) << false;
        QTest::newRow("through a number") << "a.b.c" << QJsonValue(2) << false;
    }
    void write()
    {
        QFETCH(QString, path);
        QFETCH(QJsonValue, value);
        QFETCH(bool, written);
        QJsonObject model = Json(kModel);
        QCOMPARE(SetJsonValue(model, path, value), written);
        if (written) {
            QCOMPARE(GetJsonValueConst(model, path), value);
            // Everything else stays.
            QJsonObject expected = Json(kModel);
            QJsonObject a = expected["a"].toObject();
            QCOMPARE(model.value("s"), expected.value("s"));
            QCOMPARE(model.value("a").toObject().value("arr"), a.value("arr"));
        } else {
            QCOMPARE(Text(model), Text(Json(kModel)));
        }
    }

    // A write under an absent first key fails, and leaves a null there.
    void failedWriteUnderAnAbsentKey()
    {
        QJsonObject model = Json(R"({"a": {"b": 1}})");
        QVERIFY(!SetJsonValue(model, "x", 2));
        QCOMPARE(Text(model), QString(R"({"a":{"b":1},"x":null})"));
    }

    void insertCreatesTheNestedKey_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("inserted");
        QTest::addColumn<QString>("result");
        QTest::newRow("under a group") << "cmdIf.request.group1" << true
                                       << R"({"cmdIf":{"request":{"group1":{"groupType":1,"memberValue":{"band":"a"}}}}})";
        QTest::newRow("absent group") << "cmdIf.request.group2" << false
                                      << R"({"cmdIf":{"request":{"group1":{"groupType":1,"memberValue":{"band":"z","old":"x"}}}}})";
    }
    void insertCreatesTheNestedKey()
    {
        QFETCH(QString, path);
        QJsonObject model = Json(R"({"cmdIf":{"request":{"group1":{"groupType":1,"memberValue":{"old":"x","band":"z"}}}}})");
        QTEST(InsertJsonValue(model, path, "memberValue", "band", "a"), "inserted");
        QTEST(Text(model), "result");
    }

    void updateOutcome()
    {
        QJsonObject model = Json(R"({"modelName": "m"})");
        AddModelUpdateResult(model, true, "first");
        QCOMPARE(Text(model), QString(R"({"modelIntegrity":{"integrity":true,"messageList":["first"]},"modelName":"m"})"));
        AddModelUpdateResult(model, false, "second");
        AddModelUpdateResult(model, true, "third");
        QCOMPARE(GetJsonValueConst(model, "modelIntegrity.integrity").toBool(), false);
        QCOMPARE(GetJsonValueConst(model, "modelIntegrity.messageList").toArray(),
                 (QJsonArray{"first", "second", "third"}));

        InsertModelUpdateResult(model, true, "");
        QCOMPARE(Text(model), QString(R"({"modelIntegrity":{"integrity":true,"messageList":[""]},"modelName":"m"})"));
    }

    void emptyModels()
    {
        QCOMPARE(QString::fromStdString(BuildEmptyModelString()), QString(R"({"emptyModel":""})"));
        QCOMPARE(QString::fromStdString(BuildEmptyModelStringWithError("no data")),
                 QString(R"({"emptyModel":"","modelIntegrity":{"integrity":false,"messageList":["no data"]}})"));
    }
};

QTEST_GUILESS_MAIN(TestJsonPath)
#include "tst_JsonPath.moc"
