// The demo supplier and its customers: a parts maker that delivers to a handful of buyers.
#include "host/demo_data.h"

#include "host/sql_script.h"

#include <QHash>

namespace tolvinpt::host {
namespace {

struct DemoOwnCode
{
    const char16_t* code;
    const char16_t* name;
};

const DemoOwnCode kOwnCodes[] = {
    {u"4567001", u"株式会社テクノ精工 本社"},
    {u"4567002", u"株式会社テクノ精工 浜松工場"},
    {u"4567003", u"株式会社テクノ精工 岩手工場"},
};

enum CustomerFlag {
    Deleted = 1,
    NoQuantityBreakdown = 2,
    LenientEntry = 4,
    HideQuantityFrame = 8,
};

struct DemoCustomer
{
    int id;
    const char16_t* code;
    const char16_t* name;
    int flags; // CustomerFlag
};

const DemoCustomer kCustomers[] = {
    {1, u"4901234567", u"東邦精機株式会社", 0},
    {2, u"0012345678901", u"株式会社北斗電子", LenientEntry},
    {3, u"7788", u"三協化成工業株式会社", NoQuantityBreakdown},
    {4, u"123456789", u"株式会社中央オートパーツ", HideQuantityFrame},
    {5, u"55012", u"大和住設資材株式会社", 0},
    {6, u"998877", u"日東産業株式会社", Deleted},
    {7, u"24680135", u"株式会社みなと精密", 0},
};

struct DemoSubCode
{
    int customerId;
    const char16_t* subCode;
    const char16_t* name; // registered for the full code
};

const DemoSubCode kSubCodes[] = {
    {1, u"01", u"東邦精機株式会社 本社工場"},         {1, u"02", u"東邦精機株式会社 九州工場"},
    {2, u"A1", u"株式会社北斗電子 大阪営業所"},       {2, u"B2", u"株式会社北斗電子 名古屋営業所"},
    {2, u"C3", u"株式会社北斗電子 仙台物流センター"}, {4, u"001", u"株式会社中央オートパーツ 厚木事業所"},
    {7, u"10", u"株式会社みなと精密 横浜工場"},       {7, u"20", u"株式会社みなと精密 川崎工場"},
};

QString text(const char16_t* s)
{
    return QString::fromUtf16(s);
}

} // namespace

void fillDemoMasters(const QSqlDatabase& db)
{
    insertRow(db, QStringLiteral("T_Company"),
              {{QStringLiteral("ID"), 1},
               {QStringLiteral("OwnName"), QStringLiteral("株式会社テクノ精工")},
               {QStringLiteral("OwnCode"), QStringLiteral("*")},
               {QStringLiteral("MultipleOwnCodes"), 1},
               {QStringLiteral("UseQuantityBreakdown"), 1},
               {QStringLiteral("ViewOnly"), 0}});
    int position = 0;
    for (const DemoOwnCode& own : kOwnCodes)
        insertRow(db, QStringLiteral("T_OwnCode"),
                  {{QStringLiteral("Position"), ++position},
                   {QStringLiteral("Code"), text(own.code)},
                   {QStringLiteral("Name"), text(own.name)}});

    for (const DemoCustomer& c : kCustomers) {
        insertRow(db, QStringLiteral("T_Customer"),
                  {{QStringLiteral("IDCustomer"), c.id},
                   {QStringLiteral("Code"), text(c.code)},
                   {QStringLiteral("Name"), text(c.name)},
                   {QStringLiteral("Deleted"), (c.flags & Deleted) ? 1 : 0}});
        if (c.flags & (NoQuantityBreakdown | LenientEntry | HideQuantityFrame))
            insertRow(db, QStringLiteral("T_CustomerSettings"),
                      {{QStringLiteral("IDCustomer"), c.id},
                       {QStringLiteral("NoQuantityBreakdown"), (c.flags & NoQuantityBreakdown) ? 1 : 0},
                       {QStringLiteral("LenientEntry"), (c.flags & LenientEntry) ? 1 : 0},
                       {QStringLiteral("HideQuantityFrame"), (c.flags & HideQuantityFrame) ? 1 : 0}});
    }
    QHash<int, int> positions;
    for (const DemoSubCode& sub : kSubCodes)
        insertRow(db, QStringLiteral("T_CustomerSubCode"),
                  {{QStringLiteral("IDCustomer"), sub.customerId},
                   {QStringLiteral("Position"), ++positions[sub.customerId]},
                   {QStringLiteral("SubCode"), text(sub.subCode)},
                   {QStringLiteral("Name"), text(sub.name)}});
}

void fillDemoData(const QSqlDatabase& db)
{
    fillDemoMasters(db);
    fillDemoDeliveries(db);
}

} // namespace tolvinpt::host
