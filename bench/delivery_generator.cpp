#include "bench/delivery_generator.h"

#include <QDate>

using namespace Qt::StringLiterals;

namespace tolvinpt::bench {

namespace {

const QString kinds[] = {u"0502"_s, u"0703"_s, u"9999"_s, u"9990"_s, u"999G"_s, QString()};
const QString itemNamesHalf[] = {u"ﾎﾞﾙﾄ M8X20"_s, u"ﾅｯﾄ M8"_s, u"ﾜｯｼｬｰ 8"_s, u"ﾌﾞﾗｹｯﾄ A"_s, u"ｶﾊﾞｰ ﾌﾛﾝﾄ"_s};
const QString itemNamesFull[] = {u"ボルト"_s, u"ナット"_s, u"ワッシャー"_s, u"ブラケット"_s,
                                 u"フロントカバー"_s};
const QString places[] = {u"第一倉庫"_s, u"本社工場"_s, u"物流センター"_s};
const QString currencies[] = {u"USD"_s, u"EUR"_s, u"CNY"_s};

QString digits(int value, int width)
{
    return QString::number(value).rightJustified(width, u'0');
}

} // namespace

DeliveryRecord DeliveryGenerator::next(QList<QVariant>& packages)
{
    using C = DeliveryColumn;
    if (m_deliveriesLeft == 0) {
        ++m_order;
        m_deliveriesLeft = uniform(1, 3);
        m_delivery = 0;
        m_customer = uniform(1, 40);
    }
    --m_deliveriesLeft;
    ++m_delivery;

    const QString order = u"PO"_s + digits(m_order, 9);
    const int item = uniform(0, 4);
    const QDate due = QDate(2004, 1, 1).addDays(uniform(0, 1000));
    const int quantity = uniform(1, 5000);
    const bool foreign = chance(0.1);

    DeliveryRecord r;
    r.set(C::IDCustomer, m_customer);
    r.set(C::F00004, QString(u"C"_s + digits(m_customer, 5)));
    r.set(C::F00005, u"S0001"_s);
    r.set(C::F00007, order);
    r.set(C::F00159, QString(order + u'-' + QString::number(m_delivery)));
    r.set(C::F00018, u"ﾀﾅｶ"_s);
    r.set(C::F00260, u"田中"_s);
    r.set(C::F00028, QString(u"P"_s + digits(uniform(1, 30), 4)));
    r.set(C::F00160, u"ﾀﾞｲｲﾁ ｿｳｺ"_s);
    r.set(C::F00274, places[uniform(0, 2)]);
    r.set(C::F00024, QString(u"H-"_s + digits(item * 1000 + uniform(0, 999), 6)));
    r.set(C::F00023, QString(u"MY-"_s + digits(item, 4)));
    r.set(C::F00022, itemNamesHalf[item]);
    r.set(C::F00262, itemNamesFull[item]);
    r.set(C::F00031, due);
    r.set(C::F00039, chance(0.8) ? QVariant(due.addDays(-2)) : QVariant());
    r.set(C::F00040, chance(0.8) ? QVariant(due) : QVariant());
    r.set(C::F00015, double(quantity));
    r.set(C::F00032, double(quantity));
    r.set(C::F00036, quantity / 4.0);
    r.set(C::F00012, u"PCS"_s);
    r.set(C::F00057, uniform(1, 2));
    r.set(C::F00029, u"1"_s);
    r.set(C::F00059, foreign ? u"2"_s : u"1"_s);
    r.set(C::F00281, foreign ? currencies[uniform(0, 2)] : QString());
    r.set(C::F00282, foreign ? QString(QString::number(uniform(1, 99999)) + u".12345"_s) : u"0"_s);
    r.set(C::F00013, foreign ? u"0"_s : QString(QString::number(uniform(1, 9999)) + u".5"_s));
    r.set(C::F00162, u"ﾋﾞｺｳ"_s);
    r.set(C::F00275, u"至急"_s);
    r.set(C::F00164, QString());
    r.set(C::F00276, QString());
    r.set(C::F00161, order);
    r.set(C::F00163, QString());
    r.set(C::F00002, kinds[uniform(0, 5)]);
    r.set(C::F00030, chance(0.3) ? QVariant(u"2"_s) : QVariant());
    r.set(C::InDustBox, chance(0.05));
    r.set(C::DateDeliveryPrint, chance(0.5) ? QVariant(due.startOfDay().addSecs(9 * 3600)) : QVariant());
    r.set(C::DateLabelPrint, QVariant());

    const int mode = uniform(1, 10) <= 6 ? 1 : (chance(0.5) ? 2 : 3);
    r.set(C::QuantityType, mode);
    packages.clear();
    if (mode == 3) {
        const int count = uniform(2, 10);
        for (int i = 0; i < count; ++i)
            packages.append(QString(QString::number(quantity / count + i) + u".25"_s));
        r.set(C::Quantity, packages.first());
    } else {
        r.set(C::Quantity, QString::number(mode == 1 ? quantity : 50));
    }
    return r;
}

} // namespace tolvinpt::bench
