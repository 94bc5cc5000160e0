#include <QtTest>

#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>

#include "ErrorCodeInfo.h"
#include "FileDialogMan.h"
#include "FilePathRecordSentry.h"
#include "MessageBoxMan.h"
#include "ModalBoxCatcher.h"
#include "TIniFile.h"
#include "TestFiles.h"
#include "TestLog.h"

using TestFiles::Read;
using TestFiles::Write;

// File dialogs that remember the last path, message boxes and the results
// they present. The settings file lies beside the test's own folder; what was
// there before is put back at the end.
class TestDialogs : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        TestLog::MuteOffscreenPlatformNotes();
        QVERIFY(QDir().mkpath(m_tmp.path() + "/a") && QDir().mkpath(m_tmp.path() + "/b"));
        QVERIFY(Write(m_tmp.path() + "/a/first.ini", "[AFC]\n"));
    }

    void cleanupTestCase()
    {
        QFile::remove(m_settingsPath);
        if (!m_savedSettings.isNull())
            Write(m_settingsPath, m_savedSettings);
        else if (!m_hadConfigsFolder)
            QDir(m_configsFolder).removeRecursively();
    }

    void dialogStartsAtTheLastPathAndRemembersTheNext_data()
    {
        // Paths are below the test's temporary folder, "%T" in the settings text.
        QTest::addColumn<bool>("save");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("shownTitle");
        QTest::addColumn<QByteArray>("settings"); // null: neither file nor folder
        QTest::addColumn<QString>("startFolder"); // empty: the dialog's own choice
        QTest::addColumn<QString>("choose");      // empty: cancel
        const QByteArray remembered("[Other]\nx = 1\n\n[Last User Open Path]\nlast_open_path = %T/a/first.ini\n");
        QTest::newRow("first run makes folder and file")
            << false << QString() << "Please choose the file to open" << QByteArray() << QString() << "a/first.ini";
        QTest::newRow("save starts at the last path, stores a path outside ASCII")
            << true << "Export TPC" << "Export TPC" << remembered << "a" << QString::fromUtf8("b/Grüße 校准.ini");
        QTest::newRow("cancel on a first run makes nothing")
            << false << QString() << "Please choose the file to open" << QByteArray() << QString() << QString();
    }
    void dialogStartsAtTheLastPathAndRemembersTheNext()
    {
        QFETCH(bool, save);
        QFETCH(QString, title);
        QFETCH(QByteArray, settings);
        QFETCH(QString, startFolder);
        QFETCH(QString, choose);
        QFile::remove(m_settingsPath);
        if (settings.isNull()) {
            QDir(m_configsFolder).removeRecursively();
        } else {
            settings.replace("%T", m_tmp.path().toUtf8());
            QVERIFY(QDir().mkpath(m_configsFolder) && Write(m_settingsPath, settings));
        }
        const QString chosen = choose.isEmpty() ? QString() : m_tmp.path() + "/" + choose;

        // The user: types the path and presses Enter, or cancels.
        QString seenTitle, seenFolder;
        QTimer user;
        connect(&user, &QTimer::timeout, this, [&] {
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            user.stop();
            seenTitle = dialog->windowTitle();
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
            dialogs.GetSaveFilePath(title, QString(), path);
        else
            dialogs.GetOpenFilePath(title, QString(), path);

        QTEST(seenTitle, "shownTitle");
        if (!startFolder.isEmpty())
            QCOMPARE(seenFolder, m_tmp.path() + "/" + startFolder);
        QCOMPARE(path, chosen);
        if (chosen.isEmpty()) {
            QCOMPARE(Read(m_settingsPath), settings);
            QCOMPARE(QFileInfo(m_configsFolder).isDir(), !settings.isNull());
        } else {
            TIniFile stored(m_settingsPath);
            QCOMPARE(stored.ReadStringW("Last User Open Path", "last_open_path", QString()), chosen);
            QCOMPARE(stored.IsSectionExist("Other"), !settings.isNull());
        }
    }


    // A code finds its own row; one without a row gets the last, the
    // calibration library's failure.
    void errorRowLookup()
    {
        QCOMPARE(GetErrorCodeInfo(203).code, 203);
        for (int code : {-1, 7, 207})
            QCOMPARE(&GetErrorCodeInfo(code), &GetErrorCodeInfo(206));
    }

    // A failed result in a box: the message of its code, as a warning below
    // the error level, with the code's advice when the result has no message
    // of its own. (Error level and own message: the window's arming failure in
    // tst_TdscdmaRadbenchForm; a box of the error kind: the page's integrity
    // test in tst_PageBinding.)
    void failedResultPresentation_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("informativeText");
        QTest::newRow("warning level, table advice")
            << 51 << "Please select the file that includes the data you want to operate.";
        QTest::newRow("level 0 that is no success") << 4 << "";
    }
    void failedResultPresentation()
    {
        QFETCH(int, code);
        ModalBoxCatcher boxes;
        CMessageBoxMan().ShowResultMessage("AFC start failed", SEachItemOperationResult{"AFC", code, QString()});
        QCOMPARE(boxes.Count(), 1);
        const ModalBoxCatcher::Box &box = boxes.Boxes()[0];
        QCOMPARE(box.title, QString("AFC start failed"));
        QCOMPARE(box.text, CMessageBoxMan::WrapText(GetErrorCodeInfo(code).message));
        QCOMPARE(box.icon, QMessageBox::Warning);
        QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Close));
        QTEST(box.informativeText, "informativeText");
    }

private:
    QTemporaryDir m_tmp;
    QString m_settingsPath = CFilePathRecordSentry::SettingsFilePath();
    QString m_configsFolder = QFileInfo(m_settingsPath).absolutePath();
    bool m_hadConfigsFolder = QFileInfo(m_configsFolder).isDir();
    QByteArray m_savedSettings = QFileInfo::exists(m_settingsPath) ? Read(m_settingsPath) : QByteArray();
};

QTEST_MAIN(TestDialogs)
#include "tst_Dialogs.moc"
