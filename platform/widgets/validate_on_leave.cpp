#include "platform/widgets/validate_on_leave.h"

#include "platform/widgets/guarded.h"
#include "platform/widgets/select_all.h"

#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTimer>

// How it works. Qt announces every focus change to the widget that is about to lose the focus with
// FocusAboutToChange, before anything has moved; that is where the Validate handler runs, so that a
// message box it shows finds the window in a consistent state. Qt then goes on to move the focus; when
// the handler refused, the focus-out of the field and the focus-in of the target are held back in an
// application event filter and the focus is put back into the field from inside that chain, so that Qt
// never delivers the target's focus-in. A click gives the focus before the press is delivered, so the
// press (and its release) of a refused click is dropped too. GotFocus runs on QApplication::focusChanged,
// after the new field has had its focus-in.

namespace tolvinpt {
namespace {

// Focus changes made by the operator inside the window: only these validate.
bool leavesByOperator(Qt::FocusReason reason)
{
    switch (reason) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::MouseFocusReason:
    case Qt::ShortcutFocusReason:
        return true;
    default:
        return false;
    }
}

// Another window (a message box, a popup, another application) took or gave back the focus.
bool windowSwitch(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

QLineEdit* lineEditOf(QWidget* field)
{
    if (auto* edit = qobject_cast<QLineEdit*>(field))
        return edit;
    if (auto* combo = qobject_cast<QComboBox*>(field))
        return combo->lineEdit();
    return nullptr;
}

} // namespace

ValidateOnLeave::ValidateOnLeave(QWidget* window) : QObject(window), m_window(window)
{
    Q_ASSERT(window && window->isWindow());
    qApp->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this,
            guarded([this](QWidget*, QWidget* now) { focusChanged(now); }));
}

ValidateOnLeave::~ValidateOnLeave()
{
    qApp->removeEventFilter(this);
}

ValidateOnLeave* ValidateOnLeave::of(const QWidget* widget)
{
    if (!widget)
        return nullptr;
    return widget->window()->findChild<ValidateOnLeave*>(QString(), Qt::FindDirectChildrenOnly);
}

void ValidateOnLeave::setValidate(QWidget* field, Validate handler)
{
    handlersOf(field)->validate = std::move(handler);
}

void ValidateOnLeave::setGotFocus(QWidget* field, GotFocus handler)
{
    handlersOf(field)->gotFocus = std::move(handler);
}

ValidateOnLeave::Handlers* ValidateOnLeave::handlersOf(QWidget* field)
{
    auto [it, added] = m_fields.try_emplace(field);
    if (added)
        connect(field, &QObject::destroyed, this, guarded([this, field] { forget(field); }));
    return &it->second;
}

void ValidateOnLeave::forget(QWidget* field)
{
    m_fields.erase(field);
}

QWidget* ValidateOnLeave::fieldOf(QWidget* widget) const
{
    for (QWidget* w = widget; w; w = w->isWindow() ? nullptr : w->parentWidget()) {
        if (m_fields.count(w))
            return w;
    }
    return nullptr;
}

bool ValidateOnLeave::ValidateControls()
{
    if (m_validating)
        return true;
    QWidget* field = fieldOf(m_window->focusWidget());
    return !field || runValidate(field);
}

bool ValidateOnLeave::runValidate(QWidget* field)
{
    const auto it = m_fields.find(field);
    if (it == m_fields.end() || !it->second.validate)
        return true;
    const Validate validate = it->second.validate; // the handler may replace itself
    QScopedValueRollback guard(m_validating, true);
    bool cancel = false;
    validate(cancel);
    return !cancel;
}

bool ValidateOnLeave::eventFilter(QObject* watched, QEvent* event)
{
    return guardedCall([&] { return filterEvent(watched, event); }, false);
}

