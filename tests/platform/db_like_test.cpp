// Like patterns and case-insensitive text equality, alone and on a real database.
#include "platform/sql/jet_like.h"
#include "platform/sql/sql_dialect.h"
#include "tests/support/temp_database.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tolvinpt;
using namespace tolvinpt::db;

namespace {

enum Outcome { No, Yes, Invalid };

// Only ASCII letters fold; ? is one character, even two UTF-16 units; # one ASCII digit.
TEST(LikePattern, MatchesTheTable)
{
    const std::tuple<const char16_t*, const char16_t*, Outcome> cases[] = {{u"ABC", u"abc", Yes},
                                                                           {u"abc", u"abc ", No},
                                                                           {u"", u"", Yes},
                                                                           {u"", u"a", No},
                                                                           {u"ｱｲｳ", u"ｱｲｳ", Yes},
                                                                           {u"Ａ", u"ａ", No},
                                                                           {u"A*", u"A-1234", Yes},
                                                                           {u"A*", u"BA", No},
                                                                           {u"*", u"", Yes},
                                                                           {u"a**b", u"ab", Yes},
                                                                           {u"a*b*c", u"axxbyyc", Yes},
                                                                           {u"a*b*c", u"axxbyy", No},
                                                                           {u"*ab", u"aab", Yes},
                                                                           {u"?", u"", No},
                                                                           {u"a?c", u"a c", Yes},
                                                                           {u"?", u"😀", Yes},
                                                                           {u"A##", u"a12", Yes},
                                                                           {u"#", u"a", No},
                                                                           {u"#", u"７", No},
                                                                           {u"[abc]", u"B", Yes},
                                                                           {u"[abc]", u"d", No},
                                                                           {u"[a-c]x", u"Bx", Yes},
                                                                           {u"[A-C]", u"b", Yes},
                                                                           {u"[!a-c]", u"d", Yes},
                                                                           {u"[!a-c]", u"B", No},
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
                                                                           {u"[abc", u"a", Invalid},
                                                                           {u"[z-a]", u"b", Invalid},
                                                                           {u"a[", u"a", Invalid}};
    for (const auto& [pattern, text, expected] : cases) {
        const std::optional<bool> result = likeMatches(QString::fromUtf16(pattern), QString::fromUtf16(text));
        EXPECT_EQ(result, expected == Invalid ? std::nullopt : std::optional(expected == Yes))
            << QString::fromUtf16(pattern).toStdString() << " / " << QString::fromUtf16(text).toStdString();
    }
}

class OnDatabase : public testing::TestWithParam<test::Backend>
{
protected:
    OnDatabase() : temp(test::TempDatabase::Schema::Empty, GetParam())
    {
        temp.db().execute(temp.sql(u"CREATE TABLE t (id INTEGER PRIMARY KEY, v TEXT COLLATE NOCASE, plain TEXT)"_s,
                                   u"CREATE TABLE t (id integer PRIMARY KEY, v text COLLATE \"C\", plain text)"_s));
        int id = 0;
        for (const QVariant& v : {QVariant(u"A-100"_s), QVariant(u"a-200"_s), QVariant(u"B-100"_s),
                                  QVariant(u"ｶﾅ-1"_s), QVariant(u"Ａ-1"_s), QVariant()})
            temp.db().execute(u"INSERT INTO t VALUES (?, ?, ?)"_s, {++id, v, v});
    }

    // Ids of the rows where `condition` holds for `value` (a Like pattern when the condition is a match),
    // in id order.
    QList<int> select(const QString& condition, const QString& value)
    {
        const SqlDialect& dialect = temp.db().dialect();
        Statement statement = temp.db().prepare(u"SELECT id FROM t WHERE "_s + condition + u" ORDER BY id"_s);
        const bool like = condition == dialect.matchesLike(u"v"_s) || condition == dialect.matchesLike(u"plain"_s);
        statement.bind(0, like ? dialect.likeValue(value) : QVariant(value)).exec();
        QList<int> ids;
        while (statement.next())
            ids.append(statement.value(0).toInt());
        return ids;
    }

    test::TempDatabase temp;
};

// With and without a NOCASE column: the rules must not depend on how the host declared it.
TEST_P(OnDatabase, LikeAndEqualityIgnoreAsciiCaseOnly)
{
    const SqlDialect& dialect = temp.db().dialect();
    const auto like = &SqlDialect::matchesLike, equals = &SqlDialect::textEquals;
    const std::tuple<decltype(like), QString, QList<int>> cases[] = {
        {like, u"a*"_s, {1, 2}},   {like, u"[!a]-###"_s, {3}}, {like, u"*1*"_s, {1, 3, 4, 5}},
        {like, u"ｶﾅ*"_s, {4}},     {like, u"a-1"_s, {}},       {like, u"*"_s, {1, 2, 3, 4, 5}},
        {equals, u"A-200"_s, {2}}, {equals, u"b-100 "_s, {}},  {equals, u"ａ-1"_s, {}}};
    for (const QString& column : {u"v"_s, u"plain"_s}) {
        for (const auto& [condition, value, ids] : cases)
            EXPECT_EQ(select((dialect.*condition)(column), value), ids) << value.toStdString();
    }
    // An invalid pattern fails the statement, or before it.
    try {
        select(dialect.matchesLike(u"v"_s), u"[a"_s);
        ADD_FAILURE() << "no error";
    } catch (const DatabaseError& e) {
        EXPECT_TRUE(e.description().contains(u"Like"_s)) << e.description().toStdString();
    }
    // The function comes back with the connection.
    temp.close();
    temp.reopen();
    EXPECT_EQ(select(temp.db().dialect().matchesLike(u"v"_s), u"B*"_s), QList<int>{3});
}

INSTANTIATE_TEST_SUITE_P(Db, OnDatabase, test::allBackends(), test::backendName);

} // namespace
