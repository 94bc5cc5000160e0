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

    void messageBoxKinds_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("width"); // -1: the box's own
        QTest::addColumn<QString>("shownText");
        QTest::addColumn<int>("icon");
        QTest::addColumn<int>("buttons");
        const QString wrapped = CMessageBoxMan::WrapText("Done");
        QTest::newRow("information") << 1 << "Done" << -1 << wrapped << int(QMessageBox::Information)
                                     << int(QMessageBox::Ok);
        QTest::newRow("warning, wide") << 2 << "Done" << 600 << wrapped << int(QMessageBox::Warning)
                                       << int(QMessageBox::Close);
        QTest::newRow("warning with own rich text")
            << 3 << "<b>Done</b>" << -1 << "<b>Done</b>" << int(QMessageBox::Warning) << int(QMessageBox::Close);
        QTest::newRow("error") << 4 << "Done" << -1 << wrapped << int(QMessageBox::Critical) << int(QMessageBox::Close);
        // A box without buttons gets Qt's own OK, so that it can be closed at all.
        QTest::newRow("plain") << 9 << "Done" << -1 << wrapped << int(QMessageBox::NoIcon) << int(QMessageBox::Ok);
    }
    void messageBoxKinds()
    {
        QFETCH(int, kind);
        QFETCH(QString, text);
        QFETCH(int, width);
        QFETCH(int, icon);
        QFETCH(int, buttons);
        ModalBoxCatcher boxes;
        CMessageBoxMan().ShowMessage(kind, "Title", text, QString(), QString(), width);
        QCOMPARE(boxes.Count(), 1);
        const ModalBoxCatcher::Box &box = boxes.Boxes()[0];
        QCOMPARE(box.title, QString("Title"));
        QTEST(box.text, "shownText");
        QCOMPARE(int(box.icon), icon);
        QCOMPARE(int(box.buttons), buttons);
        QCOMPARE(box.width >= 600, width == 600);
    }

    void failedResultPresentation_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("icon");
        QTest::addColumn<QString>("informativeText");
        QTest::newRow("warning level, table advice")
            << 51 << "" << int(QMessageBox::Warning)
            << "Please select the file that includes the data you want to operate.";
        // Error level, own message: the window's arming failure in tst_TdscdmaRadbenchForm.
        QTest::newRow("level 0 that is no success") << 4 << "" << int(QMessageBox::Warning) << "";
    }
    void failedResultPresentation()
    {
        QFETCH(int, code);
        QFETCH(QString, message);
        QFETCH(int, icon);
        QFETCH(QString, informativeText);
        ModalBoxCatcher boxes;
        CMessageBoxMan().ShowResultMessage("AFC start failed", SEachItemOperationResult{"AFC", code, message});
        QCOMPARE(boxes.Count(), 1);
        QCOMPARE(boxes.Boxes()[0].title, QString("AFC start failed"));
        QCOMPARE(boxes.Boxes()[0].text, CMessageBoxMan::WrapText(GetErrorCodeInfo(code).message));
        QCOMPARE(int(boxes.Boxes()[0].icon), icon);
        QCOMPARE(boxes.Boxes()[0].informativeText, informativeText);
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
