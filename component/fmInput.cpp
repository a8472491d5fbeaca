#include <tolvinpt/fmInput.h>

#include "component/entry_procedure.h"
#include "component/host_registry.h"
#include "component/state.h"
#include "platform/sql/database.h"
#include "platform/widgets/messages.h"

#include <QFileInfo>

#include <dlfcn.h>

namespace tolvinpt {
namespace {

constexpr long AutomationError = 440;

// Failures of any kind leave the component as the one error type of the public API: a database error
// with the engine's own number, anything else the host's objects throw as an automation error.
template <typename Call> auto raisedToCaller(Call call)
{
    try {
        return call();
    } catch (const Error&) {
        throw;
    } catch (const db::DatabaseError& e) {
        throw Error(e.description(), e.number());
    } catch (const std::exception& e) {
        throw Error(QString::fromLocal8Bit(e.what()), AutomationError);
    } catch (...) {
        throw Error(QStringLiteral("Automation error"), AutomationError);
    }
}

bool noActiveCustomer()
{
    if (CountActiveCustomers() != 0)
        return false;
    showExclamation(QStringLiteral("得意先を登録してください"), QStringLiteral("入力..."));
    return true;
}

} // namespace

fmInput::fmInput()
{
    raisedToCaller([] {
        gCompany = hostObjects().CreateCompanySettings();
        gDB = required(gCompany).Database();
        gCustomers = hostObjects().CreateCustomerList();
    });
}

fmInput::~fmInput()
{
    gCompany.reset();
    gDB = QSqlDatabase(); // the host may close and remove its connection now
    gCustomers.reset();
}

void fmInput::InputData(Items& items)
{
    raisedToCaller([&] {
        if (!noActiveCustomer())
            OpenRecordList(items);
    });
}

bool fmInput::NewData()
{
    raisedToCaller([] {
        if (!noActiveCustomer())
            OpenNewRecord();
    });
    return false;
}

QString fmInput::GetDllVersion() const
{
    return QStringLiteral(TOLVINPT_VERSION);
}

QString fmInput::GetFileName() const
{
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&CountActiveCustomers), &info) == 0 || !info.dli_fname)
        return {};
    return QFileInfo(QString::fromLocal8Bit(info.dli_fname)).baseName();
}

QString fmInput::GetFileDescription() const
{
    return QStringLiteral("Delivery-Data Entry");
}

} // namespace tolvinpt
