#pragma once

// Validate-on-leave and GotFocus for the fields of one window.
//
// A field's Validate handler runs when the operator moves the focus from that field to another control
// of the same window that takes focus: by Tab, Shift+Tab, a mouse click (or the wheel on a wheel-focus
// control) or a label's mnemonic. When the handler sets `cancel`, the focus stays in the field and the
// control that would have received it sees nothing: no focus-in event, no GotFocus, no selection, and
// the click that tried to enter it is dropped as well.
//
// Not validated: toolbar buttons and menu items (they take no focus), a button pressed by its mnemonic
// or as the default button by Enter (Qt clicks it without moving the focus), focus changes made by code
// (setFocus with Qt::OtherFocusReason), and focus lost because another window became active (a message
// box, another application). Commands that need a validated field call ValidateControls().
//
// A field is a registered widget with everything inside it: an editable combo box is one field with its
// line edit and its popup. One mechanism per window; every form uses it.

#include <QObject>
#include <QPointer>

#include <functional>
#include <unordered_map>

class QWidget;

namespace tolvinpt {

class ValidateOnLeave final : public QObject
{
    Q_OBJECT

public:
    // Sets `cancel` to refuse the field's value and keep the focus in it.
    using Validate = std::function<void(bool& cancel)>;
    // Runs when the focus enters the field from another control (or when the window first focuses it),
    // after the field has received its focus-in event. Not when the focus only returns after another
    // window was active, and never for the target of a refused leave.
    using GotFocus = std::function<void()>;

    // Watches the fields of `window` (a top-level widget); owned by it.
    explicit ValidateOnLeave(QWidget* window);
    ~ValidateOnLeave() override;

    // The mechanism of `widget`'s window, or null when that window has none.
    static ValidateOnLeave* of(const QWidget* widget);

    // Registers the handler of `field` (a widget of this window); replaces an earlier one, null removes it.
    void setValidate(QWidget* field, Validate handler);
    void setGotFocus(QWidget* field, GotFocus handler);

    // Runs the Validate handler of the focused field as if the operator left it, without moving the
    // focus. True when the value was accepted, or when no field with a handler has the focus. Inside a
    // running Validate handler it returns true at once and runs nothing.
    bool ValidateControls();
    // Runs the Validate handler of `field` as if the operator left it, wherever the focus is; true when
    // the value was accepted or the field has no handler.
    bool validate(QWidget* field) { return runValidate(field); }

    // The registered field that holds `widget` (the widget itself, an ancestor, or a combo box around its
    // line edit), or null.
    QWidget* fieldOf(QWidget* widget) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool filterEvent(QObject* watched, QEvent* event);
    struct Handlers
    {
        Validate validate;
        GotFocus gotFocus;
    };

    Handlers* handlersOf(QWidget* field);
    void forget(QWidget* field);
    bool runValidate(QWidget* field);
    void aboutToLeave(QWidget* widget, Qt::FocusReason reason);
    bool focusOut(QWidget* widget, Qt::FocusReason reason);
    bool focusIn(QWidget* widget, Qt::FocusReason reason);
    bool mouseInput(QEvent* event);
    void restoreRefusedField();
    void focusChanged(QWidget* now);

    QWidget* m_window;
    std::unordered_map<QWidget*, Handlers> m_fields;

    bool m_validating = false;
    bool m_restoring = false;
    // The field whose leave was refused, until the focus is back in it.
    QPointer<QWidget> m_refused;
    // The refused field's focus-out was held back, so its focus-in on return is held back too.
    bool m_refusedKeptFocus = false;
    // A widget that Qt made the focus widget while a refused leave was undone, but that never saw a
    // focus-in; its focus-out is held back as well.
    QPointer<QWidget> m_phantom;
    // Drop the mouse press (or wheel) that caused a refused leave, and then its release.
    bool m_dropPress = false;
    bool m_dropRelease = false;

    // The field (or unregistered widget) that last had the focus, to tell a real entry from a return.
    QPointer<QWidget> m_current;
    Qt::FocusReason m_lastFocusInReason = Qt::OtherFocusReason;
};

} // namespace tolvinpt
