// A minimal host: one own company, customers from a fixed table, the database from the command line.
// Build it with the CMakeLists.txt beside it against the installed tolvinpt-dev package.
#include <tolvinpt/fmInput.h>

#include <QApplication>
#include <QSqlDatabase>
#include <QTextStream>

#include <memory>
#include <vector>

namespace {

class NoOwnCodes final : public tolvinpt::OwnCodeList
{
public:
    QString NameOf(const QString&) const override { return {}; }
    tolvinpt::OwnCodeEntry Item(int) const override { return {}; }
    int Count() const override { return 0; }
};

class Company final : public tolvinpt::CompanySettings
{
public:
    bool MultipleOwnCodes() const override { return false; }
    const tolvinpt::OwnCodeList& OwnCodeList() const override { return codes; }
    QSqlDatabase Database() const override { return QSqlDatabase::database(); }
    bool UseQuantityBreakdown() const override { return true; }
    QString OwnName() const override { return QStringLiteral("見本商事"); }
    QString OwnCode() const override { return QStringLiteral("4900001"); }
    bool ViewOnly() const override { return false; }

private:
    NoOwnCodes codes;
};

// One buyer; its settings and options are answered by the same object.
class Buyer final : public tolvinpt::Customer,
                    tolvinpt::CustomerSettings,
                    tolvinpt::CustomerEntryOptions,
                    tolvinpt::CustomerDisplayOptions
{
public:
    Buyer(long id, QString code, QString name) : id(id), code(std::move(code)), name(std::move(name)) {}
    bool Deleted() const override { return false; }
    std::vector<tolvinpt::SubCodeEntry> SubCodes() const override { return {}; }
    const tolvinpt::CustomerSettings& Settings() const override { return *this; }
    long CustomerID() const override { return id; }
    QString CustomerCode() const override { return code; }
    QString CustomerName() const override { return name; }
    QString NameOfCode(const QString&) const override { return name; }
    bool NoQuantityBreakdown() const override { return false; }
    const tolvinpt::CustomerEntryOptions& EntryOptions() const override { return *this; }
    const tolvinpt::CustomerDisplayOptions& DisplayOptions() const override { return *this; }
    bool LenientEntry() const override { return false; }
    bool HideQuantityFrame() const override { return false; }

private:
    long id;
    QString code, name;
};

class Customers final : public tolvinpt::CustomerList
{
public:
    Customers() { list.push_back(std::make_shared<Buyer>(1, QStringLiteral("1234"), QStringLiteral("東京電機"))); }
    int Count() const override { return static_cast<int>(list.size()); }
    std::shared_ptr<tolvinpt::Customer> At(int index) const override { return list.at(index); }
    std::shared_ptr<tolvinpt::Customer> ByKey(const QString& idText) const override
    {
        for (const auto& c : list)
            if (QString::number(c->CustomerID()) == idText.trimmed())
                return c;
        return nullptr;
    }
    std::shared_ptr<tolvinpt::Customer> ByCode(const QString& code) const override
    {
        for (const auto& c : list)
            if (c->CustomerCode() == code)
                return c;
        return nullptr;
    }

private:
    std::vector<std::shared_ptr<tolvinpt::Customer>> list;
};

class Factory final : public tolvinpt::HostObjects
{
public:
    std::shared_ptr<tolvinpt::CompanySettings> CreateCompanySettings() override
    {
        return std::make_shared<Company>();
    }
    std::shared_ptr<tolvinpt::CustomerList> CreateCustomerList() override { return std::make_shared<Customers>(); }
};

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    auto db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    db.setDatabaseName(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(":memory:"));
    if (!db.open())
        return 1;

    tolvinpt::RegisterHostObjects(std::make_shared<Factory>());
    try {
        tolvinpt::fmInput input;
        QTextStream(stdout) << input.GetFileName() << u' ' << input.GetDllVersion() << Qt::endl;
        if (argc > 2) { // record ids to open
            tolvinpt::Items items;
            for (int i = 2; i < argc; ++i) // each as its list key, "1234Key"
                items.Add(tolvinpt::ListKey(QString::fromLocal8Bit(argv[i]).toLongLong()));
            input.InputData(items);
        }
    } catch (const tolvinpt::Error& e) {
        QTextStream(stderr) << e.description() << u" (" << e.number() << u')' << Qt::endl;
        return 2;
    }
    return 0;
}
