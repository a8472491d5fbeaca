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

#include <unistd.h>

namespace tolvinpt::host::test {
namespace {

using namespace Qt::StringLiterals;

using tolvinpt::test::ScriptedMessages;

// Writes a SQLite file through its own connection; with `ours`, a host database changed by `statements`.
void makeSqliteFile(const QString& path, const QStringList& statements, bool ours = false)
{
    const QString name = u"host-test-maker"_s;
    if (ours) {
        ASSERT_EQ(openHostDatabase(path, name).code, ExitCode::Ok);
        closeHostDatabase(name);
    }
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, name);
        db.setDatabaseName(path);
        ASSERT_TRUE(db.open());
        for (const QString& sql : statements)
            ASSERT_TRUE(QSqlQuery(db).exec(sql)) << sql.toStdString();
    }
    QSqlDatabase::removeDatabase(name);
}

// Runs the real program with `arguments`; its exit code and standard error.
std::pair<int, QString> runHost(const QStringList& arguments, const QProcessEnvironment& env = {},
                                const QString& folder = {})
{
    QProcess program;
    if (!env.isEmpty())
        program.setProcessEnvironment(env);
    program.setWorkingDirectory(folder);
    program.start(QStringLiteral(TOLVINPT_HOST_PROGRAM), arguments);
    EXPECT_TRUE(program.waitForFinished(60000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    return {program.exitCode(), QString::fromUtf8(program.readAllStandardError())};
}

// Everything under `dir`, with the bytes of each file.
QMap<QString, QByteArray> snapshot(const QString& dir)
{
    QMap<QString, QByteArray> files;
    for (const QFileInfo& info : QDir(dir).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot))
        files.insert(info.fileName(), info.isFile() ? fileHash(info.filePath()) : QByteArray("<dir>"));
    return files;
}

// What is found at the path: nothing, a folder, a text file, a SQLite file made by `sql`, or a host
// database changed by `sql`.
enum class Made { Nothing, Folder, Text, Sqlite, Ours };

struct Refusal
{
    const char* name;
    const char* file; // as given, in a fresh folder that is the current one
    Made made;
    QStringList sql;
    ExitCode expected;
    const char16_t* messageStart;
};

void make(const Refusal& refusal, const QString& path)
{
    if (refusal.made == Made::Folder)
        QDir().mkdir(path);
    if (refusal.made == Made::Text) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("納品メモ: これはデータベースではありません\n").repeated(200));
    }
    if (refusal.made == Made::Sqlite || refusal.made == Made::Ours)
        makeSqliteFile(path, refusal.sql, refusal.made == Made::Ours);
}

constexpr const char16_t* NoFile = u"データベースにはファイルを指定してください";
constexpr const char16_t* NotOurs = u"tolvinpt-host のデータベースではありません";
// clang-format off
const Refusal kRefusals[] = {
    {"NoName", "", Made::Nothing, {}, ExitCode::CannotOpen, NoFile},
    {"InMemory", ":memory:", Made::Nothing, {}, ExitCode::CannotOpen, NoFile},
    {"InMemoryUri", "file:demo.sqlite?mode=memory", Made::Nothing, {}, ExitCode::CannotOpen, NoFile},
    {"MissingFolder", "absent/demo.sqlite", Made::Nothing, {}, ExitCode::CannotOpen, u"データベースのフォルダがありません"},
    {"FolderInsteadOfFile", "demo.sqlite", Made::Folder, {}, ExitCode::CannotOpen, u"データベースのファイルではありません"},
    {"NotSqlite", "demo.sqlite", Made::Text, {}, ExitCode::NotADatabase, u"このファイルは SQLite のデータベースではありません"},
    {"ForeignSqlite", "demo.sqlite", Made::Sqlite, {u"PRAGMA application_id = 1234"_s,
     u"CREATE TABLE T_Delivery (IDData INTEGER PRIMARY KEY)"_s, u"INSERT INTO T_Delivery VALUES (7)"_s},
     ExitCode::ForeignDatabase, NotOurs},
    {"OursWithATableMissing", "demo.sqlite", Made::Ours, {u"DROP TABLE T_CustomerSettings"_s},
     ExitCode::ForeignDatabase, NotOurs},
    {"FromANewerHost", "demo.sqlite", Made::Ours, {u"PRAGMA user_version = %1"_s.arg(kSchemaVersion + 1)},
     ExitCode::NewerDatabase, u"このデータベースは新しい版の tolvinpt-host で作られています"},
    {"OursWithColumnsMissing", "demo.sqlite", Made::Ours,
     {u"ALTER TABLE T_Delivery DROP COLUMN F00018"_s, u"ALTER TABLE T_OwnCode DROP COLUMN Name"_s},
     ExitCode::MissingColumns, u"データベースの表に必要な列がありません: T_Delivery.F00018, T_OwnCode.Name"},
};
// clang-format on

