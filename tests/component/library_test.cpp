// The delivered library, loaded as a host loads it: its names, its own error type, and what it keeps of
// the host's objects once its last fmInput is gone (nothing, so the host can close its database and remove
// the connection cleanly).
#include <tolvinpt/fmInput.h>

#include "tests/support/fake_host.h"
#include "tests/support/thrown.h"

#include <QSqlDatabase>

#include <gtest/gtest.h>

namespace {

using namespace tolvinpt;

TEST(Library, AnswersItsNamesAndRaisesItsOwnErrorType)
{
    test::FakeHostData host;
    test::registerFakeHost(host);
    {
        const fmInput input;
        EXPECT_EQ(input.GetDllVersion(), QStringLiteral("50.0.1"));
        EXPECT_EQ(input.GetFileName(), QStringLiteral("TOLVINPT"));
        EXPECT_EQ(input.GetFileDescription(), QStringLiteral("Delivery-Data Entry"));
    }
    RegisterHostObjects(nullptr);
    const test::Thrown error = test::thrown<Error>([] { fmInput input; }); // without host objects
    EXPECT_NE(error.number, 0);
    EXPECT_FALSE(error.description.isEmpty());
}

QStringList warnings;

void keepWarning(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtWarningMsg)
        warnings.append(message);
}

TEST(HostRelease, TheConnectionIsFreeOnceTheLastEntryObjectIsGone)
{
    const QString name = QStringLiteral("host-release");
    QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
    connection.setDatabaseName(QStringLiteral(":memory:"));
    ASSERT_TRUE(connection.open());
    connection = QSqlDatabase();
    test::FakeHostData host;
    host.connectionName = name;
    test::registerFakeHost(host);
    { const fmInput input; }
    warnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(keepWarning);
    QSqlDatabase::removeDatabase(name); // warns when a handle to the connection is still held
    qInstallMessageHandler(previous);
    EXPECT_TRUE(warnings.isEmpty()) << warnings.join(u'\n').toStdString();
}

} // namespace
