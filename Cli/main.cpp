/*
 * radbench-cli: the TD-SCDMA tool without a window, for scripts on a
 * production line: calibration items between the target and Cal/INI files,
 * the radio tests of the test pages, the baseband registers, a self-test and
 * the journal of writes. See the README, "On a production line".
 */
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <cstdio>

#include "CalDataCheck.h"
#include "CalDataSession.h"
#include "ErrorCodeInfo.h"
#include "RadioSession.h"
#include "Plausibility/CalPlausibility.h"
#include "Safeguard/CalDataBackup.h"
#include "Safeguard/WriteJournal.h"
#include "Safeguard/WriteSafeguard.h"
#include "TavoSimControl.h"

namespace {

// Exit codes.
enum EExit { EXIT_OK = 0, EXIT_USAGE = 2, EXIT_TARGET = 3, EXIT_FILE = 4, EXIT_IMPLAUSIBLE = 5 };

const char *const kProgram = "radbench-cli";

const char *const kDescription =
    "The TD-SCDMA tool's calibration items, radio tests and baseband registers, without a window.\n"
    "\n"
    "Commands:\n"
    "  items [--file CAL]              the items the target offers (and which of them CAL holds)\n"
    "  upload --file CAL [ITEM...]     target to CAL; every item the target offers by default\n"
    "  download --file CAL [ITEM...]   CAL to target; every item CAL holds by default. What the\n"
    "                                  target held goes first into a backup file (see --backup-dir)\n"
    "  show ITEM                       the target's data of ITEM as a Cal/INI file holds them\n"
    "  test TEST [NAME=VALUE...]       a radio test of the test pages with its parameters; a test\n"
    "                                  that holds the target (TX, RX) runs for --hold ms, then stops\n"
    "  reg read ADDR                   a baseband register (numbers in decimal or 0x hex)\n"
    "  reg write ADDR VALUE\n"
    "  selftest                        every radio test the target has, once, and a register read\n"
    "  journal [ITEM]                  the writes to targets, newest first (--csv or --json)\n"
    "  check [--file CAL]              the plausibility of the TPC and path loss curves of every\n"
    "                                  band, in CAL or on the target (see --max-jump)\n"
    "\n"
    "Examples:\n"
    "  radbench-cli items --file unit42.ini\n"
    "  radbench-cli --profile modern-l1 upload --file unit42.ini \"MMRF AFC\" TPC\n"
    "  radbench-cli --nvram unit42.json download --file unit42.ini --backup-dir backups\n"
    "  radbench-cli show IMEI\n"
    "  radbench-cli test \"Continuous TX\" band=\"2010-2025MHz(a)\" uarfcn=10087 --hold 5000\n"
    "  radbench-cli test Rssi uarfcn=9550 gain=49\n"
    "  radbench-cli reg read 0x10\n"
    "  radbench-cli reg write 0x10 0xbeef\n"
    "  radbench-cli --json selftest\n"
    "  radbench-cli journal TPC --csv > tpc-writes.csv\n"
    "  radbench-cli check --file unit42.ini || echo \"reject unit 42\"\n"
    "\n"
    "Exit codes: 0 all done, 2 bad usage, 3 the target failed, 4 a file failed, 5 implausible data.";

void Print(FILE *stream, const QString &text) { std::fputs(qPrintable(text), stream); }

int Fail(int code, const QString &message)
{
    Print(stderr, QString("%1: %2\n").arg(kProgram, message));
    return code;
}

void PrintJson(const QJsonObject &answer) { Print(stdout, QJsonDocument(answer).toJson(QJsonDocument::Compact) + "\n"); }

// Columns two spaces apart as one line, without the trailing blanks.
QString Columns(const QStringList &columns)
{
    QString line = columns.join("  ");
    while (line.endsWith(' '))
        line.chop(1);
    return line + '\n';
}

// A text of several lines on one: its lines, "; " between them.
QString OneLine(const QString &text) { return text.split('\n', Qt::SkipEmptyParts).join("; "); }

QString MessageOf(const SEachItemOperationResult &result)
{
    if (result.errorMessage.isEmpty() && result.errorCode != 0)
        return GetErrorCodeInfo(result.errorCode).message;
    return result.errorMessage;
}

// One table line: a name, "ok" or "failed (code)", and the text on one line.
QString Line(const QString &name, const SEachItemOperationResult &result)
{
    return Columns({name.leftJustified(16), (result.IsSuccess() ? "ok" : QString("failed (%1)").arg(result.errorCode))
                                                .leftJustified(12),
                    OneLine(MessageOf(result))});
}

QJsonObject ResultJson(const SEachItemOperationResult &result)
{
    return {{"code", result.errorCode}, {"message", MessageOf(result)}};
}

// Parses a register number: decimal or 0x hexadecimal, 16 bits.
bool Register(const QString &text, quint16 &number)
{
    bool ok = false;
    const uint value = text.toUInt(&ok, 0);
    number = quint16(value);
    return ok && value <= 0xFFFF;
}

struct SOptions {
    QStringList arguments; // the command's, after its name
    QString file;
    bool json = false;
    bool csv = false;
    int holdMs = 0;
    double maxJump = 0;
};

// ---- Calibration items ---------------------------------------------------------------

int ListItems(CCalDataSession &session, const SOptions &options)
{
    const QStringList target = session.TargetItems();
    const QStringList inFile = options.file.isEmpty() ? QStringList() : session.FileItems(options.file);
    if (options.json) {
        QJsonObject answer{{"command", "items"}, {"ok", true}, {"target", QJsonArray::fromStringList(target)}};
        if (!options.file.isEmpty())
            answer.insert("file", QJsonArray::fromStringList(inFile));
        PrintJson(answer);
        return EXIT_OK;
    }
    for (const QString &item : target)
        Print(stdout, Columns({item.leftJustified(16), inFile.contains(item) ? "in file" : ""}));
    return EXIT_OK;
}

// The items' results as a table or as JSON, with the backup they made; the
// exit code they stand for.
int Report(const QString &command, const QVector<SEachItemOperationResult> &results, bool json)
{
    bool ok = true;
    QString backup;
    QJsonArray items;
    QString table;
    for (const SEachItemOperationResult &result : results) {
        ok = ok && result.IsSuccess();
        if (!result.backupFile.isEmpty())
            backup = result.backupFile;
        QJsonObject item = ResultJson(result);
        item.insert("item", result.itemName);
        items.append(item);
        table += Line(result.itemName, result);
    }
    if (json) {
        QJsonObject answer{{"command", command}, {"ok", ok}, {"items", items}};
        if (!backup.isEmpty())
            answer.insert("backup", backup);
        PrintJson(answer);
    } else {
        Print(stdout, table + (backup.isEmpty() ? QString() : "backup: " + backup + '\n'));
    }
    return ok ? EXIT_OK : EXIT_TARGET;
}

int MoveItems(CCalDataSession &session, const QString &command, const SOptions &options)
{
    const QStringList &items = options.arguments;
    const QStringList unknown = session.Unknown(items);
    if (!unknown.isEmpty())
        return Fail(EXIT_USAGE, "the target offers no item " + unknown.join(", "));
    QVector<SEachItemOperationResult> results;
    QString error;
    const bool moved = command == "download" ? session.Download(options.file, items, results, error)
                                             : session.Upload(options.file, items, results, error);
    return moved ? Report(command, results, options.json) : Fail(EXIT_FILE, error);
}

int ShowItem(CCalDataSession &session, const SOptions &options)
{
    if (options.arguments.size() != 1)
        return Fail(EXIT_USAGE, "show needs one item");
    const QString item = options.arguments.first();
    if (!session.Unknown({item}).isEmpty())
        return Fail(EXIT_USAGE, "the target offers no item " + item);
    // An item's data are shown as a file of that item alone holds them.
    QTemporaryDir scratch;
    const QString path = scratch.filePath("show.ini");
    QVector<SEachItemOperationResult> results;
    QString error;
    if (!session.Upload(path, {item}, results, error))
        return Fail(EXIT_FILE, error);
    if (!results.value(0).IsSuccess())
        return Report("show", results, options.json);
    QFile shown(path);
    const QString text = shown.open(QIODevice::ReadOnly) ? QString::fromUtf8(shown.readAll()) : QString();
    if (options.json)
        PrintJson({{"command", "show"}, {"ok", true}, {"item", item}, {"data", text}});
    else
        Print(stdout, text);
    return EXIT_OK;
}

// ---- Radio tests and registers ----------------------------------------------------------

// The outcome of one test: its line and what it showed (table), or its object (JSON).
QString TestLines(const QString &item, const CRadioSession::SOutcome &outcome)
{
    QString lines = Line(item, outcome.result);
    if (outcome.stopped)
        lines += Line("  stop", outcome.stop);
    for (const auto &[caption, value] : outcome.shown)
        lines += Columns({("  " + caption).leftJustified(16), value});
    return lines;
}

QJsonObject TestJson(const QString &item, const CRadioSession::SOutcome &outcome)
{
    QJsonObject shown;
    for (const auto &[caption, value] : outcome.shown)
        shown.insert(caption, value);
    QJsonObject answer = ResultJson(outcome.result);
    answer.insert("test", item);
    answer.insert("ok", outcome.IsSuccess());
    answer.insert("result", shown);
    if (outcome.stopped)
        answer.insert("stop", ResultJson(outcome.stop));
    return answer;
}

int RunTest(CRadioSession &radio, const SOptions &options)
{
    const QStringList tests = radio.Tests();
    const QString item = options.arguments.value(0);
    if (!tests.contains(item))
        return Fail(EXIT_USAGE, (item.isEmpty() ? "test needs a test: " : "this target has no test " + item + "; it has: ") +
                                    tests.join(", "));
    QJsonObject request;
    QString error;
    if (!radio.BuildRequest(item, options.arguments.mid(1), request, error))
        return Fail(EXIT_USAGE, error);
    const SEachItemOperationResult armed = radio.Arm();
    if (!armed.IsSuccess())
        return Fail(EXIT_TARGET, "the target cannot be armed: " + MessageOf(armed));
    const CRadioSession::SOutcome outcome = radio.Run(item, request, options.holdMs);
    if (options.json) {
        QJsonObject answer = TestJson(item, outcome);
        answer.insert("command", "test");
        PrintJson(answer);
    } else {
        Print(stdout, TestLines(item, outcome));
    }
    return outcome.IsSuccess() ? EXIT_OK : EXIT_TARGET;
}

int AccessRegister(CRadioSession &radio, const SOptions &options)
{
    const QStringList &arguments = options.arguments;
    const QString verb = arguments.value(0);
    quint16 address = 0, value = 0;
    const bool read = verb == "read" && arguments.size() == 2;
    const bool write = verb == "write" && arguments.size() == 3;
    if (!read && !write)
        return Fail(EXIT_USAGE, "reg needs 'read ADDR' or 'write ADDR VALUE'");
    if (!Register(arguments[1], address) || (write && !Register(arguments[2], value)))
        return Fail(EXIT_USAGE, "a register address or value is a number from 0 to 0xffff");
    const SEachItemOperationResult armed = radio.Arm();
    if (!armed.IsSuccess())
        return Fail(EXIT_TARGET, "the target cannot be armed: " + MessageOf(armed));
    const SEachItemOperationResult result = read ? radio.ReadRegister(address, value) : radio.WriteRegister(address, value);
    const QString hexAddress = QString("0x%1").arg(address, 4, 16, QChar('0'));
    const QString hexValue = QString("0x%1").arg(value, 4, 16, QChar('0'));
    if (options.json) {
        QJsonObject answer = ResultJson(result);
        answer.insert("command", "reg");
        answer.insert("ok", result.IsSuccess());
        answer.insert("address", int(address));
        if (result.IsSuccess())
            answer.insert("value", int(value));
        PrintJson(answer);
    } else if (result.IsSuccess()) {
        Print(stdout, QString("%1 = %2\n").arg(hexAddress, hexValue));
    } else {
        Print(stdout, Line(hexAddress, result));
    }
    return result.IsSuccess() ? EXIT_OK : EXIT_TARGET;
}

int SelfTest(CRadioSession &radio, const SOptions &options)
{
    const SEachItemOperationResult armed = radio.Arm();
    if (!armed.IsSuccess())
        return Fail(EXIT_TARGET, "the target cannot be armed: " + MessageOf(armed));
    bool ok = true;
    QJsonArray tests;
    const auto tell = [&](const QString &name, bool passed, const QString &detail, QJsonObject json) {
        ok = ok && passed;
        if (options.json) {
            json.insert("test", name);
            json.insert("ok", passed);
            tests.append(json);
        } else {
            Print(stdout, Columns({passed ? "PASS" : "FAIL", name.leftJustified(20), detail}));
        }
    };
    for (const QString &item : radio.Tests()) {
        QJsonObject request;
        QString error;
        radio.BuildRequest(item, {}, request, error);
        const CRadioSession::SOutcome outcome = radio.Run(item, request, 0);
        const SEachItemOperationResult &failed = outcome.result.IsSuccess() ? outcome.stop : outcome.result;
        tell(item, outcome.IsSuccess(), outcome.IsSuccess() ? QString() : OneLine(MessageOf(failed)),
             TestJson(item, outcome));
    }
    quint16 value = 0;
    const SEachItemOperationResult read = radio.ReadRegister(0x10, value);
    tell("Baseband Register", read.IsSuccess(), read.IsSuccess() ? QString() : OneLine(MessageOf(read)),
         ResultJson(read));
    if (options.json)
        PrintJson({{"command", "selftest"}, {"ok", ok}, {"tests", tests}});
    return ok ? EXIT_OK : EXIT_TARGET;
}

// ---- Plausibility ------------------------------------------------------------------------

int Check(CCalDataSession &session, const SOptions &options)
{
    if (!options.arguments.isEmpty())
        return Fail(EXIT_USAGE, "check takes no item: it checks TPC and RX Path Loss");
    QVector<CCalDataCheck::SFinding> findings;
    QVector<SEachItemOperationResult> results;
    QString error;
    if (!CCalDataCheck(session).Run(options.file, options.maxJump, findings, results, error))
        return Fail(EXIT_FILE, error);
    // Data that could not be brought in cannot be judged.
    QStringList checked;
    for (const SEachItemOperationResult &result : results) {
        if (!result.IsSuccess()) {
            Report("check", results, options.json);
            return options.file.isEmpty() ? EXIT_TARGET : EXIT_FILE;
        }
        checked << result.itemName;
    }
    if (options.json) {
        QJsonArray faults;
        for (const CCalDataCheck::SFinding &finding : findings)
            faults.append(QJsonObject{{"item", finding.item}, {"band", finding.band}, {"fault", finding.text}});
        PrintJson({{"command", "check"}, {"ok", findings.isEmpty()}, {"checked", QJsonArray::fromStringList(checked)},
                   {"faults", faults}});
    } else if (findings.isEmpty()) {
        Print(stdout, "plausible: " + checked.join(", ") + '\n');
    } else {
        for (const CCalDataCheck::SFinding &finding : findings)
            Print(stdout, Columns({finding.item.leftJustified(16), finding.band.leftJustified(16), finding.text}));
    }
    return findings.isEmpty() ? EXIT_OK : EXIT_IMPLAUSIBLE;
}

// ---- The journal ------------------------------------------------------------------------

int ListJournal(const QString &path, const SOptions &options)
{
    if (options.arguments.size() > 1)
        return Fail(EXIT_USAGE, "journal takes one item at most");
    QString error;
    const QVector<SWriteJournalEntry> entries = CWriteJournal(path).Entries(options.arguments.value(0), &error);
    if (!error.isEmpty())
        return Fail(EXIT_FILE, "journal: " + error);
    if (options.csv) {
        Print(stdout, QString::fromUtf8(CWriteJournal::ToCsv(entries)));
    } else if (options.json) {
        PrintJson({{"command", "journal"},
                   {"ok", true},
                   {"journal", path},
                   {"entries", QJsonDocument::fromJson(CWriteJournal::ToJson(entries)).array()}});
    } else {
        for (const SWriteJournalEntry &entry : entries)
            Print(stdout, Columns({entry.time.toLocalTime().toString("yyyy-MM-dd HH:mm:ss"), entry.item.leftJustified(16),
                                   (entry.IsSuccess() ? "ok" : QString("failed (%1)").arg(entry.code)).leftJustified(12),
                                   entry.target.leftJustified(16), entry.backupFile}));
    }
    return EXIT_OK;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(kProgram);
    // The controllers' trace is for their developers.
    if (qEnvironmentVariableIsEmpty("QT_LOGGING_RULES"))
        QLoggingCategory::setFilterRules("*.debug=false");

    QCommandLineParser parser;
    parser.setApplicationDescription(kDescription);
    parser.addHelpOption();
    parser.addPositionalArgument("command", "items, upload, download, show, test, reg, selftest or journal");
    parser.addPositionalArgument("arguments", "the command's: item names, a test and its NAME=VALUE, ...", "[...]");
    const QCommandLineOption profile("profile", "The simulated target's profile (name or JSON file).", "PROFILE",
                                     "default");
    const QCommandLineOption nvram("nvram", "Keep the target's NVRAM in FILE between runs.", "FILE");
    const QCommandLineOption file("file", "The Cal/INI file.", "CAL");
    const QCommandLineOption json("json", "Print JSON instead of a table.");
    const QCommandLineOption csv("csv", "journal: print CSV.");
    const QCommandLineOption quiet("quiet", "No progress lines on stderr.");
    const QCommandLineOption hold("hold", "test: how long a test that holds the target runs before its stop.", "MS",
                                  "0");
    const QCommandLineOption noBackup("no-backup", "download: no backup of the target's data first.");
    const QCommandLineOption backupDir("backup-dir",
                                       "download: the folder of backups (default: radbench-backups beside CAL).", "DIR");
    const QCommandLineOption journal("journal", "The journal of writes (SQLite; default: the tool's).", "FILE");
    const QCommandLineOption maxJump("max-jump", "check: the largest path loss change between neighbouring channels.",
                                     "DB", QString::number(CCalPlausibility::kDefaultLossJump));
    parser.addOptions({profile, nvram, file, json, csv, quiet, hold, noBackup, backupDir, journal, maxJump});
    if (!parser.parse(app.arguments()))
        return Fail(EXIT_USAGE, parser.errorText());
    if (parser.isSet("help")) {
        Print(stdout, parser.helpText());
        return EXIT_OK;
    }

    const QStringList positional = parser.positionalArguments();
    const QString command = positional.value(0);
    static const QStringList commands{"items", "upload", "download", "show",   "test",
                                      "reg",   "selftest", "journal", "check"};
    if (!commands.contains(command))
        return Fail(EXIT_USAGE, command.isEmpty() ? "no command (" + commands.join(", ") + ")"
                                                  : "unknown command: " + command);
    SOptions options;
    options.arguments = positional.mid(1);
    options.file = parser.value(file);
    options.json = parser.isSet(json);
    options.csv = parser.isSet(csv);
    bool holdOk = false;
    options.holdMs = parser.value(hold).toInt(&holdOk);
    if (!holdOk || options.holdMs < 0)
        return Fail(EXIT_USAGE, "--hold takes milliseconds, not " + parser.value(hold));
    bool jumpOk = false;
    options.maxJump = parser.value(maxJump).toDouble(&jumpOk);
    if (!jumpOk || options.maxJump <= 0)
        return Fail(EXIT_USAGE, "--max-jump takes decibels above 0, not " + parser.value(maxJump));
    if ((command == "upload" || command == "download") && options.file.isEmpty())
        return Fail(EXIT_USAGE, command + " needs --file CAL");

    // Writes are backed up and journaled as the tool's settings say, unless
    // the options say otherwise.
    CWriteSafeguard::SSettings guard = CWriteSafeguard::LoadSettings(kProgram);
    if (parser.isSet(journal))
        guard.journalFile = QFileInfo(parser.value(journal)).absoluteFilePath();
    if (command == "journal")
        return ListJournal(guard.journalFile, options);
    guard.backup = guard.backup && !parser.isSet(noBackup);
    if (parser.isSet(backupDir))
        guard.backupFolder = parser.value(backupDir);
    else if (!options.file.isEmpty())
        guard.backupFolder = QDir(QFileInfo(options.file).absolutePath()).filePath("radbench-backups");
    // One backup for the whole download, whichever controllers it takes.
    if (command == "download" && guard.backup)
        guard.backupFile = CCalDataBackup::NewPath(guard.backupFolder);
    CWriteSafeguard::Instance()->Configure(guard);
    QObject::connect(CWriteSafeguard::Instance(), &CWriteSafeguard::Signal_Journaled, &app,
                     [](SWriteJournalEntry, QString error) {
                         if (!error.isEmpty())
                             Fail(EXIT_FILE, "journal: " + error);
                     });

    QString error;
    if (!TavoSim::LoadProfile(parser.value(profile), &error))
        return Fail(EXIT_USAGE, "profile: " + error);
    if (parser.isSet(nvram) && !TavoSim::SetNvramFile(parser.value(nvram), &error))
        return Fail(EXIT_FILE, "NVRAM file: " + error);
    TavoSim::LoadDatabase();

    if (command == "test" || command == "reg" || command == "selftest") {
        CRadioSession radio;
        if (command == "test")
            return RunTest(radio, options);
        if (command == "reg")
            return AccessRegister(radio, options);
        return SelfTest(radio, options);
    }
    CCalDataSession session;
    if (!parser.isSet(quiet))
        session.SetProgress([](int done, int total, const QString &item) {
            Print(stderr, QString("[%1/%2] %3\n").arg(done).arg(total).arg(item));
        });
    if (command == "items")
        return ListItems(session, options);
    if (command == "show")
        return ShowItem(session, options);
    if (command == "check")
        return Check(session, options);
    return MoveItems(session, command, options);
}