void PrintTo(const Refusal& refusal, std::ostream* os)
{
    *os << refusal.name;
}

class DatabaseRefusal : public ::testing::TestWithParam<Refusal>
{
};

TEST_P(DatabaseRefusal, IsReportedAndLeavesTheFileAlone)
{
    QTemporaryDir dir;
    const QString path = QString::fromLatin1(GetParam().file);
    make(GetParam(), dir.filePath(path));
    const auto before = snapshot(dir.path());
    const QString line = u"tolvinpt-host: "_s + QString::fromUtf16(GetParam().messageStart);

    ScriptedMessages messages;
    QString errText;
    QTextStream err(&errText);
    const QString current = QDir::currentPath();
    QDir::setCurrent(dir.path());
    EXPECT_EQ(openOrRefuse(path, err, true), toInt(GetParam().expected));
    QDir::setCurrent(current);
    EXPECT_FALSE(QSqlDatabase::contains(kHostConnection));
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_TRUE(messages.shown[0].text.startsWith(QString::fromUtf16(GetParam().messageStart)) &&
                messages.shown[0].text.contains(QDir::toNativeSeparators(path)))
        << messages.shown[0].text.toStdString();
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(errText.startsWith(line) && errText.count(u'\n') == 1) << errText.toStdString();
    EXPECT_EQ(snapshot(dir.path()), before);

    // The program itself: the same status, the line on stderr, and no message box offscreen.
    const auto [code, stderrText] = runHost({u"--database"_s, path}, {}, dir.path());
    EXPECT_EQ(code, toInt(GetParam().expected));
    EXPECT_TRUE(stderrText.contains(line)) << stderrText.toStdString();
    EXPECT_EQ(snapshot(dir.path()), before);
}

INSTANTIATE_TEST_SUITE_P(Host, DatabaseRefusal, ::testing::ValuesIn(kRefusals),
                         [](const auto& param) { return std::string(param.param.name); });

TEST(DatabaseRefusalUnreadable, FileWithoutReadPermissionIsRefused)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root reads every file; the missing folder and folder cases cover CannotOpen";
    QTemporaryDir dir;
    const QString path = dir.filePath(u"locked.sqlite"_s);
    makeSqliteFile(path, {}, true);
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
    program.start(QStringLiteral(TOLVINPT_HOST_PROGRAM), {u"--version"_s});
    ASSERT_TRUE(program.waitForFinished(30000));
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(program.readAllStandardOutput(), QByteArray("50.0.1\n"));
    EXPECT_EQ(runHost({u"--no-such-option"_s}).first, toInt(ExitCode::BadCommandLine));
    EXPECT_EQ(runHost({u"--print-to-pdf"_s, u"/no/such/folder"_s}).first, toInt(ExitCode::BadCommandLine));
}

// The demo database is the same on every first run; a second run leaves the file as it was. The database
// is opened (and on the first run created) before the missing screen is noticed.
TEST(HostProgram, CreatesTheSameDemoDatabaseOnceWithoutADisplay)
{
    QTemporaryDir dir;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        env.remove(QString::fromLatin1(name));
    QList<QByteArray> hashes;
    for (const char* name : {"first.sqlite", "first.sqlite", "second.sqlite"}) {
        const QString path = dir.filePath(QString::fromLatin1(name));
        EXPECT_EQ(runHost({u"--database"_s, path}, env).first, toInt(ExitCode::NoDisplay));
        hashes << fileHash(path);
    }
    EXPECT_FALSE(hashes[0].isEmpty());
    EXPECT_EQ(hashes, QList<QByteArray>(3, hashes[0]));
}

} // namespace
} // namespace tolvinpt::host::test
