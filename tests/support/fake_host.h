#pragma once

#include <tolvinpt/host.h>

#include <QHash>
#include <QList>

#include <memory>

namespace tolvinpt::test {

// In-memory host objects for tests: the settings and customers are plain data that a test edits.
struct FakeCustomerData
{
    long id = 0;
    QString code = {};
    QString name = {};
    bool deleted = false;
    QStringList subCodes = {};
    bool noQuantityBreakdown = false;
    bool lenientEntry = false;
    bool hideQuantityFrame = false;
};

// How a member of a fake host object misbehaves, for the faulty-host tests.
enum class Fault {
    Throws,        // a std::runtime_error naming the member
    ThrowsForeign, // something that is no std::exception
    ReturnsNull,   // CreateCompanySettings, CreateCustomerList, At; Database: a connection that is not set
    OneTooMany,    // Count: one more than the list holds
};

struct FakeHostData
{
    QString connectionName;
    bool multipleOwnCodes = false;
    QList<OwnCodeEntry> ownCodes;
    bool useQuantityBreakdown = true;
    QString ownName = QStringLiteral("自社");
    QString ownCode = QStringLiteral("0001");
    bool viewOnly = false;
    QList<FakeCustomerData> customers;
    // Faults by member name ("NameOf", "At", "ViewOnly", ...); read on every call, so a test can arm one
    // while the form is up.
    QHash<QString, Fault> faults;
};

// Registers a factory over `data` (kept by reference: later edits show in new objects).
void registerFakeHost(FakeHostData& data);

} // namespace tolvinpt::test
