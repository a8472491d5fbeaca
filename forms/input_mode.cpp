#include "forms/input_mode.h"

#include "platform/widgets/guarded_event_filter.h"

#include <QComboBox>
#include <QEvent>
#include <QLineEdit>

namespace tolvinpt {
namespace {

// QLineEdit turns its input method back on whenever it becomes writable again.
class KeepInputMethodOff final : public GuardedEventFilter
{
public:
    using GuardedEventFilter::GuardedEventFilter;

private:
    bool filter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ReadOnlyChange || event->type() == QEvent::EnabledChange)
            static_cast<QWidget*>(watched)->setAttribute(Qt::WA_InputMethodEnabled, false);
        return false;
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
