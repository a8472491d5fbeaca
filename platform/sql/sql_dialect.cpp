#include "platform/sql/sql_dialect.h"

#include "platform/sql/sql_backend.h"

using namespace Qt::StringLiterals;

namespace tolvinpt::db {

SqlDialect::~SqlDialect() = default;

const SqlDialect* SqlDialect::of(const QSqlDatabase& connection)
{
    const QString driver = connection.driverName();
    if (driver == u"QSQLITE"_s)
        return &sqliteDialect();
    if (driver == u"QPSQL"_s)
        return &postgresqlDialect();
    return nullptr;
}

QVariant SqlDialect::integerListValue(const QList<qint64>& values)
{
    QString json = u"["_s;
    for (qsizetype i = 0; i < values.size(); ++i)
        json += (i == 0 ? u""_s : u","_s) + QString::number(values[i]);
    return QVariant(json + u']');
}

std::optional<std::pair<QString, QString>> foldedPrefixBounds(QStringView prefix)
{
    QList<uint> from = prefix.toUcs4();
    for (uint& c : from)
        c = c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c;
    QList<uint> to = from;
    while (!to.isEmpty() && to.last() >= 0x10FFFF)
        to.removeLast();
    if (to.isEmpty())
        return std::nullopt;
    // A-Z never ends the upper bound: '@' + 1 folds to 'a', which is higher still.
    to.last() = to.last() == 0xD7FF ? 0xE000 : to.last() + 1;
    const auto text = [](const QList<uint>& ucs4) {
        return QString::fromUcs4(reinterpret_cast<const char32_t*>(ucs4.constData()), ucs4.size());
    };
    return std::pair{text(from), text(to)};
}

} // namespace tolvinpt::db
