// The demo delivery records: every record kind, yen and foreign prices, every package mode, a few
// records in the waste box, dates from 2004 to 2006. Built from a fixed seed, so always the same.
#include "host/demo_catalogue.h"
#include "host/demo_data.h"
#include "host/demo_random.h"
#include "host/sql_script.h"

#include <QDate>
#include <QHash>
#include <QStringList>
#include <algorithm>

namespace tolvinpt::host {
namespace {

struct Kind
{
    const char16_t* code;     // F00002; null writes Null
    const char16_t* subState; // F00030
    bool instructed;          // a delivery instruction exists: instruction quantity and planned date
    bool shipped;             // ship and delivery dates are known
};

// Order information (awaiting its instruction or not), delivery instructions, the three kinds of
// delivery information, and hand input stored as empty text or as Null.
const Kind kKinds[] = {
    {u"0502", u"2", false, false},  {u"0502", u"1", false, false},  {u"0703", nullptr, true, false},
    {u"9999", nullptr, true, true}, {u"9990", nullptr, true, true}, {u"999G", nullptr, true, true},
    {u"", nullptr, true, true},     {nullptr, nullptr, true, true},
};
const int kKindWeights[] = {25, 30, 45, 55, 40, 30, 50, 25};

struct Currency
{
    const char16_t* code; // F00281; null writes Null
    int yenPerUnit;       // 0 for yen
};
// Yen is written as empty text, as blanks or as Null; "XYZ" is a code that no list knows.
const Currency kCurrencies[] = {{u"", 0},      {u"   ", 0},   {nullptr, 0},
                                {u"USD", 110}, {u"EUR", 135}, {u"XYZ", 20}};
const int kCurrencyWeights[] = {55, 10, 10, 12, 8, 5};

const char16_t* const kYenTaxation[] = {u"1", u"1", u"1", u"1", u"1",    u"1",
                                        u"2", u"3", u"4", u"9", nullptr, u""};
const char16_t* const kForeignTaxation[] = {u"3", u"3", u"3", u"1", nullptr};

// Order number styles, one per buyer: {n} is a running number, {ym} the order's year and month.
const char16_t* const kOrderStyles[] = {u"45{n}", u"HK{ym}-{n}", u"SK{n}",    u"CAP-{ym}-{n}",
                                        u"D{n}",  u"N{n}",       u"MS{ym}{n}"};
// Share of the records per buyer, in the order of the customer master.
const int kBuyerWeights[] = {60, 55, 40, 45, 40, 10, 50};

const QDate kFirstDue(2004, 1, 13);
const QDate kLastDue(2006, 12, 28);
constexpr int kWasteBoxEvery = 37;

struct Buyer
{
    int id;
    QString code;
    QStringList fullCodes; // code + each sub-code
    bool noQuantityBreakdown;
    bool lenientEntry;
};

QString text(const char16_t* s)
{
    return QString::fromUtf16(s);
}

QVariant textOrNull(const char16_t* s)
{
    return s ? QVariant(text(s)) : QVariant();
}

QVariant dateOrNull(const QDate& date)
{
    return date.isValid() ? QVariant(date.toString(Qt::ISODate)) : QVariant();
}

QVariant dateTimeOrNull(const QDate& date, int hour, int minute)
{
    return date.isValid() ? QVariant(QStringLiteral("%1 %2:%3:00")
                                         .arg(date.toString(Qt::ISODate))
                                         .arg(hour, 2, 10, QChar(u'0'))
                                         .arg(minute, 2, 10, QChar(u'0')))
                          : QVariant();
}

// Exact decimal text of value / 10^scale, without trailing zeros: "12.5", "1600", "0.11364".
QString decimalText(qint64 value, int scale)
{
    QString digits = QString::number(value).rightJustified(scale + 1, u'0');
    digits.insert(digits.size() - scale, u'.');
    while (digits.endsWith(u'0'))
        digits.chop(1);
    if (digits.endsWith(u'.'))
        digits.chop(1);
    return digits;
}

QList<Buyer> readBuyers(const QSqlDatabase& db)
{
    QList<Buyer> buyers;
    QSqlQuery q =
        execQuery(db, QStringLiteral("SELECT c.IDCustomer, c.Code, COALESCE(s.NoQuantityBreakdown, 0), "
                                     "COALESCE(s.LenientEntry, 0) FROM T_Customer c "
                                     "LEFT JOIN T_CustomerSettings s ON s.IDCustomer = c.IDCustomer "
                                     "ORDER BY c.IDCustomer"));
    while (q.next())
        buyers.append({q.value(0).toInt(),
                       q.value(1).toString(),
                       {},
                       q.value(2).toInt() != 0,
                       q.value(3).toInt() != 0});
    for (Buyer& b : buyers) {
        QSqlQuery s = execQuery(
            db,
            QStringLiteral("SELECT SubCode FROM T_CustomerSubCode WHERE IDCustomer = ? ORDER BY Position"),
            {b.id});
        while (s.next())
            b.fullCodes.append(b.code + s.value(0).toString());
    }
    return buyers;
}

QStringList readOwnCodes(const QSqlDatabase& db)
{
    QStringList codes;
    QSqlQuery q = execQuery(db, QStringLiteral("SELECT Code FROM T_OwnCode ORDER BY Position"));
    while (q.next())
        codes.append(q.value(0).toString());
    return codes;
}

class DeliveryWriter
{
public:
    explicit DeliveryWriter(const QSqlDatabase& db)
        : m_db(db), m_buyers(readBuyers(db)), m_ownCodes(readOwnCodes(db))
    {
    }

