#include "host/record_kind.h"

#include "store/record_kind.h"

#include <QList>

#include <optional>

namespace tolvinpt::host {
namespace {

// F00030 of an order that awaits its delivery instruction: such an order has a caption of its own.
const QString kAwaitingInstruction = QStringLiteral("2");

struct ListKind
{
    QString caption;
    QString condition;
};

QString quoted(QStringView text)
{
    return u'\'' + text.toString() + u'\'';
}

// The column as plain text: a column's own rule of equality may ignore letter case, a concatenation's
// never does, on any engine.
QString exact(const QString& column)
{
    return u'(' + column + QStringLiteral(" || '')");
}

// Built from the component's kind table, so the list and the entry form always agree. The codes compare
// exactly, as the component compares them.
QList<ListKind> buildKinds()
{
    const QString f00002 = exact(QStringLiteral("F00002"));
    const auto codeIs = [&](QStringView code) -> QString {
        return f00002 + QStringLiteral(" = ") + quoted(code);
    };
    const QString awaiting =
        exact(QStringLiteral("F00030")) + QStringLiteral(" = ") + quoted(kAwaitingInstruction);
    QList<ListKind> kinds;
    QStringList codes;
    for (const RecordKindEntry& entry : recordKindTable()) {
        QString condition = codeIs(entry.code);
        if (entry.kind == RecordKind::OrderInfo) {
            kinds.prepend(
                {recordKindCaption(entry.kind, kAwaitingInstruction), condition + u" AND " + awaiting});
            condition += QStringLiteral(" AND NOT COALESCE(%1, FALSE)").arg(awaiting);
        }
        kinds.append({recordKindCaption(entry.kind, std::nullopt), condition});
        codes << quoted(entry.code);
    }
    kinds.append({recordKindCaption(RecordKind::ManualInput, std::nullopt),
                  QStringLiteral("(F00002 IS NULL OR %1 NOT IN (%2))").arg(f00002, codes.join(u", "))});
    return kinds;
}

const QList<ListKind>& kinds()
{
    static const QList<ListKind> table = buildKinds();
    return table;
}

} // namespace

QStringList kindCaptions()
{
    QStringList captions;
    for (const ListKind& kind : kinds())
        captions << kind.caption;
    return captions;
}

QString kindCondition(int kind)
{
    return u'(' + kinds().at(kind).condition + u')';
}

QString kindExpression()
{
    QString expression = QStringLiteral("CASE");
    for (int kind = 0; kind < kinds().size() - 1; ++kind)
        expression += QStringLiteral(" WHEN %1 THEN %2").arg(kinds().at(kind).condition).arg(kind);
    return expression + QStringLiteral(" ELSE %1 END").arg(kinds().size() - 1);
}

} // namespace tolvinpt::host
