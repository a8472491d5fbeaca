#include "forms/input_mode.h"

#include "platform/widgets/guarded_event_filter.h"

#include <QComboBox>
#include <QEvent>
#include <QInputMethodQueryEvent>
#include <QLineEdit>

namespace tolvinpt {
namespace {

// QLineEdit turns its input method back on whenever it becomes writable again, an item view with every
// focus and current cell: the platform's question whether the field takes an input method is answered
// no here, and input-method text that still arrives is dropped.
class KeepInputMethodOff final : public GuardedEventFilter
{
public:
    using GuardedEventFilter::GuardedEventFilter;

private:
    bool filter(QObject* watched, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::ReadOnlyChange:
        case QEvent::EnabledChange:
            static_cast<QWidget*>(watched)->setAttribute(Qt::WA_InputMethodEnabled, false);
            return false;
        case QEvent::InputMethodQuery: {
            auto* query = static_cast<QInputMethodQueryEvent*>(event);
            if (query->queries() != Qt::ImEnabled)
                return false;
            query->setValue(Qt::ImEnabled, false);
            return true;
        }
        case QEvent::InputMethod:
            return true;
        default:
            return false;
        }
    }
};

void apply(QWidget* w, InputMode mode)
{
    switch (mode) {
    case InputMode::Default:
        return;
    case InputMode::Off:
        w->setInputMethodHints(Qt::ImhPreferLatin | Qt::ImhNoPredictiveText);
        return;
    case InputMode::Hiragana:
        w->setInputMethodHints(Qt::ImhNone);
        return;
    case InputMode::Disabled:
        w->setInputMethodHints(Qt::ImhNoPredictiveText);
        w->setAttribute(Qt::WA_InputMethodEnabled, false);
        w->installEventFilter(new KeepInputMethodOff(w));
        return;
    }
}

} // namespace

void applyInputMode(QWidget* field, InputMode mode)
{
    apply(field, mode);
    if (auto* combo = qobject_cast<QComboBox*>(field); combo && combo->lineEdit())
        apply(combo->lineEdit(), mode);
}

} // namespace tolvinpt
