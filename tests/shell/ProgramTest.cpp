// The tlhost program itself, run as a user starts it: without arguments it opens the demo
// GeoPackage below its working directory.

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "ShellFixture.h"
#include "TLDemoData.h"

namespace TMObjects {

class ProgramTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutArgumentsTheDemoIsOpened() {
        QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir("demo"));
        std::string error;
        QVERIFY2(TLDemoData::Write((folder.path() + "/demo/demo.gpkg").toStdString(), error),
                 error.c_str());
        const QString shot = folder.path() + "/shot.png";

        QProcess program;
        program.setWorkingDirectory(folder.path());
        program.start(TL_HOST_PROGRAM, {"--screenshot", shot});
        // The program ends by itself once the window is drawn; no time limit is a pass mark.
        QVERIFY(program.waitForFinished(-1));
        QCOMPARE(program.exitCode(), 0);
        QCOMPARE(QString::fromUtf8(program.readAllStandardOutput()).trimmed(),
                 QString("opened demo/demo.gpkg"));
        const QImage image(shot);
        QVERIFY(!image.isNull());
        QVERIFY(image.width() >= 800 && image.height() >= 600);
    }

    void aSourceThatFailsDoesNotHoldTheProgram() {
        QTemporaryDir folder;
        QProcess program;
        program.setWorkingDirectory(folder.path());
        program.start(TL_HOST_PROGRAM, {"--screenshot", folder.path() + "/shot.png", "none.gpkg"});
        QVERIFY(program.waitForFinished(-1));
        QCOMPARE(program.exitCode(), 0);
        QCOMPARE(QString::fromUtf8(program.readAllStandardOutput()).trimmed(),
                 QString("could not open none.gpkg"));
    }
};

SHELL_TEST_CLASS(ProgramTest);

}  // namespace TMObjects

#include "ProgramTest.moc"
