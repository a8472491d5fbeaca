#include "store/delivery_writes.h"

#include "platform/sql/database.h"
#include "platform/sql/sql_dialect.h"
#include "platform/sql/sql_values.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tolvinpt {

qint64 insertBlankDeliveryRecord(db::Database& database)
{
    return database.insertDefaultRow(u"T_Delivery"_s, u"IDData"_s);
}

namespace {

// Columns written by an insert: those the record has, IDData only when it is not null.
bool inserted(const DeliveryRecord& record, DeliveryColumn column)
{
    return record.has(column) && !(column == DeliveryColumn::IDData && record.isNull(column));
}

} // namespace

QString deliveryInsertSql(const DeliveryRecord& record)
{
    QString names, placeholders;
    for (const DeliveryColumnInfo& info : deliveryColumns()) {
        if (!inserted(record, info.column))
            continue;
        names += (names.isEmpty() ? u""_s : u", "_s) + info.name;
        placeholders += placeholders.isEmpty() ? u"?"_s : u", ?"_s;
    }
    return u"INSERT INTO T_Delivery ("_s + names + u") VALUES ("_s + placeholders + u')';
}

namespace {

QString keyReturning(const db::SqlDialect& dialect)
{
    return dialect.insertReturnsKey() ? u" RETURNING IDData"_s : QString();
}

} // namespace

qint64 insertDeliveryRecord(db::Database& database, const DeliveryRecord& record)
{
    const auto& columns = deliveryColumns();
    if (std::none_of(columns.begin(), columns.end(),
                     [&](const auto& info) { return inserted(record, info.column); }))
        return insertBlankDeliveryRecord(database);
    db::Statement statement = database.prepare(deliveryInsertSql(record) + keyReturning(database.dialect()));
    int index = 0;
    for (const DeliveryColumnInfo& info : columns) {
        if (inserted(record, info.column))
            statement.bind(index++, storedValue(database.dialect(), info.column, record.value(info.column)));
    }
    statement.exec();
    return database.insertedKey(statement);
}

QString detailUpdateSql(const DeliveryRecord& detail)
{
    QString assignments;
    for (const DeliveryColumnInfo& info : deliveryColumns()) {
        QString assignment;
        if (info.writer == Writer::DetailSave && detail.has(info.column))
            assignment = info.name + u" = ?"_s;
        else if (info.writer == Writer::ClearedByDetail)
            assignment = info.name + u" = NULL"_s;
        else
            continue;
        assignments += (assignments.isEmpty() ? u""_s : u", "_s) + assignment;
    }
    return u"UPDATE T_Delivery SET "_s + assignments + u" WHERE IDData = ?"_s;
}

QString packageModeSql()
{
    return u"UPDATE T_Delivery SET DateLabelPrint = NULL, QuantityType = ?, Quantity = ? WHERE IDData = ?"_s;
}

QString packageRowsDeleteSql()
{
    return u"DELETE FROM T_DeliveryQTY WHERE IDData = ?"_s;
}

QString packageRowInsertSql()
{
    return u"INSERT INTO T_DeliveryQTY (IDData, Sequence, Quantity) VALUES (?, ?, ?)"_s;
}

void deleteDeliveryRecord(db::Database& database, qint64 id)
{
    database.execute(packageRowsDeleteSql(), {id});
    database.execute(u"DELETE FROM T_Delivery WHERE IDData = ?"_s, {id});
}

void insertPackageRows(db::Database& database, qint64 id, const QList<QVariant>& quantities)
{
    db::Statement statement = database.prepare(packageRowInsertSql());
    for (int i = 0; i < quantities.size(); ++i)
        statement.bind({id, i + 1, quantities[i]}).exec();
}

QVariant storedValue(const db::SqlDialect& dialect, DeliveryColumn column, const QVariant& value)
{
    if (value.isNull())
        return QVariant();
    const int type = value.typeId();
    switch (columnInfo(column).type) {
    case ColumnType::Date:
        if (type == QMetaType::QDate)
            return dialect.dateValue(value.toDate());
        if (type == QMetaType::QDateTime)
            return dialect.dateValue(value.toDateTime().date());
        break;
    case ColumnType::DateTime:
        if (type == QMetaType::QDateTime)
            return dialect.dateTimeValue(value.toDateTime());
        if (type == QMetaType::QDate)
            return dialect.dateTimeValue(value.toDate().startOfDay());
        break;
    case ColumnType::Boolean:
        if (type == QMetaType::Bool)
            return dialect.boolValue(value.toBool());
        break;
    case ColumnType::Text:
        // A null QString is empty text of ours; some drivers would bind it as Null.
        if (type == QMetaType::QString && value.toString().isNull())
            return QVariant(QString(u""_s));
        break;
    case ColumnType::Double:
        // Parsed here, correctly rounded, rather than by the engine's own text-to-number conversion.
        if (type == QMetaType::QString && db::isDecimalText(value.toString()))
            return QVariant(QLocale::c().toDouble(value.toString()));
        break;
    case ColumnType::Decimal:
    case ColumnType::Currency:
        if (type == QMetaType::QString && db::isDecimalText(value.toString()))
            return dialect.decimalValue(value.toString());
        break;
    default:
        break;
    }
    return value;
}

} // namespace tolvinpt
