// The database layer on real SQLite files: bound values, engine errors, transactions, autonumbers.
#include "platform/sql/database.h"
#include "platform/sql/sql_dialect.h"
#include "platform/sql/sql_values.h"
#include "platform/sql/transaction.h"
#include "tests/support/temp_database.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tolvinpt;
using namespace tolvinpt::db;

namespace {

class Layer : public testing::TestWithParam<Database::StatementPath>
{
protected:
    Layer() : temp(test::TempDatabase::Schema::Empty, GetParam())
    {
        db().execute(
            u"CREATE TABLE t (id INTEGER PRIMARY KEY AUTOINCREMENT, code TEXT UNIQUE, n INTEGER NOT NULL DEFAULT 0)"_s);
    }
    Database& db() { return temp.db(); }
    qint64 count() { return db().scalar(u"SELECT COUNT(*) FROM t"_s)->toLongLong(); }

    test::TempDatabase temp;
};

// Autonumbers never reuse a key; values are bound, never written into the text.
TEST_P(Layer, RowsAreNumberedAndValuesBoundAndReadBackInTheirEngineForm)
{
    const qint64 first = db().insertDefaultRow(u"t"_s, u"id"_s);
    const qint64 second = db().insertDefaultRow(u"t"_s, u"id"_s);
    EXPECT_GT(second, first);
    db().execute(u"DELETE FROM t WHERE id = ?"_s, {second});
    EXPECT_GT(db().insertDefaultRow(u"t"_s, u"id"_s), second);
    EXPECT_EQ(db().scalar(u"SELECT n FROM t WHERE id = ?"_s, {first})->toInt(), 0);

    const QString hostile = u"x'); DELETE FROM t; --\""_s;
    db().execute(u"INSERT INTO t (code) VALUES (?)"_s, {hostile});
    EXPECT_EQ(count(), 3);
    EXPECT_EQ(db().scalar(u"SELECT code FROM t WHERE code = ?"_s, {hostile})->toString(), hostile);

    db().execute(u"CREATE TABLE v (i INTEGER, r REAL, s TEXT, z TEXT)"_s);
    db().execute(u"INSERT INTO v VALUES (?, ?, ?, ?)"_s, {qint64(1) << 40, 2.5, u"ｶﾅ漢字"_s, QVariant()});
    Statement statement = db().prepare(u"SELECT i, r, s, z FROM v"_s);
    ASSERT_TRUE(statement.exec().next());
    EXPECT_EQ(readInteger(statement.value(0)), qint64(1) << 40);
    EXPECT_EQ(readDouble(statement.value(1)), 2.5);
    EXPECT_EQ(readText(statement.value(2)), u"ｶﾅ漢字"_s);
    EXPECT_TRUE(isNull(statement.value(3)));
    EXPECT_EQ(statement.columnNames(), (QStringList{u"i"_s, u"r"_s, u"s"_s, u"z"_s}));
    EXPECT_FALSE(statement.next());
}

TEST_P(Layer, ErrorsCarryTheEngineNumber)
{
    db().execute(u"INSERT INTO t (code) VALUES ('a')"_s);
    const std::pair<QString, long> cases[] = {
        {u"INSERT INTO t (code) VALUES ('a')"_s, 2067},          // SQLITE_CONSTRAINT_UNIQUE
        {u"INSERT INTO t (code, n) VALUES ('b', NULL)"_s, 1299}, // SQLITE_CONSTRAINT_NOTNULL
        {u"SELECT * FROM missing"_s, 1}};
    for (const auto& [sql, number] : cases) {
        try {
            db().execute(sql);
            ADD_FAILURE() << "no error: " << sql.toStdString();
        } catch (const DatabaseError& e) {
            EXPECT_EQ(e.number(), number) << sql.toStdString();
            EXPECT_FALSE(e.description().isEmpty());
        }
    }
    EXPECT_EQ(count(), 1);
    const DatabaseError error(u"UNIQUE constraint failed: t.code"_s, 19);
    EXPECT_EQ(error.operatorText(), u"UNIQUE constraint failed: t.code (19)"_s);
    EXPECT_EQ(error.operatorText(DatabaseError::Spacing::NoBlank), u"UNIQUE constraint failed: t.code(19)"_s);
}

TEST_P(Layer, TransactionRollsBackUnlessCommitted)
{
    {
        Transaction transaction(db(), Transaction::Kind::Write);
        db().execute(u"INSERT INTO t (code) VALUES ('dropped')"_s);
        EXPECT_THROW(Transaction inner(db(), Transaction::Kind::Read),
                     DatabaseError); // one at a time on a connection
    }
    EXPECT_EQ(count(), 0);
    try {
        Transaction transaction(db(), Transaction::Kind::Write);
        db().execute(u"INSERT INTO t (code) VALUES ('x')"_s);
        db().execute(u"INSERT INTO t (code) VALUES ('x')"_s);
        transaction.commit();
    } catch (const DatabaseError& e) {
        EXPECT_EQ(e.number(), 2067);
    }
    EXPECT_EQ(count(), 0);
    {
        Transaction transaction(db(), Transaction::Kind::Write);
        db().execute(u"INSERT INTO t (code) VALUES ('kept')"_s);
        transaction.commit();
        EXPECT_FALSE(transaction.isOpen());
    }
    temp.close();
    temp.reopen();
    EXPECT_EQ(count(), 1);
}

TEST_P(Layer, BooleansAndDatesThroughTheDialect)
{
    const SqlDialect& dialect = db().dialect();
    const QDateTime at(QDate(2005, 3, 7), QTime(9, 5, 1));
    db().execute(u"CREATE TABLE f (b INTEGER, d TEXT, dt TEXT)"_s);
    db().execute(u"INSERT INTO f VALUES (?, ?, ?)"_s,
                 {dialect.boolValue(false), dialect.dateValue(at.date()), dialect.dateTimeValue(at)});
    db().execute(u"INSERT INTO f VALUES (-1, ?, ?)"_s,
                 {dialect.dateValue(QDate()), dialect.dateTimeValue({})});
    EXPECT_EQ(db().scalar(u"SELECT COUNT(*) FROM f WHERE "_s + dialect.isFalse(u"b"_s))->toInt(), 1);
    Statement statement = db().prepare(u"SELECT b, d, dt FROM f ORDER BY rowid"_s);
    ASSERT_TRUE(statement.exec().next());
    EXPECT_EQ(statement.value(1).toString() + u'|' + statement.value(2).toString(),
              u"2005-03-07|2005-03-07 09:05:01"_s);
    EXPECT_EQ(readDate(statement.value(1)), at.date());
    EXPECT_EQ(readDateTime(statement.value(2)), at);
    ASSERT_TRUE(statement.next());
    EXPECT_EQ(readBoolean(statement.value(0)), true); // any non-zero value is True
    EXPECT_TRUE(isNull(statement.value(1)) && isNull(statement.value(2)));
}

TEST_P(Layer, TheSameStatementCanRunNested)
{
    db().execute(u"INSERT INTO t (code) VALUES ('a'), ('b')"_s);
    const QString sql = u"SELECT code FROM t ORDER BY code"_s;
    Statement outer = db().prepare(sql);
    QStringList pairs;
    for (outer.exec(); outer.next();) {
        Statement inner = db().prepare(sql);
        for (inner.exec(); inner.next();)
            pairs.append(outer.value(0).toString() + inner.value(0).toString());
    }
    EXPECT_EQ(pairs, (QStringList{u"aa"_s, u"ab"_s, u"ba"_s, u"bb"_s}));
}

INSTANTIATE_TEST_SUITE_P(Db, Layer, test::bothStatementPaths(), test::statementPathName);

TEST(SqlScript, SplitsAtSemicolonsOutsideQuotesAndComments)
{
    const QString script = u"-- a comment; with a semicolon\n"
                           "CREATE TABLE a (x TEXT DEFAULT 'p;q'); /* block; */\n"
                           "CREATE TABLE \"b;c\" (y TEXT DEFAULT 'it''s');\n  ;\nSELECT 1"_s;
    EXPECT_EQ(splitSqlScript(script),
              (QStringList{u"CREATE TABLE a (x TEXT DEFAULT 'p;q')"_s,
                           u"CREATE TABLE \"b;c\" (y TEXT DEFAULT 'it''s')"_s, u"SELECT 1"_s}));
}

} // namespace