bool ValidateOnLeave::filterEvent(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusAboutToChange:
    case QEvent::FocusOut:
    case QEvent::FocusIn:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::Wheel:
        break;
    default:
        return false;
    }
    if (!watched->isWidgetType())
        return false;
    auto* widget = static_cast<QWidget*>(watched);
    if (widget->window() != m_window)
        return false;

    switch (event->type()) {
    case QEvent::FocusAboutToChange:
        aboutToLeave(widget, static_cast<QFocusEvent*>(event)->reason());
        return false;
    case QEvent::FocusOut:
        return focusOut(widget, static_cast<QFocusEvent*>(event)->reason());
    case QEvent::FocusIn:
        return focusIn(widget, static_cast<QFocusEvent*>(event)->reason());
    default:
        return mouseInput(event);
    }
}

void ValidateOnLeave::aboutToLeave(QWidget* widget, Qt::FocusReason reason)
{
    if (!leavesByOperator(reason) || m_validating || m_refused)
        return;
    QWidget* field = fieldOf(widget);
    // Qt moves the focus away from a field that is being hidden or disabled: that is no leave.
    if (!field || !field->isVisible() || !field->isEnabled())
        return;
    if (runValidate(field))
        return;
    m_refused = field;
    m_refusedKeptFocus = false;
    // Qt moves the focus within this same call; should it not, nothing may stay held back.
    QTimer::singleShot(0, this, [this] { m_refused = nullptr; });
    if (reason == Qt::MouseFocusReason) {
        // The press follows within the same delivery; a later one is a new click.
        m_dropPress = true;
        QTimer::singleShot(0, this, [this] { m_dropPress = false; });
    }
}

bool ValidateOnLeave::focusOut(QWidget* widget, Qt::FocusReason reason)
{
    if (widget == m_phantom) {
        m_phantom = nullptr;
        return true;
    }
    if (m_refused && !m_restoring && fieldOf(widget) == m_refused && !windowSwitch(reason)) {
        m_refusedKeptFocus = true;
        restoreRefusedField();
        return true;
    }
    return false;
}

bool ValidateOnLeave::focusIn(QWidget* widget, Qt::FocusReason reason)
{
    if (m_refused) {
        // The field itself: back from our restore, or its window is active again after a message box.
        if (fieldOf(widget) == m_refused)
            return m_restoring && m_refusedKeptFocus;
        // The field lost the focus to a message box before Qt moved it on: undo the move here.
        if (!m_restoring)
            restoreRefusedField();
        return true;
    }
    if (widget == m_phantom)
        m_phantom = nullptr;
    m_lastFocusInReason = reason;
    return false;
}

void ValidateOnLeave::restoreRefusedField()
{
    QScopedValueRollback guard(m_restoring, true);
    QWidget* field = m_refused;
    QWidget* moved = QApplication::focusWidget();
    if (moved && fieldOf(moved) != field)
        m_phantom = moved;
    // When the window is not active again yet, the field gets its focus-in when it is.
    field->setFocus(Qt::OtherFocusReason);
    m_refused = nullptr;
    m_refusedKeptFocus = false;
}

bool ValidateOnLeave::mouseInput(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel: {
        const bool drop = m_dropPress;
        m_dropPress = false;
        m_dropRelease = drop && event->type() != QEvent::Wheel;
        return drop;
    }
    case QEvent::MouseButtonRelease: {
        const bool drop = m_dropRelease;
        m_dropRelease = false;
        return drop;
    }
    default:
        return false;
    }
}

void ValidateOnLeave::focusChanged(QWidget* now)
{
    if (!now || now->window() != m_window || now == m_phantom || m_refused)
        return;
    QWidget* field = fieldOf(now);
    QWidget* entered = field ? field : now;
    if (entered == m_current)
        return;
    m_current = entered;
    if (!field)
        return;
    if (const GotFocus gotFocus = m_fields[field].gotFocus)
        gotFocus();
    // The click that entered the field would put the caret under the pointer.
    if (m_lastFocusInReason == Qt::MouseFocusReason) {
        if (QLineEdit* edit = lineEditOf(field))
            keepSelectionThroughClick(edit);
    }
}

} // namespace tolvinpt
