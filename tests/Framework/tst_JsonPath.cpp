#include <QJsonDocument>
#include <QtTest>

#include "JsonPath.h"
#include "ModelUpdateResult.h"
#include "TestLog.h"

namespace {

QJsonObject Json(const char *text) { return QJsonDocument::fromJson(text).object(); }
QString Text(const QJsonObject &object) { return QJsonDocument(object).toJson(QJsonDocument::Compact); }

const char *const kModel =
    R"({"a": {"b": 1, "n": null, "z": 0, "arr": [1, 2], "deep": {"x": {"y": "v"}}}, "s": "text"})";

} // namespace

class TestJsonPath : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { TestLog::SetChannel(QtCriticalMsg, false); }

    // A path read, and written: only a value that is there is replaced.
    void readAndWrite_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QJsonValue>("value"); // undefined or null: missing
        QTest::newRow("nested number") << "a.b" << QJsonValue(1);
        QTest::newRow("object") << "a.deep.x" << QJsonValue(QJsonObject{{"y", "v"}});
        QTest::newRow("no index into an array") << "a.arr.0" << QJsonValue(QJsonValue::Undefined);
        QTest::newRow("absent key") << "a.c" << QJsonValue(QJsonValue::Undefined);
        QTest::newRow("through a number") << "a.b.c" << QJsonValue(QJsonValue::Undefined);
        QTest::newRow("null counts as absent") << "a.n" << QJsonValue(QJsonValue::Null);
        QTest::newRow("zero is there") << "a.z" << QJsonValue(0);
    }
    void readAndWrite()
    {
        QFETCH(QString, path);
        QFETCH(QJsonValue, value);
        const QJsonObject model = Json(kModel);
        QJsonObject copy = model;
        const bool defined = !value.isNull() && !value.isUndefined();
        QCOMPARE(IsJsonValueDefined(GetJsonValueConst(model, path)), defined);
        QCOMPARE(IsJsonValueDefined(GetJsonValue(copy, path)), defined);
        if (defined) {
            QCOMPARE(GetJsonValueConst(model, path), value);
            QCOMPARE(GetJsonValue(copy, path), value);
        }
        QCOMPARE(IsJsonPathMissing(model, path), !defined);
        QCOMPARE(Text(copy), Text(model));

        QCOMPARE(SetJsonValue(copy, path, "flat"), defined);
        QCOMPARE(Text(model), Text(Json(kModel))); // the object the copy shares with stays
        if (defined) {
            QCOMPARE(GetJsonValueConst(copy, path), QJsonValue("flat"));
            QVERIFY(SetJsonValue(copy, path, value)); // back: nothing else changed
        }
        QCOMPARE(Text(copy), Text(model));
    }

    // Reading or writing under an absent first key through the mutable
    // object leaves a null there; the const read leaves the object alone.
    void absentFirstKeyLeavesANull()
    {
        QJsonObject model = Json(kModel);
        QVERIFY(!IsJsonValueDefined(GetJsonValue(model, "x.y")));
        QVERIFY(model.contains("x") && model.value("x").isNull());
        QVERIFY(!IsJsonValueDefined(GetJsonValue(model, "a.q.r")));
        QVERIFY(!model.value("a").toObject().contains("q"));
        QVERIFY(!SetJsonValue(model, "w", 2));
        QVERIFY(model.contains("w") && model.value("w").isNull());

        const QJsonObject untouched = Json(kModel);
        GetJsonValueConst(untouched, "x.y");
        QVERIFY(!untouched.contains("x"));
    }

    // Insert sets the key under a group to a new object; under an absent group it does nothing.
    void insertCreatesTheNestedKey()
    {
        QJsonObject model = Json(R"({"if":{"group1":{"groupType":1,"memberValue":{"old":"x","band":"z"}}}})");
        QVERIFY(!InsertJsonValue(model, "if.group2", "memberValue", "band", "a"));
        QVERIFY(InsertJsonValue(model, "if.group1", "memberValue", "band", "a"));
        QCOMPARE(Text(model), QString(R"({"if":{"group1":{"groupType":1,"memberValue":{"band":"a"}}}})"));
    }

    // A failure sticks once added; Insert starts over; the empty model with an error.
    void updateOutcome()
    {
        QJsonObject model = Json(R"({"modelName": "m"})");
        AddModelUpdateResult(model, true, "first");
        AddModelUpdateResult(model, false, "second");
        AddModelUpdateResult(model, true, "third");
        QCOMPARE(Text(model), QString(R"({"modelIntegrity":{"integrity":false,)"
                                      R"("messageList":["first","second","third"]},"modelName":"m"})"));
        InsertModelUpdateResult(model, true, "");
        QCOMPARE(Text(model), QString(R"({"modelIntegrity":{"integrity":true,"messageList":[""]},"modelName":"m"})"));
        QCOMPARE(QString::fromStdString(BuildEmptyModelStringWithError("no data")),
                 QString(R"({"emptyModel":"","modelIntegrity":{"integrity":false,"messageList":["no data"]}})"));
    }
};

QTEST_GUILESS_MAIN(TestJsonPath)
#include "tst_JsonPath.moc"
