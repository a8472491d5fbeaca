// Like patterns and case-insensitive text equality, alone and on a real database.
#include "platform/jet_like.h"
#include "platform/sql_dialect.h"
#include "tests/support/temp_database.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tolvinpt;
using namespace tolvinpt::db;

namespace {

enum Outcome { No, Yes, Invalid };

struct LikeCase
{
    const char16_t* pattern;
    const char16_t* text;
    Outcome expected;
};

const LikeCase likeCases[] = {
    // literals, letter case
    {u"ABC", u"abc", Yes},
    {u"abc", u"ABC", Yes},
    {u"abc", u"abcd", No},
    {u"abc", u"abc ", No},
    {u"", u"", Yes},
    {u"", u"a", No},
    {u"ｱｲｳ", u"ｱｲｳ", Yes},
    {u"Ａ", u"ａ", No}, // only ASCII letters fold
    // * and ?
    {u"A*", u"a", Yes},
    {u"A*", u"A-1234", Yes},
    {u"A*", u"BA", No},
    {u"*1", u"A-1", Yes},
    {u"*", u"", Yes},
    {u"a**b", u"ab", Yes},
    {u"a*b*c", u"axxbyyc", Yes},
    {u"a*b*c", u"axxbyy", No},
    {u"*ab", u"aab", Yes},
    {u"?", u"", No},
    {u"??", u"ab", Yes},
    {u"a?c", u"a c", Yes},
    {u"?", u"😀", Yes}, // one character, though two UTF-16 units
    // #
    {u"#", u"7", Yes},
    {u"#", u"a", No},
    {u"A##", u"a12", Yes},
    {u"#", u"７", No},
    // sets and ranges
    {u"[abc]", u"B", Yes},
    {u"[abc]", u"d", No},
    {u"[a-c]x", u"Bx", Yes},
    {u"[A-C]", u"b", Yes},
    {u"[!a-c]", u"d", Yes},
    {u"[!a-c]", u"B", No},
    {u"[0-9]#", u"42", Yes},
    {u"[-a]", u"-", Yes},
    {u"[a-]", u"-", Yes},
    {u"[*]", u"*", Yes},
    {u"[*]", u"a", No},
    {u"[?]x", u"?x", Yes},
    {u"[#]", u"#", Yes},
    {u"[[]", u"[", Yes},
    {u"a]", u"a]", Yes},
    {u"a[]b", u"ab", Yes},
    {u"[!]", u"x", Yes},
    // invalid patterns
    {u"[abc", u"a", Invalid},
    {u"[z-a]", u"b", Invalid},
    {u"a[", u"a", Invalid},
};

TEST(LikePattern, MatchesTheTable)
{
    for (const LikeCase& c : likeCases) {
        const QString pattern = QString::fromUtf16(c.pattern);
        const QString text = QString::fromUtf16(c.text);
        const std::optional<bool> result = likeMatches(pattern, text);
        SCOPED_TRACE(u"pattern '%1' text '%2'"_s.arg(pattern, text).toStdString());
        if (c.expected == Invalid)
            EXPECT_FALSE(result.has_value());
        else
            EXPECT_EQ(result, std::optional(c.expected == Yes));
    }
}

class OnDatabase : public testing::TestWithParam<Database::StatementPath>
{
protected:
    OnDatabase() : temp(test::TempDatabase::Schema::Empty, GetParam())
    {
        temp.db().execute(u"CREATE TABLE t (id INTEGER PRIMARY KEY, v TEXT COLLATE NOCASE, plain TEXT)"_s);
        int id = 0;
        for (const QVariant& v : {QVariant(u"A-100"_s), QVariant(u"a-200"_s), QVariant(u"B-100"_s),
                                  QVariant(u"ｶﾅ-1"_s), QVariant(u"Ａ-1"_s), QVariant()})
            temp.db().execute(u"INSERT INTO t VALUES (?, ?, ?)"_s, {++id, v, v});
    }

    // Ids of the rows whose column matches, in id order.
    QList<int> select(const QString& condition, const QString& value)
    {
        Statement statement = temp.db().prepare(u"SELECT id FROM t WHERE "_s + condition + u" ORDER BY id"_s);
        statement.bind(0, value).exec();
        QList<int> ids;
        while (statement.next())
            ids.append(statement.value(0).toInt());
        return ids;
    }

    test::TempDatabase temp;
};

TEST_P(OnDatabase, LikeSelectsTheSameRowsAsTheMatcher)
{
    const struct
    {
        QString pattern;
        QList<int> ids;
    } cases[] = {
        {u"a*"_s, {1, 2}}, {u"?-100"_s, {1, 3}}, {u"[!a]-###"_s, {3}},      {u"*1*"_s, {1, 3, 4, 5}},
        {u"ｶﾅ*"_s, {4}},   {u"a-1"_s, {}},       {u"*"_s, {1, 2, 3, 4, 5}}, // Null matches nothing
    };
    const SqlDialect& dialect = temp.db().dialect();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pattern.toStdString());
        EXPECT_EQ(select(dialect.matchesLike(u"v"_s), c.pattern), c.ids);
        EXPECT_EQ(select(dialect.matchesLike(u"plain"_s), c.pattern), c.ids);
    }
}

TEST_P(OnDatabase, InvalidPatternFailsTheStatementWithTheEngineNumber)
{
    try {
        select(temp.db().dialect().matchesLike(u"v"_s), u"[a"_s);
        FAIL() << "no error";
    } catch (const DatabaseError& e) {
        EXPECT_EQ(e.number(), 1);
        EXPECT_TRUE(e.description().contains(u"Like"_s)) << e.description().toStdString();
    }
}

TEST_P(OnDatabase, TextEqualityIgnoresAsciiCaseOnly)
{
    const SqlDialect& dialect = temp.db().dialect();
    // With and without a NOCASE column: the rule must not depend on how the host declared it.
    for (const QString& column : {u"v"_s, u"plain"_s}) {
        SCOPED_TRACE(column.toStdString());
        EXPECT_EQ(select(dialect.textEquals(column), u"A-200"_s), QList<int>{2});
        EXPECT_EQ(select(dialect.textEquals(column), u"b-100"_s), QList<int>{3});
        EXPECT_EQ(select(dialect.textEquals(column), u"b-100 "_s), QList<int>{});
        EXPECT_EQ(select(dialect.textEquals(column), u"ａ-1"_s), QList<int>{});
    }
}

TEST_P(OnDatabase, LikeFunctionComesBackAfterTheConnectionIsReopened)
{
    temp.close();
    temp.reopen();
    EXPECT_EQ(select(temp.db().dialect().matchesLike(u"v"_s), u"B*"_s), QList<int>{3});
}

INSTANTIATE_TEST_SUITE_P(Db, OnDatabase, test::bothStatementPaths(), test::statementPathName);

} // namespace
