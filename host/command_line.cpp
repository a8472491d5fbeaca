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
                                      QStringLiteral("使う SQLite データベースファイル (既定: %1)、または "
                                                     "PostgreSQL サーバーのデータベース "
                                                     "(postgresql://ユーザー@ホスト:ポート/データベース名。"
                                                     "パスワードは ~/.pgpass か PGPASSWORD で渡します)。")
                                          .arg(QDir::toNativeSeparators(defaultDatabasePath())),
                                      QStringLiteral("FILE|URI"));
    const QCommandLineOption demo(
        QStringLiteral("demo"),
        QStringLiteral("サーバーの空のデータベースに表を作るとき、デモデータも入れます。"));
    const QCommandLineOption pdf(QStringLiteral("print-to-pdf"),
                                 QStringLiteral("入力画面の「ﾊｰﾄﾞ ｺﾋﾟｰ」をプリンタではなく、このフォルダに "
                                                "PDF ファイルで保存します (プリンタがないときは指定がなくても"
                                                "ドキュメントフォルダに保存します)。"),
                                 QStringLiteral("DIR"));
    const QCommandLineOption preview(
        QStringLiteral("print-preview"),
        QStringLiteral("「ﾊｰﾄﾞ ｺﾋﾟｰ」を印刷プレビューで表示し、そこから印刷します。"));
    parser.addOptions({help, version, database, demo, pdf, preview});

    const auto answered = [](ExitCode code) {
        CommandLine done;
        done.exitCode = toInt(code);
        return done;
    };
    if (!parser.parse(arguments)) {
        err << parser.errorText() << Qt::endl;
        return answered(ExitCode::BadCommandLine);
    }
    if (!parser.positionalArguments().isEmpty()) {
        err << QStringLiteral("余分な引数: %1").arg(parser.positionalArguments().join(u' ')) << Qt::endl;
        return answered(ExitCode::BadCommandLine);
    }
    if (parser.isSet(help)) {
        out << parser.helpText();
        out.flush();
        return answered(ExitCode::Ok);
    }
    if (parser.isSet(version)) {
        out << QStringLiteral(TOLVINPT_VERSION) << Qt::endl;
        return answered(ExitCode::Ok);
    }
    CommandLine commandLine;
    if (parser.isSet(pdf)) {
        const QFileInfo folder(parser.value(pdf));
        if (!folder.isDir()) {
            err << QStringLiteral("--print-to-pdf: フォルダがありません: %1")
                       .arg(QDir::toNativeSeparators(folder.filePath()))
                << Qt::endl;
            return answered(ExitCode::BadCommandLine);
        }
        commandLine.pdfFolder = folder.absoluteFilePath();
    }
    commandLine.printPreview = parser.isSet(preview);
    commandLine.demo = parser.isSet(demo);
    const QString given = parser.value(database);
    if (isServerUri(given)) {
        QString error;
        const std::optional<ServerDatabase> server = parseServerUri(given, error);
        if (!server) {
            err << QStringLiteral("--database: %1").arg(error) << Qt::endl;
            return answered(ExitCode::BadCommandLine);
        }
        commandLine.database = DatabaseLocation(given, *server);
        return commandLine;
    }
    if (parser.isSet(database)) {
        commandLine.database = DatabaseLocation(given);
        return commandLine;
    }
    // Only our own default folder is created; a folder named by the user must exist.
    commandLine.database = DatabaseLocation(defaultDatabasePath());
    QDir().mkpath(QFileInfo(defaultDatabasePath()).path());
    return commandLine;
}

} // namespace tolvinpt::host
