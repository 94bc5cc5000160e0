#include <QtTest>

#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QThread>

#include <memory>

#include "FileDialogMan.h"
#include "FilePathRecordSentry.h"
#include "Platform/PortableCriticalSection.h"
#include "TIniFile.h"
#include "TestLog.h"

namespace {

QByteArray ReadBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool WriteBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

// The settings file lies beside the test's own folder; what was there before
// is put back at the end.
class TestFileDialog : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void dialogStartsAtTheLastPathAndRemembersTheNext_data();
    void dialogStartsAtTheLastPathAndRemembersTheNext();
    void criticalSectionIsReentrantAndExclusive();

private:
    QTemporaryDir m_tmp;
    QString m_settingsPath = CFilePathRecordSentry::SettingsFilePath();
    QString m_configsFolder = QFileInfo(m_settingsPath).absolutePath();
    bool m_hadConfigsFolder = QFileInfo(m_configsFolder).isDir();
    QByteArray m_savedSettings = QFileInfo::exists(m_settingsPath) ? ReadBytes(m_settingsPath) : QByteArray();
};

void TestFileDialog::initTestCase()
{
    TestLog::MuteOffscreenPlatformNotes();
    QVERIFY(QDir().mkpath(m_tmp.path() + "/a") && QDir().mkpath(m_tmp.path() + "/b"));
    QVERIFY(WriteBytes(m_tmp.path() + "/a/first.ini", "[AFC]\n"));
}

void TestFileDialog::cleanupTestCase()
{
    QFile::remove(m_settingsPath);
    if (!m_savedSettings.isNull())
        WriteBytes(m_settingsPath, m_savedSettings);
    else if (!m_hadConfigsFolder)
        QDir(m_configsFolder).removeRecursively();
}

void TestFileDialog::dialogStartsAtTheLastPathAndRemembersTheNext_data()
{
    // Paths are below the test's temporary folder, "%T" in the settings text.
    QTest::addColumn<bool>("save");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("shownTitle");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("shownFilters");
    QTest::addColumn<QByteArray>("settings"); // null: neither file nor folder
    QTest::addColumn<QString>("startFolder"); // empty: the dialog's own choice
    QTest::addColumn<QString>("choose");      // empty: cancel

    const QByteArray remembered("[Other]\nx = 1\n\n[Last User Open Path]\nlast_open_path = %T/a/first.ini\n");
    QTest::newRow("first run makes folder and file")
        << false << QString() << "Please choose the file to open" << QString() << QStringList{"All files (*.*)"}
        << QByteArray() << QString() << "a/first.ini";
    QTest::newRow("save starts at the last path, stores a path outside ASCII")
        << true << "Export TPC" << "Export TPC" << "Ini file (*.ini)|*.ini" << QStringList{"Ini file (*.ini)"}
        << remembered << "a" << QString::fromUtf8("b/Grüße 校准.ini");
    QTest::newRow("cancel leaves the file as it was")
        << true << QString() << "Please choose the file to save" << "Cal files|*.ini;*.txt|Text (*.txt)|*.txt|"
        << QStringList{"Cal files (*.ini *.txt)", "Text (*.txt)"} << remembered << "a" << QString();
    QTest::newRow("cancel on a first run makes nothing")
        << false << QString() << "Please choose the file to open" << "Ini file (*.ini)" << QStringList{"Ini file (*.ini)"}
        << QByteArray() << QString() << QString();
}

void TestFileDialog::dialogStartsAtTheLastPathAndRemembersTheNext()
{
    QFETCH(bool, save);
    QFETCH(QString, title);
    QFETCH(QString, shownTitle);
    QFETCH(QString, filter);
    QFETCH(QStringList, shownFilters);
    QFETCH(QByteArray, settings);
    QFETCH(QString, startFolder);
    QFETCH(QString, choose);

    QFile::remove(m_settingsPath);
    if (settings.isNull()) {
        QDir(m_configsFolder).removeRecursively();
    } else {
        settings.replace("%T", m_tmp.path().toUtf8());
        QVERIFY(QDir().mkpath(m_configsFolder) && WriteBytes(m_settingsPath, settings));
    }
    const QString chosen = choose.isEmpty() ? QString() : m_tmp.path() + "/" + choose;

    // The user: types the path and presses Enter, or cancels.
    QString seenTitle, seenFolder;
    QStringList seenFilters;
    QTimer user;
    connect(&user, &QTimer::timeout, this, [&] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        user.stop();
        seenTitle = dialog->windowTitle();
        seenFilters = dialog->nameFilters();
        seenFolder = dialog->directory().absolutePath();
        auto *edit = dialog->findChild<QLineEdit *>("fileNameEdit");
        if (chosen.isEmpty() || !edit)
            return dialog->reject();
        edit->setText(chosen);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    user.start(20);

    CFileDialogMan dialogs;
    QString path = "stale";
    if (save)
        dialogs.GetSaveFilePath(title, filter, path);
    else
        dialogs.GetOpenFilePath(title, filter, path);

    QCOMPARE(seenTitle, shownTitle);
    QCOMPARE(seenFilters, shownFilters);
    if (!startFolder.isEmpty())
        QCOMPARE(seenFolder, m_tmp.path() + "/" + startFolder);
    QCOMPARE(path, chosen);
    if (chosen.isEmpty()) {
        QCOMPARE(ReadBytes(m_settingsPath), settings);
        QCOMPARE(QFileInfo(m_configsFolder).isDir(), !settings.isNull());
    } else {
        TIniFile stored(m_settingsPath);
        QCOMPARE(stored.ReadStringW("Last User Open Path", "last_open_path", QString()), chosen);
        QCOMPARE(stored.IsSectionExist("Other"), !settings.isNull());
    }
}

void TestFileDialog::criticalSectionIsReentrantAndExclusive()
{
    PortableCriticalSection section;
    auto enteredElsewhere = [&section] {
        bool entered = false;
        std::unique_ptr<QThread> other(QThread::create([&] {
            if ((entered = section.TryLock()))
                section.Unlock();
        }));
        other->start();
        other->wait();
        return entered;
    };

    section.Lock();
    QVERIFY(section.TryLock());
    QVERIFY(!enteredElsewhere());
    section.Unlock();
    QVERIFY(!enteredElsewhere());
    section.Unlock();
    QVERIFY(enteredElsewhere());
}

QTEST_MAIN(TestFileDialog)
#include "tst_FileDialog.moc"
