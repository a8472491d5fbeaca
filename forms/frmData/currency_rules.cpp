// Currency code: typing, completion, name following and the check on leaving.
#include "forms/frmData/currency_rules.h"

#include "forms/frmData/frmData.h"
#include "platform/values/text.h"
#include "platform/widgets/event_guard.h"
#include "platform/widgets/guarded.h"
#include "platform/widgets/key_filter.h"
#include "platform/widgets/messages.h"
#include "platform/widgets/select_all.h"
#include "platform/widgets/validate_on_leave.h"

#include <QComboBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace tolvinpt::frmdata {
namespace {

constexpr QStringView Yen = u"JPY";
constexpr int MaxCodeBytes = 3;
constexpr QStringView CodeTooLong = u"通貨 ｺｰﾄﾞ には、半角 3 文字まで入力可能です";
constexpr QStringView CodeCheckTitle = u"通貨ｺｰﾄﾞ ﾁｪｯｸ...";
constexpr QStringView PriceBeforeYen =
    u"通貨を「日本円」に変更する場合は、\r\n単価を変更してから、通貨ｺｰﾄﾞを指定してください";
constexpr QStringView PriceBeforeYenTitle = u"通貨ｺｰﾄﾞ & 単価 ﾁｪｯｸ...";

QComboBox* currencyCombo(const frmData& form)
{
    return form.control<QComboBox>(u"cobCurrency"_s);
}

void cobCurrency_Validate(frmData& form, bool& cancel)
{
    QComboBox* combo = currencyCombo(form);
    // Kept as it will be stored: no half of a character.
    if (const QString whole = wholeCharacters(combo->currentText()); whole != combo->currentText()) {
        EventGuard notSeek(form.NotSeek);
        combo->setEditText(whole);
    }
    const QString code = trimBlanks(combo->currentText());
    if (code.isEmpty()) {
        combo->setCurrentIndex(0);
        combo->setEditText(combo->itemText(0));
    } else if (cp932ByteLength(code) > MaxCodeBytes) {
        showExclamation(CodeTooLong.toString(), CodeCheckTitle.toString());
        cancel = true;
        return;
    }
    // Only the exact code: "JPY " is a code of its own, although the price rule reads it as yen.
    if (combo->currentText() == Yen) {
        // A foreign price may be too large for yen; the price rule says so, then this box says why.
        form.txtUnitPrice_Validate(cancel);
        if (cancel)
            showInformation(PriceBeforeYen.toString(), PriceBeforeYenTitle.toString());
    }
}

} // namespace

bool pricedInYen(const frmData& form)
{
    return trimBlanks(currencyCombo(form)->currentText()) == Yen;
}

void installCurrencyRules(frmData& form)
{
    QComboBox* combo = currencyCombo(form);
    setKeyPress(combo, upperCaseLetter);
    form.leave().setGotFocus(combo, [combo] { SelectAllText(combo); });
    // Connected after the catalogue's marks, which set bChanged for both.
    QObject::connect(combo, &QComboBox::editTextChanged, &form, guarded(&form, &frmData::cobCurrency_Change));
    QObject::connect(combo, &QComboBox::currentIndexChanged, &form,
                     guarded(&form, &frmData::cobCurrency_Click));
    form.leave().setValidate(combo, [&form](bool& cancel) { cobCurrency_Validate(form, cancel); });
}

} // namespace tolvinpt::frmdata

namespace tolvinpt {

// Runs on every change of the code's text, typed or assigned. The first listed code that starts with
// the text left of the caret is selected and its remaining letters selected, so that typing goes on
// over them; without one the text is cut back to that prefix and the name shows "その他".
void frmData::cobCurrency_Change()
{
    if (NotSeek)
        return;
    QComboBox* combo = frmdata::currencyCombo(*this);
    QLineEdit* edit = combo->lineEdit();
    int prefixLength = edit->hasSelectedText() ? edit->selectionStart() : edit->cursorPosition();
    if (CurrencyPrefixLength != 0) {
        // The nested change of cutting the text back: keep the caret after the prefix.
        edit->setCursorPosition(CurrencyPrefixLength);
        prefixLength = CurrencyPrefixLength;
    }
    const QString prefix = edit->text().left(prefixLength);
    const int match = prefix.isEmpty() ? -1 : combo->findText(prefix, Qt::MatchStartsWith);

    const bool reselected = combo->currentIndex() == match;
    {
        // Showing the chosen item's code is no new typing to complete.
        EventGuard notSeek(NotSeek);
        // Qt writes the item's text (none for no item) even when the index stays: only on a change.
        if (!reselected)
            combo->setCurrentIndex(match);
        if (match >= 0)
            combo->setEditText(combo->itemText(match));
    }
    if (reselected)
        cobCurrency_Click();

    if (match < 0) {
        CurrencyPrefixLength = qint16(prefixLength);
        combo->setEditText(prefix);
        auto* names = control<QComboBox>(u"cobCurrencyName"_s);
        names->setCurrentIndex(names->count() - 1);
    }
    edit->setSelection(prefixLength, edit->text().size());
    CurrencyPrefixLength = 0;
}

// The name follows the code; a code outside the list has the last name, "その他".
void frmData::cobCurrency_Click()
{
    auto* names = control<QComboBox>(u"cobCurrencyName"_s);
    const int index = frmdata::currencyCombo(*this)->currentIndex();
    names->setCurrentIndex(index < 0 ? names->count() - 1 : index);
}

} // namespace tolvinpt
