/*
 * radbench-cli: the calibration items of the TD-SCDMA tool without a window,
 * for scripts on a production line. See the README, "On a production line".
 */
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <cstdio>

#include "CalDataSession.h"
#include "ErrorCodeInfo.h"
#include "TavoSimControl.h"

namespace {

// Exit codes.
enum EExit { EXIT_OK = 0, EXIT_USAGE = 2, EXIT_TARGET = 3, EXIT_FILE = 4 };

void Print(FILE *stream, const QString &text) { std::fputs(qPrintable(text), stream); }

int Fail(int code, const QString &message)
{
    Print(stderr, "radbench-cli: " + message + "\n");
    return code;
}

// The items' results as a table or as JSON; the exit code they stand for.
int Report(const QString &command, const QVector<SEachItemOperationResult> &results, bool json)
{
    bool ok = true;
    QJsonArray items;
    QString table;
    for (const SEachItemOperationResult &result : results) {
        ok = ok && result.errorCode == 0;
        const QString message =
            result.errorMessage.isEmpty() && result.errorCode != 0 ? GetErrorCodeInfo(result.errorCode).message : result.errorMessage;
        items.append(QJsonObject{{"item", result.itemName}, {"code", result.errorCode}, {"message", message}});
        table += QString("%1  %2  %3")
                     .arg(result.itemName, -16)
                     .arg(result.errorCode == 0 ? "ok" : QString("failed (%1)").arg(result.errorCode), -12)
                     .arg(QString(message).replace('\n', ' '))
                     .trimmed() +
                 '\n';
    }
    if (json)
        Print(stdout, QJsonDocument(QJsonObject{{"command", command}, {"ok", ok}, {"items", items}})
                          .toJson(QJsonDocument::Compact) + "\n");
    else
        Print(stdout, table);
    return ok ? EXIT_OK : EXIT_TARGET;
}

int ListItems(CCalDataSession &session, const QString &file, bool json)
{
    const QStringList target = session.TargetItems();
    const QStringList inFile = file.isEmpty() ? QStringList() : session.FileItems(file);
    if (json) {
        QJsonObject answer{{"command", "items"}, {"ok", true}, {"target", QJsonArray::fromStringList(target)}};
        if (!file.isEmpty())
            answer.insert("file", QJsonArray::fromStringList(inFile));
        Print(stdout, QJsonDocument(answer).toJson(QJsonDocument::Compact) + "\n");
    } else {
        for (const QString &item : target)
            Print(stdout, QString("%1%2").arg(item, -16).arg(inFile.contains(item) ? "  in file" : "").trimmed() + '\n');
    }
    return EXIT_OK;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName("radbench-cli");
    // The controllers' trace is for their developers.
    if (qEnvironmentVariableIsEmpty("QT_LOGGING_RULES"))
        QLoggingCategory::setFilterRules("*.debug=false");

    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Moves the TD-SCDMA tool's calibration items between the target and Cal/INI files.\n\n"
        "Commands:\n"
        "  items [--file CAL]            the items the target offers (and those CAL holds)\n"
        "  upload --file CAL [ITEM...]   target to CAL (every item the target offers by default)\n"
        "  download --file CAL [ITEM...] CAL to target (every item CAL holds by default)\n"
        "  show ITEM                     the target's data of ITEM, as a Cal/INI file holds them\n\n"
        "Example: radbench-cli --profile modern-l1 upload --file unit42.ini \"MMRF AFC\" TPC\n\n"
        "Exit codes: 0 all done, 2 bad usage, 3 an item failed on the target, 4 a file failed.");
    parser.addHelpOption();
    parser.addPositionalArgument("command", "items, upload or download");
    parser.addPositionalArgument("items", "item names, as 'items' lists them", "[ITEM...]");
    const QCommandLineOption profile("profile", "The simulated target's profile (name or JSON file).", "PROFILE",
                                     "default");
    const QCommandLineOption nvram("nvram", "Keep the target's NVRAM in FILE between runs.", "FILE");
    const QCommandLineOption file("file", "The Cal/INI file.", "CAL");
    const QCommandLineOption json("json", "Print JSON instead of a table.");
    const QCommandLineOption quiet("quiet", "No progress lines on stderr.");
    parser.addOptions({profile, nvram, file, json, quiet});
    if (!parser.parse(app.arguments()))
        return Fail(EXIT_USAGE, parser.errorText());
    if (parser.isSet("help")) {
        Print(stdout, parser.helpText());
        return EXIT_OK;
    }

    const QStringList arguments = parser.positionalArguments();
    const QString command = arguments.value(0);
    if (command != "items" && command != "upload" && command != "download" && command != "show")
        return Fail(EXIT_USAGE, command.isEmpty() ? "no command (items, upload, download, show)"
                                                  : "unknown command: " + command);
    QString path = parser.value(file);
    if ((command == "upload" || command == "download") && path.isEmpty())
        return Fail(EXIT_USAGE, command + " needs --file CAL");
    if (command == "show" && arguments.size() != 2)
        return Fail(EXIT_USAGE, "show needs one item");

    QString error;
    if (!TavoSim::LoadProfile(parser.value(profile), &error))
        return Fail(EXIT_USAGE, "profile: " + error);
    if (parser.isSet(nvram) && !TavoSim::SetNvramFile(parser.value(nvram), &error))
        return Fail(EXIT_FILE, "NVRAM file: " + error);
    TavoSim::LoadDatabase();

    CCalDataSession session;
    if (!parser.isSet(quiet))
        session.SetProgress([](int done, int total, const QString &item) {
            Print(stderr, QString("[%1/%2] %3\n").arg(done).arg(total).arg(item));
        });
    if (command == "items")
        return ListItems(session, path, parser.isSet(json));

    const QStringList items = arguments.mid(1);
    const QStringList unknown = session.Unknown(items);
    if (!unknown.isEmpty())
        return Fail(EXIT_USAGE, "the target offers no item " + unknown.join(", "));
    // An item's data are shown as a file of that item alone holds them.
    QTemporaryDir scratch;
    if (command == "show")
        path = scratch.filePath("show.ini");
    QVector<SEachItemOperationResult> results;
    const bool moved = command == "download" ? session.Download(path, items, results, error)
                                             : session.Upload(path, items, results, error);
    if (!moved)
        return Fail(EXIT_FILE, error);
    if (command != "show")
        return Report(command, results, parser.isSet(json));
    if (results.value(0).errorCode != 0)
        return Report(command, results, parser.isSet(json));
    QFile shown(path);
    const QString text = shown.open(QIODevice::ReadOnly) ? QString::fromUtf8(shown.readAll()) : QString();
    if (parser.isSet(json))
        Print(stdout, QJsonDocument(QJsonObject{{"command", command}, {"ok", true}, {"item", items.first()},
                                                {"data", text}})
                          .toJson(QJsonDocument::Compact) + "\n");
    else
        Print(stdout, text);
    return EXIT_OK;
}
