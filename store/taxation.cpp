#include "store/taxation.h"

#include "platform/values/text.h"

namespace tolvinpt {

namespace {

constexpr std::array<TaxationEntry, 5> table{{
    {u"1", u"1-課税"},
    {u"2", u"2-非課税"},
    {u"3", u"3-免税"},
    {u"4", u"4-経過措置"},
    {u"9", u"9-消費税対象外"},
}};

} // namespace

const std::array<TaxationEntry, 5>& taxationTable()
{
    return table;
}

int taxationIndex(const std::optional<QString>& f00059, const std::optional<QString>& f00281)
{
    if (f00059) {
        for (std::size_t i = 0; i < table.size(); ++i) {
            if (*f00059 == table[i].code)
                return static_cast<int>(i);
        }
    }
    const bool blankCurrency = f00281 && trimBlanks(*f00281).isEmpty();
    return blankCurrency ? TaxableIndex : NonTaxableIndex;
}

QString taxationCodeOfEntry(const QString& listEntry)
{
    return listEntry.left(1);
}

bool isYenCurrency(const std::optional<QString>& f00281)
{
    return !f00281 || trimBlanks(*f00281).isEmpty();
}

} // namespace tolvinpt
