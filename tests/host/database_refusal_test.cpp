// Files that are not a usable host database are refused with a message and their own exit status,
// and are left exactly as they were; checked in-process and on the real program.
#include "tests/host/host_fixture.h"
#include "tests/support/scripted_messages.h"

#include "host/host_app.h"
#include "host/host_schema.h"

#include <QDir>
#include <QMap>
#include <QProcess>
#include <QTextStream>

#include <functional>

#include <unistd.h>

namespace tolvinpt::host::test {
namespace {

using tolvinpt::test::ScriptedMessages;

// Writes a SQLite file through its own connection.
void makeSqliteFile(const QString& path, const QStringList& statements)
{
    const QString name = QStringLiteral("host-test-maker");
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        db.setDatabaseName(path);
        ASSERT_TRUE(db.open());
        for (const QString& sql : statements)
            ASSERT_TRUE(QSqlQuery(db).exec(sql)) << sql.toStdString();
        db.close();
    }
    QSqlDatabase::removeDatabase(name);
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

// A host database made by the program, then changed by `statements`.
void makeHostFile(const QString& path, const QStringList& statements)
{
    const QString name = QStringLiteral("host-test-original");
    ASSERT_EQ(openHostDatabase(path, name).code, ExitCode::Ok);
    closeHostDatabase(name);
    makeSqliteFile(path, statements);
}

struct Refusal
{
    const char* name;
    std::function<QString(const QTemporaryDir&)> prepare; // returns the path to open
    ExitCode expected;
    const char16_t* messageStart;
};

const Refusal kRefusals[] = {
    {"MissingFolder",
     [](const QTemporaryDir& dir) { return dir.filePath(QStringLiteral("absent/demo.sqlite")); },
     ExitCode::CannotOpen, u"データベースのフォルダがありません"},
    {"FolderInsteadOfFile",
     [](const QTemporaryDir& dir) {
         QDir(dir.path()).mkdir(QStringLiteral("folder.sqlite"));
         return dir.filePath(QStringLiteral("folder.sqlite"));
     },
     ExitCode::CannotOpen, u"データベースのファイルではありません"},
    {"NotSqlite",
     [](const QTemporaryDir& dir) {
         const QString path = dir.filePath(QStringLiteral("notes.sqlite"));
         writeFile(path, QByteArray("納品メモ: これはデータベースではありません\n").repeated(200));
         return path;
     },
     ExitCode::NotADatabase, u"このファイルは SQLite のデータベースではありません"},
    {"ForeignSqlite",
     [](const QTemporaryDir& dir) {
         const QString path = dir.filePath(QStringLiteral("other.sqlite"));
         makeSqliteFile(path, {QStringLiteral("PRAGMA application_id = 1234"),
                               QStringLiteral("CREATE TABLE T_Delivery (IDData INTEGER PRIMARY KEY)"),
                               QStringLiteral("INSERT INTO T_Delivery VALUES (7)")});
         return path;
     },
     ExitCode::ForeignDatabase, u"このファイルは tolvinpt-host のデータベースではありません"},
    {"OursWithATableMissing",
     [](const QTemporaryDir& dir) {
         const QString path = dir.filePath(QStringLiteral("damaged.sqlite"));
         makeHostFile(path, {QStringLiteral("DROP TABLE T_CustomerSettings")});
         return path;
     },
     ExitCode::ForeignDatabase, u"このファイルは tolvinpt-host のデータベースではありません"},
    {"FromANewerHost",
     [](const QTemporaryDir& dir) {
         const QString path = dir.filePath(QStringLiteral("newer.sqlite"));
         makeHostFile(path, {QStringLiteral("PRAGMA user_version = %1").arg(kSchemaVersion + 1)});
         return path;
     },
     ExitCode::NewerDatabase, u"このデータベースは新しい版の tolvinpt-host で作られています"},
};

void PrintTo(const Refusal& refusal, std::ostream* os)
{
    *os << refusal.name;
}

class DatabaseRefusal : public ::testing::TestWithParam<Refusal>
{
};

// Everything under `dir`, with the bytes of each file.
QMap<QString, QByteArray> snapshot(const QString& dir)
{
    QMap<QString, QByteArray> files;
    for (const QFileInfo& info : QDir(dir).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot))
        files.insert(info.fileName(), info.isFile() ? fileHash(info.filePath()) : QByteArray("<dir>"));
    return files;
}

TEST_P(DatabaseRefusal, IsReportedAndLeavesTheFileAlone)
{
    QTemporaryDir dir;
    const QString path = GetParam().prepare(dir);
    const auto before = snapshot(dir.path());

    ScriptedMessages messages;
    QString errText;
    QTextStream err(&errText);
    EXPECT_EQ(openOrRefuse(path, err, true), toInt(GetParam().expected));
    EXPECT_FALSE(QSqlDatabase::contains(kHostConnection));
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_TRUE(messages.shown[0].text.startsWith(QString::fromUtf16(GetParam().messageStart)))
        << messages.shown[0].text.toStdString();
    EXPECT_TRUE(messages.shown[0].text.contains(QDir::toNativeSeparators(path)));
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(
        errText.startsWith(QStringLiteral("tolvinpt-host: ") + QString::fromUtf16(GetParam().messageStart)))
        << errText.toStdString();
    EXPECT_EQ(errText.count(u'\n'), 1);
    EXPECT_EQ(snapshot(dir.path()), before);

    // The program itself: the same status, the line on stderr, and no message box offscreen.
    QProcess program;
    program.start(QStringLiteral(TOLVINPT_HOST_PROGRAM), {QStringLiteral("--database"), path});
    ASSERT_TRUE(program.waitForFinished(30000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), toInt(GetParam().expected));
    EXPECT_TRUE(
        QString::fromUtf8(program.readAllStandardError())
            .contains(QStringLiteral("tolvinpt-host: ") + QString::fromUtf16(GetParam().messageStart)));
    EXPECT_EQ(snapshot(dir.path()), before);
}

INSTANTIATE_TEST_SUITE_P(Host, DatabaseRefusal, ::testing::ValuesIn(kRefusals),
                         [](const auto& param) { return std::string(param.param.name); });

TEST(DatabaseRefusalUnreadable, FileWithoutReadPermissionIsRefused)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root reads every file; the missing folder and folder cases cover CannotOpen";
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("locked.sqlite"));
    makeHostFile(path, {});
    const QByteArray before = fileHash(path);
    QFile::setPermissions(path, {});
    ScriptedMessages messages;
    QString errText;
    QTextStream err(&errText);
    EXPECT_EQ(openOrRefuse(path, err, false), toInt(ExitCode::CannotOpen));
    EXPECT_TRUE(messages.shown.isEmpty());
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(fileHash(path), before);
}

