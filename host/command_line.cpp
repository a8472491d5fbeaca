#include "host/command_line.h"

#include "host/exit_codes.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTextStream>

namespace tolvinpt::host {

QString defaultDatabasePath()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
        .filePath(QStringLiteral("delivery.sqlite"));
}

CommandLine parseCommandLine(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("納品データの一覧から入力画面を開くホストアプリケーション。\n"
                       "初めて使うデータベースファイルはデモデータ入りで作成します。"));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("このヘルプを表示します。"));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("バージョンを表示します。"));
    const QCommandLineOption database({QStringLiteral("d"), QStringLiteral("database")},
                                      QStringLiteral("使う SQLite データベースファイル (既定: %1)。")
                                          .arg(QDir::toNativeSeparators(defaultDatabasePath())),
                                      QStringLiteral("FILE"));
    parser.addOptions({help, version, database});

    if (!parser.parse(arguments)) {
        err << parser.errorText() << Qt::endl;
        return {{}, toInt(ExitCode::BadCommandLine)};
    }
    if (!parser.positionalArguments().isEmpty()) {
        err << QStringLiteral("余分な引数: %1").arg(parser.positionalArguments().join(u' ')) << Qt::endl;
        return {{}, toInt(ExitCode::BadCommandLine)};
    }
    if (parser.isSet(help)) {
        out << parser.helpText();
        out.flush();
        return {{}, toInt(ExitCode::Ok)};
    }
    if (parser.isSet(version)) {
        out << QStringLiteral(TOLVINPT_VERSION) << Qt::endl;
        return {{}, toInt(ExitCode::Ok)};
    }
    if (parser.isSet(database))
        return {parser.value(database), std::nullopt};
    // Only our own default folder is created; a folder named by the user must exist.
    const QString path = defaultDatabasePath();
    QDir().mkpath(QFileInfo(path).path());
    return {path, std::nullopt};
}

} // namespace tolvinpt::host