    void write(int serial);

private:
    QString orderNumber(const Buyer& buyer, const QDate& due);
    qint64 quantityMilli(const QString& unit);
    void addPrice(ColumnValues& row, const demo::Item& item);
    void addPackages(ColumnValues& row, qint64 deliveryMilli, bool wholeUnits, bool noBreakdown);

    const QSqlDatabase& m_db;
    DemoRandom m_rng{20050310};
    QList<Buyer> m_buyers;
    QStringList m_ownCodes;
    QHash<int, std::pair<QString, int>> m_lastOrder; // buyer id -> last order number, deliveries on it
    int m_orderSerial = 12000;
    QList<qint64> m_packages; // per-package quantities in thousandths of the record being written
};

QString DeliveryWriter::orderNumber(const Buyer& buyer, const QDate& due)
{
    // Now and then a further partial delivery on the buyer's previous order.
    auto last = m_lastOrder.find(buyer.id);
    if (last != m_lastOrder.end() && m_rng.percent(15)) {
        ++last->second;
        return last->first;
    }
    const QString number =
        text(kOrderStyles[std::size_t(buyer.id - 1) % std::size(kOrderStyles)])
            .replace(QStringLiteral("{ym}"), due.addDays(-20).toString(QStringLiteral("yyMM")))
            .replace(QStringLiteral("{n}"), QStringLiteral("%1").arg(++m_orderSerial, 8, 10, QChar(u'0')));
    m_lastOrder.insert(buyer.id, {number, 1});
    return number;
}

// Pieces in round lots, kilograms in halves, metres and plates whole.
qint64 DeliveryWriter::quantityMilli(const QString& unit)
{
    static const int lots[] = {24, 50, 100, 120, 200, 240, 300, 500, 1000, 1200, 2000, 5000};
    if (unit == u"KG")
        return m_rng.between(4, 400) * 500;
    if (unit == u"M")
        return m_rng.between(10, 500) * 1000;
    if (unit == u"EA")
        return m_rng.between(1, 40) * 1000;
    return qint64(m_rng.pick<int>(lots)) * 1000;
}

// The price lives in F00013 for yen and in F00282 for a foreign currency; the other one holds "0".
void DeliveryWriter::addPrice(ColumnValues& row, const demo::Item& item)
{
    const Currency& currency = kCurrencies[m_rng.weighted(kCurrencyWeights)];
    const qint64 yenMilli = item.yenPriceMilli / 100 * m_rng.between(90, 110);
    const bool foreign = currency.yenPerUnit != 0;
    const auto taxation = foreign ? std::span<const char16_t* const>(kForeignTaxation)
                                  : std::span<const char16_t* const>(kYenTaxation);
    row.insert(row.end(),
               {
                   {QStringLiteral("F00057"), m_rng.percent(80) ? 2 : 1},
                   {QStringLiteral("F00059"), textOrNull(m_rng.pick(taxation))},
                   {QStringLiteral("F00281"), textOrNull(currency.code)},
                   {QStringLiteral("F00282"),
                    foreign ? decimalText(yenMilli * 100 / currency.yenPerUnit, 5) : QStringLiteral("0")},
                   {QStringLiteral("F00013"), foreign ? QStringLiteral("0") : decimalText(yenMilli, 3)},
               });
}

void DeliveryWriter::addPackages(ColumnValues& row, qint64 deliveryMilli, bool wholeUnits, bool noBreakdown)
{
    enum { Single = 1, Equal, Individual, Unset };
    static const int modeWeights[] = {45, 25, 25, 5};
    static const int packSizes[] = {10, 12, 20, 24, 25, 50, 100};
    int mode = noBreakdown ? (m_rng.percent(80) ? Single : Unset) : m_rng.weighted(modeWeights) + 1;
    m_packages.clear();
    qint64 perPackage = deliveryMilli;
    if (mode == Equal) {
        const qint64 size = qint64(m_rng.pick<int>(packSizes)) * 1000;
        if (wholeUnits && deliveryMilli % size == 0 && deliveryMilli > size)
            perPackage = size;
        else
            mode = Single;
    } else if (mode == Individual) {
        // 2 to 6 packages of whole units; the last one takes the rest, so that they add up exactly.
        const qint64 units = deliveryMilli / 1000;
        const int count = int(std::min<qint64>(m_rng.between(2, 6), units));
        qint64 left = units;
        for (int seq = 1; seq < count; ++seq) {
            const qint64 later = count - seq; // packages still to come, at least one unit each
            const qint64 share =
                std::clamp<qint64>(left / (later + 1) + m_rng.between(-2, 2), 1, left - later);
            m_packages.append(share * 1000);
            left -= share;
        }
        m_packages.append(left * 1000 + deliveryMilli % 1000);
        perPackage = m_packages.front();
    }
    if (mode == Unset) {
        row.insert(row.end(),
                   {{QStringLiteral("QuantityType"), QVariant()}, {QStringLiteral("Quantity"), QVariant()}});
        return;
    }
    row.insert(row.end(), {{QStringLiteral("QuantityType"), mode},
                           {QStringLiteral("Quantity"), decimalText(perPackage, 3)}});
}

void DeliveryWriter::write(int serial)
{
    const Buyer& buyer = m_buyers.at(m_rng.weighted(kBuyerWeights) % m_buyers.size());
    const Kind& kind = kKinds[m_rng.weighted(kKindWeights)];
    const demo::Item& item = m_rng.pick(demo::items());
    const demo::Place& place = m_rng.pick(demo::places());
    const demo::TextPair& purchaser = m_rng.pick(demo::purchasers());
    const demo::TextPair& buyerRemark = m_rng.pick(demo::buyerRemarks());
    const demo::TextPair& supplierRemark = m_rng.pick(demo::supplierRemarks());
    const QString unit = text(item.unit);

    QDate due = kFirstDue.addDays(m_rng.below(int(kFirstDue.daysTo(kLastDue)) + 1));
    const QDate ship = kind.shipped ? due.addDays(-m_rng.between(0, 3)) : QDate();
    const QDate delivered = kind.shipped      ? ship.addDays(m_rng.between(0, 2))
                            : kind.instructed ? due
                                              : QDate();
    const QString order = orderNumber(buyer, due);
    const int deliveryOnOrder = m_lastOrder.value(buyer.id).second;
    // A lenient buyer's hand input may lack the order quantity and the due date.
    const bool sparse = buyer.lenientEntry && (!kind.code || !*kind.code) && m_rng.percent(40);
    if (sparse)
        due = QDate();
    const qint64 deliveryMilli = quantityMilli(unit);
    const double delivery = double(deliveryMilli) / 1000;

    ColumnValues row = {
        {QStringLiteral("IDCustomer"), buyer.id},
        {QStringLiteral("F00002"), textOrNull(kind.code)},
        {QStringLiteral("F00030"), textOrNull(kind.subState)},
        {QStringLiteral("F00004"),
         !buyer.fullCodes.isEmpty() && m_rng.percent(50) ? m_rng.pick<QString>(buyer.fullCodes) : buyer.code},
        {QStringLiteral("F00005"), m_rng.pick<QString>(m_ownCodes)},
        {QStringLiteral("F00007"), order},
        {QStringLiteral("F00159"),
         QStringLiteral("%1-%2").arg(order).arg(deliveryOnOrder, 2, 10, QChar(u'0'))},
        {QStringLiteral("F00018"), text(purchaser.a)},
        {QStringLiteral("F00260"), text(purchaser.k)},
        {QStringLiteral("F00028"), text(place.code)},
        {QStringLiteral("F00160"), text(place.nameA)},
        {QStringLiteral("F00274"), text(place.nameK)},
        {QStringLiteral("F00024"), text(item.buyerCode)},
        {QStringLiteral("F00023"), text(item.supplierCode)},
        {QStringLiteral("F00022"), text(item.nameA)},
        {QStringLiteral("F00262"), text(item.nameK)},
        {QStringLiteral("F00031"), dateOrNull(due)},
        {QStringLiteral("F00039"), dateOrNull(ship)},
        {QStringLiteral("F00040"), dateOrNull(delivered)},
        {QStringLiteral("F00015"), sparse ? 0.0 : delivery},
        {QStringLiteral("F00032"), kind.instructed ? delivery : 0.0},
        {QStringLiteral("F00036"), delivery},
        {QStringLiteral("F00012"), unit},
        {QStringLiteral("F00029"),
         m_rng.percent(70) ? QStringLiteral("0%1").arg(m_rng.between(1, 2)) : QString()},
        {QStringLiteral("F00162"), text(buyerRemark.a)},
        {QStringLiteral("F00275"), text(buyerRemark.k)},
        {QStringLiteral("F00164"), text(supplierRemark.a)},
        {QStringLiteral("F00276"), text(supplierRemark.k)},
        {QStringLiteral("F00161"),
         m_rng.percent(60) ? QStringLiteral("49%1").arg(serial * 7919LL, 11, 10, QChar(u'0')) : QString()},
        {QStringLiteral("F00163"),
         m_rng.percent(30) ? QStringLiteral("TK%1").arg(serial, 8, 10, QChar(u'0')) : QString()},
        {QStringLiteral("InDustBox"), serial % kWasteBoxEvery == kWasteBoxEvery - 1}, // a flag of any engine
        {QStringLiteral("DateDeliveryPrint"),
         m_rng.percent(70) ? dateTimeOrNull(ship, 17, m_rng.below(60)) : QVariant()},
    };
    addPrice(row, item);
    addPackages(row, deliveryMilli, unit != u"KG", buyer.noQuantityBreakdown);
    if (!m_packages.isEmpty() && m_rng.percent(50))
        row.push_back({QStringLiteral("DateLabelPrint"), dateTimeOrNull(ship, 16, 30)});

    const qint64 id = insertRow(m_db, QStringLiteral("T_Delivery"), row, QStringLiteral("IDData"));
    for (int i = 0; i < m_packages.size(); ++i)
        insertRow(m_db, QStringLiteral("T_DeliveryQTY"),
                  {{QStringLiteral("IDData"), id},
                   {QStringLiteral("Sequence"), i + 1},
                   {QStringLiteral("Quantity"), decimalText(m_packages.at(i), 3)}});
}

} // namespace

void fillDemoDeliveries(const QSqlDatabase& db)
{
    DeliveryWriter writer(db);
    for (int serial = 0; serial < kDemoRecordCount; ++serial)
        writer.write(serial);
}

} // namespace tolvinpt::host