TEST(HostProgram, AnswersVersionAndRefusesUnknownOptions)
{
    QProcess program;
    program.start(QStringLiteral(TOLVINPT_HOST_PROGRAM), {QStringLiteral("--version")});
    ASSERT_TRUE(program.waitForFinished(30000));
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(program.readAllStandardOutput(), QByteArray("50.0.1\n"));

    program.start(QStringLiteral(TOLVINPT_HOST_PROGRAM), {QStringLiteral("--no-such-option")});
    ASSERT_TRUE(program.waitForFinished(30000));
    EXPECT_EQ(program.exitCode(), toInt(ExitCode::BadCommandLine));
    EXPECT_TRUE(program.readAllStandardOutput().isEmpty());
}

TEST(HostProgram, CreatesTheDemoDatabaseOnceWithoutADisplay)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("first-run.sqlite"));
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        env.remove(QString::fromLatin1(name));
    QByteArray created;
    for (int run = 0; run < 2; ++run) {
        QProcess program;
        program.setProcessEnvironment(env);
        program.start(QStringLiteral(TOLVINPT_HOST_PROGRAM), {QStringLiteral("--database"), path});
        ASSERT_TRUE(program.waitForFinished(60000));
        // The database is opened (and on the first run created) before the missing screen is noticed.
        EXPECT_EQ(program.exitCode(), toInt(ExitCode::NoDisplay));
        if (run == 0)
            created = fileHash(path);
    }
    EXPECT_FALSE(created.isEmpty());
    EXPECT_EQ(fileHash(path), created);
}

} // namespace
} // namespace tolvinpt::host::test
