// What the component keeps of the host's objects once its last fmInput is gone: nothing, so the host can
// close its database and remove the connection cleanly.
#include <tolvinpt/fmInput.h>

#include "tests/support/fake_host.h"

#include <QSqlDatabase>

#include <gtest/gtest.h>

namespace {

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
    tolvinpt::test::FakeHostData host;
    host.connectionName = name;
    tolvinpt::test::registerFakeHost(host);
    { const tolvinpt::fmInput input; }
    warnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(keepWarning);
    QSqlDatabase::removeDatabase(name); // warns when a handle to the connection is still held
    qInstallMessageHandler(previous);
    EXPECT_TRUE(warnings.isEmpty()) << warnings.join(u'\n').toStdString();
}

} // namespace
