#include "platform/widgets/field_state.h"

#include "platform/widgets/guarded_event_filter.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPalette>

namespace tolvinpt {
namespace {

constexpr const char* LockedProperty = "tolvinptLocked";

QColor resolve(SystemColour colour)
{
    const QPalette p = QApplication::palette();
    switch (colour) {
    case SystemColour::WindowBackground:
        return p.color(QPalette::Base);
    case SystemColour::ButtonFace:
        return p.color(QPalette::Button);
    case SystemColour::Highlight:
        return p.color(QPalette::Highlight);
    case SystemColour::WindowText:
        return p.color(QPalette::WindowText);
    }
    return {};
}

// Swallows what would change a locked combo box; navigation keys that leave it still pass.
class ComboLock final : public GuardedEventFilter
{
    Q_OBJECT

public:
    using GuardedEventFilter::GuardedEventFilter;

private:
    bool filter(QObject* watched, QEvent* event) override
    {
        if (!watched->property(LockedProperty).toBool())
            return false;
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
            return true;
        case QEvent::KeyPress: {
            const int key = static_cast<QKeyEvent*>(event)->key();
            return key != Qt::Key_Tab && key != Qt::Key_Backtab;
        }
        default:
            return false;
        }
    }
};

} // namespace

void setLocked(QWidget* field, bool locked)
{
    field->setProperty(LockedProperty, locked);
    if (auto* edit = qobject_cast<QLineEdit*>(field)) {
        edit->setReadOnly(locked);
        return;
    }
    if (auto* combo = qobject_cast<QComboBox*>(field)) {
        if (!combo->findChild<ComboLock*>(QString(), Qt::FindDirectChildrenOnly)) {
            auto* lock = new ComboLock(combo);
            combo->installEventFilter(lock);
        }
        if (combo->lineEdit()) {
            combo->lineEdit()->setReadOnly(locked);
            combo->lineEdit()->setProperty(LockedProperty, locked);
            if (!combo->lineEdit()->findChild<ComboLock*>(QString(), Qt::FindDirectChildrenOnly))
                combo->lineEdit()->installEventFilter(new ComboLock(combo->lineEdit()));
        }
    }
}

bool isLocked(const QWidget* field)
{
    return field->property(LockedProperty).toBool();
}

void setTabStop(QWidget* field, bool tabStop)
{
    field->setFocusPolicy(tabStop ? Qt::StrongFocus : Qt::ClickFocus);
}

bool isTabStop(const QWidget* field)
{
    return (field->focusPolicy() & Qt::TabFocus) != 0;
}

void setBackground(QWidget* field, SystemColour colour)
{
    QPalette p = field->palette();
    p.setColor(QPalette::Base, resolve(colour));
    field->setPalette(p);
}

void setCaptionColour(QWidget* label, SystemColour colour)
{
    QPalette p = label->palette();
    p.setColor(QPalette::WindowText, resolve(colour));
    label->setPalette(p);
}

void setGrey(QWidget* field)
{
    setLocked(field, true);
    setBackground(field, SystemColour::ButtonFace);
    setTabStop(field, false);
}

} // namespace tolvinpt

#include "field_state.moc"
