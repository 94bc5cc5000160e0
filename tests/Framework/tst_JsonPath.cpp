#include <QJsonArray>
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

    void read_data()
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
    void read()
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

    void write_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("written");
        QTest::newRow("replace an object by a string") << "a.deep" << true;
        QTest::newRow("absent last key") << "a.c" << false;
        QTest::newRow("null can't be overwritten") << "a.n" << false;
        QTest::newRow("through a number") << "a.b.c" << false;
    }
    void write()
    {
        QFETCH(QString, path);
        QFETCH(bool, written);
        QJsonObject model = Json(kModel);
        QCOMPARE(SetJsonValue(model, path, "flat"), written);
        QJsonObject expected = Json(kModel);
        if (written) {
            QCOMPARE(GetJsonValueConst(model, path), QJsonValue("flat"));
            QJsonObject a = expected["a"].toObject();
            a["deep"] = "flat";
            expected["a"] = a;
        }
        QCOMPARE(Text(model), Text(expected));
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

    // A failure sticks once added; Insert starts over; the empty model with an error.
    void updateOutcome()
    {
        QJsonObject model = Json(R"({"modelName": "m"})");
        AddModelUpdateResult(model, true, "first");
        AddModelUpdateResult(model, false, "second");
        AddModelUpdateResult(model, true, "third");
        QCOMPARE(Text(model),
                 QString(R"({"modelIntegrity":{"integrity":false,"messageList":["first","second","third"]},"modelName":"m"})"));
        InsertModelUpdateResult(model, true, "");
        QCOMPARE(Text(model), QString(R"({"modelIntegrity":{"integrity":true,"messageList":[""]},"modelName":"m"})"));
        QCOMPARE(QString::fromStdString(BuildEmptyModelStringWithError("no data")),
                 QString(R"({"emptyModel":"","modelIntegrity":{"integrity":false,"messageList":["no data"]}})"));
    }
};

QTEST_GUILESS_MAIN(TestJsonPath)
#include "tst_JsonPath.moc"
