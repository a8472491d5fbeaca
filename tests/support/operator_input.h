#pragma once

// Input as the operator gives it, through real widgets: a window shown and active, clicks that come
// through the window system, typed keys one at a time.

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace tolvinpt::test {

// Shows `window` and waits until it is the active one.
[[nodiscard]] inline bool showActive(QWidget* window)
{
    window->show();
    window->activateWindow();
    return QTest::qWaitForWindowActive(window);
}

// A click as the window system delivers it: through the window, at `at` in `target` (its centre).
inline void clickThrough(QWidget* target, std::optional<QPoint> at = {})
{
    QWidget* window = target->window();
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                      target->mapTo(window, at.value_or(target->rect().center())));
}

// Types `text` into `into` (the focus widget unless given) one key per character, as a keyboard delivers
// it, so that key rules see every one.
inline void typeText(const QString& text, QWidget* into = nullptr)
{
    for (const char32_t c : text.toUcs4())
        QTest::sendKeyEvent(QTest::Click, into ? into : QApplication::focusWidget(),
                            c < 0x80 ? QTest::asciiToKey(char(c)) : Qt::Key_unknown, QString::fromUcs4(&c, 1),
                            Qt::NoModifier);
}

// While it lives: runs `act` on every `Dialog` shown, once it is up, then rejects the dialog if it is still
// up, so that a failed expectation never leaves a test waiting in the dialog's event loop.
template <class Dialog> class WhenShown final : public QObject
{
public:
    explicit WhenShown(std::function<void(Dialog&)> act = {}) : m_act(std::move(act))
    {
        qApp->installEventFilter(this);
    }
    int shown() const { return *m_shown; }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* dialog = qobject_cast<Dialog*>(object);
        if (dialog && event->type() == QEvent::Show) {
            QTimer::singleShot(0, dialog, [dialog, act = m_act, shown = m_shown] {
                ++*shown;
                if (act)
                    act(*dialog);
                if (dialog->isVisible())
                    dialog->reject();
            });
        }
        return false;
    }

private:
    std::function<void(Dialog&)> m_act;
    std::shared_ptr<int> m_shown = std::make_shared<int>(0);
};

} // namespace tolvinpt::test
