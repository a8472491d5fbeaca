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

// Built from the component's kind table, so the list and the entry form always agree. The columns are
// COLLATE NOCASE: the codes compare as BINARY, as the component compares them.
QList<ListKind> buildKinds()
{
    const auto codeIs = [](QStringView code) {
        return QStringLiteral("F00002 = %1 COLLATE BINARY").arg(quoted(code));
    };
    const QString awaiting = QStringLiteral("F00030 = %1 COLLATE BINARY").arg(quoted(kAwaitingInstruction));
    QList<ListKind> kinds;
    QStringList codes;
    for (const RecordKindEntry& entry : recordKindTable()) {
        QString condition = codeIs(entry.code);
        if (entry.kind == RecordKind::OrderInfo) {
            kinds.prepend(
                {recordKindCaption(entry.kind, kAwaitingInstruction), condition + u" AND " + awaiting});
            condition += QStringLiteral(" AND NOT IFNULL(%1, 0)").arg(awaiting);
        }
        kinds.append({recordKindCaption(entry.kind, std::nullopt), condition});
        codes << quoted(entry.code);
    }
    kinds.append(
        {recordKindCaption(RecordKind::ManualInput, std::nullopt),
         QStringLiteral("(F00002 IS NULL OR F00002 COLLATE BINARY NOT IN (%1))").arg(codes.join(u", "))});
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
