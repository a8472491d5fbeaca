#include "host/host_app.h"

#include "host/command_line.h"
#include "host/entry_calls.h"
#include "host/exit_codes.h"
#include "host/host_database.h"
#include "host/host_objects.h"
#include "host/main_window.h"

#include "platform/widgets/messages.h"

#include <tolvinpt/hard_copy.h>
#include <tolvinpt/host.h>

#include <QApplication>
#include <QFont>
#include <QProgressDialog>
#include <QTextStream>

#include <memory>

namespace tolvinpt::host {
namespace {

const QString kApplicationName = QStringLiteral("tolvinpt-host");

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

// Offscreen and minimal platforms have no one to click a message box away.
bool platformShowsWindows()
{
    const QString platform = QGuiApplication::platformName();
    return platform != u"offscreen" && platform != u"minimal";
}

} // namespace

bool preparePlatform()
{
    if (hasDisplay() || qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return false;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return true;
}

void configureApplication(QApplication& app)
{
    QApplication::setApplicationName(kApplicationName);
    QApplication::setApplicationVersion(QStringLiteral(TOLVINPT_VERSION));
    // Half-width and full-width forms only read right in a Japanese font.
    QFont font(QStringLiteral("Noto Sans CJK JP"), 10);
    font.setStyleHint(QFont::SansSerif);
    app.setFont(font);
}

// A progress window for the one-time upgrade of a large database, shown once it has begun.
SchemaProgress upgradeProgress(std::unique_ptr<QProgressDialog>& dialog)
{
    return [&dialog](int done, int total) {
        if (!dialog) {
            dialog = std::make_unique<QProgressDialog>(
                QStringLiteral("データベースをこの版に合わせています (一覧の索引を作成中)..."), QString(), 0,
                total);
            dialog->setWindowTitle(kApplicationName);
            dialog->setMinimumDuration(0);
        }
        dialog->setValue(done);
        QApplication::processEvents();
    };
}

int openOrRefuse(const DatabaseLocation& location, QTextStream& err, bool messageBox, bool demo)
{
    std::unique_ptr<QProgressDialog> progressWindow;
    const OpenOutcome outcome = openHostDatabase(
        location, kHostConnection, {demo, messageBox ? upgradeProgress(progressWindow) : SchemaProgress()});
    progressWindow.reset();
    if (outcome.code == ExitCode::Ok)
        return toInt(ExitCode::Ok);
    err << kApplicationName << QStringLiteral(": ") << QString(outcome.message).replace(u'\n', u' ')
        << Qt::endl;
    if (messageBox)
        messages().show(
            {outcome.message, kApplicationName, QMessageBox::Critical, QMessageBox::Ok, QMessageBox::Ok});
    return toInt(outcome.code);
}

int runHost(QApplication& app, bool headless)
{
    configureApplication(app);
    QTextStream out(stdout);
    QTextStream err(stderr);
    const CommandLine commandLine = parseCommandLine(QApplication::arguments(), out, err);
    if (commandLine.exitCode)
        return *commandLine.exitCode;

    if (const int refused = openOrRefuse(commandLine.database, err, platformShowsWindows(), commandLine.demo))
        return refused;
    if (headless) {
        err << kApplicationName << QStringLiteral(": 画面がありません (DISPLAY が設定されていません)。")
            << Qt::endl;
        closeHostDatabase(kHostConnection);
        return toInt(ExitCode::NoDisplay);
    }

    RegisterHostObjects(makeHostObjects(kHostConnection));
    SetHardCopySettings({commandLine.pdfFolder, commandLine.printPreview});
    int status = 0;
    {
        MainWindow window(kHostConnection, commandLine.database.given, componentEntryCalls());
        window.show();
        status = QApplication::exec();
    }
    RegisterHostObjects(nullptr);
    closeHostDatabase(kHostConnection);
    return status;
}

} // namespace tolvinpt::host
