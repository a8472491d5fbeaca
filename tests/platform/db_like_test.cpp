// Like patterns and case-insensitive text equality, alone and on a real database.
#include "platform/sql/jet_like.h"
#include "platform/sql/sql_dialect.h"
#include "tests/support/temp_database.h"
#include "tests/support/thrown.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;
using namespace tolvinpt;
using namespace tolvinpt::db;

namespace {

enum Outcome { No, Yes, Invalid };

// Only ASCII letters fold; ? is one character, even two UTF-16 units; # one ASCII digit.
TEST(LikePattern, MatchesTheTable)
{
    // clang-format off
    const std::tuple<const char16_t*, const char16_t*, Outcome> cases[] = {
        {u"ABC", u"abc", Yes}, {u"abc", u"abc ", No}, {u"", u"", Yes}, {u"", u"a", No},
        {u"ｱｲｳ", u"ｱｲｳ", Yes}, {u"Ａ", u"ａ", No}, {u"A*", u"A-1234", Yes}, {u"A*", u"BA", No},
        {u"*", u"", Yes}, {u"a**b", u"ab", Yes}, {u"a*b*c", u"axxbyyc", Yes}, {u"a*b*c", u"axxbyy", No},
        {u"*ab", u"aab", Yes}, {u"?", u"", No}, {u"a?c", u"a c", Yes}, {u"?", u"😀", Yes},
        {u"A##", u"a12", Yes}, {u"#", u"a", No}, {u"#", u"７", No}, {u"[abc]", u"B", Yes},
        {u"[abc]", u"d", No}, {u"[a-c]x", u"Bx", Yes}, {u"[A-C]", u"b", Yes}, {u"[!a-c]", u"d", Yes},
        {u"[!a-c]", u"B", No}, {u"[-a]", u"-", Yes}, {u"[a-]", u"-", Yes}, {u"[*]", u"*", Yes},
        {u"[*]", u"a", No}, {u"[?]x", u"?x", Yes}, {u"[#]", u"#", Yes}, {u"[[]", u"[", Yes},
        {u"a]", u"a]", Yes}, {u"a[]b", u"ab", Yes}, {u"[!]", u"x", Yes}, {u"[abc", u"a", Invalid},
        {u"[z-a]", u"b", Invalid}, {u"a[", u"a", Invalid}};
    // clang-format on
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
    const QString error =
        test::thrown<DatabaseError>([&] { select(dialect.matchesLike(u"v"_s), u"[a"_s); }).description;
    EXPECT_TRUE(error.contains(u"Like"_s)) << error.toStdString();
    // The function comes back with the connection.
    temp.close();
    temp.reopen();
    EXPECT_EQ(select(temp.db().dialect().matchesLike(u"v"_s), u"B*"_s), QList<int>{3});
}

INSTANTIATE_TEST_SUITE_P(Db, OnDatabase, test::allBackends(), test::backendName);

} // namespace

namespace {

// Texts and patterns drawn from characters that are special to one engine or another (regular
// expressions, SQL LIKE, quoting) or sit at the edges of ASCII folding: the two engines must give the
// same rows as the pattern itself, for Like, for equality and for the index range of a literal start.
TEST(Differential, BothEnginesGiveThePatternsAnswers)
{
    const QString alphabet = u"aAzZ@[`{09-!^$.|()+\\'\"%_\n\téÉａＡｶß"_s + QString::fromUcs4(U"😀", 1);
    const QStringList tokens{u"*"_s, u"?"_s, u"#"_s, u"[a-c]"_s, u"[!x]"_s, u"[A-Z]"_s, u"[*]"_s, u"[[]"_s,
                             u"[]"_s, u"[!]"_s, u"[Z-a]"_s, u"[!-]"_s, u"[é-ｶ]"_s};
    std::mt19937 random(20051231);
    const auto pick = [&](qsizetype n) { return qsizetype(random() % quint32(n)); };
    const auto character = [&] {
        const qsizetype i = pick(alphabet.size() - 1);
        return alphabet.mid(i, alphabet[i].isHighSurrogate() ? 2 : 1);
    };
    QStringList texts{u""_s};
    while (texts.size() < 200) {
        QString text;
        for (qsizetype n = pick(6); n > 0; --n)
            text += character();
        texts.append(text);
    }
    QStringList patterns = texts.mid(0, 60); // literal patterns: a match is an equality
    while (patterns.size() < 360) {
        QString pattern;
        for (qsizetype n = 1 + pick(4); n > 0; --n)
            pattern += pick(3) == 0 ? tokens[pick(tokens.size())] : character();
        patterns.append(pattern);
    }

    test::TempDatabase sqlite(test::TempDatabase::Schema::Empty, test::Backend{test::Engine::SQLite});
    test::TempDatabase server(test::TempDatabase::Schema::Empty, test::Backend{test::Engine::PostgreSQL});
    for (test::TempDatabase* temp : {&sqlite, &server}) {
        temp->db().execute(u"CREATE TABLE t (id integer PRIMARY KEY, v text)"_s);
        for (int id = 0; id < texts.size(); ++id)
            temp->db().execute(u"INSERT INTO t VALUES (?, ?)"_s, {id, texts[id]});
    }
    const auto ids = [&](test::TempDatabase& temp, const QString& condition, const QVariantList& values) {
        Statement statement = temp.db().prepare(u"SELECT id FROM t WHERE "_s + condition + u" ORDER BY id"_s);
        for (int i = 0; i < values.size(); ++i)
            statement.bind(i, values[i]);
        QList<int> result;
        for (statement.exec(); statement.next();)
            result.append(statement.value(0).toInt());
        return result;
    };
    for (const QString& pattern : patterns) {
        SCOPED_TRACE(pattern.toStdString());
        EXPECT_EQ(ids(sqlite, sqlite.db().dialect().textEquals(u"v"_s), {pattern}),
                  ids(server, server.db().dialect().textEquals(u"v"_s), {pattern}));
        if (!LikePattern::compile(pattern))
            continue;
        QList<int> expected;
        for (int id = 0; id < texts.size(); ++id) {
            if (likeMatches(pattern, texts[id]) == true)
                expected.append(id);
        }
        for (test::TempDatabase* temp : {&sqlite, &server}) {
            const SqlDialect& dialect = temp->db().dialect();
            const QVariant like = dialect.likeValue(pattern);
            EXPECT_EQ(ids(*temp, dialect.matchesLike(u"v"_s), {like}), expected);
            if (const auto range = dialect.textPrefixRange(u"v"_s, likeLiteralPrefix(pattern))) {
                EXPECT_EQ(ids(*temp, range->sql + u" AND "_s + dialect.matchesLike(u"v"_s), {range->from, range->to, like}),
                          expected);
            }
        }
    }
}

} // namespace
