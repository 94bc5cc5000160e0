// The dotted paths into a model: the first line of the input is a path,
// the rest a model; reading, testing, replacing and inserting at the path
// never harm, and a value replaced reads back.
#include <QJsonDocument>
#include <QJsonObject>

#include "FuzzSupport.h"
#include "JsonPath.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool quiet = (QuietTool(), true);
    Q_UNUSED(quiet);
    const QByteArray bytes = Bytes(data, size);
    const int end = bytes.indexOf('\n');
    const QString path = QString::fromUtf8(end < 0 ? bytes : bytes.left(end));
    QJsonObject model = QJsonDocument::fromJson(end < 0 ? QByteArray() : bytes.mid(end + 1)).object();

    const QJsonValue value = GetJsonValueConst(model, path);
    IsJsonValueDefined(value);
    IsJsonPathMissing(model, path);
    GetJsonValue(model, path);
    if (SetJsonValue(model, path, QJsonValue(42)) && GetJsonValueConst(model, path) != QJsonValue(42))
        std::abort();
    InsertJsonValue(model, path, "memberValue", "fuzz", QJsonValue("x"));
    return 0;
}
