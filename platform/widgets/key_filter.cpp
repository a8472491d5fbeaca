#include "platform/widgets/key_filter.h"

#include "platform/widgets/guarded_event_filter.h"
#include "platform/widgets/messages.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>

namespace tolvinpt {
namespace {

bool isControl(char32_t c)
{
    return c < 0x20 || c == 0x7f;
}

bool isPrintableSingleByte(char32_t c)
{
    return c >= 0x20 && c <= 0x7e;
}

bool isDigit(char32_t c)
{
    return c >= U'0' && c <= U'9';
}

// Filters the key presses of one field. Installed on the field and, for a combo box, on its line edit
// too: the combo box hands its keys to the line edit without passing that widget's event filters, and
// keys sent to the line edit itself never pass the combo box.
class KeyFilter final : public GuardedEventFilter
{
    Q_OBJECT

public:
    explicit KeyFilter(QWidget* field) : GuardedEventFilter(field) {}

    KeyPress handler;

private:
    bool filter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress || m_forwarding || !handler)
            return false;
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
            return false;
        const QString typed = key->text();
        if (typed.isEmpty())
            return false;

        QString inserted;
        for (const char32_t c : typed.toUcs4()) {
            const char32_t result = isControl(c) ? c : handler(c);
            if (result == 0)
                messages().beep();
            else
                inserted += QStringView(QChar::fromUcs4(result));
        }
        if (inserted == typed)
            return false;
        if (!inserted.isEmpty()) {
            // Typed, not inserted by code: the field applies its length limit, overwrite mode and undo.
            QKeyEvent replaced(QEvent::KeyPress, key->key(), key->modifiers(), inserted, key->isAutoRepeat(),
                               key->count());
            QScopedValueRollback guard(m_forwarding, true);
            QCoreApplication::sendEvent(watched, &replaced);
        }
        return true;
    }

    bool m_forwarding = false;
};

} // namespace

void setKeyPress(QWidget* field, KeyPress handler)
{
    auto* filter = field->findChild<KeyFilter*>(QString(), Qt::FindDirectChildrenOnly);
    if (!filter) {
        filter = new KeyFilter(field);
        field->installEventFilter(filter);
        if (auto* combo = qobject_cast<QComboBox*>(field); combo && combo->lineEdit())
            combo->lineEdit()->installEventFilter(filter);
    }
    filter->handler = std::move(handler);
}

char32_t numberKey(char32_t typed)
{
    if (isPrintableSingleByte(typed) && !isDigit(typed) && typed != U'.')
        return 0;
    return typed;
}

char32_t digitKey(char32_t typed)
{
    if (isPrintableSingleByte(typed) && !isDigit(typed))
        return 0;
    return typed;
}

char32_t upperCaseLetter(char32_t typed)
{
    if (typed >= U'a' && typed <= U'z')
        return typed - U'a' + U'A';
    return typed;
}

char32_t upperCase(char32_t typed)
{
    return QChar::toUpper(typed);
}

} // namespace tolvinpt

#include "key_filter.moc"
